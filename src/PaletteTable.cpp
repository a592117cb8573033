#include "src/PaletteTable.h"

#include "host/Resources.h"
#include "resources/ResourceIds.h"

#include <array>

namespace {

using namespace ResourceIds;

constexpr std::int16_t ColumnCount = 8;
constexpr std::int16_t ModeColumn = 4;
constexpr std::int32_t UnitRow = 1;
constexpr std::int32_t FirstCategoryRow = 2;
constexpr std::int32_t TotalRow = 9;

struct Column {
    std::int16_t headerEntry; ///< of the palette's texts; 0 for none
    std::int16_t minimumWidth;
    int share; ///< of the width that is left after the minimum widths
    host::TextAlignment headerAlignment;
    host::TextAlignment textAlignment;
};

constexpr auto Left = host::TextAlignment::Left;
constexpr auto Centre = host::TextAlignment::Centre;
constexpr auto Right = host::TextAlignment::Right;

constexpr std::array<Column, ColumnCount> Columns = {{{ColourHeader, 20, 1, Centre, Left},
                                                      {ColourHeader + 1, 75, 6, Left, Left},
                                                      {ColourHeader + 2, 40, 3, Centre, Right},
                                                      {0, 25, 0, Centre, Centre},
                                                      {ColourHeader + 3, 40, 3, Centre, Right},
                                                      {ColourHeader + 4, 40, 4, Centre, Right},
                                                      {ColourHeader + 5, 50, 4, Centre, Right},
                                                      {ColourHeader + 6, 50, 4, Centre, Right}}};

/// List column of each column of the table text; the list has the mode icon in between.
constexpr std::array<std::int16_t, lca::TableColumns> ListColumnOf = {1, 2, 3, 5, 6, 7, 8};

std::int32_t RowOf(lca::ElementCategory category) { return FirstCategoryRow + static_cast<std::int32_t>(category); }

std::array<std::int16_t, ColumnCount> ComputeWidths(int available) {
    int minimum = 0;
    int shares = 0;
    for (const Column& column : Columns) {
        minimum += column.minimumWidth;
        shares += column.share;
    }
    const int spare = available > minimum ? available - minimum : 0;
    std::array<std::int16_t, ColumnCount> widths{};
    for (std::size_t i = 0; i < Columns.size(); ++i)
        widths[i] = static_cast<std::int16_t>(Columns[i].minimumWidth + spare * Columns[i].share / shares);
    return widths;
}

} // namespace

PaletteTable::PaletteTable(host::Host& host) : host(host) {}

void PaletteTable::SetUp(host::DialogId dialog) {
    palette = dialog;
    host.GetListLayout().SetColumnCount(palette, Palette::Table, ColumnCount);
    LayOutColumns();
}

void PaletteTable::LayOutColumns() {
    host::ListLayout& layout = host.GetListLayout();
    const auto widths = ComputeWidths(layout.ReadCellSpace(palette, Palette::Table).width);
    std::int16_t begin = 0;
    for (std::int16_t i = 0; i < ColumnCount; ++i) {
        const Column& column = Columns[static_cast<std::size_t>(i)];
        const std::int16_t width = widths[static_cast<std::size_t>(i)];
        const std::string text =
            column.headerEntry == 0 ? std::string() : host.GetResources().ReadString(PaletteTexts, column.headerEntry);
        layout.SetHeader(palette, Palette::Table, static_cast<std::int16_t>(i + 1),
                         {text, width, column.minimumWidth, column.headerAlignment, true});
        const auto end = static_cast<std::int16_t>(begin + width);
        layout.SetColumn(palette, Palette::Table, static_cast<std::int16_t>(i + 1),
                         {begin, end, column.textAlignment, host::Truncation::AtEnd});
        begin = end;
    }
}

void PaletteTable::EnableSwatches() { host.GetListLayout().SetOwnerDrawn(palette, Palette::Table, 1, true); }

lca::TableLabels PaletteTable::GetLabels() const {
    const auto read = [&](std::size_t entry) {
        return host.GetResources().ReadString(PaletteTexts, static_cast<std::int16_t>(entry));
    };
    lca::TableLabels labels;
    for (std::size_t i = 0; i < labels.headers.size(); ++i)
        labels.headers[i] = read(ColourHeader + i);
    for (std::size_t i = 0; i < labels.units.size(); ++i)
        labels.units[i] = read(FirstUnitText + i);
    for (std::size_t i = 0; i < labels.categories.size(); ++i)
        labels.categories[i] = read(FirstCategoryName + i);
    labels.total = read(TotalText);
    return labels;
}

void PaletteTable::Show(const std::vector<std::string>& tableText, const lca::LCAProjectData& record, bool insertsRows) {
    host::ListRows& rows = host.GetListRows();
    const std::int32_t selected = rows.ReadSelected(palette, Palette::Table);
    rows.EnableDrawing(palette, Palette::Table, false);
    if (insertsRows) InsertRows();
    // The table text begins with the headers, which the list shows as headers.
    for (std::size_t i = lca::TableColumns; i < tableText.size(); ++i)
        SetCell(static_cast<std::int32_t>(i / lca::TableColumns), ListColumnOf[i % lca::TableColumns], tableText[i]);
    for (const lca::ElementCategory category : {lca::ElementCategory::Inventory, lca::ElementCategory::Installations,
                                                lca::ElementCategory::BuildingProcess})
        ShowPercentageMode(category, record);
    if (selected > 0) rows.Select(palette, Palette::Table, selected);
    rows.EnableDrawing(palette, Palette::Table, true);
}

void PaletteTable::DrawSwatch(const host::DialogMessageData& cell, const std::vector<double>& typeColors) const {
    const std::int32_t category = cell.row - FirstCategoryRow;
    const auto first = static_cast<std::size_t>(category) * 3;
    if (cell.context == nullptr || cell.column != 1 || category < 0 || first + 2 >= typeColors.size()) return;
    const auto channel = [&](std::size_t i) { return static_cast<std::uint8_t>(typeColors[first + i]); };
    constexpr int Margin = 2;
    cell.context->FillRectangle(cell.area.left + Margin, cell.area.top + Margin,
                                cell.area.left + cell.area.width - Margin, cell.area.top + cell.area.height - Margin,
                                {channel(0), channel(1), channel(2)});
}

void PaletteTable::InsertRows() {
    host::ListRows& rows = host.GetListRows();
    rows.DeleteAll(palette, Palette::Table);
    for (std::int32_t row = UnitRow; row <= TotalRow; ++row)
        rows.Insert(palette, Palette::Table, 0);
    rows.SetStatus(palette, Palette::Table, UnitRow, host::RowStatus::NotSelectable);
    rows.SetStyle(palette, Palette::Table, TotalRow, host::TextStyle::Bold);
}

void PaletteTable::ShowPercentageMode(lca::ElementCategory category, const lca::LCAProjectData& record) {
    const bool isPercentage = lca::ValueOr(record.contributionEnabled, category, false);
    host.GetListRows().SetIcon(palette, Palette::Table, RowOf(category), ModeColumn,
                               isPercentage ? host::StandardIcon::Checked : host::StandardIcon::Unchecked);
    host.GetDialogItems().Enable(palette, Palette::ServiceLifeEditor, isPercentage);
}

void PaletteTable::SetCell(std::int32_t row, std::int16_t column, const std::string& text) {
    if (column != 1) host.GetListRows().SetText(palette, Palette::Table, row, column, text);
}
