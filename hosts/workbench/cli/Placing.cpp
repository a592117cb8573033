#include "workbench/cli/Placing.h"

#include "lca/Numbers.h"
#include "workbench/app/ModelInput.h"

namespace workbench::cli {

Outcome CheckSave(const std::string& save) {
    if (save.empty() || IsProjectFile(save)) return {};
    return Failure{UsageError, "--save " + save + ": a project file ends in .kvp"};
}

Outcome ParsePoint(const std::string& option, const std::string& text, host::Point& point) {
    const std::size_t comma = text.find(',');
    const std::optional<double> x = lca::ParseDecimal(text.substr(0, comma));
    const std::optional<double> y =
        comma == std::string::npos ? std::nullopt : lca::ParseDecimal(text.substr(comma + 1));
    if (!x || !y || text.find(',', comma + 1) != std::string::npos)
        return Failure{UsageError,
                       option + " " + text + ": a place is X,Y in metres with decimal points, such as 12.5,-3"};
    point = {*x, *y};
    return {};
}

Outcome CheckPlacing(const std::string& option, const std::string& place, const std::string& save) {
    host::Point point;
    if (place.empty()) return {};
    if (save.empty())
        return Failure{UsageError, option + " changes the project; name with --save the .kvp file that keeps it"};
    return ParsePoint(option, place, point);
}

Outcome FindDatabase(const Model& model, const std::string& option, const std::string& name, host::Database& database) {
    constexpr char FloorPlanName[] = "Floor plan";
    database = {host::DatabaseType::FloorPlan, {}, {}};
    if (name.empty() || name == FloorPlanName) return {};
    std::string names = FloorPlanName;
    for (const DatabaseRow& row : model.databases) {
        names.append(", ").append(row.name);
        if (row.name != name) continue;
        database = {row.type, row.guid, row.name};
        return {};
    }
    return Failure{UsageError, option + " " + name + ": the project has no database of this name; it has " + names};
}

Outcome OpenWindow(WorkbenchHost& host, const std::string& name) {
    host::Database database{host::DatabaseType::Model3D, {}, {}};
    if (name != "3D")
        if (Outcome failure = FindDatabase(host.GetProject()->model, "--window", name, database)) return failure;
    if (host.SwitchWindow(database) == host::NoError) return {};
    return Failure{InputUnreadable, "--window " + name + ": the window cannot be opened; choose another one"};
}

} // namespace workbench::cli
