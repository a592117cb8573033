// The material table: a CSV file with the GWP of materials, doors and windows. docs/material-table.md describes it.
#pragma once

#include "workbench/result/Result.h"

#include "lca/MaterialGWP.h"

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

enum class AppliesTo { Material, Door, Window };

struct MaterialRow {
    AppliesTo appliesTo = AppliesTo::Material;
    std::string name;     ///< as written; a pattern where it holds "*"
    std::string unit;     ///< "m3", "m2", "kg"; of doors and windows "piece", "m2"
    lca::MaterialGWP gwp; ///< neither form: the row is not filled in yet
    std::optional<std::int32_t> serviceLifeYears;
    std::optional<double> densityKgM3;

    bool IsFilledIn() const { return gwp.plain || !gwp.byPhase.empty(); }
};

class MaterialTable {
public:
    /// Reads the whole file before anything is used; a bad row is told with file, line and reason.
    static Result<MaterialTable> Read(const std::string& path);
    /// The same from a text; `path` is for messages.
    static Result<MaterialTable> Parse(const std::string& path, std::string_view text);

    /// The first filled-in row whose name is the first of NAMES, ignoring case, else the next; else, in the same order,
    /// the first whose pattern matches. Null where none does.
    const MaterialRow* Find(AppliesTo appliesTo, const std::vector<std::string>& names) const;
    const std::vector<MaterialRow>& GetRows() const { return rows; }

private:
    std::vector<MaterialRow> rows;
    std::vector<std::string> foldedNames; ///< of the rows; a table is searched for every material, door and window
};

/// A cell of the table, quoted where it has to be.
std::string QuoteCell(const std::string& text);

inline constexpr char MaterialTableHeader[] = "applies_to;name;unit;gwp;service_life;density";

} // namespace workbench
