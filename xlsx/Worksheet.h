// A sheet of cells. Its XML goes to its part file while the caller fills it, so a sheet takes no memory for its cells
// except for the places of its formulas.
#pragma once

#include "xlsx/CellReference.h"
#include "xlsx/Comment.h"
#include "xlsx/Package.h"
#include "xlsx/PageLine.h"
#include "xlsx/Refusals.h"
#include "xlsx/SharedStrings.h"
#include "xlsx/Sheet.h"
#include "xlsx/SheetSettings.h"
#include "xlsx/StyleRegistry.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Xlsx {

/// What a worksheet shares with its workbook, which outlives it.
struct WorksheetContext {
    Package& package;
    SharedStrings& strings;
    CommentList& comments;
    const CStyleRegistry& styles;
    Refusals& refusals;
};

/// Rows are filled from the first one on, the cells of a row from the first column on. Text is UTF-8. What does not fit
/// a sheet (a cell outside a row, row 1,048,577, column 16,385, a text of more than MostCellLetters, what a comment
/// below names) is left out, and the workbook's Save then answers false with the reason.
class CWorksheet final : public CSheet {
public:
    CWorksheet(unsigned id, const std::string& title, CDrawing& drawing, const WorksheetContext& context,
               const std::vector<ColumnWidth>& columns, const SheetView& view);

    /// Starts the next row; one that is open is ended first.
    /// height  in points, at most MostRowHeight; 0 or less: the default
    void BeginRow(double height = 0);
    void EndRow();

    /// A text that begins with "=" and goes on is a formula, any other is kept as it is. An empty text without style
    /// leaves its column free. A formula has at most MostFormulaLetters.
    /// style  an index that the workbook's AddStyle gave; 0: the default
    void AddCell(const std::string& text, unsigned style = 0);
    void AddCell(const char* text, unsigned style = 0) { AddCell(std::string(text), style); }
    void AddCell(const std::wstring& text, unsigned style = 0);
    /// Kept with 6 significant digits. An infinity becomes the error #DIV/0!, not-a-number becomes #NUM!.
    void AddCell(double number, unsigned style = 0);

    /// Compared with every range merged before: none may overlap.
    /// reference  such as "A1:B2", more than one cell; see RangeReference
    void MergeCells(const std::string& reference);
    void SetPageSetup(const PageSetup& setup) { pageSetup = setup; }
    /// What each printed page bears in its upper and lower margin. Where neither says the size of its letters, they
    /// keep their size on a scaled page.
    void SetPageHeader(const PageLine& line) { SetPageLine(pageHeader, line); }
    void SetPageFooter(const PageLine& line) { SetPageLine(pageFooter, line); }
    /// A new page begins below that many rows, or right of that many columns: at least 1, fewer than the sheet has, and
    /// at most MostBreaks of each kind.
    void AddRowBreak(unsigned rows) { AddBreak(rowBreaks, rows, MostRows); }
    void AddColumnBreak(unsigned columns) { AddBreak(columnBreaks, columns, MostColumns); }
    void AddComment(const Comment& comment);

    [[nodiscard]] const std::vector<CellPlace>& GetFormulaCells() const { return formulaCells; }

    /// Called by the workbook: writes what follows the rows, and the sheet's relationships. False when anything of the
    /// sheet could not be written.
    [[nodiscard]] bool Finish();
    /// Called by the workbook: closes the part file; later calls write nothing.
    void Abandon();

private:
    void Refuse(const std::string& what);
    [[nodiscard]] bool TakesCell(std::string_view text, unsigned style);
    void AddBreak(std::set<unsigned>& breaks, unsigned after, unsigned end);
    void CheckView(const std::vector<ColumnWidth>& columns, const SheetView& view);
    void WriteBeginning(const std::vector<ColumnWidth>& columns, const SheetView& view);
    void StartCell(unsigned style);
    void WriteFormula(std::string_view formula, unsigned style);
    void WriteSharedText(const std::string& text, unsigned style);
    void WriteEnd();
    void WritePage();
    void WriteHeaderAndFooter();
    void SetPageLine(std::string& code, const PageLine& line) {
        code = PageLineCode(line);
        scalesPageLines = scalesPageLines || line.sizePoints > 0;
    }
    void WriteReferences();
    [[nodiscard]] bool WriteSheetRelationships();

    WorksheetContext context;
    PartFile part;
    XmlWriter xml;
    std::string columnLetters; // of the current cell's column
    std::vector<CellRange> mergedRanges;
    std::set<unsigned> rowBreaks;
    std::set<unsigned> columnBreaks;
    std::vector<CellPlace> formulaCells;
    PageSetup pageSetup;
    std::string pageHeader; // codes, see PageLine.h
    std::string pageFooter;
    bool scalesPageLines = false;
    PageScale pageScale;
    unsigned row = 0;    // 1-based number of the current row
    unsigned column = 0; // 0-based, of the next cell
    bool isInRow = false;
};

} // namespace Xlsx
