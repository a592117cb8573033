// What a cell looks like: the record that a caller fills in and registers with the workbook. Colours are RGB text such
// as "FFC00000", written as given; six digits are taken too, but a strict reader wants the eight (alpha first).
#pragma once

#include <string>

namespace Xlsx {

/// Bits of Font::attributes.
enum FontAttribute : unsigned {
    Bold = 1,
    Italic = 2,
    Underline = 4,
    Strike = 8,
    Outline = 16,
    Shadow = 32,
    Condense = 64,
    Extend = 128,
};

enum class FontColour { Given, Theme };

struct Font {
    std::string name = "Calibri";
    int sizePoints = 11;
    FontColour colourSource = FontColour::Theme;
    std::string colour; ///< counts only when Given; empty: the theme's
    unsigned attributes = 0;
};

enum class FillPattern {
    None,
    Solid,
    MediumGray,
    DarkGray,
    LightGray,
    DarkHorizontal,
    DarkVertical,
    DarkDown,
    DarkUp,
    DarkGrid,
    DarkTrellis,
    LightHorizontal,
    LightVertical,
    LightDown,
    LightUp,
    LightGrid,
    LightTrellis,
    Gray125,
    Gray0625,
};

struct CellFill {
    FillPattern pattern = FillPattern::None;
    std::string foreground; ///< empty: none
    std::string background;
};

enum class BorderLine {
    None,
    Thin,
    Medium,
    Dashed,
    Dotted,
    Thick,
    Double,
    Hair,
    MediumDashed,
    DashDot,
    MediumDashDot,
    DashDotDot,
    MediumDashDotDot,
    SlantDashDot,
};

struct BorderSide {
    BorderLine line = BorderLine::None;
    std::string colour; ///< empty: the system's
};

struct Border {
    BorderSide left;
    BorderSide right;
    BorderSide top;
    BorderSide bottom;
    BorderSide diagonal;
    bool hasDiagonalUp = false;
    bool hasDiagonalDown = false;
};

enum class NumberKind {
    General,
    Plain,
    Percent,
    Scientific,
    Accounting,
    Suffixed, ///< the number, a blank and NumberFormat::suffix
    Date,
    Time,
    DateTime,
};

enum class NegativeSign { None, Minus };
enum class NegativeColour { None, Black, Green, White, Blue, Magenta, Yellow, Cyan, Red };

constexpr unsigned FirstCustomFormat = 164;

/// A built-in format by its id, or, with FirstCustomFormat and above, one built from the other members; the workbook
/// then gives it an id of its own.
struct NumberFormat {
    unsigned id = 0;
    NumberKind kind = NumberKind::General;
    unsigned decimals = 0;
    bool hasThousandsSeparator = false;
    NegativeSign negativeSign = NegativeSign::Minus;
    NegativeColour negativeColour = NegativeColour::None;
    /// Stands in the format code as it is: letters that mean something there need double quotes, as in "\"kg\"".
    std::string suffix;
};

enum class HorizontalAlignment { None, Left, Centre, Right };
enum class VerticalAlignment { None, Top, Centre, Bottom };

struct Alignment {
    HorizontalAlignment horizontal = HorizontalAlignment::None;
    VerticalAlignment vertical = VerticalAlignment::None;
    bool wrapsText = false;
    int rotationDegrees = 0; ///< counter-clockwise, -90 to 90; 255 sets the letters one below the other
};

struct Style {
    Font font;
    CellFill fill;
    Border border;
    NumberFormat numberFormat;
    Alignment alignment;
};

} // namespace Xlsx
