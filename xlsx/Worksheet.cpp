#include "xlsx/Worksheet.h"

#include "platform/Text.h"
#include "xlsx/Names.h"
#include "xlsx/Relationships.h"

#include <charconv>
#include <cmath>

namespace Xlsx {

namespace {

constexpr const char* DrawingId = "rId1";
constexpr const char* NoteDrawingId = "rId2";
constexpr const char* CommentsId = "rId3";

// A cell reference or an index, without an allocation.
struct ShortText {
    char letters[24];
    std::size_t size = 0;

    void Append(std::string_view text) { size += text.copy(letters + size, sizeof letters - size); }
    void Append(unsigned number) {
        size = static_cast<std::size_t>(std::to_chars(letters + size, letters + sizeof letters, number).ptr - letters);
    }
    [[nodiscard]] std::string_view View() const { return {letters, size}; }
};

// "A" to "Z", "AA" and so on.
void AdvanceLetters(std::string& letters) {
    for (auto letter = letters.rbegin(); letter != letters.rend(); ++letter) {
        if (*letter != 'Z') {
            ++*letter;
            return;
        }
        *letter = 'A';
    }
    letters += 'A';
}

void WriteView(XmlWriter& xml, const SheetView& view) {
    xml.Start("sheetViews");
    xml.Start("sheetView", {{"tabSelected", 0}, {"showGridLines", 1}, {"workbookViewId", 0}});
    if (view.frozenPane && (view.frozenPane->rows > 0 || view.frozenPane->columns > 0)) {
        const FrozenPane& pane = *view.frozenPane;
        const bool hasRows = pane.rows > 0;
        xml.Start("pane");
        if (pane.columns > 0) xml.Attribute({"xSplit", pane.columns});
        if (hasRows) xml.Attribute({"ySplit", pane.rows});
        xml.Attribute({"topLeftCell", CellReference({pane.rows, pane.columns})});
        xml.Attribute({"activePane", pane.columns == 0 ? "bottomLeft" : hasRows ? "bottomRight" : "topRight"});
        xml.Attribute({"state", "frozen"});
        xml.End();
    }
    xml.End();
    xml.End();
}

void WriteColumns(XmlWriter& xml, const std::vector<ColumnWidth>& columns) {
    if (columns.empty()) return;
    xml.Start("cols");
    for (const ColumnWidth& column : columns) {
        xml.Leaf("col", {{"min", column.first}, {"max", column.last}, {"width", column.width}});
    }
    xml.End();
}

// In ascending order and apart, each as wide as a program can show it.
bool AreSound(const std::vector<ColumnWidth>& columns) {
    unsigned taken = 0;
    for (const ColumnWidth& column : columns) {
        const bool isWidth = column.width >= 0 && column.width <= MostColumnWidth;
        if (column.first <= taken || column.last < column.first || column.last > MostColumns || !isWidth) return false;
        taken = column.last;
    }
    return true;
}

void WriteBreaks(XmlWriter& xml, const char* name, const std::set<unsigned>& breaks, unsigned last) {
    if (breaks.empty()) return;
    xml.Start(name, {{"manualBreakCount", breaks.size()}});
    for (const unsigned each : breaks) {
        xml.Leaf("brk", {{"id", each}, {"max", last}, {"man", 1}});
    }
    xml.End();
}

} // namespace

CWorksheet::CWorksheet(unsigned id, const std::string& title, CDrawing& drawing, const WorksheetContext& context,
                       const std::vector<ColumnWidth>& columns, const SheetView& view)
    : CSheet(id, title.empty() ? "Sheet 1" : title, drawing), context(context),
      part(context.package.CreatePart("/xl/worksheets/" + GetFileName())), xml(part), pageScale(view.pageScale) {
    CheckView(columns, view);
    WriteBeginning(columns, view);
}

void CWorksheet::Refuse(const std::string& what) {
    context.refusals.Add("sheet '" + GetTitle() + "': " + what);
}

void CWorksheet::CheckView(const std::vector<ColumnWidth>& columns, const SheetView& view) {
    if (!AreSound(columns)) Refuse("column widths that overlap, do not ascend, or are none");
    if (view.frozenPane && !IsInSheet({view.frozenPane->rows, view.frozenPane->columns}))
        Refuse("a frozen pane outside the sheet");
}

void CWorksheet::WriteBeginning(const std::vector<ColumnWidth>& columns, const SheetView& view) {
    xml.Declaration();
    xml.Start("worksheet", {{"xmlns", Names::Main},
                            {"xmlns:r", Names::Relationships},
                            {"xmlns:mc", Names::Compatibility},
                            {"mc:Ignorable", "x14ac"},
                            {"xmlns:x14ac", Names::SheetExtension}});
    if (pageScale == PageScale::FitWidth) {
        xml.Start("sheetPr");
        xml.Leaf("pageSetUpPr", {{"fitToPage", 1}});
        xml.End();
    }
    xml.Leaf("dimension", {{"ref", "A1"}});
    WriteView(xml, view);
    xml.Leaf("sheetFormatPr", {{"defaultRowHeight", 15}, {"x14ac:dyDescent", 0.25}});
    WriteColumns(xml, columns);
    xml.Start("sheetData");
}

void CWorksheet::BeginRow(double height) {
    EndRow();
    if (row >= MostRows) return Refuse("more than " + std::to_string(MostRows) + " rows");
    if (height > MostRowHeight) Refuse("row " + std::to_string(row + 1) + " of " + NumberText(height) + " points");
    isInRow = true;
    ++row;
    column = 0;
    columnLetters = "A";
    ShortText number;
    number.Append(row);
    xml.Start("row");
    xml.PlainAttribute("r", number.View());
    xml.PlainAttribute("x14ac:dyDescent", "0.25");
    if (height > 0 && std::isfinite(height)) {
        xml.Attribute({"ht", height});
        xml.PlainAttribute("customHeight", "1");
    }
}

void CWorksheet::EndRow() {
    if (isInRow) xml.End();
    isInRow = false;
}

bool CWorksheet::TakesCell(std::string_view text, unsigned style) {
    const bool isFormula = text.size() > 1 && text.front() == '=';
    const std::size_t most = isFormula ? MostFormulaLetters + 1 : MostCellLetters;
    const bool isTooLong = text.size() > most && LetterCount(text) > most; // a letter is a byte or more
    const bool isStyle = style < context.styles.GetCellFormats().size();
    if (isInRow && column < MostColumns && !isTooLong && isStyle) return true;
    if (!isInRow)
        Refuse("a cell outside a row");
    else if (column >= MostColumns)
        Refuse("more than " + std::to_string(MostColumns) + " columns");
    else if (isTooLong)
        Refuse("cell " + columnLetters + std::to_string(row) + " of more than " + std::to_string(most) + " letters");
    else
        Refuse("cell " + columnLetters + std::to_string(row) + " with a style that was not added");
    return false;
}

void CWorksheet::AddCell(const std::string& text, unsigned style) {
    if (!TakesCell(text, style)) return;
    if (text.size() > 1 && text.front() == '=') {
        WriteFormula(std::string_view(text).substr(1), style);
    } else if (!text.empty()) {
        WriteSharedText(text, style);
    } else if (style != 0) {
        StartCell(style);
        xml.End();
    }
    ++column;
    AdvanceLetters(columnLetters);
}

void CWorksheet::AddCell(const std::wstring& text, unsigned style) {
    AddCell(platform::Utf8FromWide(text), style);
}

void CWorksheet::AddCell(double number, unsigned style) {
    if (!TakesCell({}, style)) return;
    StartCell(style);
    const bool isFinite = std::isfinite(number);
    if (!isFinite) xml.PlainAttribute("t", "e");
    xml.Start("v");
    if (isFinite)
        xml.PlainText(NumberText(number));
    else
        xml.PlainText(std::isnan(number) ? "#NUM!" : "#DIV/0!");
    xml.End();
    xml.End();
    ++column;
    AdvanceLetters(columnLetters);
}

void CWorksheet::StartCell(unsigned style) {
    ShortText text;
    text.Append(columnLetters);
    text.Append(row);
    xml.Start("c");
    xml.PlainAttribute("r", text.View());
    if (style == 0) return;
    text.size = 0;
    text.Append(style);
    xml.PlainAttribute("s", text.View());
}

void CWorksheet::WriteFormula(std::string_view formula, unsigned style) {
    StartCell(style);
    xml.TextElement("f", formula);
    xml.End();
    formulaCells.push_back({row - 1, column});
}

void CWorksheet::WriteSharedText(const std::string& text, unsigned style) {
    StartCell(style);
    xml.PlainAttribute("t", "s");
    ShortText index;
    index.Append(context.strings.IndexOf(text));
    xml.Start("v");
    xml.PlainText(index.View());
    xml.End();
    xml.End();
}

void CWorksheet::MergeCells(const std::string& reference) {
    const std::optional<CellRange> range = RangeOf(reference);
    const bool isOne = range && range->first.row == range->last.row && range->first.column == range->last.column;
    if (!range || isOne) return Refuse("'" + reference + "' is no range to merge");
    for (const CellRange& earlier : mergedRanges) {
        if (DoOverlap(earlier, *range))
            return Refuse("merging '" + reference + "' over " + RangeReference(earlier.first, earlier.last));
    }
    mergedRanges.push_back(*range);
}

void CWorksheet::AddBreak(std::set<unsigned>& breaks, unsigned after, unsigned end) {
    if (after == 0 || after >= end) return Refuse("a page break at " + std::to_string(after));
    breaks.insert(after);
    if (breaks.size() > MostBreaks) Refuse("more than " + std::to_string(MostBreaks) + " page breaks of one kind");
}

void CWorksheet::AddComment(const Comment& comment) {
    if (!IsInSheet(comment.place)) return Refuse("a comment outside the sheet");
    context.comments.Add(GetId(), comment);
}

bool CWorksheet::Finish() {
    EndRow();
    WriteEnd();
    return part.Close() && WriteSheetRelationships();
}

void CWorksheet::Abandon() {
    static_cast<void>(part.Close()); // the file is about to be removed
}

void CWorksheet::WriteEnd() {
    xml.End();
    if (!mergedRanges.empty()) {
        xml.Start("mergeCells", {{"count", mergedRanges.size()}});
        for (const CellRange& range : mergedRanges) {
            xml.Leaf("mergeCell", {{"ref", RangeReference(range.first, range.last)}});
        }
        xml.End();
    }
    WritePage();
    WriteBreaks(xml, "rowBreaks", rowBreaks, MostColumns - 1);
    WriteBreaks(xml, "colBreaks", columnBreaks, MostRows - 1);
    WriteReferences();
    xml.End();
}

void CWorksheet::WritePage() {
    xml.Leaf("pageMargins", {{"left", pageSetup.left},
                             {"right", pageSetup.right},
                             {"top", pageSetup.top},
                             {"bottom", pageSetup.bottom},
                             {"header", pageSetup.header},
                             {"footer", pageSetup.footer}});
    xml.Start("pageSetup", {{"paperSize", 9}});
    if (pageScale == PageScale::FitWidth) xml.Attribute({"fitToHeight", 0}); // as many pages as it takes
    xml.Attribute({"orientation", pageSetup.orientation == PageOrientation::Landscape ? "landscape" : "portrait"});
    xml.End();
    WriteHeaderAndFooter();
}

void CWorksheet::WriteHeaderAndFooter() {
    if (pageHeader.empty() && pageFooter.empty()) return;
    xml.Start("headerFooter");
    if (!scalesPageLines) xml.Attribute({"scaleWithDoc", 0});
    if (!pageHeader.empty()) xml.TextElement("oddHeader", pageHeader);
    if (!pageFooter.empty()) xml.TextElement("oddFooter", pageFooter);
    xml.End();
}

void CWorksheet::WriteReferences() {
    if (!GetDrawing().IsEmpty()) xml.Leaf("drawing", {{"r:id", DrawingId}});
    if (context.comments.HasComments(GetId())) xml.Leaf("legacyDrawing", {{"r:id", NoteDrawingId}});
}

bool CWorksheet::WriteSheetRelationships() {
    std::vector<Relationship> relationships;
    if (!GetDrawing().IsEmpty())
        relationships.push_back({DrawingId, Names::Relation::Drawing, GetDrawing().GetTarget()});
    if (context.comments.HasComments(GetId())) {
        const std::string number = std::to_string(GetId());
        relationships.push_back(
            {NoteDrawingId, Names::Relation::VmlDrawing, "../drawings/vmlDrawing" + number + ".vml"});
        relationships.push_back({CommentsId, Names::Relation::Comments, "../comments" + number + ".xml"});
    }
    return WriteRelationships(context.package, "/xl/worksheets/_rels/" + GetFileName() + ".rels", relationships);
}

} // namespace Xlsx
