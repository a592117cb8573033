#include "workbench/app/Membership.h"

#include "workbench/text/Letters.h"

namespace workbench {

MemberChoice ChooseMember(const Model& model, const std::string& login, Purpose purpose) {
    using Finding = MemberChoice::Finding;
    if (!model.IsShared()) return {login.empty() ? Finding::Found : Finding::NotShared};
    for (const Member& member : model.members)
        if (FoldCase(member.login) == FoldCase(login)) return {Finding::Found, member.userId};
    if (!login.empty()) return {Finding::Unknown};
    return {purpose == Purpose::Changing ? Finding::Needed : Finding::Found};
}

std::string ListLogins(const Model& model) {
    std::string logins;
    for (const Member& member : model.members)
        logins.append(logins.empty() ? "" : ", ").append(member.login);
    return logins;
}

} // namespace workbench
