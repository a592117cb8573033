// The add-on's own dialog layouts and icons, checked against tables written from what they must be.
#include "resources/ResourceData.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace Resources;

struct DialogCase {
    int id;
    DialogKind kind;
    int width, height;
    std::size_t itemCount;
    short lastNamedItem;
};

constexpr DialogCase dialogCases[] = {
    {ResourceIds::PaletteDialog, DialogKind::Palette, 900, 550, 18, ResourceIds::PaletteItems::Count},
    {ResourceIds::BuildingMaterialsDialog, DialogKind::Modal, 810, 500, 21, ResourceIds::BuildingMaterialsItems::Count},
    {ResourceIds::ProjectSettingsDialog, DialogKind::Modal, 400, 810, 47, ResourceIds::ProjectSettingsItems::Count},
    {ResourceIds::MaterialReportDialog, DialogKind::Modal, 600, 630, 4, ResourceIds::MaterialReportItems::Count},
};

TEST(Layouts, HeadsAndItemCounts) {
    ASSERT_EQ(AllDialogs().size(), std::size(dialogCases));
    for (const DialogCase& expected : dialogCases) {
        SCOPED_TRACE(expected.id);
        const DialogLayout* dialog = FindDialog(expected.id);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->kind, expected.kind);
        EXPECT_TRUE(dialog->growsHorizontally && dialog->growsVertically);
        EXPECT_EQ(dialog->rectangle.width, expected.width);
        EXPECT_EQ(dialog->rectangle.height, expected.height);
        ASSERT_EQ(dialog->items.size(), expected.itemCount);
        EXPECT_EQ(static_cast<std::size_t>(expected.lastNamedItem), expected.itemCount);
        for (std::size_t index = 0; index < dialog->items.size(); ++index)
            EXPECT_EQ(dialog->items[index].number, static_cast<int>(index) + 1);
    }
    EXPECT_EQ(FindDialog(32406)->title, "Kelvarnix");
}

bool IsKeptOutside(int dialog, int item) {
    return (dialog == 32406 && (item <= 4 || item == 12)) || (dialog == 32407 && item == 8) ||
           (dialog == 32408 && (item == 3 || item == 4));
}

TEST(Layouts, EveryItemIsWhollyInsideOrWhollyOutside) {
    for (const DialogLayout& dialog : AllDialogs())
        for (const DialogItem& item : dialog.items) {
            SCOPED_TRACE(std::to_string(dialog.id) + " item " + std::to_string(item.number));
            const Rectangle& rectangle = item.rectangle;
            EXPECT_GT(rectangle.width, 0);
            EXPECT_GT(rectangle.height, 0);
            EXPECT_GE(rectangle.left, 0);
            EXPECT_GE(rectangle.top, 0);
            const bool outside = rectangle.left >= dialog.rectangle.width || rectangle.top >= dialog.rectangle.height;
            EXPECT_EQ(outside, IsKeptOutside(dialog.id, item.number));
            if (outside) continue;
            EXPECT_LE(rectangle.left + rectangle.width, dialog.rectangle.width);
            EXPECT_LE(rectangle.top + rectangle.height, dialog.rectangle.height);
        }
}

struct ItemCase {
    int dialog;
    int byName; ///< the item's name in code; its number follows
    int number;
    ItemKind kind;
    Rectangle rectangle;
    std::string_view text;
};

namespace Pal = ResourceIds::PaletteItems;
namespace Mat = ResourceIds::BuildingMaterialsItems;
namespace Set = ResourceIds::ProjectSettingsItems;
namespace Rep = ResourceIds::MaterialReportItems;

constexpr ItemCase itemCases[] = {
    {32406, Pal::Table, 5, ItemKind::SingleSelList, {10, 30, 880, 200}, ""},
    {32406, Pal::BarLabel, 8, ItemKind::LeftText, {370, 240, 100, 20}, "Threshold"},
    {32406, Pal::UpdateButton, 10, ItemKind::Button, {580, 520, 150, 22}, "Update results"},
    {32406, Pal::LastUpdateLabel, 13, ItemKind::LeftText, {580, 500, 150, 20}, "Last update from Archicad:"},
    {32406, Pal::PieChart, 15, ItemKind::UserItem, {10, 260, 350, 230}, ""},
    {32406, Pal::BarChart, 16, ItemKind::UserItem, {370, 260, 520, 230}, ""},
    {32406, Pal::PlaceButton, 18, ItemKind::Button, {270, 520, 90, 22}, "Place"},
    {32407, Mat::OkButton, 1, ItemKind::Button, {720, 470, 80, 22}, "OK"},
    {32407, Mat::FilterEdit, 3, ItemKind::TextEdit, {10, 10, 360, 22}, ""},
    {32407, Mat::MaterialList, 5, ItemKind::MultiSelList, {10, 40, 370, 400}, ""},
    {32407, Mat::EditableCountText, 6, ItemKind::LeftText, {730, 10, 80, 20}, "Editable: 0"},
    {32407, Mat::PhaseValueEdit, 8, ItemKind::RealEdit, {520, 520, 60, 20}, ""},
    {32407, Mat::PhaseList, 9, ItemKind::SingleSelList, {430, 100, 370, 340}, ""},
    {32407, Mat::MiddleSeparator, 15, ItemKind::Separator, {400, 0, 3, 450}, ""},
    {32407, Mat::ServiceLifeEdit, 18, ItemKind::IntEdit, {580, 17, 85, 22}, ""},
    {32407, Mat::ServiceLifeUnit, 19, ItemKind::LeftText, {670, 20, 50, 22}, "year(s) "},
    {32408, Set::StandardNameEdit, 3, ItemKind::TextEdit, {9999, 9999, 65, 22}, ""},
    {32408, Set::StandardList, 6, ItemKind::SingleSelList, {10, 471, 380, 200}, ""},
    {32408, Set::ServiceLifeEdit, 7, ItemKind::IntEdit, {250, 10, 65, 22}, ""},
    {32408, Set::UnitTypePopup, 11, ItemKind::PopupControl, {250, 439, 137, 22}, ""},
    {32408, Set::RemoveButton, 13, ItemKind::Button, {97, 681, 80, 22}, "Remove"},
    {32408, Set::TeamworkIcon, 14, ItemKind::Icon, {10, 741, 24, 24}, ""},
    {32408, Set::TeamworkLabel, 17, ItemKind::LeftText, {10, 721, 200, 15}, "Property Manager Teamwork Status:"},
    {32408, Set::StandardsSeparator, 32, ItemKind::Separator, {10, 431, 380, 3}, ""},
    {32408, Set::ReferenceFloorAreaCheck, 35, ItemKind::CheckBox, {225, 94, 18, 18}, ""},
    {32408, Set::SolarPanelsUnit, 37, ItemKind::LeftText, {325, 121, 50, 20}, "kWh/a"},
    {32408, Set::ElectricityFactorUnit, 41, ItemKind::LeftText, {322, 175, 65, 20}, "kgCO2/kWh"},
    {32408, Set::MaxSolarContributionEdit, 46, ItemKind::RealEdit, {250, 145, 65, 22}, ""},
    {32409, Rep::PlaceButton, 1, ItemKind::Button, {420, 600, 80, 22}, "Place"},
    {32409, Rep::Table, 3, ItemKind::MultiSelList, {10, 10, 580, 580}, ""},
    {32409, Rep::FavoritePopup, 4, ItemKind::PopupControl, {230, 600, 180, 22}, ""},
};

