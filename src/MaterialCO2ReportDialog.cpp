#include "src/MaterialCO2ReportDialog.h"

#include "src/Texts.h"

#include "General/HostReport.h"
#include "General/UInterface.h"

#include <algorithm>

namespace {

using namespace ResourceIds;
using namespace ResourceIds::MaterialReportItems;

constexpr std::int16_t LayerColumn = 1, NameColumn = 2, GwpColumn = 3, BarColumn = 4;
constexpr std::int16_t MinimumWidths[] = {80, 80, 100, 80};
constexpr std::int16_t BarWidth = 160;
constexpr int BarMargin = 2;

constexpr host::Colour LayerBar{115, 115, 115};
constexpr host::Colour MaterialBar{209, 209, 209};
constexpr host::Colour ZeroLine{128, 128, 128};

/// Of the part's identifier pair only the first is compared, so that a favourite of another revision is offered too.
constexpr std::size_t MainIdentifierLength = 38;

constexpr General::ItemAnchor Anchors[] = {
    {PlaceButton, {1, 1, 0, 0}}, {CloseButton, {1, 1, 0, 0}}, {FavoritePopup, {1, 1, 0, 0}}, {Table, {0, 0, 1, 1}}};

} // namespace

MaterialCO2ReportDialog::MaterialCO2ReportDialog(host::Host& host)
    : AnchoredDialog(host, MaterialReportDialog, "{97D8CF2D-F0AA-4F5B-B1AC-865794D0E69F}", Anchors) {}

MaterialCO2ReportDialog::Answer MaterialCO2ReportDialog::Run(const lca::MaterialSumTable& sums) {
    if (IsOpen()) return Answer::Cancelled;
    rows = BuildMaterialReport(GetHost(), sums);
    std::vector<double> values;
    for (const MaterialReportRow& row : rows)
        if (row.kind != MaterialReportRow::Kind::Total) values.push_back(row.gwp);
    barScale = lca::FindBarScale(values);
    return RunModal() == PlaceButton ? Answer::Place : Answer::Cancelled;
}

void MaterialCO2ReportDialog::PlaceReport(const std::string& date) {
    PlaceReportObject(GetHost(), MaterialReportObject, favourite,
                      [&](ObjectParameters& parameters) { FillMaterialReport(GetHost(), rows, date, parameters); });
}

std::int16_t MaterialCO2ReportDialog::OnClick(std::int16_t item, const host::DialogMessageData& /*data*/) {
    return item == PlaceButton || item == CloseButton ? item : std::int16_t{0};
}

void MaterialCO2ReportDialog::OnInitialise() {
    GetHost().GetListLayout().SetColumnCount(GetDialog(), Table, BarColumn);
    LayOutTable();
    FillTable();
    GetHost().GetListLayout().SetOwnerDrawn(GetDialog(), Table, BarColumn, true);
    FillFavourites();
    host::Database window;
    General::ReportHostError(GetHost(), "reading the front window", GetHost().GetDatabases().ReadFrontWindow(window));
    GetHost().GetDialogItems().Enable(GetDialog(), PlaceButton, window.type != host::DatabaseType::Model3D);
}

/// The names share what the numbers and the bars leave.
void MaterialCO2ReportDialog::LayOutTable() {
    host::ListLayout& layout = GetHost().GetListLayout();
    const std::string texts[] = {ReadText(GetHost(), MaterialReport::LayerHeader),
                                 ReadText(GetHost(), MaterialReport::NameHeader),
                                 ReadText(GetHost(), MaterialReport::GwpHeader),
                                 {}};
    const int width = layout.ReadCellSpace(GetDialog(), Table).width;
    const int nameWidth = (width - MinimumWidths[GwpColumn - 1] - BarWidth) / 2;
    for (std::int16_t i = 0; i < BarColumn; ++i) {
        const auto column = static_cast<std::int16_t>(i + 1);
        const int wanted = column == BarColumn ? BarWidth : column == GwpColumn ? MinimumWidths[i] : nameWidth;
        const auto headerWidth = static_cast<std::int16_t>(std::max<int>(wanted, MinimumWidths[i]));
        layout.SetHeader(GetDialog(), Table, column, {texts[i], headerWidth, MinimumWidths[i]});
        layout.SetColumn(GetDialog(), Table, column,
                         {0, headerWidth, column == GwpColumn ? host::TextAlignment::Right : host::TextAlignment::Left,
                          host::Truncation::AtEnd});
    }
    General::LayoutListColumnsFromRight(GetHost(), GetDialog());
}

