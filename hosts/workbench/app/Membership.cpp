#include "workbench/app/Membership.h"

#include "workbench/text/Letters.h"

namespace workbench {

namespace {

std::string ListLogins(const Model& model) {
    std::string logins;
    for (const Member& member : model.members)
        logins.append(logins.empty() ? "" : ", ").append(member.login);
    return logins;
}

} // namespace

Outcome SelectMember(const Model& model, const std::string& file, const std::string& login, Purpose purpose,
                     std::int16_t& userId) {
    userId = 0;
    if (!model.IsShared()) {
        if (login.empty()) return {};
        return Failure{UsageError, "--as " + login + ": " + file + " is not shared; leave --as out"};
    }
    for (const Member& member : model.members)
        if (FoldCase(member.login) == FoldCase(login)) userId = member.userId;
    if (userId != 0 || (login.empty() && purpose == Purpose::Reading)) return {};
    const std::string start = login.empty() ? file + " is shared" : "--as " + login + ": no member has this login";
    return Failure{UsageError, start + "; give --as with one of: " + ListLogins(model)};
}

} // namespace workbench
