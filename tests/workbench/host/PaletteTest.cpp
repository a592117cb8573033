// The palette as a user meets it: through the loaded module, its menu command, its buttons and what it shows.
#include "workbench/dialogs/RecordedContext.h"

#include "DrivenAddOn.h"

namespace {

using namespace ResourceIds;
using lca::PropertyKey;

using PaletteTest = test::DrivenAddOn;

TEST_F(PaletteTest, TheMenuCommandTogglesPaletteAndText) {
    EXPECT_EQ(module.GetEnvironment().addOnName, "Kelvarnix");
    EXPECT_EQ(module.GetEnvironment().addOnDescription, "Version: 26.07");
    EXPECT_TRUE(host.registration.IsKeptInMemory());
    TogglePalette();
    ASSERT_NE(Palette(), nullptr);
    EXPECT_EQ(MenuText(), "Hide Palette");
    TogglePalette();
    EXPECT_EQ(Palette(), nullptr);
    EXPECT_EQ(MenuText(), "Show Palette");
    EXPECT_EQ(host.registration.ChooseMenu(Menus::Palette, 2), host::NoError); // the title is no command
    EXPECT_EQ(Palette(), nullptr);
    TogglePalette();
    host.dialogManager.RequestClose(Palette()->id);
    EXPECT_EQ(Palette(), nullptr);
    EXPECT_EQ(MenuText(), "Show Palette");
}

TEST_F(PaletteTest, OpensCalculatedAndLaidOut) {
    SetDoorGWP(100);
    TogglePalette();
    ASSERT_EQ(PaletteItem(PaletteItems::Table).list.rows.size(), 9U);
    EXPECT_EQ(Cell(1, 3) + Cell(1, 5) + Cell(1, 6) + Cell(1, 7) + Cell(1, 8),
              "(year)(%)(kg CO2-eq)(kg CO2-eq/m2)(kg CO2-eq/m2/a)");
    EXPECT_EQ(Cell(2, 2), "Operational energy use (B6)");
    EXPECT_EQ(Cell(8, 2), "Construction process (A4, A5)");
    EXPECT_EQ(Cell(4, 3), "25.00");
    EXPECT_EQ(Cell(4, 6), "200.00"); // 100 x ceil(50 / 25)
    EXPECT_EQ(Cell(4, 7), "-");      // no reference floor area yet
    EXPECT_EQ(Cell(9, 2), "TOTAL");
    // 200 + 100 x (5 % x 2 + 10 % x 2 + 10 %)
    EXPECT_EQ(Cell(9, 6), "240.00");
    EXPECT_EQ(Cell(9, 3) + Cell(9, 5), "--");
    const workbench::ListState& list = PaletteItem(PaletteItems::Table).list;
    EXPECT_EQ(list.rows[0].status, host::RowStatus::NotSelectable);
    EXPECT_EQ(list.rows[8].style, host::TextStyle::Bold);
    EXPECT_TRUE(list.columns[0].ownerDrawn);
    EXPECT_TRUE(PaletteItem(PaletteItems::Table).isDrawing);
    EXPECT_EQ(list.columns[1].header.text, "Type");
    EXPECT_EQ(list.columns[3].header.text, "");
    EXPECT_EQ(list.rows[5].cells[3].icon, host::StandardIcon::Checked);
    EXPECT_EQ(list.rows[4].cells[3].icon, host::StandardIcon::None);
    for (const std::int16_t hidden : {1, 2, 3, 4, 12})
        EXPECT_FALSE(PaletteItem(hidden).isVisible) << hidden;
    EXPECT_EQ(PaletteItem(PaletteItems::UpdateButton).icon, Icons::UpdateResults);
    EXPECT_EQ(PaletteItem(PaletteItems::PieChart).background, (host::Colour{255, 255, 255}));
    EXPECT_TRUE(PaletteItem(PaletteItems::PlaceButton).isEnabled);
    EXPECT_EQ(PaletteItem(PaletteItems::LastUpdateTime).text.substr(0, 2), "20");
}

TEST_F(PaletteTest, PlacingIsOffInThe3DWindow) {
    host.databases.frontWindow.type = host::DatabaseType::Model3D;
    TogglePalette();
    EXPECT_FALSE(PaletteItem(PaletteItems::PlaceButton).isEnabled);
}

TEST_F(PaletteTest, UpdateResultsReadsTheModelAnew) {
    TogglePalette();
    SetDoorGWP(100);
    SetDefault(PropertyKey::ServiceLife, host::Variant::OfInteger(100));
    EXPECT_EQ(Cell(4, 6), "0.00");
    ASSERT_TRUE(host.dialogManager.Press(Palette()->id, PaletteItems::UpdateButton));
    EXPECT_EQ(Cell(4, 6), "400.00"); // 100 x ceil(100 / 25)
    // A cancelled run leaves what is shown, its time included.
    const std::string shown = Cell(4, 6);
    PaletteItem(PaletteItems::LastUpdateTime).text = "then";
    SetDoorGWP(77);
    host.refusals.rule = [](const std::string& operation, const host::Guid&) {
        return operation == "ProgressWindow.SetValue" ? host::Errors::Cancelled : host::NoError;
    };
    EXPECT_TRUE(host.dialogManager.Press(Palette()->id, PaletteItems::UpdateButton));
    EXPECT_EQ(Cell(4, 6), shown);
    EXPECT_EQ(PaletteItem(PaletteItems::LastUpdateTime).text, "then");
    // A table that is made anew from the former sums says that they are not those of the model.
    InDialog(Menus::ProjectSettings, [&] { Press(ProjectSettingsItems::OkButton); });
    EXPECT_EQ(Cell(4, 6), shown);
    const std::string stamp = PaletteItem(PaletteItems::LastUpdateTime).text;
    EXPECT_NE(stamp.find(" (incomplete)"), std::string::npos) << stamp;
}

TEST_F(PaletteTest, TheSelectedRowStaysSelected) {
    TogglePalette();
    host.listSelection.Select(Palette()->id, PaletteItems::Table, 5);
    host.dialogManager.Press(Palette()->id, PaletteItems::UpdateButton);
    EXPECT_EQ(host.listSelection.ReadFirst(Palette()->id, PaletteItems::Table), 5);
}

TEST_F(PaletteTest, AMissingServiceLifeIsToldWithTheTextsAsTheyStand) {
    SetDefault(PropertyKey::ElementLives, host::Variant::OfText("Doors=0;Windows=25;Inventory=30;Installations=25"));
    TogglePalette();
    ASSERT_EQ(host.dialogManager.shownAlerts.size(), 1U);
    const host::Alert& alert = host.dialogManager.shownAlerts.front();
    EXPECT_EQ(alert.type, host::AlertType::Warning);
    EXPECT_EQ(alert.title, "GWP per area per year");
    EXPECT_EQ(alert.largeText, "Service life canot be less than 1!");
    EXPECT_EQ(alert.buttons, std::vector<std::string>{"Col."});
    EXPECT_EQ(Cell(4, 6), "0.00");
}

TEST_F(PaletteTest, FixedValuesShowTheirIcon) {
    SetDefault(PropertyKey::Contribution, host::Variant::OfText("Inventory_contribution=0;Inventory_gwp=42"));
    TogglePalette();
    EXPECT_EQ(PaletteItem(PaletteItems::Table).list.rows[5].cells[3].icon, host::StandardIcon::Unchecked);
    EXPECT_EQ(Cell(6, 3) + Cell(6, 5) + Cell(6, 6), "--42.00");
}

TEST_F(PaletteTest, SwatchesHaveTheCategoriesColours) {
    TogglePalette();
    workbench::RecordedContext context;
    for (const int row : {1, 3, 9})
        host.dialogManager.DrawCell(Palette()->id, PaletteItems::Table, row, 1, context);
    ASSERT_EQ(context.calls.size(), 1U); // neither unit row nor total
    EXPECT_EQ(context.calls[0].colour, (host::Colour{0x2B, 0x82, 0xE2}));
}

TEST_F(PaletteTest, SettingsButtonShowsWhoHoldsTheSettings) {
    TogglePalette();
    EXPECT_EQ(PaletteItem(PaletteItems::SettingsButton).icon, 0); // not shared
    TogglePalette();
    Model().members = {{1, "anna", "Anna"}, {2, "ben", ""}};
    host.access.userId = 1;
    for (const auto& [holder, icon] : std::vector<std::pair<int, int>>{{0, 32694}, {1, 32695}, {2, 32693}}) {
        Model().reservations.clear();
        if (holder != 0) Model().reservations = {{"ClassificationsAndProperties", static_cast<std::int16_t>(holder)}};
        TogglePalette();
        EXPECT_EQ(PaletteItem(PaletteItems::SettingsButton).icon, icon);
        TogglePalette();
    }
    // While it is open, each paint of the table looks once, and what did not change is not set again.
    TogglePalette();
    int lookups = 0;
    host.refusals.rule = [&](const std::string& operation, const host::Guid&) {
        if (operation == "Teamwork.ReadLockableStatus") ++lookups;
        return host::NoError;
    };
    const auto paint = [&] {
        workbench::RecordedContext context;
        for (int row = 1; row <= 9; ++row)
            host.dialogManager.DrawCell(Palette()->id, PaletteItems::Table, row, 1, context);
        return std::exchange(lookups, 0);
    };
    std::int16_t& shown = PaletteItem(PaletteItems::SettingsButton).icon;
    shown = -1;
    for (int paints = 0; paints < 2; ++paints)
        EXPECT_EQ(paint(), 1);
    EXPECT_EQ(shown, -1);
    Model().reservations.clear();
    EXPECT_EQ(paint(), 1);
    EXPECT_EQ(shown, 32694);
}

TEST_F(PaletteTest, ResizingMovesAndGrowsAndNeverBelowTheMinimum) {
    TogglePalette();
    host.dialogManager.Resize(Palette()->id, {1000, 650});
    EXPECT_EQ(PaletteItem(PaletteItems::UpdateButton).rectangle, (host::Rectangle{680, 620, 150, 22}));
    EXPECT_EQ(PaletteItem(PaletteItems::PieChart).rectangle, (host::Rectangle{10, 260, 375, 330}));
    EXPECT_EQ(PaletteItem(PaletteItems::BarChart).rectangle, (host::Rectangle{395, 260, 595, 330}));
    const workbench::ListState& list = PaletteItem(PaletteItems::Table).list;
    EXPECT_GT(list.columns.back().place.end, 900);
    EXPECT_LE(list.columns.back().place.end, 980);
    host.dialogManager.Resize(Palette()->id, {10, 10});
    EXPECT_GE(PaletteItem(PaletteItems::PieChart).rectangle.height, 18);
}

TEST_F(PaletteTest, UnloadingClosesThePalette) {
    TogglePalette();
    module.Unload();
    EXPECT_EQ(Palette(), nullptr);
    EXPECT_TRUE(host.registration.GetMenus().empty());
    EXPECT_EQ(host.registration.RaiseEvent(host::ProjectEvent::Open), host::NoError);
}

TEST(ModuleLoading, SaysWhatIsWrong) {
    workbench::WorkbenchHost host;
    workbench::Module module(host);
    EXPECT_NE(module.Load("/nowhere/Kelvarnix.apx").find("cannot be loaded"), std::string::npos);
    EXPECT_NE(module.Load("libc.so.6").find("is no add-on"), std::string::npos);
    EXPECT_FALSE(module.IsStarted());
}

} // namespace