void MaterialCO2ReportDialog::FillTable() {
    host::ListRows& list = GetHost().GetListRows();
    host::ListCells& cells = GetHost().GetListCells();
    GetHost().GetDialogItems().EnableDrawing(GetDialog(), Table, false);
    list.DeleteAll(GetDialog(), Table);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const MaterialReportRow& row = rows[i];
        const bool isTotal = row.kind == MaterialReportRow::Kind::Total;
        const bool isMaterial = row.kind == MaterialReportRow::Kind::Material;
        if (isTotal) list.InsertSeparator(GetDialog(), Table, 0);
        const std::int32_t inserted = list.Insert(GetDialog(), Table, 0);
        if (!isTotal) list.SetUserData(GetDialog(), Table, inserted, static_cast<std::int32_t>(i));
        cells.SetText(GetDialog(), Table, inserted, isMaterial ? NameColumn : LayerColumn,
                      isMaterial ? row.name : row.layer);
        cells.SetText(GetDialog(), Table, inserted, GwpColumn, FormatReportGWP(row.gwp));
        if (isTotal) cells.SetStyle(GetDialog(), Table, inserted, LayerColumn, host::TextStyle::Bold);
        cells.SetStyle(GetDialog(), Table, inserted, GwpColumn,
                       isMaterial ? host::TextStyle::Plain : host::TextStyle::Bold);
    }
    GetHost().GetDialogItems().EnableDrawing(GetDialog(), Table, true);
}

void MaterialCO2ReportDialog::FillFavourites() {
    std::vector<std::string> texts = {ReadText(GetHost(), MaterialReport::DefaultElementSettings)};
    std::vector<std::string> names;
    const std::string mainIdentifier(MaterialReportObject.identifier, MainIdentifierLength);
    General::ReportHostError(GetHost(), "listing the favourites",
                             GetHost().GetLibraries().ListFavourites(mainIdentifier, names));
    for (const std::string& name : names)
        texts.push_back(ReadText(GetHost(), MaterialReport::FavoritePrefix) + name);
    GetHost().GetItemValues().SetPopUpTexts(GetDialog(), FavoritePopup, texts);
}

void MaterialCO2ReportDialog::OnCell(std::int16_t item, const host::DialogMessageData& cell) {
    if (item != Table || cell.column != BarColumn) return;
    const std::optional<std::int32_t> position = GetHost().GetListRows().ReadUserData(GetDialog(), Table, cell.row);
    if (cell.context == nullptr || !position || static_cast<std::size_t>(*position) >= rows.size()) return;
    const MaterialReportRow& row = rows[static_cast<std::size_t>(*position)];
    const lca::ReportBar bar = lca::ComputeReportBar(row.gwp, barScale, cell.area.width);
    const double left = cell.area.left;
    const double top = cell.area.top;
    const double bottom = top + cell.area.height;
    cell.context->FillRectangle(left + bar.left, top + BarMargin, left + bar.right, bottom - BarMargin,
                                row.kind == MaterialReportRow::Kind::Layer ? LayerBar : MaterialBar);
    const double zeroLine = left + bar.zeroLine;
    cell.context->FillRectangle(zeroLine, top, zeroLine + 1, bottom, ZeroLine);
}

void MaterialCO2ReportDialog::OnClose() {
    favourite.clear();
    const std::int16_t entry = GetHost().GetItemValues().ReadPopUpEntry(GetDialog(), FavoritePopup);
    const std::vector<std::string> texts = GetHost().GetItemValues().ListPopUpTexts(GetDialog(), FavoritePopup);
    if (entry <= 1 || static_cast<std::size_t>(entry) > texts.size()) return;
    const std::string prefix = ReadText(GetHost(), MaterialReport::FavoritePrefix);
    favourite = texts[static_cast<std::size_t>(entry - 1)].substr(prefix.size());
}
