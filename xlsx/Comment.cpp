#include "xlsx/Comment.h"

#include <utility>

namespace Xlsx {

void CommentList::Add(unsigned sheetId, Comment comment) {
    std::vector<Comment>& comments = sheets[sheetId];
    const std::string key = std::to_string(sheetId) + " " + CellReference(comment.place);
    const auto [entry, isNew] = positions.try_emplace(key, comments.size());
    if (isNew)
        comments.push_back(std::move(comment));
    else
        comments[entry->second] = std::move(comment);
}

} // namespace Xlsx
