#include "src/SpreadsheetReport.h"

#include "platform/Text.h"
#include "xlsx/Workbook.h"

#include <map>

namespace {

using lca::CellRole;

constexpr char HeaderFill[] = "FF274B5A", HeaderText[] = "FFFFFFFF";
constexpr char StageFill[] = "FFF3E3D3", PartFill[] = "FFDCE9F2", TotalFill[] = "FF274B5A", TotalText[] = "FFFFFFFF";
constexpr char PerYearFill[] = "FF2B82E2";
constexpr char LineColour[] = "FFB7C4CB", NoteColour[] = "FF5A6B73";
/// Points. The result sheet's wide columns shrink on a printed page, so its letters are larger.
struct SheetSizes {
    int font;
    double headerHeight, rowHeight;
};

constexpr SheetSizes ResultSizes{14, 50, 32}, MaterialSizes{11, 26, 18};
constexpr double PictureRowHeight = 15;           ///< points
constexpr double MaterialWidths[] = {34, 46, 22}; ///< letters

/// The pictures stand side by side below the rows, in the proportions of the palette's charts. Their places are told in
/// absolute lengths, because readers differ in how wide a letter of a column is.
constexpr std::int64_t EmuPerPixel = Xlsx::emuPerInch / 96;
constexpr std::int64_t PictureHeight = 480 * EmuPerPixel;
constexpr std::int64_t PieWidth = PictureHeight * 350 / 230, BarWidth = PictureHeight * 520 / 230;
constexpr std::int64_t PictureGap = 60 * EmuPerPixel;
constexpr int PictureRows = 25; ///< as many as the pictures are high

Xlsx::Style MakeBase() {
    Xlsx::Style style;
    style.alignment.vertical = Xlsx::VerticalAlignment::Centre;
    style.border.bottom = {Xlsx::BorderLine::Thin, LineColour};
    return style;
}

void SetFill(Xlsx::Style& style, const char* fill) {
    style.fill = {Xlsx::FillPattern::Solid, fill, ""};
}

void SetFont(Xlsx::Style& style, const char* colour, unsigned attributes) {
    style.font.attributes = attributes;
    if (colour == nullptr) return;
    style.font.colourSource = Xlsx::FontColour::Given;
    style.font.colour = colour;
}

void SetNumber(Xlsx::Style& style, unsigned decimals) {
    style.numberFormat.id = Xlsx::firstCustomFormat;
    style.numberFormat.kind = Xlsx::NumberKind::Plain;
    style.numberFormat.decimals = decimals;
    style.numberFormat.hasThousandsSeparator = true;
    style.alignment.horizontal = Xlsx::HorizontalAlignment::Right;
}

Xlsx::Style MakeStyle(CellRole role) {
    Xlsx::Style style = MakeBase();
    switch (role) {
    case CellRole::Header:
        SetFill(style, HeaderFill);
        SetFont(style, HeaderText, Xlsx::Bold);
        style.alignment.horizontal = Xlsx::HorizontalAlignment::Centre;
        style.alignment.wrapsText = true;
        break;
    case CellRole::StageLabel:
        SetFill(style, StageFill);
        SetFont(style, nullptr, Xlsx::Bold);
        break;
    case CellRole::PartLabel:
        SetFill(style, PartFill);
        SetFont(style, nullptr, Xlsx::Bold);
        break;
    case CellRole::TotalLabel:
        SetFill(style, TotalFill);
        SetFont(style, TotalText, Xlsx::Bold);
        break;
    case CellRole::Text:
        break;
    case CellRole::Number:
        SetNumber(style, 2);
        break;
    case CellRole::TotalNumber:
        SetNumber(style, 2);
        SetFill(style, TotalFill);
        SetFont(style, TotalText, Xlsx::Bold);
        break;
    case CellRole::TotalPerYear:
        SetNumber(style, 2);
        SetFill(style, PerYearFill);
        SetFont(style, TotalText, Xlsx::Bold);
        break;
    case CellRole::NoteLabel:
        style.border = {};
        SetFont(style, NoteColour, 0);
        break;
    case CellRole::NoteNumber:
        SetNumber(style, 2);
        style.border = {};
        style.alignment.horizontal = Xlsx::HorizontalAlignment::Left;
        SetFont(style, NoteColour, 0);
        break;
    }
    return style;
}

class ReportWriter {
public:
    bool Write(const SpreadsheetReport& report, const std::string& path) {
        WriteResults(report);
        WriteMaterials(report);
        return workbook.Save(platform::WideFromUtf8(path));
    }

private:
    void WriteResults(const SpreadsheetReport& report) {
        std::vector<Xlsx::ColumnWidth> widths;
        for (unsigned column = 1; column <= report.resultRows.front().size(); ++column)
            widths.push_back({column, column, report.resultColumnWidth});
        Xlsx::CWorksheet& sheet = workbook.AddSheet(report.resultSheetName, widths, {{}, Xlsx::PageScale::FitWidth});
        SetPage(sheet);
        WriteRows(sheet, report.resultRows, ResultSizes);
        // The page to be printed reaches as far down as the pictures.
        for (int i = 0; i < PictureRows; ++i)
            sheet.BeginRow(PictureRowHeight);
        const double tableHeight =
            ResultSizes.headerHeight + ResultSizes.rowHeight * static_cast<double>(report.resultRows.size() - 1);
        const auto top = static_cast<std::int64_t>((tableHeight + PictureRowHeight) * Xlsx::emuPerPoint);
        AddPicture(sheet, report.pieChartFile, {0, top, {PieWidth, PictureHeight}});
        AddPicture(sheet, report.barChartFile, {PieWidth + PictureGap, top, {BarWidth, PictureHeight}});
    }

