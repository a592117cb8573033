// The palette's category list: columns, headers, rows and the colour swatches. The rows are
// those of the table: units, categories, total.
#pragma once

#include "host/Dialogs.h"
#include "host/Host.h"
#include "lca/LCAProjectData.h"
#include "lca/ResultTable.h"

#include <optional>
#include <string>
#include <vector>

/// Columns of the list that take clicks.
inline constexpr std::int16_t PaletteColourColumn = 1;
inline constexpr std::int16_t PaletteModeColumn = 4;

class PaletteTable {
public:
    explicit PaletteTable(host::Host& host);

    /// Columns and headers of the list in this palette.
    void SetUp(host::DialogId palette);
    /// Spreads the columns over the list's present width.
    void LayOutColumns();
    void EnableSwatches();

    /// The texts of headers, units, categories and total.
    lca::TableLabels GetLabels() const;
    /// Shows the 70 texts of the table and the percentage-mode icons; inserts all rows anew or rewrites their texts.
    void Show(const std::vector<std::string>& tableText, const lca::LCAProjectData& record, bool insertsRows);
    /// The category that a list row shows; none for the rows of units and total.
    static std::optional<lca::ElementCategory> FindCategory(std::int32_t row);
    /// Draws the owner-drawn cell of column 1: the colour of the row's category.
    void DrawSwatch(const host::DialogMessageData& cell, const std::vector<double>& typeColors) const;

private:
    void InsertRows();
    void ShowPercentageMode(lca::ElementCategory category, const lca::LCAProjectData& record);
    void SetCell(std::int32_t row, std::int16_t column, const std::string& text);

    host::Host& host;
    host::DialogId palette;
};
