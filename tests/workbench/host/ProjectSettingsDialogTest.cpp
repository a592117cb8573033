// The project settings as a user works in them.
#include "../ModelText.h"
#include "DrivenAddOn.h"

namespace {

using namespace ResourceIds;
using namespace ResourceIds::ProjectSettingsItems;
using lca::PropertyKey;
using Texts = std::vector<std::string>;

constexpr std::int16_t Menu = Menus::ProjectSettings;

class ProjectSettingsDialogTest : public test::DrivenAddOn {
protected:
    void StoreFloorSettings(const char* text) { SetDefault(PropertyKey::FloorSettings, host::Variant::OfText(text)); }
    std::string FloorSettings() { return Default(PropertyKey::FloorSettings).text; }
    bool HasEntry(const std::string& entry) {
        return (";" + FloorSettings() + ";").find(";" + entry + ";") != std::string::npos;
    }
};

TEST_F(ProjectSettingsDialogTest, OpensWithTheModelsValues) {
    SetDefault(PropertyKey::ServiceLife, host::Variant::OfInteger(80));
    SetDefault(PropertyKey::GrossFloorArea, host::Variant::OfReal(120.5));
    SetDefault(PropertyKey::Phases, host::Variant::OfText("A1-A3;D;X9"));
    SetDefault(PropertyKey::GWPStandards, host::Variant::OfText("Limit=6.7;Goal=5"));
    InDialog(Menu, [&] {
        EXPECT_EQ(Item(ServiceLifeEdit).text, "80");
        EXPECT_EQ(Item(GrossFloorAreaEdit).text, "120.5");
        EXPECT_EQ(Item(ElectricityFactorEdit).text, "0.053");
        EXPECT_EQ(Column(PhaseList, 2), (Texts{"A1-A3", "A4", "B1", "C1", "C2", "C3", "C4", "D"}));
        EXPECT_EQ(Column(PhaseList, 3),
                  (Texts{"Product stage", "Transport", "Use", "Desconstruction/demolition", "Transport",
                         "Waste processing", "Disposal", "Reuse, Recovery, Recycling potential"}));
        std::vector<host::StandardIcon> icons;
        for (const workbench::RowState& row : Item(PhaseList).list.rows)
            icons.push_back(row.cells[0].icon);
        constexpr auto Yes = host::StandardIcon::Checked, No = host::StandardIcon::Unchecked;
        EXPECT_EQ(icons, (std::vector{Yes, No, No, No, No, No, No, Yes}));
        EXPECT_EQ(Column(StandardList, 1), (Texts{"Limit", "Goal"}));
        EXPECT_EQ(Column(StandardList, 2), (Texts{"6.70", "5.00"}));
        EXPECT_EQ(host.itemValues.ReadPopUpEntry(dialog, UnitTypePopup), 3);
        EXPECT_FALSE(Item(RemoveButton).isEnabled);
        // Not shared: the buttons take the Teamwork group's place and the list grows by the same 60 pixels.
        EXPECT_EQ(Item(AddButton).rectangle, (host::Rectangle{10, 741, 80, 22}));
        EXPECT_EQ(Item(RemoveButton).rectangle, (host::Rectangle{97, 741, 80, 22}));
        EXPECT_EQ(Item(StandardList).rectangle, (host::Rectangle{10, 471, 380, 260}));
        for (const std::int16_t hidden :
             {TeamworkIcon, TeamworkStatusText, TeamworkButton, TeamworkLabel, TeamworkSeparator})
            EXPECT_FALSE(Item(hidden).isVisible) << hidden;
        host.dialogManager.Resize(dialog, {450, 850});
        EXPECT_EQ(Item(StandardList).rectangle, (host::Rectangle{10, 471, 430, 300}));
        EXPECT_EQ(Item(GrossFloorAreaEdit).rectangle, (host::Rectangle{300, 37, 65, 22}));
        const int width = host.listLayout.ReadCellSpace(dialog, StandardList).width;
        EXPECT_EQ(host.listLayout.ReadColumn(dialog, StandardList, 2).begin, width - 99);
        EXPECT_EQ(host.listLayout.ReadColumn(dialog, PhaseList, 3).end,
                  host.listLayout.ReadCellSpace(dialog, PhaseList).width);
    });
}

TEST_F(ProjectSettingsDialogTest, OkStoresWhatWasTypedAsOneStep) {
    const std::size_t steps = CountSteps();
    InDialog(Menu, [&] {
        EXPECT_TRUE(Type(ServiceLifeEdit, "60"));
        EXPECT_TRUE(Type(GrossFloorAreaEdit, "100,25"));
        EXPECT_TRUE(Type(OperationalEmissionEdit, "-7"));
        EXPECT_TRUE(host.dialogManager.Choose(dialog, UnitTypePopup, 2));
        EXPECT_TRUE(host.dialogManager.ClickCell(dialog, PhaseList, 8, 1));
        EXPECT_TRUE(host.dialogManager.ClickCell(dialog, PhaseList, 6, 1));
        EXPECT_TRUE(host.dialogManager.ClickCell(dialog, PhaseList, 2, 2)); // only column 1 counts
        EXPECT_TRUE(host.dialogManager.ClickCell(dialog, PhaseList, 3, 3));
        Press(OkButton);
    });
    EXPECT_EQ(Default(PropertyKey::ServiceLife).integer, 60);
    EXPECT_EQ(Default(PropertyKey::GrossFloorArea).real, 100.25);
    EXPECT_TRUE(HasEntry("FLOORAREA_M=100.25")) << FloorSettings();
    EXPECT_EQ(Default(PropertyKey::OperationalEmission).real, -7); // nothing is checked here
    EXPECT_EQ(Default(PropertyKey::Phases).text, "A1-A3;C4;D");
    EXPECT_EQ(test::FindByKey(Model(), PropertyKey::GWPStandards).description,
              "LCAID=\"GWP-STANDARDS\" LCAUNIT=\"GWP_KG_M2\"");
    EXPECT_EQ(CountSteps(), steps + 1);
    EXPECT_EQ(LastStep(), "Undo");
    ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
    EXPECT_EQ(Default(PropertyKey::ServiceLife).integer, 50);
}

TEST_F(ProjectSettingsDialogTest, CancelLeavesTheModelAndTheRecord) {
    const std::string before = test::Describe(Model());
    InDialog(Menu, [&] {
        Type(ServiceLifeEdit, "99");
        Toggle(SolarPanelsCheck);
        Press(AddButton);
        host.dialogManager.ClickCell(dialog, PhaseList, 1, 1);
        EXPECT_TRUE(Press(CancelButton));
    });
    EXPECT_EQ(test::Describe(Model()), before);
    InDialog(Menu, [&] {
        EXPECT_EQ(Item(ServiceLifeEdit).text, "50");
        EXPECT_TRUE(Column(StandardList, 1).empty());
    });
}

TEST_F(ProjectSettingsDialogTest, BoxesChooseBetweenEnteredAndEvaluated) {
    StoreFloorSettings("FLOORAREA_M=10;FLOORAREA_E=20;OPERATIONAL_EMISSION_M=1;OPERATIONAL_EMISSION_E=2;"
                       "REFERENCE_FLOORAREA_M=8;ELECTRICITY_S_FACTOR_M=0.1;ELECTRICITY_S_FACTOR_E=0.2");
    InDialog(Menu, [&] {
        const struct {
            std::int16_t check;
            std::int16_t edit;
            const char* entered;
            const char* evaluated;
        } cases[] = {{GrossFloorAreaCheck, GrossFloorAreaEdit, "10", "20"},
                     {OperationalEmissionCheck, OperationalEmissionEdit, "1", "2"},
                     {ElectricityFactorCheck, ElectricityFactorEdit, "0.1", "0.2"},
                     {ReferenceFloorAreaCheck, ReferenceFloorAreaEdit, "8", "10"}}; // follows the gross floor area
        for (const auto& one : cases) {
            EXPECT_EQ(Item(one.edit).text, one.entered) << one.edit;
            EXPECT_TRUE(Toggle(one.check));
            EXPECT_EQ(Item(one.edit).text, one.evaluated) << one.edit;
            EXPECT_FALSE(Item(one.edit).isEnabled);
            EXPECT_TRUE(Toggle(one.check));
            EXPECT_EQ(Item(one.edit).text, one.entered) << one.edit;
            EXPECT_TRUE(Item(one.edit).isEnabled);
        }
        Toggle(ReferenceFloorAreaCheck);
        Type(GrossFloorAreaEdit, "33");
        EXPECT_EQ(Item(ReferenceFloorAreaEdit).text, "33");
        Toggle(GrossFloorAreaCheck);
        EXPECT_EQ(Item(ReferenceFloorAreaEdit).text, "20");
        Press(OkButton);
    });
    EXPECT_EQ(Default(PropertyKey::GrossFloorArea).real, 20);
    for (const char* entry :
         {"FLOORAREA_C=1", "FLOORAREA_M=33", "FLOORAREA_E=20", "REFERENCE_FLOORAREA_C=1", "REFERENCE_FLOORAREA_M=8"})
        EXPECT_TRUE(HasEntry(entry)) << entry << " in " << FloorSettings();
}

TEST_F(ProjectSettingsDialogTest, SolarPanelsAndLimitExcludeEachOther) {
    StoreFloorSettings("SOLAR_PANELS_M=100;SOLAR_PANELS_E=150;MAX_SOLAR_CONT_M=5;MAX_SOLAR_CONT_E=6");
    const auto expect = [&](const char* when, bool panelsShown, bool panelsEnabled, bool limitShown, bool limitEnabled,
                            bool panelsChecked, bool limitChecked) {
        EXPECT_EQ(Item(SolarPanelsEdit).isVisible, panelsShown) << when;
        EXPECT_EQ(Item(SolarPanelsCheck).isVisible, panelsShown) << when;
        EXPECT_EQ(Item(SolarPanelsEdit).isEnabled, panelsEnabled) << when;
        EXPECT_EQ(Item(MaxSolarContributionEdit).isVisible, limitShown) << when;
        EXPECT_EQ(Item(MaxSolarContributionEdit).isEnabled, limitEnabled) << when;
        EXPECT_EQ(Item(SolarPanelsCheck).isChecked, panelsChecked) << when;
        EXPECT_EQ(Item(MaxSolarContributionCheck).isChecked, limitChecked) << when;
    };
    InDialog(Menu, [&] {
        expect("opened", true, true, false, false, false, false);
        EXPECT_EQ(Item(SolarPanelsEdit).text, "100");
        Toggle(SolarPanelsCheck);
        expect("panels", true, false, false, false, true, false);
        EXPECT_EQ(Item(SolarPanelsEdit).text, "150");
        Toggle(MaxSolarContributionCheck); // the reverse: its edit is enabled while it is checked
        expect("limit after panels", false, false, true, true, false, true);
        EXPECT_EQ(Item(MaxSolarContributionEdit).text, "6");
        EXPECT_FALSE(Toggle(SolarPanelsCheck)) << "the box is hidden";
        Type(MaxSolarContributionEdit, "7");
        Press(OkButton);
    });
    EXPECT_EQ(Default(PropertyKey::SolarPanels).real, 0) << "what counts is the entered 100, as before";
    for (const char* entry : {"MAX_SOLAR_CONT_C=1", "MAX_SOLAR_CONT_E=7", "MAX_SOLAR_CONT_M=5"})
        EXPECT_TRUE(HasEntry(entry)) << entry << " in " << FloorSettings();
    InDialog(Menu, [&] {
        expect("opened with the limit", false, true, true, true, false, true);
        Toggle(MaxSolarContributionCheck);
        expect("limit cleared", true, true, false, false, false, false);
        Toggle(SolarPanelsCheck);
        Toggle(MaxSolarContributionCheck);
        Toggle(MaxSolarContributionCheck);
        expect("cleared, panels unchecked by the limit", true, true, false, false, false, false);
    });
    StoreFloorSettings("SOLAR_PANELS_C=1;MAX_SOLAR_CONT_C=1");
    InDialog(Menu, [&] { expect("both flags set", true, false, false, false, true, false); });
}

TEST_F(ProjectSettingsDialogTest, StandardsAreAddedEditedAndRemoved) {
    const std::string odd = "Größe \"x\" = \xF0\x9F\x8F\xA0\n\xD7\x91";
    InDialog(Menu, [&] {
        EXPECT_FALSE(TypeIntoCell(StandardList, 1, "x"));
        EXPECT_FALSE(Press(RemoveButton));
        Press(AddButton);
        Press(AddButton);
        EXPECT_EQ(Column(StandardList, 1), (Texts{"", ""}));
        EXPECT_EQ(Column(StandardList, 2), (Texts{"0.00", "0.00"}));
        EXPECT_EQ(host.listSelection.ListRows(dialog, StandardList), std::vector<std::int32_t>{2});
        EXPECT_TRUE(TypeIntoCell(StandardList, 1, odd));
        EXPECT_TRUE(TypeIntoCell(StandardList, 2, "12,5"));
        EXPECT_EQ(Column(StandardList, 1), (Texts{"", odd}));
        EXPECT_EQ(Column(StandardList, 2), (Texts{"0.00", "12.50"}));
        Select(StandardList, {1});
        EXPECT_EQ(Item(StandardNameEdit).text, "");
        EXPECT_EQ(Item(StandardValueEdit).text, "0");
        TypeIntoCell(StandardList, 1, "a;b");
        EXPECT_TRUE(Press(RemoveButton));
        EXPECT_FALSE(Item(RemoveButton).isEnabled);
        EXPECT_FALSE(TypeIntoCell(StandardList, 1, "gone"));
        Press(AddButton);
        TypeIntoCell(StandardList, 1, "semi;colon");
        Press(OkButton);
    });
    InDialog(Menu, [&] {
        EXPECT_EQ(Column(StandardList, 1), (Texts{odd, "semi,colon"})); // the stored form cannot hold ";"
        EXPECT_EQ(Column(StandardList, 2), (Texts{"12.50", "0.00"}));
    });
}

TEST_F(ProjectSettingsDialogTest, TheNameEditTakes255Characters) {
    std::string name;
    for (int i = 0; i < 300; ++i)
        name += "é";
    InDialog(Menu, [&] {
        Press(AddButton);
        TypeIntoCell(StandardList, 1, name);
        EXPECT_EQ(Column(StandardList, 1).at(0), name.substr(0, 2 * 255));
    });
}

TEST_F(ProjectSettingsDialogTest, EditorsFollowTheirColumns) {
    InDialog(Menu, [&] {
        Press(AddButton);
        const std::int16_t before = Item(StandardNameEdit).rectangle.width;
        const host::Size size = host.dialogManager.ReadSize(dialog);
        host.dialogManager.Resize(dialog, {static_cast<std::int16_t>(size.width + 60), size.height});
        EXPECT_EQ(Item(StandardNameEdit).rectangle.width, before + 60);
    });
}

} // namespace
