// The workbook's lists of fonts, fills, borders, number formats and cell formats, each entry once.
#pragma once

#include "xlsx/Style.h"

#include <map>
#include <string>
#include <vector>

namespace Xlsx {

/// A custom number format under its id; the record's own id does not count.
struct CustomNumberFormat {
    unsigned id;
    NumberFormat format;
};

/// Positions in the registry's lists.
struct CellFormat {
    unsigned font = 0;
    unsigned fill = 0;
    unsigned border = 0;
    unsigned numberFormat = 0; ///< a format id
    Alignment alignment;
};

/// Orders entries by all that tells them apart.
struct ByFields {
    template <class Entry>
    bool operator()(const Entry& left, const Entry& right) const;
};

/// Different entries in the order in which they came, each found without going through the others.
template <class Entry>
class EntryList {
public:
    /// Position of the equal entry; appends the entry where there is none.
    unsigned Register(const Entry& entry);

    [[nodiscard]] const std::vector<Entry>& GetEntries() const { return entries; }

private:
    std::vector<Entry> entries;
    std::map<Entry, unsigned, ByFields> positions;
};

/// Starts with the default record as cell format 0 and, as cell format 1, the one with the fill "gray125" and the
/// built-in number format 1, because readers expect "none" and "gray125" as the first fills.
class CStyleRegistry {
public:
    CStyleRegistry();

    /// Index of the record's cell format; equal records have the same one.
    unsigned AddStyle(const Style& style);

    [[nodiscard]] const std::vector<Font>& GetFonts() const { return fonts.GetEntries(); }
    [[nodiscard]] const std::vector<CellFill>& GetFills() const { return fills.GetEntries(); }
    [[nodiscard]] const std::vector<Border>& GetBorders() const { return borders.GetEntries(); }
    [[nodiscard]] const std::vector<CustomNumberFormat>& GetNumberFormats() const { return numberFormats.GetEntries(); }
    [[nodiscard]] const std::vector<CellFormat>& GetCellFormats() const { return cellFormats.GetEntries(); }

private:
    unsigned NumberFormatId(const NumberFormat& format);

    EntryList<Font> fonts;
    EntryList<CellFill> fills;
    EntryList<Border> borders;
    EntryList<CustomNumberFormat> numberFormats;
    EntryList<CellFormat> cellFormats;
};

/// The format code of a custom number format, such as "#,##0.00;[Red]\-#,##0.00".
[[nodiscard]] std::string NumberFormatCode(const NumberFormat& format);

} // namespace Xlsx
