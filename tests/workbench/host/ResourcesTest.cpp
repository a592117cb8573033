// How the workbench writes numbers, times and letters.
#include "support/TextCases.h"
#include "workbench/host/SmallRoles.h"

namespace {

constexpr std::int16_t TwoDecimals = 3;
constexpr std::uint32_t DateAndTime = 528;

TEST(WorkbenchTexts, FollowTheTables) {
    workbench::ResourcesRole role;
    support::ExpectTwoDecimals([&](double value) { return role.FormatNumber(value, TwoDecimals); });
    support::ExpectLocalTime([&] { return role.FormatCurrentTime(DateAndTime); });
    support::ExpectLowerCase([&](const std::string& text) { return role.ToLowerCase(text); });
}

} // namespace
