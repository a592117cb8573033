// share and teamwork: members of a project, and who holds its settings.
#include "text/Utf8.h"
#include "workbench/cli/Columns.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/Opening.h"
#include "workbench/cli/Options.h"
#include "workbench/text/Letters.h"

#include <algorithm>

namespace workbench::cli {

namespace {

Result<Member> ParseMember(const std::string& argument) {
    const std::size_t separator = argument.find(';');
    Member member;
    member.login = utf8::Trim(std::string_view(argument).substr(0, separator));
    if (separator != std::string::npos) member.fullName = utf8::Trim(std::string_view(argument).substr(separator + 1));
    const auto fail = [&](const char* reason) { return Failure::Usage("--member \"" + argument + "\": " + reason); };
    if (!utf8::IsUtf8(argument)) return fail("the text is not UTF-8");
    if (member.login.empty()) return fail("a member is \"login;Full Name\"");
    if (member.fullName.find(';') != std::string::npos)
        return fail("a member has one \";\", between login and full name");
    return member;
}

/// Adds the members whose logins are new; a login that is there already, or comes twice, is refused.
Outcome AddMembers(const std::vector<Member>& added, Model& model) {
    std::int16_t lastId = 0;
    for (const Member& member : model.members)
        lastId = std::max(lastId, member.userId);
    for (Member member : added) {
        for (const Member& other : model.members)
            if (FoldCase(other.login) == FoldCase(member.login))
                return Failure::Usage("--member \"" + member.login + "\": the project has a member of this login");
        member.userId = ++lastId;
        model.members.push_back(std::move(member));
    }
    return Outcome::Done();
}

std::string ListMembers(const Model& model) {
    std::vector<std::vector<std::string>> rows = {{"Login", "Full name"}};
    for (const Member& member : model.members)
        rows.push_back({member.login, member.fullName});
    return AlignColumns(rows, {Align::Left, Align::Left});
}

Result<OpenedModel> OpenShared(const std::string& file) {
    if (!IsProjectFile(file)) return Failure::Usage(file + ": members are kept in a project file (.kvp)");
    return OpenModel({file}, file);
}

} // namespace

Outcome RunShare(const std::string& file, const std::vector<std::string>& arguments) {
    std::vector<Member> members;
    for (const std::string& argument : arguments) {
        Result<Member> member = ParseMember(argument);
        if (member.HasFailed()) return member;
        members.push_back(member.Take());
    }
    const Result<OpenedModel> opened = OpenShared(file);
    if (opened.HasFailed()) return opened;
    Project& project = opened.Get().GetProject();
    Outcome added = Outcome::Done();
    Outcome kept = project.ChangeTeamwork([&] {
        added = AddMembers(members, project.model);
        return !added.HasFailed();
    });
    if (added.HasFailed()) return added;
    if (kept.HasFailed()) return kept;
    return WriteOutput({}, ListMembers(project.model));
}

Outcome RunTeamwork(const TeamworkOptions& options) {
    Result<OpenedModel> opened = OpenShared(options.project);
    if (opened.HasFailed()) return opened;
    OpenedModel& model = opened.Get();
    if (!model.GetModel().IsShared())
        return Failure::Usage(options.project + " is not shared; share it with kelvarnix share");
    const Purpose purpose = options.sets.empty() ? Purpose::Reading : Purpose::Changing;
    if (Outcome outcome = StartAs(model, options.as, purpose); outcome.HasFailed()) return outcome;
    Session& session = model.GetSession();
    session.GetHost().TurnEventLoop();
    for (const std::string& set : options.sets)
        if (Outcome outcome = session.PressTeamworkButton(set); outcome.HasFailed()) return outcome;
    std::vector<std::vector<std::string>> rows = {{"Settings", "Status"}};
    for (const char* set : {host::BuildingMaterialsSet, host::ClassificationsAndPropertiesSet})
        rows.push_back({set, session.ReadTeamworkStatus(set)});
    for (const std::string& message : session.GetMessages())
        PrintNote(message);
    return WriteOutput({}, AlignColumns(rows, {Align::Left, Align::Left}));
}

} // namespace workbench::cli
