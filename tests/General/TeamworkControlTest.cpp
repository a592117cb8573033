// Which host operations the Teamwork control uses, and what it shows of what they answer.
#include "General/TeamworkControl.h"

#include <gtest/gtest.h>

#include <map>

#include "support/NullHost.h"

namespace {

constexpr host::DialogId Dialog{7};
constexpr std::int16_t Ok = 1, Icon = 11, Status = 12, Button = 10;

/// Texts are their list and entry, so that the test sees which one was taken.
class NumberedTexts : public test::NullResources {
public:
    std::string ReadString(std::int16_t list, std::int16_t entry) override {
        return std::to_string(list) + "/" + std::to_string(entry) + (entry == 8 ? " by %s." : "");
    }
};

class RecordedItems : public test::NullDialogItems {
public:
    void SetText(host::DialogId, std::int16_t item, const std::string& text) override { texts[item] = text; }
    void SetIcon(host::DialogId, std::int16_t, std::int16_t shown) override { icon = shown; }
    void Enable(host::DialogId, std::int16_t item, bool isEnabled) override { enabled[item] = isEnabled; }

    std::map<std::int16_t, std::string> texts;
    std::map<std::int16_t, bool> enabled;
    std::int16_t icon = 0;
};

class RecordedTeamwork : public test::NullTeamwork {
public:
    bool IsTeamworkProject() override { return isShared; }
    bool HasConnection() override { return isReachable; }
    host::Guid FindLockableSet(const std::string& name) override {
        calls += "find " + name + ";";
        return isKnown ? host::Guid{{1}} : host::Guid();
    }
    host::LockableStatus ReadLockableStatus(const host::Guid& set) override {
        EXPECT_FALSE(set.IsNull());
        return status;
    }
    std::vector<std::int16_t> ListHolders(const host::Guid& set) override {
        EXPECT_FALSE(set.IsNull());
        return {5, 6};
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

    bool isShared = true;
    bool isReachable = true;
    bool isKnown = true; ///< to the host, that is: a null identifier must not be asked
    host::LockableStatus status = host::LockableStatus::Free;
    std::string fullName;
    host::ErrorCode members = host::NoError;
    std::string calls;
};

class TeamworkControlTest : public testing::Test {
protected:
    TeamworkControlTest() {
        host.resources = &texts;
        host.dialogItems = &items;
        host.teamwork = &teamwork;
    }

    NumberedTexts texts;
    RecordedItems items;
    RecordedTeamwork teamwork;
    test::NullHost host;
    General::TeamworkControl control{host, "AnySet", {Icon, Status, Button}};
};

TEST_F(TeamworkControlTest, AsksNothingInAProjectThatIsNotShared) {
    teamwork.isShared = false;
    control.Refresh(Dialog);
    control.ButtonClicked(Dialog);
    EXPECT_EQ(teamwork.calls, "");
    EXPECT_TRUE(items.enabled.at(Ok));
    EXPECT_TRUE(items.texts.empty());
}

TEST_F(TeamworkControlTest, ShowsEachState) {
    using S = host::LockableStatus;
    const struct {
        S state;
        const char* status;
        const char* button;
        std::int16_t icon;
        bool canConfirm;
    } cases[] = {{S::Free, "32607/1", "32607/2", 32691, false},
                 {S::HeldByMe, "32607/3", "32607/4", 32692, true},
                 {S::HeldByOther, "32607/8 by five.", "32607/9", 32690, false},
                 {S::Unknown, "32607/8 by five.", "32607/9", 32690, false},
                 {static_cast<S>(77), "32607/8 by five.", "32607/9", 32690, false}};
    for (const auto& one : cases) {
        teamwork.status = one.state;
        control.Refresh(Dialog);
        EXPECT_EQ(items.texts.at(Status), one.status);
        EXPECT_EQ(items.texts.at(Button), one.button);
        EXPECT_EQ(items.icon, one.icon);
        EXPECT_EQ(items.enabled.at(Ok), one.canConfirm);
    }
}

TEST_F(TeamworkControlTest, NamesTheFirstHolder) {
    teamwork.status = host::LockableStatus::HeldByOther;
    teamwork.fullName = "Full %s Name";
    control.Refresh(Dialog);
    EXPECT_EQ(items.texts.at(Status), "32607/8 by Full %s Name.");
    teamwork.members = host::Errors::General;
    control.Refresh(Dialog);
    EXPECT_EQ(items.texts.at(Status), "32607/8 by ???.");
}

TEST_F(TeamworkControlTest, TheButtonReservesAsksOrReleases) {
    using S = host::LockableStatus;
    const struct {
        S state;
        bool isReachable;
        const char* call;
    } cases[] = {{S::Free, true, "reserve;"},
                 {S::HeldByOther, true, "reserve;"},
                 {S::HeldByMe, true, "release;"},
                 {S::Free, false, ""},
                 {S::HeldByMe, false, ""}};
    for (const auto& one : cases) {
        teamwork.status = one.state;
        teamwork.isReachable = one.isReachable;
        teamwork.calls.clear();
        control.ButtonClicked(Dialog);
        std::string calls = teamwork.calls;
        for (std::size_t at; (at = calls.find("find AnySet;")) != std::string::npos;)
            calls.erase(at, 12);
        EXPECT_EQ(calls, one.call);
        EXPECT_EQ(items.enabled.at(Ok), one.state == S::HeldByMe && !one.isReachable);
    }
    teamwork.isReachable = true;
    teamwork.isKnown = false;
    teamwork.calls.clear();
    control.ButtonClicked(Dialog);
    EXPECT_EQ(teamwork.calls, "find AnySet;find AnySet;find AnySet;");
    EXPECT_EQ(items.texts.at(Status), "32607/8 by ???.");
    EXPECT_FALSE(items.enabled.at(Ok));
}

} // namespace
