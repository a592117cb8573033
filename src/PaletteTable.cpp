#include "src/PaletteTable.h"

#include "src/Texts.h"

#include <array>

namespace {

using namespace ResourceIds;

constexpr std::int16_t ColumnCount = 8;
/// The list's rows count from 1, the table's from its headers, which the list shows as headers.
constexpr auto UnitRow = static_cast<std::int32_t>(lca::UnitRow);
constexpr auto FirstCategoryRow = static_cast<std::int32_t>(lca::FirstCategoryRow);
constexpr auto TotalRow = static_cast<std::int32_t>(lca::TotalRow);

struct Column {
    int header; ///< offset among the palette's headers; -1 for none
    std::int16_t minimumWidth;
    int share; ///< of the width that is left after the minimum widths
    host::TextAlignment headerAlignment;
    host::TextAlignment textAlignment;
};

constexpr auto Left = host::TextAlignment::Left;
constexpr auto Centre = host::TextAlignment::Centre;
constexpr auto Right = host::TextAlignment::Right;

constexpr std::array<Column, ColumnCount> Columns = {{{0, 20, 1, Centre, Left},
                                                      {1, 75, 6, Left, Left},
                                                      {2, 40, 3, Centre, Right},
                                                      {-1, 25, 0, Centre, Centre},
                                                      {3, 40, 3, Centre, Right},
                                                      {4, 40, 4, Centre, Right},
                                                      {5, 50, 4, Centre, Right},
                                                      {6, 50, 4, Centre, Right}}};

/// List column of each column of the table text; the list has the mode icon in between.
constexpr std::array<std::int16_t, lca::TableColumns> ListColumnOf = {1, 2, 3, 5, 6, 7, 8};

std::int32_t RowOf(lca::ElementCategory category) {
    return FirstCategoryRow + static_cast<std::int32_t>(category);
}

constexpr int SumShares() {
    int shares = 0;
    for (const Column& column : Columns)
        shares += column.share;
    return shares;
}

constexpr int AllShares = SumShares();

std::array<std::int16_t, ColumnCount> ComputeWidths(int available) {
    int minimum = 0;
    for (const Column& column : Columns)
        minimum += column.minimumWidth;
    const int spare = available > minimum ? available - minimum : 0;
    std::array<std::int16_t, ColumnCount> widths{};
    for (std::size_t i = 0; i < Columns.size(); ++i)
        widths[i] = static_cast<std::int16_t>(Columns[i].minimumWidth + spare * Columns[i].share / AllShares);
    return widths;
}

} // namespace

PaletteTable::PaletteTable(host::Host& host) : host(host) {}

void PaletteTable::SetUp(host::DialogId dialog) {
    palette = dialog;
    host.GetListLayout().SetColumnCount(palette, PaletteItems::Table, ColumnCount);
    LayOutColumns();
}

void PaletteTable::LayOutColumns() {
    host::ListLayout& layout = host.GetListLayout();
    const auto widths = ComputeWidths(layout.ReadCellSpace(palette, PaletteItems::Table).width);
    std::int16_t begin = 0;
    for (std::int16_t i = 0; i < ColumnCount; ++i) {
        const Column& column = Columns[static_cast<std::size_t>(i)];
        const std::int16_t width = widths[static_cast<std::size_t>(i)];
        const std::string text =
            column.header < 0 ? std::string() : ReadText(host, Palette::FirstHeader + column.header);
        layout.SetHeader(palette, PaletteItems::Table, static_cast<std::int16_t>(i + 1),
                         {text, width, column.minimumWidth, column.headerAlignment, true});
        const auto end = static_cast<std::int16_t>(begin + width);
        layout.SetColumn(palette, PaletteItems::Table, static_cast<std::int16_t>(i + 1),
                         {begin, end, column.textAlignment, host::Truncation::AtEnd});
        begin = end;
    }
}

void PaletteTable::EnableSwatches() {
    host.GetListLayout().SetOwnerDrawn(palette, PaletteItems::Table, PaletteColourColumn, true);
}

lca::TableLabels PaletteTable::GetLabels() const {
    const auto read = [&](auto& texts, StringId first) {
        for (std::size_t i = 0; i < texts.size(); ++i)
            texts[i] = ReadText(host, first + static_cast<int>(i));
    };
    lca::TableLabels labels;
    read(labels.headers, Palette::FirstHeader);
    read(labels.units, Palette::ServiceLifeUnit);
    read(labels.categories, Palette::FirstCategoryName);
    labels.total = ReadText(host, Palette::TotalName);
    return labels;
}

void PaletteTable::Show(const std::vector<std::string>& tableText, const lca::LCAProjectData& record,
                        bool insertsRows) {
    host::ListSelection& selection = host.GetListSelection();
    const std::int32_t selected = selection.ReadFirst(palette, PaletteItems::Table);
    host.GetDialogItems().EnableDrawing(palette, PaletteItems::Table, false);
    if (insertsRows) InsertRows();
    for (std::size_t i = lca::TableColumns; i < tableText.size(); ++i)
        SetCell(static_cast<std::int32_t>(i / lca::TableColumns), ListColumnOf[i % lca::TableColumns], tableText[i]);
    for (const lca::CategoryRow& row : lca::CategoryRows)
        if (row.isShare) ShowPercentageMode(row.category, record);
    if (selected > 0) selection.Select(palette, PaletteItems::Table, selected);
    host.GetDialogItems().EnableDrawing(palette, PaletteItems::Table, true);
}

std::optional<lca::ElementCategory> PaletteTable::FindCategory(std::int32_t row) {
    if (row < FirstCategoryRow || row >= TotalRow) return std::nullopt;
    return static_cast<lca::ElementCategory>(row - FirstCategoryRow);
}

void PaletteTable::DrawSwatch(const host::DialogMessageData& cell, const std::vector<double>& typeColors) const {
    const std::optional<lca::ElementCategory> category = FindCategory(cell.row);
    if (cell.context == nullptr || cell.column != PaletteColourColumn || !category) return;
    const auto first = static_cast<std::size_t>(*category) * 3;
    if (first + 2 >= typeColors.size()) return;
    const auto channel = [&](std::size_t i) { return static_cast<std::uint8_t>(typeColors[first + i]); };
    constexpr int Margin = 2;
    cell.context->FillRectangle(cell.area.left + Margin, cell.area.top + Margin,
                                cell.area.left + cell.area.width - Margin, cell.area.top + cell.area.height - Margin,
                                {channel(0), channel(1), channel(2)});
}

void PaletteTable::InsertRows() {
    host::ListRows& rows = host.GetListRows();
    rows.DeleteAll(palette, PaletteItems::Table);
    for (std::int32_t row = UnitRow; row <= TotalRow; ++row)
        rows.Insert(palette, PaletteItems::Table, 0);
    rows.SetStatus(palette, PaletteItems::Table, UnitRow, host::RowStatus::NotSelectable);
    rows.SetStyle(palette, PaletteItems::Table, TotalRow, host::TextStyle::Bold);
}

void PaletteTable::ShowPercentageMode(lca::ElementCategory category, const lca::LCAProjectData& record) {
    const bool isPercentage = lca::ValueOr(record.contributionEnabled, category, false);
    host.GetListCells().SetIcon(palette, PaletteItems::Table, RowOf(category), PaletteModeColumn,
                                isPercentage ? host::StandardIcon::Checked : host::StandardIcon::Unchecked);
}

void PaletteTable::SetCell(std::int32_t row, std::int16_t column, const std::string& text) {
    if (column != PaletteColourColumn) host.GetListCells().SetText(palette, PaletteItems::Table, row, column, text);
}
