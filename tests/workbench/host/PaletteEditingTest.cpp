// Editing in the palette's table: in-place editors, percentage clicks, the colour picker, buttons and the window event.
#include "DrivenAddOn.h"

namespace {

using namespace ResourceIds;
using namespace ResourceIds::PaletteItems;
using lca::PropertyKey;

constexpr int Doors = 4, Windows = 5, Inventory = 6, Installations = 7, Construction = 8;

class PaletteEditingTest : public test::DrivenAddOn {
protected:
    void SetUp() override {
        DrivenAddOn::SetUp();
        SetDoorGWP(1000);
        SetDefault(PropertyKey::ReferenceFloorArea, host::Variant::OfReal(100));
        Reopen();
        TogglePalette();
        dialog = Palette()->id;
    }
    bool SelectRow(int row) { return Select(Table, {row}); }
    /// Editors over the selected row by list column: 3, 5, 6 and 8.
    std::vector<std::int16_t> Editors() {
        std::vector<std::int16_t> editors;
        for (const std::int16_t column : {3, 5, 6, 8})
            editors.push_back(host.listLayout.ReadBoundEditor(dialog, Table, column));
        return editors;
    }
    bool Edit(int column, const std::string& text) {
        return TypeIntoCell(Table, static_cast<std::int16_t>(column), text);
    }
    void ClickMode(int row, int column = 4) {
        host.dialogManager.ClickCell(dialog, Table, row, static_cast<std::int16_t>(column));
    }
};

TEST_F(PaletteEditingTest, EachRowHasItsEditors) {
    using List = std::vector<std::int16_t>;
    const List none = {0, 0, 0, 0};
    const List life = {ServiceLifeEdit, 0, 0, 0};
    const List share = {ServiceLifeEdit, PercentageEdit, 0, 0};
    const struct {
        int row;
        List editors;
    } cases[] = {{2, none},
                 {3, none},
                 {Doors, life},
                 {Windows, life},
                 {Inventory, share},
                 {Installations, share},
                 {Construction, {0, PercentageEdit, 0, 0}},
                 {9, none}};
    for (const auto& one : cases) {
        SelectRow(one.row);
        EXPECT_EQ(Editors(), one.editors) << one.row;
    }
    for (const int row : {Inventory, Construction}) {
        ClickMode(row);
        EXPECT_EQ(Editors(), (List{0, 0, FixedGwpEdit, GwpPerAreaPerYearEdit})) << row;
    }
    SelectRow(Inventory);
    EXPECT_EQ(Item(ServiceLifeEdit).text, "30");
    EXPECT_EQ(Item(PercentageEdit).text, "5");
    EXPECT_FALSE(SelectRow(1) && !host.listSelection.ListRows(dialog, Table).empty()) << "the units cannot be selected";
}

TEST_F(PaletteEditingTest, ServiceLifeIsStoredAndCounts) {
    SelectRow(Doors);
    const struct {
        const char* typed;
        const char* gwp;
    } cases[] = {{"30", "2000.00"}, {"50", "1000.00"}, {"25", "2000.00"}}; // 1000 x ceil(50 / life)
    for (const auto& one : cases) {
        EXPECT_TRUE(Edit(3, one.typed)) << one.typed;
        EXPECT_EQ(Cell(Doors, 6), one.gwp) << one.typed;
        EXPECT_EQ(host.listSelection.ReadFirst(dialog, Table), Doors);
    }
    Edit(3, "30");
    EXPECT_EQ(Default(PropertyKey::ElementLives).text, "Doors=30;Windows=25;Inventory=30;Installations=25");
    EXPECT_EQ(LastStep(), "Undo");
    ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
    Press(UpdateButton);
    EXPECT_EQ(Cell(Doors, 3), "25.00");
}

TEST_F(PaletteEditingTest, AServiceLifeBelowOneWarns) {
    SelectRow(Doors);
    Edit(3, "0");
    ASSERT_EQ(host.dialogManager.shownAlerts.size(), 1U);
    const host::Alert& alert = host.dialogManager.shownAlerts.front();
    EXPECT_EQ(alert.type, host::AlertType::Warning);
    EXPECT_EQ(alert.title, "GWP per area per year");
    EXPECT_EQ(alert.largeText, "Service life canot be less than 1!");
    EXPECT_EQ(alert.buttons, std::vector<std::string>{"Col."});
    EXPECT_EQ(Cell(Doors, 6), "0.00");
}

TEST_F(PaletteEditingTest, SharesAndFixedValues) {
    SelectRow(Inventory);
    EXPECT_TRUE(Edit(5, "10"));
    EXPECT_EQ(Cell(Inventory, 6), "200.00"); // 10 % of 1000 x ceil(50 / 30)
    EXPECT_TRUE(Edit(3, "50"));
    EXPECT_EQ(Cell(Inventory, 6), "100.00");
    EXPECT_FALSE(Edit(6, "42")) << "in percentage mode nothing stands over the GWP";
    ClickMode(Inventory);
    EXPECT_EQ(Cell(Inventory, 6), "0.00");
    EXPECT_TRUE(Edit(6, "42"));
    EXPECT_EQ(Cell(Inventory, 6), "42.00");
    EXPECT_EQ(Cell(Inventory, 3) + Cell(Inventory, 5), "--");
    EXPECT_EQ(Item(GwpPerAreaPerYearEdit).text, "0.0084"); // 42 / 100 m2 / 50 a
    EXPECT_TRUE(Edit(8, "2"));
    EXPECT_EQ(Item(FixedGwpEdit).text, "10000"); // 2 x 50 a x 100 m2
    EXPECT_EQ(Cell(Inventory, 6), "10000.00");
    EXPECT_EQ(Default(PropertyKey::Contribution).text,
              "Inventory_contribution=0;Installations_contribution=1;BuildingProcess_contribution=1;Inventory=10;"
              "Installations=10;BuildingProcess=10;Inventory_gwp=10000");
    ClickMode(Inventory);
    EXPECT_EQ(Cell(Inventory, 6), "100.00");
}

TEST_F(PaletteEditingTest, OnlyTheLastThreeRowsHaveAMode) {
    const std::size_t steps = CountSteps();
    for (const int row : {1, 2, 3, Doors, Windows, 9})
        ClickMode(row);
    for (const int column : {1, 2, 3, 5})
        ClickMode(Inventory, column);
    EXPECT_EQ(CountSteps(), steps);
    for (const int row : {Inventory, Installations, Construction}) {
        ClickMode(row);
        EXPECT_EQ(host.listCells.ReadIcon(dialog, Table, row, 4), host::StandardIcon::Unchecked) << row;
        ClickMode(row);
        EXPECT_EQ(host.listCells.ReadIcon(dialog, Table, row, 4), host::StandardIcon::Checked) << row;
    }
    EXPECT_EQ(CountSteps(), steps + 6);
}

TEST_F(PaletteEditingTest, ColoursArePickedWithSixteenBits) {
    std::vector<host::PickerColour> offered;
    host.userInput.colourAnswer = [&](const host::PickerColour& present) {
        offered.push_back(present);
        return std::optional(host::PickerColour{0x12FF, 0xAB00, 0x0080});
    };
    for (const int row : {1, 9})
        host.dialogManager.DoubleClickCell(dialog, Table, row, 1);
    host.dialogManager.DoubleClickCell(dialog, Table, Doors, 2);
    EXPECT_TRUE(offered.empty());
    host.dialogManager.DoubleClickCell(dialog, Table, Windows, 1); // 0x26C6F4
    ASSERT_EQ(offered.size(), 1U);
    EXPECT_EQ((std::array{offered[0].red, offered[0].green, offered[0].blue}),
              (std::array<std::uint16_t, 3>{0x2600, 0xC600, 0xF400}));
    const std::string stored = Default(PropertyKey::ElementColours).text;
    EXPECT_NE(stored.find("Windows=18,171,0;"), std::string::npos) << stored;
    host.userInput.colourAnswer = nullptr; // cancelled
    host.dialogManager.DoubleClickCell(dialog, Table, Doors, 1);
    EXPECT_EQ(Default(PropertyKey::ElementColours).text, stored);
}

TEST_F(PaletteEditingTest, SettingsButtonOpensTheSettings) {
    host.dialogManager.modalUser = [&](host::DialogId opened) {
        host.dialogManager.Type(opened, ProjectSettingsItems::ServiceLifeEdit, "100");
        host.dialogManager.Press(opened, ProjectSettingsItems::OkButton);
    };
    EXPECT_EQ(Cell(Doors, 6), "2000.00");
    EXPECT_TRUE(Press(SettingsButton));
    EXPECT_EQ(Cell(Doors, 6), "4000.00");
    EXPECT_EQ(Default(PropertyKey::ServiceLife).integer, 100);
    ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
    Press(UpdateButton);
    EXPECT_EQ(Cell(Doors, 6), "2000.00");
}

TEST_F(PaletteEditingTest, MaterialsCountFromTheNextUpdateAndUndoTakesThemBack) {
    const std::string before = Cell(9, 6);
    host.dialogManager.modalUser = [&](host::DialogId opened) {
        using namespace BuildingMaterialsItems;
        host.dialogManager.SelectRows(opened, MaterialList, {1});
        host.dialogManager.SelectRows(opened, PhaseList, {1});
        host.dialogManager.TypeIntoCell(opened, PhaseList, 2, "100");
        host.dialogManager.Press(opened, OkButton);
    };
    ASSERT_EQ(host.registration.ChooseMenu(Menus::BuildingMaterials, 1), host::NoError);
    EXPECT_EQ(Cell(3, 6), "0.00");
    Press(UpdateButton);
    EXPECT_EQ(Cell(3, 6), "200.00"); // 2 m3 of concrete
    ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
    Press(UpdateButton);
    EXPECT_EQ(Cell(9, 6), before);
}

TEST_F(PaletteEditingTest, MenuCommandsAndEventsOfAClosedPalette) {
    TogglePalette();
    EXPECT_EQ(host.registration.RaiseEvent(host::ProjectEvent::WindowChanged), host::NoError);
    int opened = 0;
    host.dialogManager.modalUser = [&](host::DialogId) { ++opened; };
    for (const std::int16_t menu : {Menus::BuildingMaterials, Menus::ProjectSettings, Menus::MaterialReport}) {
        EXPECT_EQ(host.registration.ChooseMenu(menu, 2), host::NoError); // only item 1 is a command
        EXPECT_EQ(opened, 0);
    }
    for (const std::int16_t menu : {Menus::BuildingMaterials, Menus::ProjectSettings, Menus::MaterialReport})
        EXPECT_FALSE(host.registration.ChooseMenu(menu, 1));
    EXPECT_EQ(opened, 3);
    EXPECT_EQ(Palette(), nullptr);
}

/// Item 4 has a meaning only where there are an area and a period, and what it comes to must be a number.
TEST_F(PaletteEditingTest, WhatIsNoNumberIsRefused) {
    ClickMode(Inventory);
    EXPECT_TRUE(Edit(6, "7"));
    EXPECT_TRUE(PaletteItem(GwpPerAreaPerYearEdit).isEnabled);
    EXPECT_TRUE(Edit(8, "1" + std::string(306, '0')));
    EXPECT_NE(Default(PropertyKey::Contribution).text.find("Inventory_gwp=7"), std::string::npos);
    EXPECT_EQ(report.size(), 1U);
    EXPECT_EQ(Item(GwpPerAreaPerYearEdit).text, "0.0014") << "the old value is back";
    for (const PropertyKey key : {PropertyKey::ReferenceFloorArea, PropertyKey::ServiceLife}) {
        const host::Variant former = Default(key);
        SetDefault(key, key == PropertyKey::ServiceLife ? host::Variant::OfInteger(0) : host::Variant::OfReal(1e-6));
        Press(UpdateButton);
        SelectRow(Inventory);
        EXPECT_FALSE(PaletteItem(GwpPerAreaPerYearEdit).isEnabled);
        SetDefault(key, former);
    }
    report.clear();
    SetDoorGWP(1.7e308); // and again each 25 years
    Press(UpdateButton);
    EXPECT_EQ(Cell(9, 6), "-");
    EXPECT_EQ(Cell(3, 6), "0.00");
    EXPECT_EQ(report.size(), 1U);
}

TEST_F(PaletteEditingTest, AnOpenPaletteFollowsProjectAndMaterialReport) {
    SetDoorGWP(500);
    EXPECT_EQ(Cell(Doors, 6), "2000.00");
    InDialog(Menus::MaterialReport, [] {});
    EXPECT_EQ(Cell(Doors, 6), "1000.00");
    host.OpenProject(test::MakeBuilding(), host::ProjectEvent::New);
    EXPECT_EQ(Cell(Doors, 6), "0.00");
}

} // namespace
