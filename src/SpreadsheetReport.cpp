#include "src/SpreadsheetReport.h"

#include "platform/Files.h"
#include "platform/Text.h"
#include "src/SpreadsheetStyles.h"
#include "xlsx/Workbook.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <map>
#include <optional>

namespace {

/// Points. All columns of a sheet go on one page's width, which scales its letters, to 42% and 69% where a reader has
/// no Calibri and takes a wider font. They are large enough to be of 8 points or more on paper even then. A row of the
/// result sheet has room for two lines, its header for three.
struct SheetSizes {
    int font;
    double headerHeight, lineHeight;
};

constexpr SheetSizes ResultSizes{20, 80, 26}, MaterialSizes{12, 26, 18};
constexpr double ResultRowHeight = 2 * ResultSizes.lineHeight, NoteRowHeight = 27, FillerRowHeight = 8;
/// Letters. Longer names of layers and materials go on in further lines.
constexpr double MaterialWidths[] = {34, 46, 22};
constexpr double LettersPerWidth = 0.8; ///< that surely fit, as capitals are wider than digits

/// Below the rows stand the pictures side by side, each below its title, and the legend is a row below them. The
/// pictures' places are absolute lengths, as readers differ in how wide a column's letter is: the fifth column begins
/// 840 pixels from the left where letters are narrowest and 1120 where there is no Calibri, so that its title stands
/// above the left quarter of its picture. The pictures are so much larger than they are drawn that their letters, too,
/// are of 8 points or more on paper.
constexpr unsigned PieColumn = 0, BarColumn = 4; ///< of their titles, from 0
constexpr std::int64_t EmuPerPixel = Xlsx::EmuPerInch / 96;
constexpr std::int64_t BarLeft = 840 * EmuPerPixel;
constexpr double PictureScale = 2.34;

constexpr Xlsx::AnchorSize ScalePicture(const PictureSize& size) {
    return {static_cast<std::int64_t>(size.width * PictureScale * EmuPerPixel),
            static_cast<std::int64_t>(size.height * PictureScale * EmuPerPixel)};
}
constexpr int PictureRows = 2; ///< none may be higher than 409 points
constexpr double PictureRowHeight =
    static_cast<double>(ScalePicture(PiePictureSize).height) / Xlsx::EmuPerPoint / PictureRows + 3;
static_assert(ScalePicture(PiePictureSize).width <= BarLeft, "the pictures overlap");

/// Whether the file can be read and begins as a JPEG file does.
bool IsReadable(const ReportPicture& picture) {
    const std::optional<std::string> path = platform::NarrowFromWide(platform::WideFromUtf8(picture.file));
    const auto file = path ? platform::GetOperatingSystemFiles().OpenForReading(*path) : nullptr;
    constexpr std::array<unsigned char, 3> JpegStart{0xFF, 0xD8, 0xFF};
    std::array<unsigned char, JpegStart.size()> start{};
    return file && file->Read(start.data(), start.size()).value_or(0) == start.size() && start == JpegStart;
}

double FindResultHeight(const lca::SheetRow& row) {
    if (row.empty()) return FillerRowHeight;
    switch (row.front().role) {
    case lca::CellRole::Header:
        return ResultSizes.headerHeight;
    case lca::CellRole::NoteLabel:
        return NoteRowHeight;
    default:
        return ResultRowHeight;
    }
}

/// Points from the sheet's top to the pictures: the rows, a gap, and the titles.
double FindPictureTop(const std::vector<lca::SheetRow>& rows) {
    double top = FillerRowHeight + ResultSizes.lineHeight;
    for (const lca::SheetRow& row : rows)
        top += FindResultHeight(row);
    return top;
}

/// Lines that the names of a material row take.
double CountLines(const lca::SheetRow& row) {
    double lines = 1;
    for (std::size_t column = 0; column < row.size(); ++column) {
        const auto letters = static_cast<double>(platform::WideFromUtf8(row[column].text).size());
        lines = std::max(lines, std::ceil(letters / (MaterialWidths[column] * LettersPerWidth)));
    }
    constexpr double MostLines = 20; // no row is higher than 409 points
    return std::min(lines, MostLines);
}

class ReportWriter {
public:
    WrittenReport Write(const SpreadsheetReport& report, const std::string& path) {
        WriteResults(report);
        WriteMaterials(report);
        if (!workbook.Save(platform::WideFromUtf8(path))) return {ReportOutcome::Failed, workbook.GetFailure()};
        return {isPictureMissing ? ReportOutcome::WrittenWithoutPicture : ReportOutcome::Written, {}};
    }

private:
    void WriteResults(const SpreadsheetReport& report) {
        std::vector<Xlsx::ColumnWidth> widths;
        for (unsigned column = 1; column <= report.resultRows.front().size(); ++column)
            widths.push_back({column, column, report.resultColumnWidth});
        Xlsx::CWorksheet& sheet = workbook.AddSheet(report.resultSheetName, widths, {{}, Xlsx::PageScale::FitWidth});
        SetPage(sheet);
        SetHeader(sheet, report, ResultSizes);
        for (const lca::SheetRow& row : report.resultRows)
            WriteRow(sheet, row, ResultSizes, FindResultHeight(row));
        WritePictures(sheet, report);
    }

