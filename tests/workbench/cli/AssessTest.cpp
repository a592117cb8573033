// `kelvarnix assess` from a small house to table, JSON and project file, against sums by hand.
#include "Program.h"
#include "TestHouse.h"

#include "support/TestFolder.h"
#include "workbench/host/WorkbenchHost.h"
#include "workbench/store/ProjectFile.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>

namespace {

using namespace clitest;
using nlohmann::json;

// With these the house has, over 50 years: Brick 1.5 m3 x 200 x 2 = 600, Wood 10 m2 x -3 = -30, Concrete
// 4 m3 x 2400 kg/m3 x 0.1 = 960, together 1530; door 50, windows (1.8 + 1.0) m2 x 40 = 112; building 1692.
// Operation 50 x 1000 - 50 x 0.3 x 2000 = 20000; doors x 2 = 100; windows x 3 = 336; inventory 10 % x 5 = 846;
// installations 500 stated; construction 5 % = 84.6. Operation counts per gross floor area (100 m2 from the model),
// the rest per 80 m2.
const char Settings[] = "# test\n"
                        "OPERATIONAL_EMISSION = 1000\n"
                        "ELECTRICITY_S_FACTOR = 0,3\n"
                        "SOLAR_PANELS = 2000\n"
                        "ELEMLIVES = Doors=25;Windows=20;Inventory=10\n"
                        "CONTRIBUTION = Inventory_contribution=1;Inventory=10;Installations_contribution=0;"
                        "Installations_gwp=500;BuildingProcess_contribution=1;BuildingProcess=5\n";

constexpr double None = NAN; ///< null in the JSON, "-" in the table

struct ExpectedRow {
    const char* key;
    const char* label;
    double serviceLife;
    double percentage;
    double gwp;
    double perArea;
    double perAreaAndYear;
};

const ExpectedRow Rows[] = {
    {"OperatingEmission", "Operational energy use (B6)", None, None, 20000, 200, 4},
    {"BuildingComponents", "Building components", None, None, 1530, 19.13, 0.38}, // 19.125, 0.3825
    {"Doors", "Doors", 25, None, 100, 1.25, 0.03},                                // 0.025
    {"Windows", "Windows", 20, None, 336, 4.2, 0.08},                             // 0.084
    {"Inventory", "Inventory", 10, 10, 846, 10.58, 0.21},                         // 10.575, 0.2115
    {"Installations", "Installations", None, None, 500, 6.25, 0.13},              // 0.125
    {"BuildingProcess", "Construction process (A4, A5)", None, 5, 84.6, 1.06, 0.02}};
const double Total[] = {23396.6, 242.46, 4.85}; // 200 + 3396.6 / 80 = 242.4575; 4 + 0.84915

/// A value at the palette's two decimals; one that ends in 5 may be shown either way.
void ExpectShown(const json& value, double expected, const char* what) {
    if (std::isnan(expected)) {
        EXPECT_TRUE(value.is_null()) << what << " " << value;
        return;
    }
    ASSERT_TRUE(value.is_number()) << what << " " << value;
    EXPECT_NEAR(value.get<double>(), expected, 0.01 + 1e-9) << what;
    EXPECT_EQ(std::round(value.get<double>() * 100) / 100, value.get<double>()) << what << " has two decimals";
}

class AssessTest : public testing::Test {
protected:
    void SetUp() override {
        model = folder.Write("house.ifc", HouseText());
        table = folder.Write("table.csv", HouseTable);
        settings = folder.Write("settings.txt", Settings);
    }
    /// Assesses with these arguments and answers the JSON.
    json Assess(const std::string& what, std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"assess", what, "--json", "-"});
        const Finished finished = Kelvarnix(arguments);
        EXPECT_EQ(finished.code, 0) << finished.errors;
        return finished.code == 0 ? json::parse(finished.output) : json();
    }
    /// GWP of a category in the JSON.
    static double GWP(const json& answer, std::size_t category) { return answer["categories"][category]["gwp"]; }

    support::TestFolder folder;
    std::string model, table, settings;
};

