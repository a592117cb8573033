#include "src/SpreadsheetReport.h"

#include "platform/Files.h"
#include "platform/Text.h"
#include "src/SpreadsheetStyles.h"
#include "xlsx/Workbook.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>

namespace {

using lca::CellRole;

/// Points. The result sheet's wide columns shrink on a printed page, so its letters are larger.
struct SheetSizes {
    int font;
    double headerHeight, rowHeight;
};

constexpr SheetSizes ResultSizes{13, 48, 30}, MaterialSizes{11, 26, 18};
/// Letters.
constexpr double MaterialWidths[] = {34, 46, 22}, WidestColumn = 90;
constexpr std::size_t ColumnMargin = 2;

/// Below the rows the legend stands in the first column, and the pictures beside it, in the proportions of the
/// palette's charts. Their places are told in absolute lengths, because readers differ in how wide a letter of a column
/// is: the first column is some 215 pixels wide here and 280 there.
constexpr unsigned PieColumn = 1, BarColumn = 4; ///< of their titles, from 0
constexpr std::int64_t EmuPerPixel = Xlsx::emuPerInch / 96;
constexpr std::int64_t PictureHeight = 424 * EmuPerPixel; ///< both then end with the last column
constexpr std::int64_t PieLeft = 285 * EmuPerPixel;
constexpr Xlsx::AnchorSize PieSize{PictureHeight * 350 / 230, PictureHeight};
constexpr Xlsx::AnchorSize BarSize{PictureHeight * 520 / 230, PictureHeight};
constexpr double PictureHeightPoints = static_cast<double>(PictureHeight) / Xlsx::emuPerPoint;
constexpr double LegendRowHeight = 22, FillerRowHeight = 15; ///< points

/// Points from the sheet's top to the pictures: the rows, a gap, and the titles.
double FindPictureTop(const std::vector<lca::SheetRow>& rows) {
    return ResultSizes.headerHeight + ResultSizes.rowHeight * static_cast<double>(rows.size() - 1) + FillerRowHeight +
           ResultSizes.rowHeight;
}

bool IsThere(const ReportPicture& picture) {
    const std::optional<std::string> path = platform::NarrowFromWide(platform::WideFromUtf8(picture.file));
    const std::optional<platform::FileFacts> facts = path ? platform::FactsOf(*path) : std::nullopt;
    return facts && (facts->attributes & platform::Directory) == 0;
}

/// As wide as the longest text wants, within bounds.
std::vector<Xlsx::ColumnWidth> FitColumns(const std::vector<lca::SheetRow>& rows) {
    std::vector<Xlsx::ColumnWidth> widths;
    for (unsigned column = 0; column < std::size(MaterialWidths); ++column) {
        double width = MaterialWidths[column];
        for (const lca::SheetRow& row : rows) {
            const std::size_t letters = platform::WideFromUtf8(row[column].text).size();
            width = std::max(width, std::min(static_cast<double>(letters + ColumnMargin), WidestColumn));
        }
        widths.push_back({column + 1, column + 1, width});
    }
    return widths;
}

class ReportWriter {
public:
    ReportOutcome Write(const SpreadsheetReport& report, const std::string& path) {
        WriteResults(report);
        WriteMaterials(report);
        if (!workbook.Save(platform::WideFromUtf8(path))) return ReportOutcome::Failed;
        return isPictureMissing ? ReportOutcome::WrittenWithoutPicture : ReportOutcome::Written;
    }

private:
    void WriteResults(const SpreadsheetReport& report) {
        std::vector<Xlsx::ColumnWidth> widths;
        for (unsigned column = 1; column <= report.resultRows.front().size(); ++column)
            widths.push_back({column, column, report.resultColumnWidth});
        Xlsx::CWorksheet& sheet = workbook.AddSheet(report.resultSheetName, widths, {{}, Xlsx::PageScale::FitWidth});
        SetPage(sheet);
        WriteRows(sheet, report.resultRows, ResultSizes);
        WritePictures(sheet, report);
    }

    void WriteMaterials(const SpreadsheetReport& report) {
        Xlsx::CWorksheet& sheet = workbook.AddSheet(report.materialSheetName, FitColumns(report.materialRows),
                                                    {Xlsx::FrozenPane{1, 0}, Xlsx::PageScale::FitWidth});
        WriteRows(sheet, report.materialRows, MaterialSizes);
        RepeatHeader(report.materialSheetName);
    }

