// `kelvarnix info`, `materials` and `record`.
#include "Program.h"
#include "TestHouse.h"

#include "support/TestFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using namespace clitest;
using nlohmann::json;

class OverviewTest : public testing::Test {
protected:
    support::TestFolder folder;
};

[[nodiscard]] std::string Replace(std::string text, const std::string& what, const std::string& with) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
        text.replace(at, what.size(), with);
    return text;
}

/// Lines with runs of blanks shortened to one.
[[nodiscard]] std::string Squeeze(std::string text) {
    while (Contains(text, "  "))
        text = Replace(text, "  ", " ");
    return text;
}

TEST_F(OverviewTest, InfoListsElementsMaterialsAndWhatIsMissing) {
    const std::string model =
        folder.Write("house.ifc", HouseText("#30=IFCWALL('000000000000000000Bare',$,'Bare',$,$,#9,$,$,$);\n"
                                            "#31=IFCFURNITURE('0000000000000000000Sofa',$,'Sofa',$,$,#9,$,$,$);\n"));
    const Finished info = Kelvarnix({"info", model});
    ASSERT_EQ(info.code, 0) << info.errors;
    const std::string text = Squeeze(info.output);
    for (const char* line :
         {"Schema IFC4", "Gross floor area: 100 m2\n", "Left out: 1 IfcFurniture\n", "\nwall (no layer) 2\n",
          "\nwindow (no layer) 2\n", "\ntotal 6\n", "\nBrick 1.5 10 - - -\n", "\nConcrete 4 20 - - -\n",
          "\n no quantity and no usable geometry: 000000000000000000Bare (IfcWall \"Bare\")\n",
          "\n no material: 000000000000000000Bare (IfcWall \"Bare\")\n"})
        EXPECT_TRUE(Contains(text, line)) << line << "\n" << text;
    const std::string project = folder / "house.kvp";
    const std::string table = folder.Write("t.csv", HouseTable);
    ASSERT_EQ(Kelvarnix({"assess", model, "--materials", table, "--save", project}).code, 0);
    const std::string saved = Squeeze(Kelvarnix({"info", project}).output);
    EXPECT_TRUE(Contains(saved, "\nConcrete 4 20 2400 9600 0.1\n")) << saved;
}

TEST_F(OverviewTest, TheMaterialTableComesBackFilledIn) {
    // A name with everything that a table has to quote: Ziegel; "grün", 2* with blanks around.
    const std::string model = folder.Write("house.ifc", HouseText({}, " Ziegel; \"gr\\X2\\00FC\\X0\\n\", 2* "));
    const std::string csv = folder / "materials.csv";
    ASSERT_EQ(Kelvarnix({"materials", model, "--out", csv}).code, 0);
    const std::string empty = support::ContentOf(csv);
    EXPECT_EQ(Kelvarnix({"materials", model}).output, empty);
    EXPECT_EQ(empty, "applies_to;name;unit;gwp;service_life;density\n"
                     "material;\" Ziegel; \"\"grün\"\", 2* \";m3;;;\n"
                     "material;Wood;m3;;;\n"
                     "material;Concrete;m3;;;\n"
                     "door;Haustür;piece;;;\n"
                     "window;Window A;piece;;;\n");
    const Finished unfilled = Kelvarnix({"assess", model, "--materials", csv, "--strict", "--quiet"});
    EXPECT_EQ(unfilled.code, 4) << unfilled.errors;
    EXPECT_TRUE(Contains(unfilled.errors, ": 5 finding(s)")) << unfilled.errors;
    const std::string filled =
        folder.Write("filled.csv", Replace(Replace(empty, ";m3;;", ";m3;10;"), ";piece;;", ";piece;7;"));
    const std::string project = folder / "house.kvp";
    const Finished strict =
        Kelvarnix({"assess", model, "--materials", filled, "--strict", "--save", project, "--quiet", "--json", "-"});
    ASSERT_EQ(strict.code, 0) << strict.errors;
    EXPECT_EQ(json::parse(strict.output)["categories"][1]["gwp"], 60); // 6 m3 x 10
    // The stored values stand in the table of the saved project, by phase where there are phases.
    const std::string stored = Kelvarnix({"materials", project}).output;
    EXPECT_TRUE(Contains(stored, "material;Concrete;m3;10;;\n")) << stored;
    const std::string phases = folder.Write("phases.csv", "applies_to;name;unit;A1-A3;D;service_life;density\n"
                                                          "material;Wood;kg;1,5;-2;40;500\n");
    ASSERT_EQ(Kelvarnix({"assess", project, "--materials", phases, "--save", project}).code, 0);
    const std::string byPhase = Kelvarnix({"materials", project}).output;
    EXPECT_TRUE(Contains(byPhase, "applies_to;name;unit;A1-A3;A4;B1;C1;C2;C3;C4;D;service_life;density\n")) << byPhase;
    EXPECT_TRUE(Contains(byPhase, "material;Wood;kg;1.5;;;;;;;-2;40;500\n")) << byPhase;
    EXPECT_TRUE(Contains(byPhase, "material;Concrete;m3;10;;;;;;;;;\n")) << byPhase;
    const std::string again = folder.Write("again.csv", byPhase);
    const Finished same = Kelvarnix({"assess", project, "--materials", again, "--json", "-", "--quiet"});
    ASSERT_EQ(same.code, 0) << same.errors;
    EXPECT_EQ(json::parse(same.output)["categories"][1]["gwp"], 1.5 * 10 + 4 * 10 + 0.5 * 500 * 1.5 * 2);
}