TEST_F(AssessTest, TheTableEqualsASumByHand) {
    const std::string saved = folder / "house.json";
    const Finished finished = Kelvarnix({"assess", model, "--materials", table, "--settings", settings, "--set",
                                         "REFERENCE_FLOORAREA=80", "--json", saved, "--strict"});
    ASSERT_EQ(finished.code, 0) << finished.errors;
    EXPECT_EQ(finished.errors,
              "note: gross floor area taken from the model (the building's gross floor area): 100 m2\n");
    const json answer = json::parse(support::ContentOf(saved));
    ASSERT_EQ(answer["categories"].size(), std::size(Rows));
    for (std::size_t i = 0; i < std::size(Rows); ++i) {
        const ExpectedRow& row = Rows[i];
        const json& category = answer["categories"][i];
        EXPECT_EQ(category["key"], row.key);
        EXPECT_EQ(category["label"], row.label);
        ExpectShown(category["service_life"], row.serviceLife, row.key);
        ExpectShown(category["percentage"], row.percentage, row.key);
        ExpectShown(category["gwp"], row.gwp, row.key);
        ExpectShown(category["gwp_per_area"], row.perArea, row.key);
        ExpectShown(category["gwp_per_area_per_year"], row.perAreaAndYear, row.key);
    }
    ExpectShown(answer["total"]["gwp"], Total[0], "total");
    ExpectShown(answer["total"]["gwp_per_area"], Total[1], "total");
    ExpectShown(answer["total"]["gwp_per_area_per_year"], Total[2], "total");
    const json& counts = answer["model"];
    EXPECT_EQ(counts["elements"], 5);
    EXPECT_EQ(counts["elements_by_type"], json({{"wall", 1}, {"slab", 1}, {"door", 1}, {"window", 2}}));
    EXPECT_EQ(counts["components"], 3);
    EXPECT_EQ(counts["left_out"], json::object());
    EXPECT_EQ(counts["without_quantity"], json::array());
    EXPECT_EQ(answer["settings"]["OPERATIONAL_EMISSION"], 1000);
    EXPECT_EQ(answer["settings"]["SERVICELIFE"], 50);
    EXPECT_EQ(answer["settings"]["GWP-STANDARDS-UNIT"], "GWP_KG_M2_A");
    EXPECT_EQ(answer["warnings"].size(), 1U);
    // The printed table: a header, the units, seven categories, a rule, the total, the time.
    std::istringstream lines(finished.output);
    std::vector<std::string> printed;
    for (std::string line; std::getline(lines, line);)
        printed.push_back(line);
    ASSERT_EQ(printed.size(), 12U) << finished.output;
    const std::pair<std::size_t, const char*> ends[] = {
        {0, "GWP per area per year"},
        {1, "(kg CO2-eq)  (kg CO2-eq/m2)       (kg CO2-eq/m2/a)"},
        {2, "-             -     20000.00          200.00                   4.00"},
        {4, "25.00             -       100.00            1.25                   0.03"},
        {10, "-             -     23396.60          242.46                   4.85"}};
    for (const auto& [line, end] : ends)
        EXPECT_TRUE(printed[line].ends_with(end)) << printed[line];
    EXPECT_EQ(printed[8].substr(0, 29), "Construction process (A4, A5)");
    EXPECT_EQ(printed[9], std::string(printed[0].size(), '-'));
    EXPECT_EQ(printed[10].substr(0, 5), "TOTAL");
    EXPECT_EQ(printed[11].substr(0, 13), "Last update: ");
}

TEST_F(AssessTest, WithoutAreaAndPeriodThereIsADash) {
    const json noYears = Assess(model, {"--materials", table, "--set", "SERVICELIFE=0"});
    EXPECT_EQ(noYears["categories"][1]["gwp"], 930) << "the brick has a service life and is provided 0 times";
    EXPECT_EQ(noYears["categories"][1]["gwp_per_area"], 9.3);
    EXPECT_TRUE(noYears["categories"][1]["gwp_per_area_per_year"].is_null());
    EXPECT_EQ(noYears["total"]["gwp_per_area_per_year"], 0);
    std::string text = HouseText();
    text.replace(text.find("GrossFloorArea"), 14, "SomethingElse1");
    const json noArea = Assess(folder.Write("no area.ifc", text), {"--materials", table});
    EXPECT_EQ(noArea["categories"][1]["gwp"], 1530);
    for (const char* key : {"gwp_per_area", "gwp_per_area_per_year"})
        EXPECT_TRUE(noArea["categories"][1][key].is_null());
}

