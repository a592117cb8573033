// The workbook's lists of fonts, fills, borders, number formats and cell formats, each entry once.
#pragma once

#include "xlsx/Style.h"

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

/// Starts with the default record as cell format 0 and, as cell format 1, the one with the fill "gray125" and the
/// built-in number format 1, because readers expect "none" and "gray125" as the first fills.
class CStyleRegistry {
public:
    CStyleRegistry();

    /// Index of the record's cell format; equal records have the same one. The first equal entry of each list wins.
    unsigned AddStyle(const Style& style);

    [[nodiscard]] const std::vector<Font>& Fonts() const { return fonts; }
    [[nodiscard]] const std::vector<CellFill>& Fills() const { return fills; }
    [[nodiscard]] const std::vector<Border>& Borders() const { return borders; }
    [[nodiscard]] const std::vector<CustomNumberFormat>& NumberFormats() const { return numberFormats; }
    [[nodiscard]] const std::vector<CellFormat>& CellFormats() const { return cellFormats; }

private:
    unsigned NumberFormatId(const NumberFormat& format);

    std::vector<Font> fonts;
    std::vector<CellFill> fills;
    std::vector<Border> borders;
    std::vector<CustomNumberFormat> numberFormats;
    std::vector<CellFormat> cellFormats;
    unsigned nextNumberFormatId = firstCustomFormat;
};

/// The format code of a custom number format, such as "#,##0.00;[Red]\-#,##0.00".
[[nodiscard]] std::string NumberFormatCode(const NumberFormat& format);

} // namespace Xlsx
