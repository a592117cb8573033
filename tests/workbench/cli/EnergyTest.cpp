// Results of an energy evaluation on the command line: what they change in record, table and saved project, and what
// the program says about documents that cannot be used.
#include "Program.h"
#include "TestHouse.h"

#include "support/PeakMemory.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace {

using namespace clitest;
using nlohmann::json;
namespace fs = std::filesystem;

const std::string Sample = KELVARNIX_SOURCE_DIR "/samples/energy.xml";

class EnergyTest : public testing::Test {
protected:
    void SetUp() override {
        model = folder.Write("house.ifc", HouseText());
        table = folder.Write("table.csv", HouseTable);
    }
    /// The house with settings by hand, assessed with what else is asked for.
    json Assess(const std::vector<std::string>& more) {
        std::vector<std::string> arguments = {"assess", model, "--materials", table, "--json", "-"};
        for (const char* setting : {"SERVICELIFE=50", "OPERATIONAL_EMISSION=586", "SOLAR_PANELS=2000",
                                    "ELECTRICITY_S_FACTOR=0.053", "PHASES=A1-A3"})
            arguments.insert(arguments.end(), {"--set", setting});
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Parse(Kelvarnix(arguments));
    }
    static json Parse(const Finished& finished) {
        EXPECT_EQ(finished.code, 0) << finished.errors;
        return finished.code == 0 ? json::parse(finished.output) : json();
    }
    std::string SaveHouse() {
        const std::string project = folder / "house.kvp";
        Assess({"--save", project});
        return project;
    }
    /// What a project of these settings reads as, by key.
    static json Record(const std::string& project) {
        return Parse(Kelvarnix({"assess", project, "--json", "-"}))["settings"];
    }

    support::TestFolder folder;
    std::string model, table;
};

TEST_F(EnergyTest, FourQuantitiesChangeInRecordTableAndProject) {
    const std::string project = folder / "with.kvp";
    const json without = Assess({}), with = Assess({"--energy", Sample, "--save", project});
    const json reopened = Parse(Kelvarnix({"assess", project, "--json", "-"}));
    const json former = without["settings"], settings = with["settings"];
    EXPECT_EQ(former["FLOORAREA"], 100);
    EXPECT_EQ(settings["FLOORAREA"], 82.4);
    EXPECT_EQ(settings["OPERATIONAL_EMISSION"], 612.5);
    EXPECT_EQ(settings["SOLAR_PANELS"], 1850);
    EXPECT_EQ(settings["ELECTRICITY_S_FACTOR"], 0.061);
    for (const char* key : {"FLOORAREA", "OPERATIONAL_EMISSION", "SOLAR_PANELS", "ELECTRICITY_S_FACTOR"})
        EXPECT_TRUE(Contains(settings["FLOOR_SETTINGS"], std::string(key) + "_C=1")) << key;
    // What was entered by hand is still there, and so is all else.
    EXPECT_TRUE(Contains(settings["FLOOR_SETTINGS"], "OPERATIONAL_EMISSION_M=586"));
    for (const char* key : {"REFERENCE_FLOORAREA", "MAX_SOLAR_CONT", "SERVICELIFE", "PHASES", "CONTRIBUTION"})
        EXPECT_EQ(settings[key], former[key]) << key;
    // 50 years of 586 kg less 2000 kWh x 0.053 kg/kWh, by 100 m2; then 612.5 kg, 1850 kWh x 0.061 kg/kWh, 82.4 m2.
    EXPECT_EQ(without["categories"][0]["gwp"], 24000);
    EXPECT_EQ(without["categories"][0]["gwp_per_area"], 240);
    EXPECT_EQ(with["categories"][0]["gwp"], 24982.5);
    EXPECT_EQ(with["categories"][0]["gwp_per_area"], 303.19);
    for (std::size_t row = 1; row < 7; ++row)
        EXPECT_EQ(with["categories"][row], without["categories"][row]) << row;
    EXPECT_EQ(reopened["settings"], settings);
    EXPECT_EQ(reopened["categories"], with["categories"]);
    EXPECT_EQ(reopened["total"], with["total"]);
    EXPECT_TRUE(Contains(with["warnings"].dump(), "Solar panels: 2000 -> 1850 kWh/a"));
}

