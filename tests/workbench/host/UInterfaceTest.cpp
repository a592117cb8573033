// The shared list, pop-up and alert helpers on real dialogs.
#include "General/UInterface.h"
#include "General/DialogBase.h"

#include <gtest/gtest.h>

#include <cmath>

#include "workbench/host/WorkbenchHost.h"

namespace {

class AnyDialog : public General::CDialogBase {
public:
    AnyDialog(workbench::WorkbenchHost& host, std::int16_t resource) : CDialogBase(host, resource, "") {
        host.registration.SetPhase(workbench::RegistrationRole::Phase::Initialising);
        EXPECT_EQ(RegisterPalette(nullptr), host::NoError);
        OpenAsPalette();
    }

protected:
    std::int16_t HandleItemEvent(host::DialogMessage, std::int16_t, const host::DialogMessageData&) override {
        return 0;
    }
};

TEST(UInterface, WhatDoesNotFitIsLeft) {
    workbench::WorkbenchHost host;
    const AnyDialog dialog(host, 32407);
    const host::DialogId id = dialog.GetDialog();
    workbench::ItemState& popup = *host.openDialogs.FindItem(id, 21);
    popup.selectedEntry = 2;
    EXPECT_FALSE(General::SelectPopupByText(host, id, "KG"));
    EXPECT_EQ(popup.selectedEntry, 2);
    popup.popUpTexts.clear();
    EXPECT_FALSE(General::SelectPopupByText(host, id, "m3"));
    constexpr std::int16_t List = 9, Editor = 8;
    host.listLayout.SetColumnCount(id, List, 1);
    host.listLayout.BindEditor(id, List, 1, Editor);
    const std::int16_t width = host.listLayout.ReadCellSpace(id, List).width;
    for (const auto& [end, fitted] : {std::pair{100, 98}, {1, 0}, {width + 50, width - 2}}) { // never negative
        host.listLayout.SetColumn(id, List, 1, {0, static_cast<std::int16_t>(end), {}, {}});
        General::FitListEditors(host, id, List);
        EXPECT_EQ(host.dialogItems.ReadRectangle(id, Editor).width, fitted) << end;
    }
}

TEST(UInterface, LaysColumnsFromTheRight) {
    workbench::WorkbenchHost host;
    const AnyDialog dialog(host, 32409);
    const host::DialogId id = dialog.GetDialog();
    host.listLayout.SetColumnCount(id, 3, 4);
    host.listLayout.SetHeader(id, 3, 1, {"Layer", 120, 80, {}, true});
    host.listLayout.SetHeader(id, 3, 2, {"Name", 60, 80, {}, true});   // narrower than its minimum
    host.listLayout.SetHeader(id, 3, 3, {"GWP", 150, 100, {}, false}); // cannot be resized
    host.listLayout.SetHeader(id, 3, 4, {"", 200, 80, {}, true});
    General::LayoutListColumnsFromRight(host, id);
    const std::int16_t width = host.listLayout.ReadCellSpace(id, 3).width; // W: 200, then 100, 80, 120 to the left
    const std::vector<std::pair<int, int>> expected = {
        {width - 500, width - 380}, {width - 380, width - 300}, {width - 300, width - 200}, {width - 200, width}};
    for (std::int16_t column = 1; column <= 4; ++column) {
        const host::ListColumn place = host.listLayout.ReadColumn(id, 3, column);
        EXPECT_EQ(std::pair(int{place.begin}, int{place.end}), expected[static_cast<std::size_t>(column - 1)]);
    }
}

TEST(UInterface, AlertsTakeTheReportsTexts) {
    workbench::WorkbenchHost host;
    host.dialogManager.alertAnswer = [](const host::Alert&) { return std::int16_t{2}; };
    EXPECT_EQ(General::ShowAlert(host, host::AlertType::Information, 2, 18, {29, 28, General::NoButton}), 2);
    const host::Alert& alert = host.dialogManager.shownAlerts.at(0);
    EXPECT_EQ(alert.title, "LCA Design report");
    EXPECT_EQ(alert.largeText, "Saved!");
    EXPECT_EQ(alert.buttons, (std::vector<std::string>{"Open Now", "Close"}));
    // The second button that is shown was asked for as the third.
    EXPECT_EQ(General::ShowAlert(host, host::AlertType::Information, 2, 18, {29, General::NoButton, 28}), 3);
    host.dialogManager.alertAnswer = [](const host::Alert&) { return std::int16_t{1}; };
    EXPECT_EQ(General::ShowAlert(host, host::AlertType::Information, 2, 18, {General::NoButton, 29, 28}), 2);
}

TEST(UInterface, TypedValuesAreNumbers) {
    workbench::WorkbenchHost host;
    int lines = 0;
    host.dialogManager.reportSink = [&](const std::string&) { ++lines; };
    EXPECT_TRUE(General::IsUsableNumber(host, -1e308));
    EXPECT_EQ(lines, 0);
    EXPECT_FALSE(General::IsUsableNumber(host, INFINITY));
    EXPECT_FALSE(General::IsUsableNumber(host, NAN));
    EXPECT_EQ(lines, 2);
}

} // namespace
