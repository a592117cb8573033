#include "workbench/cli/Columns.h"

#include "text/Utf8.h"

#include <algorithm>

namespace workbench::cli {

std::string AlignColumns(const std::vector<std::vector<std::string>>& rows, const std::vector<Align>& alignment) {
    std::vector<std::size_t> widths(alignment.size(), 0);
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size() && i < widths.size(); ++i)
            widths[i] = std::max(widths[i], utf8::CountCharacters(row[i]));
    std::string lines;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size() && i < widths.size(); ++i) {
            const std::string blanks(widths[i] - utf8::CountCharacters(row[i]), ' ');
            if (i > 0) line += "  ";
            line += alignment[i] == Align::Right ? blanks + row[i] : row[i] + blanks;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        lines += line + "\n";
    }
    return lines;
}

std::string AlignColumnsWithTotal(const std::vector<std::vector<std::string>>& rows,
                                  const std::vector<Align>& alignment) {
    std::string text = AlignColumns(rows, alignment);
    const std::size_t lastLine = text.rfind('\n', text.size() - 2) + 1;
    text.insert(lastLine, std::string(text.find('\n'), '-') + "\n");
    return text;
}

} // namespace workbench::cli
