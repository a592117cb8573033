// share and teamwork: members of a project, and who holds its settings.
#include "workbench/app/Membership.h"
#include "workbench/app/ModelInput.h"
#include "workbench/app/Session.h"
#include "workbench/cli/Columns.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/Waiting.h"
#include "workbench/text/Letters.h"

#include <algorithm>

namespace workbench::cli {

namespace {

std::string Trim(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

Outcome ParseMember(const std::string& argument, Member& member) {
    const std::size_t separator = argument.find(';');
    member.login = Trim(argument.substr(0, separator));
    member.fullName = separator == std::string::npos ? std::string() : Trim(argument.substr(separator + 1));
    const std::string start = "--member \"" + argument + "\": ";
    if (!IsUtf8(argument)) return Failure{UsageError, start + "the text is not UTF-8"};
    if (member.login.empty()) return Failure{UsageError, start + "a member is \"login;Full Name\""};
    if (member.fullName.find(';') != std::string::npos)
        return Failure{UsageError, start + "a member has one \";\", between login and full name"};
    return {};
}

/// Adds the members whose logins are new; a login that is there already, or comes twice, is refused.
Outcome AddMembers(const std::vector<Member>& added, Model& model) {
    std::int16_t lastId = 0;
    for (const Member& member : model.members)
        lastId = std::max(lastId, member.userId);
    for (Member member : added) {
        for (const Member& other : model.members)
            if (FoldCase(other.login) == FoldCase(member.login))
                return Failure{UsageError, "--member \"" + member.login + "\": the project has a member of this login"};
        member.userId = ++lastId;
        model.members.push_back(std::move(member));
    }
    return {};
}

std::string ListMembers(const Model& model) {
    std::vector<std::vector<std::string>> rows = {{"Login", "Full name"}};
    for (const Member& member : model.members)
        rows.push_back({member.login, member.fullName});
    return AlignColumns(rows, {Align::Left, Align::Left});
}

Outcome OpenShared(const std::string& file, ModelInput& input) {
    if (!IsProjectFile(file)) return Failure{UsageError, file + ": members are kept in a project file (.kvp)"};
    return ReadModel(file, KeepChanges::InFile, input);
}

} // namespace

Outcome RunShare(const std::string& file, const std::vector<std::string>& arguments) {
    std::vector<Member> members(arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i)
        if (Outcome failure = ParseMember(arguments[i], members[i])) return failure;
    ModelInput input;
    if (Outcome failure = OpenShared(file, input)) return failure;
    Outcome refusal;
    const bool isKept = input.project->ChangeTeamwork([&] {
        refusal = AddMembers(members, input.project->model);
        return !refusal;
    });
    if (refusal) return refusal;
    if (!isKept) return Failure{OutputUnwritable, input.project->GetStoreFailure()};
    return WriteOutput({}, ListMembers(input.project->model));
}

Outcome RunTeamwork(const TeamworkOptions& options) {
    ModelInput input;
    if (Outcome failure = OpenShared(options.project, input)) return failure;
    if (!input.project->model.IsShared())
        return Failure{UsageError, options.project + " is not shared; share it with kelvarnix share"};
    Session session;
    const Purpose purpose = options.sets.empty() ? Purpose::Reading : Purpose::Changing;
    if (Outcome failure =
            session.StartAs(std::move(input.project), host::ProjectEvent::Open, options.project, options.as, purpose))
        return failure;
    session.GetHost().TurnEventLoop();
    for (const std::string& set : options.sets)
        if (Outcome failure = session.PressTeamworkButton(set)) return failure;
    std::vector<std::vector<std::string>> rows = {{"Settings", "Status"}};
    for (const char* set : {host::BuildingMaterialsSet, host::ClassificationsAndPropertiesSet})
        rows.push_back({set, session.ReadTeamworkStatus(set)});
    for (const std::string& message : session.GetMessages())
        PrintNote(message);
    return WriteOutput({}, AlignColumns(rows, {Align::Left, Align::Left}));
}

} // namespace workbench::cli