TEST_F(EnergyTest, TheCommandChangesTheProject) {
    const std::string project = SaveHouse(), copy = folder / "copy.kvp", content = support::ContentOf(project);
    EXPECT_EQ(Kelvarnix({"energy", project}).output, "Export to Kelvarnix\n");
    const Finished copied = Kelvarnix({"energy", project, "--export", Sample, "--save", copy});
    EXPECT_EQ(copied.code, 0) << copied.errors;
    EXPECT_TRUE(
        Contains(copied.output, "Electricity factor       0.053  0.061  kg CO2eq/kWh  energy evaluation  changed"))
        << copied.output;
    EXPECT_EQ(support::ContentOf(project), content);
    EXPECT_EQ(Record(copy)["FLOORAREA"], 82.4);
    const Finished inPlace = Kelvarnix({"energy", project, "--export", Sample, "--target", "Export to Kelvarnix"});
    EXPECT_EQ(inPlace.output, copied.output);
    EXPECT_EQ(Record(project), Record(copy));
    const Finished again = Kelvarnix({"energy", project, "--export", Sample});
    EXPECT_FALSE(Contains(again.output, "changed"));
    const Finished unkept = Kelvarnix({"energy", model, "--export", Sample});
    EXPECT_EQ(unkept.code, 0);
    EXPECT_TRUE(Contains(unkept.output, "82.4") && Contains(unkept.errors, model + " cannot keep the data"));
    const Finished fromModel = Kelvarnix({"energy", model, "--export", Sample, "--save", folder / "new.kvp"});
    EXPECT_EQ(fromModel.code, 0) << fromModel.errors;
    EXPECT_EQ(Record(folder / "new.kvp")["OPERATIONAL_EMISSION"], 612.5);
}

TEST_F(EnergyTest, TheRequestIsShownInBothForms) {
    const std::string project = SaveHouse(), xml = folder / "request.xml";
    const json request = Parse(Kelvarnix({"energy", project, "--export", Sample, "--request", "-"}));
    EXPECT_EQ(request["xlsValues"], (json{{"enableExport", true}, {"levelOfDetail", "Yearly"}}));
    EXPECT_EQ(request["hourlyProfiles"], (json{{"enableExport", false}, {"levelOfDetail", "Hourly"}}));
    EXPECT_EQ(Kelvarnix({"energy", project, "--export", Sample, "--request", xml}).code, 0);
    EXPECT_TRUE(Contains(support::ContentOf(xml), "<enableExport type=\"boolean\">true</enableExport>"));
}

TEST_F(EnergyTest, UsageAndDocumentsThatCannotBeUsed) {
    const std::string project = SaveHouse(), content = support::ContentOf(project);
    const std::string saved = folder / "never.kvp", sample = support::ContentOf(Sample);
    ExpectRefusal(Kelvarnix({"energy", project, "--target", "x"}), 2, "--target", "--export");
    ExpectRefusal(Kelvarnix({"energy", project, "--export", Sample, "--target", "Export elsewhere"}), 2,
                  "Export elsewhere", "choose one of: Export to Kelvarnix");
    ExpectRefusal(Kelvarnix({"energy", project, "--export", Sample, "--save", "x.ifc"}), 2, "x.ifc", ".kvp");
    ExpectRefusal(Kelvarnix({"assess", project, "--window", "3D"}), 2, "--window", "--place-report");
    ExpectRefusal(Kelvarnix({"energy", project, "--export", folder / "no.xml"}), 3, folder / "no.xml", "exists");
    const struct {
        const char* name;
        std::string document;
    } cases[] = {{"empty.xml", ""},
                 {"text.xml", "grossFloorArea = 82.4\n"},
                 {"half.xml", sample.substr(0, sample.size() / 2)},
                 {"settings.xml", "<settings/>"},
                 {"damaged.xml", std::string(sample).replace(sample.find("82.4"), 4, "\xFF\xFE!<")}};
    for (const auto& one : cases) {
        const std::string file = folder.Write(one.name, one.document);
        ExpectRefusal(Kelvarnix({"energy", project, "--export", file}), 3, file, "no whole XML document");
        ExpectRefusal(Kelvarnix({"assess", model, "--energy", file, "--save", saved}), 3, file, "nothing was taken");
    }
    EXPECT_FALSE(fs::exists(saved));
    EXPECT_EQ(support::ContentOf(project), content);
    // A document with nothing to take is no failure, but it is said.
    const std::string nothing = folder.Write("nothing.xml", "<root/>");
    const Finished finished = Kelvarnix({"assess", project, "--energy", nothing});
    EXPECT_EQ(finished.code, 0);
    EXPECT_TRUE(Contains(finished.errors, nothing + " changed nothing")) << finished.errors;
}

