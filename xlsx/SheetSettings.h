// How a worksheet is seen and printed.
#pragma once

#include <optional>
#include <vector>

namespace Xlsx {

/// Columns counted from 1, both included; the width in letters of the default font.
struct ColumnWidth {
    unsigned first = 1;
    unsigned last = 1;
    double width = 0;
};

/// The rows above and the columns left of the pane that scrolls.
struct FrozenPane {
    unsigned rows = 0;
    unsigned columns = 0;
};

/// FitWidth prints all columns on one page's width and as many pages as the rows need.
enum class PageScale { AsIs, FitWidth };

/// What has to be known when a sheet is created.
struct SheetView {
    std::optional<FrozenPane> frozenPane;
    PageScale pageScale = PageScale::AsIs;
};

enum class PageOrientation { Portrait, Landscape };

/// Margins in inches.
struct PageSetup {
    PageOrientation orientation = PageOrientation::Portrait;
    double left = 0.7;
    double right = 0.7;
    double top = 0.75;
    double bottom = 0.75;
    double header = 0.3;
    double footer = 0.3;
};

} // namespace Xlsx
