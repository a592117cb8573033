// Fills and lines of what a drawing shows. Colours are six hexadecimal digits, written as given.
#pragma once

#include "xlsx/XmlWriter.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Xlsx {

/// The program that shows the drawing chooses.
struct AutomaticFill {};
struct NoFill {};
struct SolidFill {
    std::string colour;
};

/// The preset patterns, in the order of their names' list in ShapeFill.cpp.
// clang-format off
enum class PatternPreset {
    Percent5, Percent10, Percent20, Percent25, Percent30, Percent40, Percent50, Percent60, Percent70, Percent75,
    Percent80, Percent90, Horizontal, Vertical, LightHorizontal, LightVertical, DarkHorizontal, DarkVertical,
    NarrowHorizontal, NarrowVertical, DashedHorizontal, DashedVertical, Cross, DownDiagonal, UpDiagonal,
    LightDownDiagonal, LightUpDiagonal, DarkDownDiagonal, DarkUpDiagonal, WideDownDiagonal, WideUpDiagonal,
    DashedDownDiagonal, DashedUpDiagonal, DiagonalCross, SmallCheck, LargeCheck, SmallGrid, LargeGrid, DottedGrid,
    SmallConfetti, LargeConfetti, HorizontalBrick, DiagonalBrick, SolidDiamond, OpenDiamond, DottedDiamond, Plaid,
    Sphere, Weave, Divot, Shingle, Wave, Trellis, ZigZag,
};
// clang-format on

struct PatternFill {
    PatternPreset preset = PatternPreset::Percent50;
    std::string foreground = "000000";
    std::string background = "FFFFFF";
};

/// Insets from the four sides, in thousandths of a percent of the shape; negative ones lie outside.
struct RelativeRectangle {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

enum class GradientPath { Circle, Rectangle, Shape };

struct GradientStop {
    int position; ///< along the path, in thousandths of a percent, 0 to 100000
    std::string colour;
};

/// Colours that run along a path towards a rectangle. At least two stops.
struct GradientFill {
    std::vector<GradientStop> stops;
    GradientPath path = GradientPath::Circle;
    RelativeRectangle fillTo = {50000, 50000, 50000, 50000};
    RelativeRectangle tile;
};

using ShapeFill = std::variant<AutomaticFill, NoFill, SolidFill, PatternFill, GradientFill>;

enum class LineDash { Solid, Dash, ShortDash, ShortDot };

struct ShapeLine {
    ShapeFill fill; ///< AutomaticFill: no line of its own is written
    LineDash dash = LineDash::Solid;
};

/// The element of the fill; nothing for AutomaticFill.
void WriteFill(XmlWriter& xml, const ShapeFill& fill);

/// "c:spPr" with fill and line; nothing when both are automatic.
void WriteShapeProperties(XmlWriter& xml, const ShapeFill& fill, const ShapeLine& line);

} // namespace Xlsx