TEST_F(EnergyTest, HugeAndHostileDocuments) {
    const std::string project = SaveHouse();
    constexpr std::size_t Large = 100000000;
    const std::string values = "<projectKeyValuesData><grossFloorArea>82.4</grossFloorArea><co2emission>1</co2emission>"
                               "</projectKeyValuesData>";
    const auto repeat = [](const std::string& text, std::size_t size) {
        std::string all;
        for (all.reserve(size + text.size()); all.size() < size;)
            all += text;
        return all;
    };
    const auto send = [&](const std::string& document) {
        const std::string file = folder.Write("large.xml", "<root>" + document + "</root>");
        Finished finished = Kelvarnix({"energy", project, "--export", file, "--save", folder / "copy.kvp"});
        EXPECT_LT(finished.peakKiB, support::GibibyteInKiB);
        return finished;
    };
    const std::string source = "<list_value><source>Gas</source><carbonFootprint>1</carbonFootprint></list_value>";
    const Finished large = send("<energySourcesFactor><dataArray>" + repeat(source, Large) +
                                "</dataArray></energySourcesFactor>" + values);
    EXPECT_EQ(large.code, 0) << large.errors;
    EXPECT_TRUE(Contains(large.output, "82.4")) << large.output;
    ExpectRefusal(send(repeat("<a/>", Large) + values), 3, folder / "large.xml", "too large");
    const Finished deep = send(repeat("<a>", 300000) + repeat("</a>", 400000) + values);
    EXPECT_TRUE(Contains(deep.output, "82.4")) << deep.errors;
    ExpectRefusal(send(repeat("<a>", 300000) + values), 3, folder / "large.xml", "no whole XML document");
    std::filesystem::resize_file(folder / "large.xml", (std::uintmax_t{512} << 20U) + 1);
    const Finished larger = Kelvarnix({"energy", project, "--export", folder / "large.xml"});
    ExpectRefusal(larger, 3, folder / "large.xml", "too large");
    EXPECT_LT(larger.peakKiB, support::GibibyteInKiB / 8) << "refused before it is read";
    const Finished skipped = Kelvarnix(
        {"energy", project, "--export",
         folder.Write("part.xml", "<root><projectKeyValuesData><grossFloorArea>-1</grossFloorArea><co2emission>7"
                                  "</co2emission></projectKeyValuesData></root>")});
    EXPECT_TRUE(Contains(skipped.errors, "projectKeyValuesData is skipped: the gross floor area is negative"))
        << skipped.errors;
    EXPECT_NE(Record(project)["OPERATIONAL_EMISSION"], 7);
}

TEST_F(EnergyTest, ASharedProjectNeedsTheRight) {
    const std::string project = SaveHouse();
    ASSERT_EQ(Kelvarnix({"share", project, "--member", "anna;Anna"}).code, 0);
    ExpectRefusal(Kelvarnix({"energy", project, "--export", Sample}), 2, project, "--as");
    ExpectRefusal(Kelvarnix({"energy", project, "--export", Sample, "--as", "anna"}), 5, "", "not reserved");
    EXPECT_EQ(Record(project)["OPERATIONAL_EMISSION"], 586);
    ASSERT_EQ(Kelvarnix({"teamwork", project, "--as", "anna", "--button", "ClassificationsAndProperties"}).code, 0);
    EXPECT_EQ(Kelvarnix({"energy", project, "--export", Sample, "--as", "anna"}).code, 0);
    EXPECT_EQ(Record(project)["OPERATIONAL_EMISSION"], 612.5);
}

/// A report is placed in the window that is in front.
TEST_F(EnergyTest, WindowsAreSwitched) {
    const std::string project = folder / "placed.kvp";
    for (const char* window : {"North elevation", "Section A", "Layout 1", "Floor plan"}) {
        EXPECT_EQ(Kelvarnix({"assess", model, "--place-report", "1,2", "--window", window, "--save", project}).code, 0);
        for (const char* database : {"North elevation", "Section A", "Layout 1", "Floor plan"}) {
            const Finished drawn =
                Kelvarnix({"drawing", project, "--database", database, "--png", folder / "placed.png"});
            EXPECT_EQ(drawn.code, 0) << drawn.errors;
            EXPECT_EQ(Contains(drawn.errors, "nothing is placed there"), std::string(window) != database) << database;
        }
        fs::remove(project);
    }
    ExpectRefusal(Kelvarnix({"assess", model, "--place-report", "1,2", "--window", "3D", "--save", project}), 3, "",
                  "open the floor plan");
    ExpectRefusal(Kelvarnix({"assess", model, "--place-report", "1,2", "--window", "Attic", "--save", project}), 2,
                  "Attic", "Layout 1");
}

} // namespace
