// The add-on's own texts, checked against a table written from what they must be: odd spellings, line breaks and
// markers are part of the contract with users, models and the host.
#include "resources/ResourceData.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

using namespace ResourceIds;
using Resources::String;

TEST(Texts, ListsHaveTheirNumbersOfEntries) {
    const std::map<int, std::size_t> expected = {{32500, 2},  {32501, 2},  {32502, 2},  {32503, 2},  {32504, 2},
                                                 {32510, 2},  {32511, 2},  {32512, 2},  {32513, 2},  {32514, 2},
                                                 {32540, 2},  {32542, 2},  {32543, 3},  {32550, 10}, {32555, 1},
                                                 {32556, 24}, {32557, 31}, {32600, 19}, {32601, 27}, {32602, 5},
                                                 {32606, 10}, {32607, 9},  {32608, 1},  {32609, 6},  {32610, 3}};
    std::map<int, std::size_t> actual;
    for (const Resources::StringList& list : Resources::AllStringLists())
        actual[list.id] = list.entries.size();
    EXPECT_EQ(actual, expected);
}

struct TextCase {
    StringId id;
    StringId byName; ///< the name under which code reads this text
    std::string_view text;
};

// The number and the text stand here as required; `byName` shows that the name leads to the same number.
constexpr TextCase textCases[] = {
    {{32500, 2}, {Menus::Palette, Menus::CommandEntry}, "Show palette^ES^ED^E3^EL^EW^EE^EI^ET"},
    {{32501, 2},
     {Menus::BuildingMaterials, Menus::CommandEntry},
     "Building Materials LCA Settings...^ES^ED^E3^EL^EW^EE^EI^ET"},
    {{32502, 2}, {Menus::ProjectSettings, Menus::CommandEntry}, "Settings...^ES^ED^E3^EL^EW^EE^EI^ET"},
    {{32503, 2}, {Menus::Information, Menus::CommandEntry}, "Info...^ES^ED^E3^EL^EW^EE^EI^ET"},
    {{32504, 2}, {Menus::MaterialReport, Menus::CommandEntry}, "Material CO2 Report...^ES^ED^E3^EL^EW^EE^EI^ET"},
    {{32510, 2}, {Menus::PalettePrompt, Menus::CommandEntry}, "Show/Hide palette"},
    {{32513, 2}, {Menus::InformationPrompt, Menus::CommandEntry}, "Info..."},
    {{32514, 1}, {Menus::MaterialReportPrompt, Menus::TitleEntry}, "Kelvarnix"},
    {{32540, 1}, PaletteCommand::Show, "Show Palette"},
    {{32540, 2}, PaletteCommand::Hide, "Hide Palette"},
    {{32542, 1}, AddOn::Name, "Kelvarnix"},
    {{32542, 2}, AddOn::Description, "Version: 26.07"},
    {{32550, 1}, Alerts::Ok, "OK"},
    {{32550, 2}, {Alerts::List, 2}, ""},
    {{32550, 3}, {Alerts::List, 3}, ""},
    {{32550, 4}, Alerts::ErrorTitle, "Error - Kelvarnix"},
    {{32550, 5},
     Alerts::MaterialReportObjectMissing,
     "Error! Unable to place the Material CO2 Report.\nThe \"Kelvarnix Material CO2 Report.gsm\" file is missing in "
     "the loaded libraries. Please add this file to the Libraries."},
    {{32550, 6}, Alerts::SmallText, " "},
    {{32550, 7}, Alerts::WarningTitle, "Warning"},
    {{32550, 8},
     Alerts::ResultReportObjectMissing,
     "Error! Unable to place the LCA Result Report GDL Object.\nThe \"LCA Result Report.gsm\" file is missing in the "
     "loaded libraries. Please add this file to the Libraries."},
    {{32550, 9}, Alerts::ProgressTitle, "Kelvarnix Process"},
    {{32550, 10}, Alerts::ProgressPhase, "Calculating GWP values"},
    {{32555, 1}, EnergyExport::MenuText, "Export to Kelvarnix"},
    {{32556, 1}, Schema::ClassificationSystem, "LCA Classification System"},
    {{32556, 3}, Schema::ProjectGroup, "LCA Project"},
    {{32556, 5}, Schema::ElementGroup, "LCA Element"},
    {{32556, 6}, Schema::FirstPropertyName, "GWP (kg/unit)"},
    {{32556, 14}, Schema::FirstPropertyName + 8, "Considered Service Life"},
    {{32556, 19}, Schema::FirstPropertyName + 13, "Operational CO\xE2\x82\x82 Emission"},
    {{32556, 24}, Schema::FirstPropertyName + 18, "Electricity"},
    {{32557, 1}, Report::DefaultFileName, "LCA report.xlsx"},
    {{32557, 2}, Report::SaveTitle, "LCA Design report"},
    {{32557, 4}, Report::FirstCategoryLabel, "Operational energy use"},
    {{32557, 10}, Report::FirstCategoryLabel + 6, "Construction process"},
    {{32557, 11}, Report::TotalLabel, "TOTAL"},
    {{32557, 12}, Report::ConsideredPeriod, "Considered period [years]"},
    {{32557, 13}, Report::GrossFloorArea, "Gross floor area [m2]"},
    {{32557, 14}, Report::UseStage, "Use stage (B6)"},
    {{32557, 16}, Report::CountedPhases, "(A1-A3, C3, C4)"},
    {{32557, 17}, Report::ConstructionProcessStage, "Construction process (A4, A5)"},
    {{32557, 18}, Report::Saved, "Saved!"},
    {{32557, 19}, Report::SaveFailed, "The Save faild!"},
    {{32557, 22}, {Report::List, 22}, ""},
    {{32557, 25}, Report::ActualImpact, "Actual impact"},
    {{32557, 26}, Report::PieChartFile, "LCAPieChart.jpg"},
    {{32557, 27}, Report::BarChartFile, "LCABarChart.jpg"},
    {{32557, 29}, Report::OpenNowButton, "Open Now"},
    {{32557, 30}, Report::MaterialSheetName, "Material CO2 report"},
    {{32557, 31}, Report::FileNameTooShort, "The file could not be saved. \nPlease enter the file name."},
    {{32600, 4}, Phases::Demolition, "Desconstruction/demolition"},
    {{32600, 7}, Phases::ReusePotential, "Reuse, Recovery, Recycling potential"},
    {{32600, 8}, Phases::FirstCode, "A1-A3"},
    {{32600, 15}, Phases::FirstCode + 7, "D"},
    {{32600, 18}, Phases::StandardNameHeader, "Standard name"},
    {{32601, 1}, Palette::ColorHeader, "Col."},
    {{32601, 7}, Palette::GwpPerAreaPerYearHeader, "GWP per area per year"},
    {{32601, 8}, Palette::ServiceLifeUnit, "(year)"},
    {{32601, 9}, Palette::ContributionUnit, "(%)"},
    {{32601, 12}, Palette::GwpPerAreaPerYearUnit, "(kg CO2-eq/m2/a)"},
    {{32601, 13}, Palette::FirstCategoryName, "Operational energy use (B6)"},
    {{32601, 19}, Palette::FirstCategoryName + 6, "Construction process (A4, A5)"},
    {{32601, 20}, Palette::TotalName, "TOTAL"},
    {{32601, 21}, Palette::UpdateMaterialReportsCommand, "Update all CO2 Material report object"},
    {{32601, 23}, Palette::PlaceMaterialReportPrompt, "Click to place the CO2 Material report."},
    {{32601, 24}, Palette::ServiceLifeTooShort, "Service life canot be less than 1!"},
    {{32601, 26}, Palette::PlaceResultReportCommand, "Place Main Palette Object"},
    {{32601, 27}, Palette::UpdateResultReportsCommand, "Update all Result Report object"},
    {{32602, 4}, BuildingMaterials::ValueHeader, "Value"},
    {{32602, 5}, BuildingMaterials::EditableCount, "Editable: "},
    {{32606, 1}, ReportColumns::FirstHeader, ""},
    {{32606, 3}, ReportColumns::FirstHeader + 2, "Embodied Carbon\r[kg CO2e]"},
    {{32606, 9}, ReportColumns::FirstHeader + 8, "GWP per area per year\r[kg CO2eq/m2/a]"},
    {{32606, 10}, ReportColumns::ColumnWidth, "30"},
    {{32607, 5},
     {Teamwork::List, 5},
     "Cannot reserve because it is already reserved by another user. Please do a Teamwork - Receive Changes to be able "
     "to see who reserved it."},
    {{32607, 6}, {Teamwork::List, 6}, "Request: Please grant me VESKA - Category settings."},
    {{32607, 8}, Teamwork::ReservedByStatus, "Reserved by \n%s"},
    {{32607, 9}, Teamwork::RequestButton, "Request"},
    {{32608, 1}, Web::InformationAddress, "https://kelvarnix.example/"},
    {{32609, 1}, MaterialReport::DefaultElementSettings, "Default Element Settings"},
    {{32609, 2}, MaterialReport::FavoritePrefix, "Favorite: "},
    {{32609, 5}, MaterialReport::GwpHeader, "GWP (kg CO2-eq)"},
    {{32609, 6}, MaterialReport::Total, "Total: "},
    {{32610, 3}, MaterialSheetColumns::GwpHeader, "GWP (kg CO2-eq)"},
};

TEST(Texts, AreExactAndReachedByTheirNames) {
    for (const TextCase& expected : textCases) {
        SCOPED_TRACE(std::to_string(expected.id.list) + " entry " + std::to_string(expected.id.entry));
        EXPECT_EQ(String(expected.id), expected.text);
        EXPECT_TRUE(expected.byName == expected.id) << expected.byName.list << " entry " << expected.byName.entry;
    }
}

TEST(Texts, MenuTitlesAreTheNameInEveryMenuAndPromptList) {
    for (const int list : {32500, 32501, 32502, 32503, 32504, 32510, 32511, 32512, 32513, 32514})
        EXPECT_EQ(String(list, 1), "Kelvarnix") << list;
}

} // namespace
