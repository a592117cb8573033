// Tables on a terminal.
#pragma once

#include <string>
#include <vector>

namespace workbench::cli {

enum class Align { Left, Right };

/// Rows of cells as lines of aligned columns, two blanks apart.
std::string AlignColumns(const std::vector<std::vector<std::string>>& rows, const std::vector<Align>& alignment);
/// The same with a line above the last row, the total.
std::string AlignColumnsWithTotal(const std::vector<std::vector<std::string>>& rows,
                                  const std::vector<Align>& alignment);

} // namespace workbench::cli