    static void SetPage(Xlsx::CWorksheet& sheet) {
        Xlsx::PageSetup page;
        page.orientation = Xlsx::PageOrientation::Landscape;
        page.left = page.right = 0.4;
        page.top = page.bottom = 0.5;
        sheet.SetPageSetup(page);
    }

    /// Each printed page of the second sheet begins with its header row.
    void RepeatHeader(const std::string& sheetName) {
        std::string formula = "'";
        for (const char letter : sheetName)
            formula.append(letter == '\'' ? 2 : 1, letter);
        workbook.DefineName({"_xlnm.Print_Titles", formula.append("'!$1:$1"), {}, 1});
    }

    void WriteRows(Xlsx::CWorksheet& sheet, const std::vector<lca::SheetRow>& rows, const SheetSizes& sizes) {
        double height = sizes.headerHeight;
        for (const lca::SheetRow& row : rows) {
            sheet.BeginRow(height);
            for (const lca::SheetCell& cell : row)
                AddCell(sheet, cell, GetStyle(cell.role, sizes.font));
            height = sizes.rowHeight;
        }
    }

    static void AddCell(Xlsx::CWorksheet& sheet, const lca::SheetCell& cell, unsigned style) {
        if (cell.number)
            sheet.AddCell(*cell.number, style);
        else
            AddText(sheet, cell.text, style);
    }

    static void AddText(Xlsx::CWorksheet& sheet, const std::string& text, unsigned style) {
        sheet.AddCell(lca::MakeCellText(text), style);
    }

    unsigned GetStyle(CellRole role, int fontSize) {
        const auto [entry, isNew] = styles.try_emplace({role, fontSize}, 0);
        if (isNew) entry->second = workbook.AddStyle(MakeCellStyle(role, fontSize));
        return entry->second;
    }

    void WritePictures(Xlsx::CWorksheet& sheet, const SpreadsheetReport& report) {
        const bool hasPie = TakesPicture(report.pieChart), hasBars = TakesPicture(report.barChart);
        if (!hasPie && !hasBars) return;
        sheet.BeginRow(FillerRowHeight);
        WriteTitles(sheet, hasPie ? report.pieChart.title : std::string(),
                    hasBars ? report.barChart.title : std::string());
        const auto top = static_cast<std::int64_t>(FindPictureTop(report.resultRows) * Xlsx::emuPerPoint);
        if (hasPie) AddPicture(sheet, report.pieChart, {PieLeft, top, PieSize});
        if (hasBars) AddPicture(sheet, report.barChart, {PieLeft + PieSize.width, top, BarSize});
        double height = 0;
        if (hasPie) height = WriteLegend(sheet, report.legend);
        // The page to be printed reaches as far down as the pictures.
        for (; height < PictureHeightPoints; height += FillerRowHeight)
            sheet.BeginRow(FillerRowHeight);
    }

    void WriteTitles(Xlsx::CWorksheet& sheet, const std::string& pie, const std::string& bars) {
        const unsigned style = workbook.AddStyle(MakePictureTitleStyle(ResultSizes.font));
        sheet.BeginRow(ResultSizes.rowHeight);
        for (unsigned column = 0; column <= BarColumn; ++column)
            AddText(sheet, column == PieColumn ? pie : column == BarColumn ? bars : std::string(), style);
    }

    /// returns  its height in points
    double WriteLegend(Xlsx::CWorksheet& sheet, const std::vector<LegendEntry>& legend) {
        for (const LegendEntry& entry : legend) {
            sheet.BeginRow(LegendRowHeight);
            AddText(sheet, entry.name, workbook.AddStyle(MakeLegendStyle(entry.argb, ResultSizes.font)));
        }
        return LegendRowHeight * static_cast<double>(legend.size());
    }

    bool TakesPicture(const ReportPicture& picture) {
        if (picture.file.empty()) return false;
        if (IsThere(picture)) return true;
        isPictureMissing = true;
        return false;
    }

    void AddPicture(Xlsx::CWorksheet& sheet, const ReportPicture& picture, const Xlsx::AbsoluteAnchor& place) {
        workbook.AddPicture(sheet, platform::WideFromUtf8(picture.file), Xlsx::ImageKind::Jpeg, place);
    }

    Xlsx::CWorkbook workbook;
    std::map<std::pair<CellRole, int>, unsigned> styles; ///< by role and letter size
    bool isPictureMissing = false;
};

} // namespace

ReportOutcome WriteSpreadsheetReport(const SpreadsheetReport& report, const std::string& path) {
    return ReportWriter().Write(report, path);
}