    void WriteMaterials(const SpreadsheetReport& report) {
        std::vector<Xlsx::ColumnWidth> widths;
        for (const double width : MaterialWidths) {
            const auto column = static_cast<unsigned>(widths.size() + 1);
            widths.push_back({column, column, width});
        }
        Xlsx::CWorksheet& sheet =
            workbook.AddSheet(report.materialSheetName, widths, {Xlsx::FrozenPane{1, 0}, Xlsx::PageScale::FitWidth});
        WriteRows(sheet, report.materialRows, MaterialSizes);
    }

    static void SetPage(Xlsx::CWorksheet& sheet) {
        Xlsx::PageSetup page;
        page.orientation = Xlsx::PageOrientation::Landscape;
        page.left = page.right = 0.4;
        page.top = page.bottom = 0.5;
        sheet.SetPageSetup(page);
    }

    void WriteRows(Xlsx::CWorksheet& sheet, const std::vector<lca::SheetRow>& rows, const SheetSizes& sizes) {
        double height = sizes.headerHeight;
        for (const lca::SheetRow& row : rows) {
            WriteRow(sheet, row, sizes, height);
            height = sizes.rowHeight;
        }
    }

    void WriteRow(Xlsx::CWorksheet& sheet, const lca::SheetRow& row, const SheetSizes& sizes, double height) {
        sheet.BeginRow(height);
        for (const lca::SheetCell& cell : row) {
            const unsigned style = GetStyle(cell.role, sizes.font);
            if (cell.number)
                sheet.AddCell(*cell.number, style);
            else
                sheet.AddCell(lca::MakeCellText(cell.text), style);
        }
        sheet.EndRow();
    }

    unsigned GetStyle(CellRole role, int fontSize) {
        const auto [entry, isNew] = styles.try_emplace({role, fontSize}, 0);
        if (isNew) {
            Xlsx::Style style = MakeStyle(role);
            style.font.sizePoints = fontSize;
            entry->second = workbook.AddStyle(style);
        }
        return entry->second;
    }

    void AddPicture(Xlsx::CWorksheet& sheet, const std::string& file, const Xlsx::AbsoluteAnchor& place) {
        if (!file.empty()) workbook.AddPicture(sheet, platform::WideFromUtf8(file), Xlsx::ImageKind::Jpeg, place);
    }

    Xlsx::CWorkbook workbook;
    std::map<std::pair<CellRole, int>, unsigned> styles; ///< by role and letter size
};

} // namespace

bool WriteSpreadsheetReport(const SpreadsheetReport& report, const std::string& path) {
    return ReportWriter().Write(report, path);
}