TEST_F(AssessTest, TheSavedProjectGivesTheSameTable) {
    const std::string project = folder / "house.kvp";
    const std::vector<std::string> given = {"--materials", table,       "--settings",
                                            settings,      "--element", std::string(SlabId) + ":GWPPERCENTAGE=25"};
    std::vector<std::string> first = {"assess", model, "--save", project, "--json", folder / "a.json"};
    first.insert(first.end(), given.begin(), given.end());
    const Finished fromIfc = Kelvarnix(first);
    ASSERT_EQ(fromIfc.code, 0) << fromIfc.errors;
    const std::string before = support::ContentOf(project);
    const Finished fromProject = Kelvarnix({"assess", project, "--json", folder / "b.json"});
    ASSERT_EQ(fromProject.code, 0) << fromProject.errors;
    const auto withoutTime = [](const std::string& text) { return text.substr(0, text.find("Last update")); };
    EXPECT_EQ(withoutTime(fromProject.output), withoutTime(fromIfc.output));
    const json a = json::parse(support::ContentOf(folder / "a.json"));
    const json b = json::parse(support::ContentOf(folder / "b.json"));
    EXPECT_EQ(a["categories"], b["categories"]);
    EXPECT_EQ(a["total"], b["total"]);
    EXPECT_EQ(a["settings"], b["settings"]);
    EXPECT_EQ(GWP(a, 1), 810); // 600 - 30 + 960 x 25 %
    // Looking and trying changes nothing ...
    EXPECT_EQ(GWP(Assess(project, {"--set", "SERVICELIFE=20", "--materials", table}), 1), 510);
    EXPECT_EQ(Kelvarnix({"info", project}).code, 0);
    EXPECT_EQ(support::ContentOf(project), before);
    // ... saving onto the same file keeps the values, and an unknown element stops it before anything is written.
    EXPECT_EQ(GWP(Assess(project, {"--set", "SERVICELIFE=20", "--save", project}), 1), 510);
    EXPECT_EQ(GWP(Assess(project, {}), 1), 510);
    const std::string kept = support::ContentOf(project);
    ExpectRefusal(Kelvarnix({"assess", project, "--set", "SERVICELIFE=90", "--element", "0000000000000000000000:GWP=1",
                             "--save", project}),
                  2, "0000000000000000000000:GWP=1", "the model has no such element");
    EXPECT_EQ(support::ContentOf(project), kept);
    // Under another name: the first stays.
    EXPECT_EQ(GWP(Assess(project, {"--set", "SERVICELIFE=50", "--save", folder / "other.kvp"}), 1), 810);
    EXPECT_EQ(support::ContentOf(project), kept);
    EXPECT_EQ(GWP(Assess(folder / "other.kvp", {}), 1), 810);
}

TEST_F(AssessTest, ElementsAndPhases) {
    const std::string wall = WallId, door = DoorId;
    EXPECT_EQ(GWP(Assess(model, {"--materials", table, "--element", wall + ":INCLUDE=0"}), 1), 960);
    EXPECT_EQ(GWP(Assess(model, {"--materials", table, "--element", wall + ":GWPPERCENTAGE=150"}), 1), 1815);
    EXPECT_EQ(GWP(Assess(model, {"--materials", table, "--element", door + ":GWP=70", "--element",
                                 door + ":GWPPERCENTAGE=50"}),
                  2),
              70)
        << "70 x 50 % x 2";
    EXPECT_EQ(GWP(Assess(model, {"--materials", table, "--element", door + ":INCLUDE=0"}), 2), 0);
    const std::string phases = folder.Write("phases.csv", "applies_to;name;unit;A1-A3;C3;D\n"
                                                          "material;*;m3;10;2,5;-4\nwindow;*;piece;100;;-30\n");
    const std::pair<const char*, std::pair<double, double>> cases[] = {
        {"A1-A3;C3;C4", {75, 400}},   // 6 m3 x 12.5; 2 x 100 x 2
        {"A1-A3;C3;C4;D", {51, 280}}, // 6 x 8.5; 2 x 70 x 2
        {"D", {-24, -120}},
        {"B4", {0, 0}}};
    for (const auto& [used, expected] : cases) {
        const json answer = Assess(model, {"--materials", phases, "--set", "PHASES=" + std::string(used)});
        EXPECT_EQ(GWP(answer, 1), expected.first) << used;
        EXPECT_EQ(GWP(answer, 3), expected.second) << used;
    }
}

