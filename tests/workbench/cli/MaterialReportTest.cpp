// report-materials, and the materials of assess --json: the same dialog, read twice.
#include "support/TestFolder.h"
#include "workbench/model/ReportLibrary.h"
#include "workbench/store/ProjectFile.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/resource.h>

#include <csignal>

#include "Program.h"
#include "TestHouse.h"

namespace {

using clitest::ExpectRefusal;
using clitest::Kelvarnix;
using nlohmann::json;

class MaterialReportCommandTest : public testing::Test {
protected:
    void SetUp() override {
        const std::string house = folder.Write("house.ifc", clitest::HouseText());
        const std::string table = folder.Write("table.csv", clitest::HouseTable);
        const clitest::Finished finished =
            Kelvarnix({"assess", house, "--materials", table, "--save", project, "--json", "-", "--quiet"});
        ASSERT_EQ(finished.code, 0) << finished.errors;
        assessed = json::parse(finished.output);
    }
    std::unique_ptr<workbench::Project> Open() {
        return workbench::OpenProjectFile(project, workbench::KeepChanges::InMemory).project;
    }

    support::TestFolder folder;
    const std::string project = folder.Path() + "/house.kvp";
    json assessed;
};

TEST_F(MaterialReportCommandTest, PrintsTheDialogsTable) {
    // Brick 1.5 m3 x 200 x 2 provisions, wood 10 m2 x -3, concrete 4 m3 x 2400 kg/m3 x 0.1
    const std::map<std::string, double> expected = {{"Brick", 600}, {"Wood", -30}, {"Concrete", 960}};
    const clitest::Finished finished = Kelvarnix({"report-materials", project, "--json", "-"});
    ASSERT_EQ(finished.code, 0) << finished.errors;
    const json report = json::parse(finished.output);
    EXPECT_EQ(report["materials"], assessed["materials"]);
    EXPECT_EQ(report["total"], 1530);
    ASSERT_EQ(report["materials"].size(), expected.size());
    for (const json& material : report["materials"]) {
        EXPECT_EQ(material["gwp"], expected.at(material["material"])) << material;
        EXPECT_NE(material["layer"], "") << material;
    }
    const std::string text = Kelvarnix({"report-materials", project}).output;
    EXPECT_TRUE(clitest::Contains(text, "Layer")) << text;
    EXPECT_TRUE(clitest::Contains(text, "1530.000")) << text;
}

TEST_F(MaterialReportCommandTest, PlacesTheReportObject) {
    ASSERT_EQ(Kelvarnix({"report-materials", project, "--place", "12.5,-3", "--save", project}).code, 0);
    ASSERT_EQ(Open()->model.GetPlacedObjects().size(), 1U);
    const workbench::PlacedObject object = Open()->model.GetPlacedObjects()[0];
    EXPECT_EQ(object.position.x, 12.5);
    EXPECT_EQ(object.position.y, -3);
    EXPECT_EQ(object.parameters.at(2).realArray.back(), 1530);
    // The object is kept up to date: half of the service life doubles the brick.
    ASSERT_EQ(Kelvarnix({"assess", project, "--set", "SERVICELIFE=90", "--save", project, "--quiet"}).code, 0);
    EXPECT_NEAR(Open()->model.GetPlacedObjects()[0].parameters.at(2).realArray.back(), 1830, 1e-9);
}

TEST_F(MaterialReportCommandTest, RefusesWhatItCannotDo) {
    const std::string before = support::ContentOf(project);
    const struct {
        std::vector<std::string> arguments;
        int code;
        const char* name;
        const char* says;
    } cases[] = {{{"--place", "1,2"}, 2, "--place", "--save"},
                 {{"--place", "1", "--save", project}, 2, "--place 1", "X,Y"},
                 {{"--place", "1,2,3", "--save", project}, 2, "--place 1,2,3", "X,Y"},
                 {{"--place", "a,b", "--save", project}, 2, "--place a,b", "X,Y"},
                 {{"--place", "1,2", "--save", "x.ifc"}, 2, "x.ifc", ".kvp"},
                 {{"--favorite", "Wide"}, 2, "--favorite", "--place"},
                 {{"--place", "1,2", "--favorite", "Wide", "--save", project}, 2, "Wide", "no favourite"},
                 {{"--json", "/none/x.json"}, 5, "/none/x.json", "cannot be written"}};
    for (const auto& one : cases) {
        std::vector<std::string> arguments = {"report-materials", project};
        arguments.insert(arguments.end(), one.arguments.begin(), one.arguments.end());
        clitest::Finished finished = Kelvarnix(arguments);
        finished.output.clear(); // the table comes before the file that cannot be written
        ExpectRefusal(finished, one.code, one.name, one.says);
    }
    ExpectRefusal(Kelvarnix({"report-materials", folder.Path() + "/none.kvp"}), 3, "none.kvp", "no such file");
    EXPECT_EQ(support::ContentOf(project), before);
    const std::unique_ptr<workbench::Project> opened = Open();
    opened->model.libraryParts.clear();
    ASSERT_EQ(workbench::SaveProject(*opened, project), "");
    const clitest::Finished missing = Kelvarnix({"report-materials", project, "--place", "1,2", "--save", project});
    EXPECT_EQ(missing.code, 3);
    EXPECT_TRUE(clitest::Contains(missing.errors, "Kelvarnix Material CO2 Report.gsm")) << missing.errors;
    EXPECT_TRUE(Open()->model.GetPlacedObjects().empty());
}

TEST_F(MaterialReportCommandTest, AssessPlacesTheResultReportAndWritesTheCharts) {
    ExpectRefusal(Kelvarnix({"assess", project, "--place-report", "1,2"}), 2, "--place-report", "--save");
    ExpectRefusal(Kelvarnix({"assess", project, "--place-report", "1", "--save", project}), 2, "--place-report 1",
                  "X,Y");
    const std::string charts = folder.Path() + "/charts";
    const clitest::Finished finished =
        Kelvarnix({"assess", project, "--place-report", "1,2", "--save", project, "--charts", charts, "--quiet"});
    EXPECT_EQ(finished.code, 0);
    EXPECT_EQ(finished.errors, "");
    ASSERT_EQ(Open()->model.GetPlacedObjects().size(), 1U);
    EXPECT_EQ(Open()->model.GetPlacedObjects()[0].libraryPart, workbench::ResultReportPart);
    for (const char* name : {"/LCAPieChart", "/LCABarChart"}) {
        EXPECT_EQ(support::ContentOf(charts + name + ".png").substr(1, 3), "PNG");
        EXPECT_EQ(support::ContentOf(charts + name + ".jpg").substr(0, 3), "\xFF\xD8\xFF");
    }
    ExpectRefusal(Kelvarnix({"assess", project, "--charts", project, "--quiet"}), 5, "LCAPieChart",
                  "cannot be written");
}

TEST_F(MaterialReportCommandTest, AssessWritesTheSpreadsheet) {
    const std::string report = folder.Path() + "/report.xlsx";
    const clitest::Finished finished = Kelvarnix({"assess", project, "--report", report, "--quiet"});
    EXPECT_EQ(finished.code, 0);
    EXPECT_EQ(finished.errors, "");
    EXPECT_NE(support::ContentOf(report).find("xl/media/"), std::string::npos);
    ExpectRefusal(Kelvarnix({"assess", project, "--report", "r.pdf", "--quiet"}), 2, "r.pdf", ".xlsx");
    const std::string before = support::ContentOf(report);
    ExpectRefusal(Kelvarnix({"assess", project, "--report", "/none/report.xlsx", "--quiet"}), 5, "/none/report.xlsx",
                  "cannot be written");
    ExpectRefusal(Kelvarnix({"assess", project, "--report", report, "--quiet"},
                            {{},
                             [] {
                                 rlimit limit{4096, 4096}; // no file can become larger, as on a full disk
                                 std::signal(SIGXFSZ, SIG_IGN);
                                 return setrlimit(RLIMIT_FSIZE, &limit) == 0;
                             }}),
                  5, report, "cannot be written");
    EXPECT_EQ(support::ContentOf(report), before);
    // The folder in which the workbook grows, and the one for the pictures.
    for (const char* variable : {"TEMP", "TMPDIR"}) {
        const bool failsWhole = std::string(variable) == "TEMP";
        const clitest::Finished unusable = Kelvarnix(
            {"assess", project, "--report", report},
            {{}, [&] { return setenv("TEMP", folder.Path().c_str(), 1) == 0 && setenv(variable, "/none", 1) == 0; }});
        EXPECT_EQ(unusable.code, failsWhole ? 5 : 0);
        EXPECT_TRUE(clitest::Contains(unusable.errors, failsWhole ? "temporary folder '/none/'" : "/none/kelvarnix-"))
            << unusable.errors;
    }
    // And nothing is left in it.
    const std::string temporary = folder.Path() + "/temporary";
    std::filesystem::create_directory(temporary);
    EXPECT_EQ(Kelvarnix({"assess", project, "--report", report, "--charts", folder.Path() + "/charts", "--quiet"},
                        {{},
                         [&] {
                             return unsetenv("TEMP") == 0 && unsetenv("XDG_RUNTIME_DIR") == 0 &&
                                    setenv("TMPDIR", temporary.c_str(), 1) == 0;
                         }})
                  .code,
              0);
    EXPECT_TRUE(std::filesystem::is_empty(temporary)) << *std::filesystem::directory_iterator(temporary);
    const std::string upper = folder.Path() + "/Report.XLSX";
    EXPECT_EQ(Kelvarnix({"assess", project, "--report", upper, "--quiet"}).code, 0);
    EXPECT_EQ(support::ContentOf(upper).substr(0, 2), "PK");
}

TEST_F(MaterialReportCommandTest, DrawingShowsWhatIsPlaced) {
    const std::string png = folder.Path() + "/plan.png";
    const clitest::Finished empty = Kelvarnix({"drawing", project, "--png", png, "--database", "Layout 1"});
    EXPECT_EQ(empty.code, 0);
    EXPECT_TRUE(clitest::Contains(empty.errors, "nothing is placed there")) << empty.errors;
    const std::string nothing = support::ContentOf(png);
    ASSERT_EQ(Kelvarnix({"assess", project, "--place-report", "0,20", "--save", project, "--quiet"}).code, 0);
    const clitest::Finished drawn = Kelvarnix({"drawing", project, "--png", png});
    EXPECT_EQ(drawn.code, 0);
    EXPECT_EQ(drawn.errors, "");
    EXPECT_GT(support::ContentOf(png).size(), nothing.size() * 10);
    ExpectRefusal(Kelvarnix({"drawing", project, "--png", png, "--database", "Attic"}), 2, "Attic",
                  "Floor plan, Section A");
    ExpectRefusal(Kelvarnix({"drawing", project, "--png", "/none/plan.png"}), 5, "/none/plan.png", "cannot be written");
    ExpectRefusal(Kelvarnix({"drawing", project, "--png", folder.Path() + "/plan.xyz"}), 5, "plan.xyz", ".png");
}

} // namespace
