// The building materials' settings as a user works in them: filter, select, type, confirm or cancel.
#include "workbench/dialogs/RecordedContext.h"

#include "../ModelText.h"
#include "DrivenAddOn.h"

namespace {

using namespace ResourceIds;
using namespace ResourceIds::BuildingMaterialsItems;
using lca::PropertyKey;
using Texts = std::vector<std::string>;

constexpr std::int16_t Swatches = 1, Name = 2, Value = 2;
constexpr std::int16_t Menu = Menus::BuildingMaterials;

class BuildingMaterialsDialogTest : public test::DrivenAddOn {
protected:
    /// Adds a material behind Concrete, Timber and Plaster.
    host::AttributeIndex Add(const char* name, const char* id = "") {
        host::BuildingMaterial material;
        material.name = name;
        material.id = id;
        return Model().AddBuildingMaterial(material);
    }
    Texts Names() { return Column(MaterialList, Name); }
    Texts PhaseValues() { return Column(PhaseList, Value); }
};

TEST_F(BuildingMaterialsDialogTest, ListsSortedByNameAndFilters) {
    Add("Überzug", "concrete-id");
    Add("Concrete"); // a second one of that name, which comes first
    InDialog(Menu, [&] {
        EXPECT_EQ(Names(), (Texts{"Concrete", "Concrete", "Plaster", "Timber", "Überzug"}));
        EXPECT_EQ(host.listRows.ReadUserData(dialog, MaterialList, 1), 0);
        EXPECT_EQ(Item(EditableCountText).text, "Editable: ");
        const struct {
            const char* filter;
            Texts names;
        } cases[] = {{"CON", {"Concrete", "Concrete"}},
                     {"t", {"Concrete", "Concrete", "Plaster", "Timber"}},
                     {"üBER", {"Überzug"}},
                     {"concrete-id", {}}, // identifiers are not searched
                     {"", {"Concrete", "Concrete", "Plaster", "Timber", "Überzug"}}};
        for (const auto& one : cases) {
            EXPECT_TRUE(Type(FilterEdit, one.filter));
            EXPECT_EQ(Names(), one.names) << one.filter;
        }
        Type(FilterEdit, "tim");
        Select(MaterialList, {1});
        EXPECT_EQ(Item(EditableCountText).text, "Editable: 1");
        EXPECT_TRUE(Press(ClearFilterButton));
        EXPECT_EQ(Item(FilterEdit).text, "");
        EXPECT_EQ(Names().size(), 5U);
        EXPECT_EQ(Item(EditableCountText).text, "Editable: ");
        EXPECT_FALSE(Item(PhaseList).isEnabled); // the selection is lost
        EXPECT_EQ(PhaseValues(), (Texts{"-", "-", "-"}));
    });
}

TEST_F(BuildingMaterialsDialogTest, LaterMaterialOfANameStandsInFront) {
    Add("Concrete");
    StoreGWP(test::Concrete, "100");
    InDialog(Menu, [&] {
        Select(MaterialList, {1});
        EXPECT_EQ(PhaseValues().at(0), "0.00");
        Select(MaterialList, {2});
        EXPECT_EQ(PhaseValues().at(0), "100.00");
    });
}

TEST_F(BuildingMaterialsDialogTest, EnablesAndBindsByTheSelection) {
    InDialog(Menu, [&] {
        for (const std::int16_t item : {PhaseList, ServiceLifeEdit, UnitTypePopup})
            EXPECT_FALSE(Item(item).isEnabled) << item;
        EXPECT_EQ(Column(PhaseList, 1), (Texts{"A1-A3", "C3", "C4"}));
        EXPECT_FALSE(Type(PhaseValueEdit, "1")) << "the editor is hidden";
        Select(MaterialList, {1, 3});
        EXPECT_EQ(Item(EditableCountText).text, "Editable: 2");
        for (const std::int16_t item : {PhaseList, ServiceLifeEdit, UnitTypePopup})
            EXPECT_TRUE(Item(item).isEnabled) << item;
        EXPECT_FALSE(TypeIntoCell(PhaseList, Value, "1")) << "no phase is selected";
        Select(PhaseList, {2});
        EXPECT_EQ(host.listLayout.ReadBoundEditor(dialog, PhaseList, Value), PhaseValueEdit);
        EXPECT_EQ(Item(PhaseValueEdit).rectangle.width, 261 - 2);
        Select(MaterialList, {});
        EXPECT_EQ(host.listLayout.ReadBoundEditor(dialog, PhaseList, Value), 0);
        EXPECT_EQ(PhaseValues(), (Texts{"-", "-", "-"}));
        for (const std::int16_t hidden :
             {PhaseValueEdit, TeamworkButton, TeamworkIcon, TeamworkStatusText, TeamworkLabel, TeamworkSeparator})
            EXPECT_FALSE(Item(hidden).isVisible) << hidden;
        EXPECT_TRUE(Item(OkButton).isEnabled);
    });
}

TEST_F(BuildingMaterialsDialogTest, OneEditGoesIntoAllSelected) {
    StoreGWP(test::Timber, "3");
    const std::size_t steps = CountSteps();
    InDialog(Menu, [&] {
        Select(MaterialList, {1, 2, 3}); // Concrete, Plaster, Timber
        Select(PhaseList, {2});
        EXPECT_FALSE(TypeIntoCell(PhaseList, Value, "12.5x"));
        EXPECT_TRUE(TypeIntoCell(PhaseList, Value, "12,5"));
        EXPECT_TRUE(TypeIntoCell(PhaseList, Value, "12.5"));
        EXPECT_EQ(PhaseValues(), (Texts{"0.00", "12.50", "0.00"}));
        Select(MaterialList, {3});
        EXPECT_EQ(PhaseValues(), (Texts{"3.00", "12.50", "0.00"})); // the plain number went to the first used phase
        EXPECT_EQ(Item(PhaseValueEdit).text, "12.5");
        EXPECT_TRUE(Type(ServiceLifeEdit, "40"));
        EXPECT_FALSE(Type(ServiceLifeEdit, "40.5"));
        EXPECT_TRUE(Press(OkButton));
    });
    EXPECT_EQ(StoredGWP(test::Concrete), "C3=12.5");
    EXPECT_EQ(StoredGWP(test::Plaster), "C3=12.5");
    EXPECT_EQ(StoredGWP(test::Timber), "A1-A3=3;C3=12.5");
    EXPECT_EQ(StoredValue(test::Timber, PropertyKey::ServiceYear)->integer, 40);
    EXPECT_FALSE(StoredValue(test::Concrete, PropertyKey::ServiceYear)); // was never typed
    EXPECT_EQ(CountSteps(), steps + 1);
    EXPECT_EQ(LastStep(), "");
    ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
    EXPECT_EQ(StoredGWP(test::Concrete), "-");
    EXPECT_EQ(StoredGWP(test::Timber), "3");
}

TEST_F(BuildingMaterialsDialogTest, OnlyTheUnitChanges) {
    StoreGWP(test::Concrete, "A1-A3=5;B6=7;C3=abc");
    InDialog(Menu, [&] {
        Select(MaterialList, {1});
        EXPECT_EQ(host.itemValues.ReadPopUpEntry(dialog, UnitTypePopup), 1);
        EXPECT_TRUE(host.dialogManager.Choose(dialog, UnitTypePopup, 3));
        Press(OkButton);
    });
    EXPECT_EQ(StoredGWP(test::Concrete), "A1-A3=5;B6=7;C3=abc");
    const host::PropertyDefinition unit = test::FindByKey(Model(), PropertyKey::UnitType);
    EXPECT_EQ(StoredValue(test::Concrete, PropertyKey::UnitType)->guid, unit.options.at(2).key);
    InDialog(Menu, [&] {
        Select(MaterialList, {1});
        EXPECT_EQ(host.itemValues.ReadPopUpEntry(dialog, UnitTypePopup), 3);
        Select(PhaseList, {3});
        EXPECT_TRUE(TypeIntoCell(PhaseList, Value, "2"));
        Press(OkButton);
    });
    EXPECT_EQ(StoredGWP(test::Concrete), "A1-A3=5;B6=7;C3=abc;C4=2"); // nothing that was typed elsewhere is lost
}

TEST_F(BuildingMaterialsDialogTest, CancelAndAnUntouchedOkWriteNothing) {
    StoreGWP(test::Concrete, "7");
    const std::string before = test::Describe(Model());
    const std::vector<std::string> steps = host.GetProject()->ListUndoNames();
    InDialog(Menu, [&] {
        Select(MaterialList, {1, 2});
        Select(PhaseList, {1});
        TypeIntoCell(PhaseList, Value, "99");
        Type(ServiceLifeEdit, "99");
        host.dialogManager.Choose(dialog, UnitTypePopup, 2);
        EXPECT_TRUE(Press(CancelButton));
        EXPECT_FALSE(Press(OkButton)) << "the dialog is closed";
    });
    EXPECT_EQ(test::Describe(Model()), before);
    InDialog(Menu, [&] {
        Select(MaterialList, {1});
        EXPECT_EQ(PhaseValues().at(0), "7.00"); // nothing survives the cancelled run
        Press(OkButton);
    });
    EXPECT_EQ(test::Describe(Model()), before);
    EXPECT_EQ(host.GetProject()->ListUndoNames(), steps);
    InDialog(Menu, [&] { host.dialogManager.RequestClose(dialog); });
    EXPECT_EQ(test::Describe(Model()), before);
    EXPECT_EQ(report, Texts());
}

TEST_F(BuildingMaterialsDialogTest, SortsTheRecordsPhasesButNotTheModels) {
    SetDefault(PropertyKey::Phases, host::Variant::OfText("D;A1-A3;C4"));
    Reopen();
    InDialog(Menu, [&] {
        EXPECT_EQ(Column(PhaseList, 1), (Texts{"A1-A3", "C4", "D"}));
        Press(OkButton);
    });
    EXPECT_EQ(Default(PropertyKey::Phases).text, "D;A1-A3;C4");
    TogglePalette();
    InDialog(Menu, [&] { Press(CancelButton); });
    host.dialogManager.ClickCell(Palette()->id, PaletteItems::Table, 6, 4);
    EXPECT_EQ(Default(PropertyKey::Phases).text, "D;A1-A3;C4") << "an edit stores what it changed and no more";
}

TEST_F(BuildingMaterialsDialogTest, GrowsItsItemsByTheirAnchors) {
    InDialog(Menu, [&] {
        host.dialogManager.Resize(dialog, {910, 550}); // 100 wider, 50 taller than 810 x 500
        const struct {
            std::int16_t item;
            host::Rectangle rectangle;
        } cases[] = {{OkButton, {820, 520, 80, 22}},         {FilterEdit, {10, 10, 460, 22}},
                     {ClearFilterButton, {470, 10, 22, 22}}, {MaterialList, {10, 40, 470, 450}},
                     {PhaseList, {530, 100, 370, 390}},      {TeamworkLabel, {10, 505, 100, 15}},
                     {MiddleSeparator, {500, 0, 3, 500}},    {BottomSeparator, {10, 500, 890, 3}},
                     {UnitTypePopup, {680, 47, 85, 22}}};
        for (const auto& one : cases)
            EXPECT_EQ(Item(one.item).rectangle, one.rectangle) << one.item;
        const int width = host.listLayout.ReadCellSpace(dialog, MaterialList).width;
        EXPECT_EQ(host.listLayout.ReadColumn(dialog, MaterialList, 2).end, width - 80);
        EXPECT_EQ(host.listLayout.ReadColumn(dialog, MaterialList, 3).begin, width - 79);
        host.dialogManager.Resize(dialog, {1, 1});
        EXPECT_GE(Item(FilterEdit).rectangle.width, 18);
        EXPECT_GE(Item(PhaseList).rectangle.height, 18);
        EXPECT_GE(Item(MaterialList).rectangle.height, 18);
    });
}

TEST_F(BuildingMaterialsDialogTest, DrawsPatternAndSurface) {
    host::BuildingMaterial material;
    material.name = "AAA";
    material.cutFill = {3};  // diagonal: 01 02 04 ... 80
    material.cutFillPen = 3; // 0.8, 0.3, 0.2
    material.cutFillBackgroundPen = -1;
    material.cutSurface = {5}; // 0.93, 0.92, 0.88
    Model().AddBuildingMaterial(material);
    InDialog(Menu, [&] {
        using Kind = workbench::DrawingCall::Kind;
        workbench::RecordedContext context;
        host.dialogManager.DrawCell(dialog, MaterialList, 1, Swatches, context);
        ASSERT_EQ(context.calls.size(), 5U);
        const auto expect = [&](std::size_t i, Kind kind, double left, double top, double right, double bottom) {
            const workbench::DrawingCall& call = context.calls[i];
            EXPECT_EQ(call.kind, kind) << i;
            EXPECT_EQ((std::array{call.left, call.top, call.right, call.bottom}),
                      (std::array{left, top, right, bottom}))
                << i;
        };
        expect(0, Kind::FillRectangle, 0, 0, 50, 20);
        expect(1, Kind::FillRectangle, 24, 2, 45, 18);
        EXPECT_EQ(context.calls[1].colour, (host::Colour{237, 234, 224})); // truncated
        expect(2, Kind::FrameRectangle, 0, 1, 22, 19);
        expect(3, Kind::FrameRectangle, 23, 1, 45, 19);
        expect(4, Kind::Image, 1, 1, 26, 26);
        const host::NativeImage& image = *context.calls[4].image;
        EXPECT_EQ(image.GetResolutionDpi(), 72);
        for (int y = 0; y < 25; ++y)
            for (int x = 0; x < 25; ++x) {
                const bool isInside = x >= 1 && x <= 20 && y >= 2 && y <= 17;
                const bool isSet = isInside && x % 8 == 7 - y % 8; // row y holds the bit 1 << (y mod 8)
                EXPECT_EQ(image.GetPixel(x, y), isSet ? (host::Colour{204, 76, 51}) : (host::Colour{0, 0, 0, 0}))
                    << x << "," << y;
            }
        context.calls.clear();
        host.dialogManager.DrawCell(dialog, MaterialList, 2, Name, context);
        EXPECT_TRUE(context.calls.empty());
    });
}

TEST_F(BuildingMaterialsDialogTest, TheListIsFilledOnceAStep) {
    InDialog(Menu, [&] {
        EXPECT_EQ(Item(MaterialList).list.clearings, 1);
        Type(FilterEdit, "c");
        EXPECT_EQ(Item(MaterialList).list.clearings, 2);
        Select(MaterialList, {1});
        Select(PhaseList, {1});
        TypeIntoCell(PhaseList, Value, "5");
        Type(ServiceLifeEdit, "5");
        EXPECT_EQ(Item(MaterialList).list.clearings, 2);
        EXPECT_EQ(Item(PhaseList).list.clearings, 1);
    });
}

TEST_F(BuildingMaterialsDialogTest, NamesAreShownAsTheyAre) {
    const char* names[] = {"\"quoted\"; = a\nb", "\xF0\x9F\x8F\xA0 Lehm", "\xD7\x91\xD7\x98\xD7\x95\xD7\x9F"};
    for (const char* name : names)
        Add(name);
    InDialog(Menu, [&] {
        for (const char* name : names) {
            Type(FilterEdit, name);
            EXPECT_EQ(Names(), Texts{name});
        }
    });
}

TEST_F(BuildingMaterialsDialogTest, AMaterialWithoutValuesShowsTheDefaults) {
    for (const char* phases : {"A1-A3;C3", ""}) { // without a phase, too, unit and service life are shown
        SetDefault(PropertyKey::Phases, host::Variant::OfText(phases));
        Reopen();
        InDialog(Menu, [&] {
            const auto show = [&](std::int32_t row) {
                Select(MaterialList, {row});
                return Item(UnitTypePopup)
                           .popUpTexts.at(static_cast<std::size_t>(Item(UnitTypePopup).selectedEntry - 1)) +
                       " " + Item(ServiceLifeEdit).text;
            };
            Select(MaterialList, {1});
            host.dialogManager.Choose(dialog, UnitTypePopup, 3);
            Type(ServiceLifeEdit, "12");
            EXPECT_EQ(show(1), "kg 12") << phases;
            EXPECT_EQ(show(2), "m3 0") << phases;
            EXPECT_EQ(show(1), "kg 12") << phases;
        });
    }
}

} // namespace
