// A spreadsheet workbook, written and never read: sheets are added and filled row by row, then Save packs all of it
// into one file. See docs/workbook.md.
#pragma once

#include "xlsx/Anchor.h"
#include "xlsx/WorkbookContent.h"

#include <memory>
#include <string>
#include <vector>

namespace Xlsx {

/// Owns its sheets and charts; what it hands out lives as long as it does. Text is UTF-8. A failure on the way (a full
/// disk, a picture that is missing, a name that spreadsheet programs refuse) shows in the answer of Save. For use by
/// one thread; several workbooks at the same time do not disturb each other.
class CWorkbook {
public:
    /// author  empty: the value of "USERNAME", or "Unknown"
    /// files   outlives the workbook
    explicit CWorkbook(const std::string& author = {},
                       platform::FileLayer& files = platform::GetOperatingSystemFiles());
    /// A workbook that was not saved leaves nothing behind.
    ~CWorkbook();
    CWorkbook(const CWorkbook&) = delete;
    CWorkbook& operator=(const CWorkbook&) = delete;

    /// title    see IsSheetName; empty: "Sheet 1". No two sheets may have names that differ in case only
    /// columns  in ascending order, not overlapping
    CWorksheet& AddSheet(const std::string& title, const std::vector<ColumnWidth>& columns = {},
                         const SheetView& view = {});
    CWorksheet& AddSheet(const std::wstring& title, const std::vector<ColumnWidth>& columns = {},
                         const SheetView& view = {});
    CChartsheet& AddChartsheet(const std::string& title);

    /// Places a new chart on a sheet of this workbook.
    CChart& AddChart(CWorksheet& sheet, const Anchor& anchor);
    /// Copies the picture file at once and places it on a sheet of this workbook.
    void AddPicture(CWorksheet& sheet, const std::wstring& path, ImageKind kind, const Anchor& anchor);

    /// Index to pass with each cell; equal records have the same one.
    unsigned AddStyle(const Style& style);

    /// The sheet may come later. A formula has at most MostFormulaLetters.
    void DefineName(const DefinedName& name);

    /// position  among all sheets in the order of their creation, from 0; one too large counts as 0
    void SetActiveSheet(unsigned position);

    /// Writes the file; one of that name is replaced only when the new one is whole, and keeps its permissions. A
    /// symbolic link is followed; a folder, a device or a pipe is refused. To be called once: the sheets are spent
    /// afterwards, whatever the answer is. returns  false when there is no sheet, anything could not be written, or
    /// something did not fit
    [[nodiscard]] bool Save(const std::wstring& path);
    /// Why Save answered false, in English words for a report of errors, with the name of what it is about.
    [[nodiscard]] const std::string& GetFailure() const;

private:
    CDrawing& NewDrawing();
    CChart& NewChart();
    void CheckSheetName(const std::string& title);
    void CheckDefinedNames();
    [[nodiscard]] bool PackInto(const std::wstring& path);
    [[nodiscard]] bool WriteParts();
    [[nodiscard]] bool WriteSheets();

    std::unique_ptr<WorkbookContent> content;
    bool isSpent = false;
};

} // namespace Xlsx