TEST_F(OverviewTest, RecordShowsEveryStoredKey) {
    const std::string model = folder.Write("house.ifc", HouseText()), project = folder / "house.kvp";
    ASSERT_EQ(
        Kelvarnix({"assess", model, "--save", project, "--set", "SERVICELIFE=60", "--set", "PHASES=A1-A3;D", "--set",
                   "GWP-STANDARDS=Größe=7.5", "--set", "GWP-STANDARDS-UNIT=GWP_KG", "--set", "MAX_SOLAR_CONT=7"})
            .code,
        0);
    const Finished text = Kelvarnix({"record", project});
    ASSERT_EQ(text.code, 0) << text.errors;
    const json answer = json::parse(Kelvarnix({"record", project, "--json", "-"}).output);
    const std::pair<const char*, const char*> expected[] = {
        {"GWP-STANDARDS", "Größe=7.5"},
        {"PHASES", "A1-A3;D"},
        {"SERVICELIFE", "60"},
        {"CONTRIBUTION", nullptr},
        {"ELEMLIVES", "Doors=25;Windows=25;Inventory=30;Installations=25"},
        {"ELEMCOLORS", nullptr},
        {"FLOORAREA", "100"},
        {"OPERATIONAL_EMISSION", "0"},
        {"REFERENCE_FLOORAREA", "100"},
        {"FLOOR_SETTINGS", nullptr},
        {"SOLAR_PANELS", "0"},
        {"MAX_SOLAR_CONT", "7"},
        {"ELECTRICITY_S_FACTOR", "0.053"}};
    ASSERT_EQ(answer.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const auto& [key, stored] = expected[i];
        EXPECT_EQ(answer[i]["key"], key);
        EXPECT_TRUE(Contains(answer[i]["description"], std::string("LCAID=\"").append(key).append("\"")));
        EXPECT_TRUE(Contains(text.output, std::string("\n").append(key).append(" "))) << text.output;
        if (stored == nullptr) continue;
        EXPECT_EQ(answer[i]["stored"], stored);
        EXPECT_EQ(answer[i]["read_as"], std::string(stored) + (i == 0 ? " [GWP_KG]" : "")) << key;
    }
    EXPECT_TRUE(Contains(answer[0]["description"], "LCAUNIT=\"GWP_KG\""));
    EXPECT_TRUE(Contains(answer[9]["stored"], "MAX_SOLAR_CONT_E=7")) << answer[9];
    EXPECT_TRUE(Contains(answer[9]["stored"], "MAX_SOLAR_CONT_C=1")) << answer[9];
}

} // namespace
