// Which host operations the Teamwork control uses, and what it shows of what they answer.
#include "General/TeamworkControl.h"

#include <gtest/gtest.h>

#include <map>

#include "support/NullHost.h"

namespace {

constexpr host::DialogId Dialog{7};
constexpr std::int16_t Ok = 1, Icon = 11, Status = 12, Button = 10;

class ShownItems : public test::NullDialogItems {
public:
    void SetText(host::DialogId, std::int16_t item, const std::string& text) override { texts[item] = text; }
    void SetIcon(host::DialogId, std::int16_t, std::int16_t shown) override { icon = shown; }
    void Enable(host::DialogId, std::int16_t item, bool isEnabled) override { enabled[item] = isEnabled; }

    std::map<std::int16_t, std::string> texts;
    std::map<std::int16_t, bool> enabled;
    std::int16_t icon = 0;
};

/// A host that records what is shown. Texts are their list and entry, so that the test sees which one was taken; a null
/// identifier must not be asked about.
class TeamworkControlTest : public testing::Test, public test::NullRoles, public test::NullDialogItems {
public:
    TeamworkControlTest() {
        host.resources = this;
        host.dialogItems = &shown;
        host.teamwork = this;
    }
    std::string ReadString(std::int16_t list, std::int16_t entry) override {
        return std::to_string(list) + "/" + std::to_string(entry) + " by %s.";
    }
    bool IsTeamworkProject() override { return isShared; }
    bool HasConnection() override { return isReachable; }
    host::Guid FindLockableSet(const std::string& name) override {
        calls += name == "AnySet" ? "find;" : "another;";
        return isKnown ? host::Guid{{1}} : host::Guid();
    }
    host::LockableStatus ReadLockableStatus(const host::Guid& set) override {
        return set.IsNull() ? throw std::logic_error("status") : status;
    }
    std::vector<std::int16_t> ListHolders(const host::Guid& set) override {
        return set.IsNull() ? throw std::logic_error("holders") : std::vector<std::int16_t>{5, 6};
    }
    host::ErrorCode Reserve(const host::Guid&, host::HostDialogs dialogs) override {
        calls += dialogs == host::HostDialogs::Enabled ? "reserve;" : "silent;";
        return host::Errors::General;
    }
    host::ErrorCode Release(const host::Guid&, host::HostDialogs dialogs) override {
        calls += dialogs == host::HostDialogs::Enabled ? "release;" : "silent;";
        status = host::LockableStatus::Free;
        return host::NoError;
    }
    host::ErrorCode ListMembers(std::vector<host::ProjectMember>& list) override {
        list = {{6, "six", "Six"}, {5, "five", fullName}};
        return members;
    }

protected:
    bool isShared = true, isReachable = true, isKnown = true;
    host::LockableStatus status = host::LockableStatus::Free;
    host::ErrorCode members = host::NoError;
    std::string fullName, calls;
    ShownItems shown;
    test::NullHost host;
    General::TeamworkControl control{host, "AnySet", {Icon, Status, Button}};
};

TEST_F(TeamworkControlTest, ShowsEachStateAndNamesTheFirstHolder) {
    isShared = false; // nothing is asked, nothing shown
    control.Refresh(Dialog);
    control.ButtonClicked(Dialog);
    EXPECT_TRUE(shown.enabled.at(Ok) && calls.empty() && shown.texts.empty());
    isShared = true;
    using S = host::LockableStatus;
    const struct {
        S state;
        const char* fullName;
        host::ErrorCode members;
        const char* status;
        const char* button;
        std::int16_t icon;
    } cases[] = {{S::Free, "", 0, "32607/1 by %s.", "32607/2 by %s.", 32691},
                 {S::HeldByMe, "", 0, "32607/3 by %s.", "32607/4 by %s.", 32692},
                 {S::HeldByOther, "", 0, "32607/8 by five.", "32607/9 by %s.", 32690},
                 {S::HeldByOther, "Full %s Name", 0, "32607/8 by Full %s Name.", "32607/9 by %s.", 32690},
                 {S::HeldByOther, "Full", host::Errors::General, "32607/8 by ???.", "32607/9 by %s.", 32690},
                 {S::Unknown, "", 0, "32607/8 by five.", "32607/9 by %s.", 32690},
                 {static_cast<S>(77), "", 0, "32607/8 by five.", "32607/9 by %s.", 32690}};
    for (const auto& one : cases) {
        status = one.state;
        fullName = one.fullName;
        members = one.members;
        const auto confirming = control.Refresh(Dialog);
        EXPECT_EQ(shown.texts.at(Status), one.status);
        EXPECT_EQ(shown.texts.at(Button), one.button);
        EXPECT_EQ(shown.icon, one.icon);
        EXPECT_EQ(shown.enabled.at(Ok), one.state == S::HeldByMe);
        EXPECT_EQ(confirming == General::TeamworkControl::Confirming::Allowed, one.state == S::HeldByMe);
    }
}

TEST_F(TeamworkControlTest, TheButtonReservesAsksOrReleases) {
    using S = host::LockableStatus;
    const struct {
        S state;
        bool isReachable, isKnown;
        const char* calls;
    } cases[] = {{S::Free, true, true, "find;find;reserve;find;"},
                 {S::HeldByOther, true, true, "find;find;reserve;find;"},
                 {S::HeldByMe, true, true, "find;find;release;find;"},
                 {S::Free, false, true, "find;find;"},
                 {S::HeldByMe, false, true, "find;find;"},
                 {S::Free, true, false, "find;find;find;"}};
    for (const auto& one : cases) {
        status = one.state;
        isReachable = one.isReachable;
        isKnown = one.isKnown;
        calls.clear();
        control.ButtonClicked(Dialog);
        EXPECT_EQ(calls, one.calls);
        EXPECT_EQ(shown.enabled.at(Ok), one.state == S::HeldByMe && !one.isReachable);
    }
    EXPECT_EQ(shown.texts.at(Status), "32607/8 by ???.");
}

} // namespace
