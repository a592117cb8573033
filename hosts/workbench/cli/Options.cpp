#include "workbench/cli/Options.h"

#include "lca/Numbers.h"

namespace workbench::cli {

namespace {

Result<std::int16_t> ChooseUser(const OpenedModel& model, const std::string& login, Purpose purpose) {
    const MemberChoice choice = ChooseMember(model.GetModel(), login, purpose);
    const std::string option = "--as " + login + ": ";
    const std::string advice = "; give --as with one of: " + ListLogins(model.GetModel());
    switch (choice.finding) {
    case MemberChoice::Finding::NotShared:
        return Failure::Usage(option + model.GetPath() + " is not shared; leave --as out");
    case MemberChoice::Finding::Unknown:
        return Failure::Usage(option + "no member has this login" + advice);
    case MemberChoice::Finding::Needed:
        return Failure::Usage(model.GetPath() + " is shared" + advice);
    case MemberChoice::Finding::Found:
        break;
    }
    return choice.userId;
}

Result<std::string> ChooseTarget(Session& session, const std::string& wanted) {
    const Result<std::vector<std::string>> targets = ListExportTargets(session);
    if (targets.HasFailed()) return targets.GetFailure();
    std::string list;
    for (const std::string& one : targets.Get()) {
        if (one == wanted || (wanted.empty() && targets.Get().size() == 1)) return one;
        list.append(list.empty() ? "" : ", ").append(one);
    }
    if (list.empty()) return Failure::Input("no add-on takes energy data; build the add-on anew");
    return Failure::Usage("--target \"" + wanted + "\": there is no such export; choose one of: " + list);
}

} // namespace

Outcome CheckSave(const std::string& save) {
    if (save.empty() || IsProjectFile(save)) return Outcome::Done();
    return Failure::Usage("--save " + save + ": a project file ends in .kvp");
}

Result<std::optional<host::Point>> ParsePlace(const std::string& option, const std::string& place,
                                              const std::string& save) {
    if (place.empty()) return std::optional<host::Point>();
    if (save.empty())
        return Failure::Usage(option + " changes the project; name with --save the .kvp file that keeps it");
    const std::size_t comma = place.find(',');
    const std::optional<double> x = lca::ParseDecimal(place.substr(0, comma));
    const std::optional<double> y =
        comma == std::string::npos ? std::nullopt : lca::ParseDecimal(place.substr(comma + 1));
    if (!x || !y || place.find(',', comma + 1) != std::string::npos)
        return Failure::Usage(option + " " + place + ": a place is X,Y in metres with decimal points, such as 12.5,-3");
    return std::optional(host::Point{*x, *y});
}

Result<host::Database> FindDatabase(const Model& model, const std::string& option, const std::string& name) {
    constexpr char FloorPlanName[] = "Floor plan";
    if (name.empty() || name == FloorPlanName) return host::Database{host::DatabaseType::FloorPlan, {}, {}};
    std::string names = FloorPlanName;
    for (const DatabaseRow& row : model.databases) {
        names.append(", ").append(row.name);
        if (row.name == name) return host::Database{row.type, row.guid, row.name};
    }
    return Failure::Usage(option + " " + name + ": the project has no database of this name; it has " + names);
}

Outcome OpenWindow(WorkbenchHost& host, const std::string& name) {
    Result<host::Database> database = name == "3D" ? host::Database{host::DatabaseType::Model3D, {}, {}}
                                                   : FindDatabase(host.GetProject()->model, "--window", name);
    if (database.HasFailed()) return database;
    if (host.SwitchWindow(database.Get()) == host::NoError) return Outcome::Done();
    return Failure::Input("--window " + name + ": the window cannot be opened; choose another one");
}

Outcome StartAs(OpenedModel& model, const std::string& login, Purpose purpose) {
    Result<std::int16_t> user = ChooseUser(model, login, purpose);
    if (user.HasFailed()) return user;
    return model.Start({user.Get(), "with kelvarnix teamwork"});
}

Result<EnergyTransfer> SendEnergyData(Session& session, const std::string& file, const std::string& target) {
    const Result<std::string> chosen = ChooseTarget(session, target);
    if (chosen.HasFailed()) return chosen.GetFailure();
    return ExportEnergyData(session, file, chosen.Get());
}

} // namespace workbench::cli