TEST_F(AssessTest, StrictStopsAtWhatIsMissing) {
    const auto expectStrict = [&](const std::string& file, const std::string& csv, const std::string& finding) {
        const std::string path = folder.Write("strict.csv", csv);
        const Finished strict = Kelvarnix({"assess", file, "--materials", path, "--strict", "--quiet"});
        EXPECT_EQ(strict.code, 4) << strict.errors;
        EXPECT_EQ(strict.errors, "kelvarnix: " + file + ": 1 finding(s), the first: " + finding + "\n");
        EXPECT_EQ(strict.output, "");
        const Finished loose = Kelvarnix({"assess", file, "--materials", path});
        EXPECT_EQ(loose.code, 0);
        EXPECT_TRUE(Contains(loose.errors, "warning: " + finding + "\n")) << loose.errors;
    };
    const std::string whole = HouseTable;
    const auto without = [&](const std::string& line) {
        std::string csv = whole;
        return csv.erase(csv.find(line), csv.find('\n', csv.find(line)) + 1 - csv.find(line));
    };
    expectStrict(model, without("material;brick"),
                 "material \"Brick\" (1.5 m3) has no GWP and counts as 0; add it to the material table");
    expectStrict(model, without("door;"),
                 "door \"Haustür\" (1 piece) has no GWP and counts as 0; add it to the material table");
    expectStrict(model, without("window;"),
                 "window \"Window A\" (2 pieces) has no GWP and counts as 0; add it to the material table");
    expectStrict(model, std::string(whole).replace(whole.find("2400"), 4, ""),
                 "material \"Concrete\" (4 m3) has a GWP per kg and no density, and counts as 0; add its density");
    std::string noVolume = HouseText();
    noVolume.replace(noVolume.find("'NetVolume',$,$,4."), 18, "'NetVolume',$,$,$");
    expectStrict(folder.Write("no volume.ifc", noVolume), whole,
                 "material \"Concrete\" (0 m3) has a GWP per kg and in 1 of 1 components no volume, which count as 0; "
                 "check the model's quantities");
    const std::string bare = HouseText("#30=IFCWALL('000000000000000000Bare',$,'Bare',$,$,#9,$,$,$);\n"
                                       "#31=IFCRELASSOCIATESMATERIAL('c',$,$,$,(#30),#42);\n");
    expectStrict(folder.Write("bare.ifc", bare), whole,
                 "no quantity and no usable geometry: 000000000000000000Bare (IfcWall \"Bare\")");
    const Finished refused = Kelvarnix({"assess", model, "--materials", folder.Write("strict.csv", whole), "--strict",
                                        "--refuse", "Model.ReadElementComponents"});
    EXPECT_EQ(refused.code, 4) << refused.errors;
    EXPECT_TRUE(Contains(refused.errors, "elements that could not be read and do not count: ")) << refused.errors;
    EXPECT_TRUE(Contains(refused.output, " (incomplete)\n")) << refused.output;
}

TEST_F(AssessTest, ADoubledDefinitionIsNamed) {
    const std::string project = folder / "house.kvp";
    ASSERT_EQ(Kelvarnix({"assess", model, "--save", project, "--quiet"}).code, 0);
    workbench::WorkbenchHost host;
    host.OpenProject(workbench::OpenProjectFile(project, workbench::KeepChanges::InMemory).project,
                     host::ProjectEvent::Open);
    ASSERT_NE(host.GetProject(), nullptr);
    for (host::PropertyDefinition copy : host.GetProject()->model.GetDefinitions()) {
        if (copy.name != "Used Phases") continue;
        copy.name = "Copy";
        ASSERT_EQ(host.commands.Call("copy", [&] { return host.properties.CreateDefinition(copy); }), host::NoError);
    }
    ASSERT_EQ(workbench::SaveProject(*host.GetProject(), project), "");
    const Finished doubled = Kelvarnix({"assess", project, "--set", "PHASES=D"});
    EXPECT_EQ(doubled.code, 0) << doubled.errors;
    EXPECT_TRUE(Contains(doubled.errors, "warning: ") && Contains(doubled.errors, "delete one: Copy\n"))
        << doubled.errors;
}

TEST_F(AssessTest, Usage) {
    const std::vector<std::vector<std::string>> cases[] = {{{}},
                                                           {{"paint"}},
                                                           {{"assess"}},
                                                           {{"assess", model, "--colour"}},
                                                           {{"assess", model, "--set"}},
                                                           {{"assess", model, "--set", "SERVICELIFE=x"}},
                                                           {{"assess", model, "--element", "x"}},
                                                           {{"assess", model, "--save", "house.txt"}},
                                                           {{"assess", "house.dwg"}},
                                                           {{"record", model}},
                                                           {{"info"}}};
    for (const auto& row : cases) {
        SCOPED_TRACE(testing::PrintToString(row.front()));
        ExpectRefusal(Kelvarnix(row.front()), 2, "", "");
    }
    const Finished help = Kelvarnix({"--help"});
    EXPECT_EQ(help.code, 0);
    for (const char* word : {"assess", "info", "materials", "record", "Exit codes"})
        EXPECT_TRUE(Contains(help.output, word)) << word;
}

} // namespace
