// The two parts of a sheet's comments: the texts, and the boxes that show them.
#pragma once

#include "xlsx/Comment.h"
#include "xlsx/Package.h"

namespace Xlsx {

/// "/xl/comments" and "/xl/drawings/vmlDrawing", each with the sheet id, for every sheet that has comments.
/// author  of the comments that name none
[[nodiscard]] bool WriteComments(Package& package, const CommentList& comments, const std::string& author);

} // namespace Xlsx