TEST(Layouts, ItemsStandWhereTheyMust) {
    for (const ItemCase& expected : itemCases) {
        SCOPED_TRACE(std::to_string(expected.dialog) + " item " + std::to_string(expected.number));
        EXPECT_EQ(expected.byName, expected.number);
        const DialogItem& item = FindDialog(expected.dialog)->items[static_cast<std::size_t>(expected.number) - 1];
        EXPECT_EQ(item.kind, expected.kind);
        EXPECT_EQ(item.text, expected.text);
        EXPECT_EQ(item.rectangle.left, expected.rectangle.left);
        EXPECT_EQ(item.rectangle.top, expected.rectangle.top);
        EXPECT_EQ(item.rectangle.width, expected.rectangle.width);
        EXPECT_EQ(item.rectangle.height, expected.rectangle.height);
    }
}

std::vector<std::string_view> PopupTexts(int dialog, std::size_t number) {
    std::vector<std::string_view> texts;
    for (const PopupEntry& entry : FindDialog(dialog)->items[number - 1].entries)
        texts.push_back(entry.text);
    return texts;
}

TEST(Layouts, PopupsListsAndEditsCarryTheirDetails) {
    using Texts = std::vector<std::string_view>;
    EXPECT_EQ(PopupTexts(32407, 21), (Texts{"m3", "m2", "kg"}));
    EXPECT_EQ(PopupTexts(32408, 11), (Texts{"kg CO2eq", "kg CO2eq/m2", "kg CO2eq/m2/a"}));
    EXPECT_EQ(PopupTexts(32409, 4), Texts{}) << "filled when the dialog opens";
    for (const auto& [dialog, number] : {std::pair{32407, 5u}, {32407, 9u}, {32409, 3u}}) {
        const DialogItem& list = FindDialog(dialog)->items[number - 1];
        EXPECT_EQ(list.headerHeight, 20);
        EXPECT_EQ(list.rowHeight, 20);
    }
    EXPECT_EQ(FindDialog(32407)->items[2].maxLength, 255);
    EXPECT_EQ(FindDialog(32408)->items[2].maxLength, 255);
    EXPECT_EQ(FindDialog(32407)->items[10].iconId, 32692);
    EXPECT_EQ(FindDialog(32408)->items[13].iconId, 32692);
    EXPECT_EQ(FindDialog(32406)->items[11].iconId, 32692);
}

TEST(Icons, AllAreThereAndFitTheirItems) {
    ASSERT_EQ(AllIcons().size(), 7u);
    for (int id = ResourceIds::Icons::ReservedByOther; id <= ResourceIds::Icons::UpdateResults; ++id) {
        const Icon* icon = FindIcon(id);
        ASSERT_NE(icon, nullptr) << id;
        const int size = id <= ResourceIds::Icons::Editable ? 24 : 18;
        EXPECT_EQ(icon->width, size) << id;
        EXPECT_EQ(icon->height, size) << id;
        const std::string view = "viewBox=\"0 0 " + std::to_string(size) + " " + std::to_string(size) + "\"";
        EXPECT_NE(icon->svg.find(view), std::string_view::npos) << id;
        for (int other = ResourceIds::Icons::ReservedByOther; other < id; ++other)
            EXPECT_NE(icon->svg, FindIcon(other)->svg) << "a state must be told from another: " << other << " " << id;
    }
}

TEST(ModuleId, IsTheRegisteredPair) {
    EXPECT_EQ(OwnModuleId().developerId, 0x38735147u);
    EXPECT_EQ(OwnModuleId().localId, 0xE8C6599Fu);
}

} // namespace
