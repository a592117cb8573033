// Comments of cells, each with the note's box.
#pragma once

#include "xlsx/CellReference.h"
#include "xlsx/Style.h"

#include <map>
#include <string>
#include <vector>

namespace Xlsx {

struct TextRun {
    std::string text;
    Font font;
};

enum class NoteView { Hidden, Shown };

/// A note's box in points from the sheet's upper left corner.
struct NoteBox {
    double left = 60;
    double top = 5;
    double width = 108;
    double height = 60;
};

struct Comment {
    CellPlace place;
    std::string author; ///< empty: the workbook's
    std::vector<TextRun> text;
    NoteBox box;
    NoteView view = NoteView::Hidden;
};

/// The workbook's comments by sheet id.
class CommentList {
public:
    /// A later comment of the same cell takes the place of the earlier one.
    void Add(unsigned sheetId, Comment comment);
    [[nodiscard]] bool HasComments(unsigned sheetId) const { return sheets.count(sheetId) != 0; }
    [[nodiscard]] const std::map<unsigned, std::vector<Comment>>& GetSheets() const { return sheets; }

private:
    std::map<unsigned, std::vector<Comment>> sheets;
    std::map<std::string, std::size_t> positions; // by sheet id and cell
};

} // namespace Xlsx