    void WriteMaterials(const SpreadsheetReport& report) {
        std::vector<Xlsx::ColumnWidth> widths;
        for (unsigned column = 1; column <= std::size(MaterialWidths); ++column)
            widths.push_back({column, column, MaterialWidths[column - 1]});
        Xlsx::CWorksheet& sheet =
            workbook.AddSheet(report.materialSheetName, widths, {Xlsx::FrozenPane{1, 0}, Xlsx::PageScale::FitWidth});
        SetHeader(sheet, report, MaterialSizes);
        double height = MaterialSizes.headerHeight;
        for (const lca::SheetRow& row : report.materialRows) {
            WriteRow(sheet, row, MaterialSizes, std::max(height, MaterialSizes.lineHeight * CountLines(row)));
            height = MaterialSizes.lineHeight;
        }
        RepeatHeader(report.materialSheetName);
    }

    /// In letters of the cells' size.
    static void SetHeader(Xlsx::CWorksheet& sheet, const SpreadsheetReport& report, const SheetSizes& sizes) {
        sheet.SetPageHeader({report.projectName, {}, report.lastUpdate, static_cast<unsigned>(sizes.font)});
    }

    /// Inches; the upper margin holds the page header.
    static void SetPage(Xlsx::CWorksheet& sheet) {
        Xlsx::PageSetup page;
        page.orientation = Xlsx::PageOrientation::Landscape;
        page.left = page.right = page.bottom = page.header = 0.22;
        page.top = 0.5;
        sheet.SetPageSetup(page);
    }

    /// Each printed page of the second sheet begins with its header row.
    void RepeatHeader(const std::string& sheetName) {
        std::string formula = "'";
        for (const char letter : sheetName)
            formula.append(letter == '\'' ? 2 : 1, letter);
        workbook.DefineName({"_xlnm.Print_Titles", formula.append("'!$1:$1"), {}, 1});
    }

    void WriteRow(Xlsx::CWorksheet& sheet, const lca::SheetRow& row, const SheetSizes& sizes, double height) {
        sheet.BeginRow(height);
        for (const lca::SheetCell& cell : row)
            AddCell(sheet, cell, GetStyle(FindLook(cell), sizes.font));
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

    unsigned GetStyle(const CellLook& look, int fontSize) {
        const auto [entry, isNew] = styles.try_emplace({look, fontSize}, 0);
        if (isNew) entry->second = workbook.AddStyle(MakeCellStyle(look, fontSize));
        return entry->second;
    }

    void WritePictures(Xlsx::CWorksheet& sheet, const SpreadsheetReport& report) {
        const bool hasPie = TakesPicture(report.pieChart), hasBars = TakesPicture(report.barChart);
        if (!hasPie && !hasBars) return;
        const std::string pieTitle = hasPie ? report.pieChart.title : std::string();
        sheet.BeginRow(FillerRowHeight);
        WriteTitles(sheet, pieTitle, hasBars ? report.barChart.title : std::string());
        const auto top = static_cast<std::int64_t>(FindPictureTop(report.resultRows) * Xlsx::EmuPerPoint);
        if (hasPie) AddPicture(sheet, report.pieChart, {0, top, ScalePicture(PiePictureSize)});
        if (hasBars) AddPicture(sheet, report.barChart, {BarLeft, top, ScalePicture(BarPictureSize)});
        // The page to be printed reaches as far down as the pictures. In few rows, as readers round the height of each
        // on a scaled page.
        for (int i = 0; i < PictureRows; ++i)
            sheet.BeginRow(PictureRowHeight);
        if (!pieTitle.empty()) WriteLegend(sheet, report.legend);
    }

    void WriteTitles(Xlsx::CWorksheet& sheet, const std::string& pie, const std::string& bars) {
        const unsigned style = workbook.AddStyle(MakePictureTitleStyle(ResultSizes.font));
        sheet.BeginRow(ResultSizes.lineHeight);
        for (unsigned column = 0; column <= BarColumn; ++column)
            AddText(sheet, column == PieColumn ? pie : column == BarColumn ? bars : std::string(), style);
    }

    void WriteLegend(Xlsx::CWorksheet& sheet, const std::vector<LegendEntry>& legend) {
        sheet.BeginRow(ResultRowHeight);
        for (const LegendEntry& entry : legend)
            AddText(sheet, entry.name, workbook.AddStyle(MakeLegendStyle(entry.colour, ResultSizes.font)));
    }

    bool TakesPicture(const ReportPicture& picture) {
        if (picture.file.empty()) return false;
        if (IsReadable(picture)) return true;
        isPictureMissing = true;
        return false;
    }

    void AddPicture(Xlsx::CWorksheet& sheet, const ReportPicture& picture, const Xlsx::AbsoluteAnchor& place) {
        workbook.AddPicture(sheet, platform::WideFromUtf8(picture.file), Xlsx::ImageKind::Jpeg, place);
    }

    Xlsx::CWorkbook workbook;
    std::map<std::pair<CellLook, int>, unsigned> styles; ///< by look and letter size
    bool isPictureMissing = false;
};

} // namespace

WrittenReport WriteSpreadsheetReport(const SpreadsheetReport& report, const std::string& path) {
    return ReportWriter().Write(report, path);
}
