// The cells of the spreadsheet's result sheet, and the names of sheets.
#include "lca/ReportSheet.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using lca::CellRole;
using lca::ElementCategory;

constexpr double Infinite = std::numeric_limits<double>::infinity();

lca::ReportSheetTexts MakeTexts() {
    lca::ReportSheetTexts texts;
    texts.headers = {"", "Type", "Embodied Carbon\r[kg CO2e]"};
    texts.categories = {"Op", "Comp", "Doors", "Win", "Inv", "Inst", "Proc"};
    texts.total = "TOTAL";
    texts.useStage = "B6";
    texts.productStageAndEndOfLife = "EOL";
    texts.countedPhases = "(A1-A3)";
    texts.constructionStage = "A4, A5";
    texts.consideredPeriod = "period";
    texts.grossFloorArea = "area";
    return texts;
}

/// P 50, doors of 30 years, inventory 5 % for 30 years, installations 10 % for 25, construction 7 %; 100 and 200 m2.
lca::LCAProjectData MakeRecord() {
    lca::LCAProjectData record;
    record.elementLives[ElementCategory::Doors] = 30;
    record.elementLives[ElementCategory::Windows] = 0;
    record.contributionShare[ElementCategory::BuildingProcess] = 7;
    record.SetFloorValue(lca::FloorQuantity::ReferenceFloorArea, lca::FloorSource::ByHand, 100);
    record.SetFloorValue(lca::FloorQuantity::GrossFloorArea, lca::FloorSource::ByHand, 200);
    record.SetFloorValue(lca::FloorQuantity::OperationalEmission, lca::FloorSource::ByHand, 12);
    return record;
}

/// A cell as text: its number, its text, or "-" for a blank one.
std::string Show(const lca::SheetCell& cell) {
    if (!cell.number) return cell.text.empty() ? "-" : cell.text;
    if (*cell.number == Infinite) return "infinite";
    char text[32];
    std::snprintf(text, sizeof text, "%g", *cell.number);
    return text;
}

std::string Show(const lca::SheetRow& row) {
    std::string text;
    for (const lca::SheetCell& cell : row)
        text.append(text.empty() ? "" : "|").append(Show(cell));
    return text;
}

TEST(ResultSheet, EachCellFollowsItsRule) {
    const lca::LCAProjectData record = MakeRecord();
    const lca::BaseSums sums{1000, 500, -100};
    const std::vector<lca::SheetRow> rows =
        lca::BuildResultSheet(record, sums, lca::ComputeResults(record, sums), MakeTexts());
    // Base 1400: inventory 70 x 2, installations 140 x 2, construction 98; doors 500 x 2; windows have no service life.
    const char* expected[] = {"-|Type|Embodied Carbon\n[kg CO2e]|-|-|-|-|-|-",
                              "Op|B6|12|-|-|-|600|3|0.06",
                              "Comp|EOL|1000|-|50|1|1000|10|0.2",
                              "Doors|(A1-A3)|500|-|30|1.66667|1000|10|0.2",
                              "Win|-|-|-|-|infinite|0|0|0",
                              "Inv|-|70|5|30|1.66667|140|1.4|0.028",
                              "Inst|-|140|10|25|2|280|2.8|0.056",
                              "Proc|A4, A5|98|10|-|-|98|0.98|0.0196", // the percentage of the installations
                              "TOTAL|-|-|-|-|-|3118|28.18|0.5636",
                              "",
                              "period|-|50",
                              "area|-|200"};
    ASSERT_EQ(rows.size(), std::size(expected));
    for (std::size_t i = 0; i < rows.size(); ++i)
        EXPECT_EQ(Show(rows[i]), expected[i]) << i;
}

TEST(ResultSheet, RolesTellTheStyles) {
    const lca::LCAProjectData record = MakeRecord();
    const std::vector<lca::SheetRow> rows =
        lca::BuildResultSheet(record, {}, lca::ComputeResults(record, {}), MakeTexts());
    constexpr auto Stage = CellRole::StageLabel, Part = CellRole::PartLabel;
    const CellRole labels[] = {CellRole::Header, Stage, Part, Part, Part, Part, Part, Stage, CellRole::TotalLabel};
    for (std::size_t i = 0; i < std::size(labels); ++i)
        EXPECT_EQ(rows[i][0].role, labels[i]) << i;
    EXPECT_EQ(rows[0][1].role, CellRole::Header);
    EXPECT_EQ(rows[0][2].role, CellRole::NumberHeader);
    EXPECT_EQ(rows[1][3].role, CellRole::Text); // blank
    EXPECT_EQ(rows[1][2].role, CellRole::Number);
    EXPECT_EQ(rows[7][8].role, CellRole::Number);
    EXPECT_EQ(rows[8][6].role, CellRole::TotalNumber);
    EXPECT_EQ(rows[8][7].role, CellRole::TotalNumber);
    EXPECT_EQ(rows[8][8].role, CellRole::TotalPerYear);
    EXPECT_EQ(rows[3][4].decimals, 0U); // years are whole
    EXPECT_EQ(rows[3][5].decimals, 2U);
    EXPECT_EQ(rows[10][2].decimals, 0U);
}

/// A cell holds six digits.
TEST(ShownDecimals, AreNoneThatTheCellDoesNotHold) {
    const struct {
        double number;
        unsigned most, shown;
    } cases[] = {{0, 2, 2},      {-1.5, 2, 2},     {0.001, 2, 2},    {9999.994, 2, 2}, {9999.996, 2, 1},
                 {-10000, 2, 1}, {99999.94, 2, 1}, {99999.96, 2, 0}, {1e6, 2, 0},      {12389000, 2, 0},
                 {50, 0, 0},     {1e308, 2, 0},    {5e-324, 2, 2},   {Infinite, 2, 2}};
    for (const auto& one : cases)
        EXPECT_EQ(lca::CountShownDecimals(one.number, one.most), one.shown) << one.number;
}

TEST(ResultSheet, APeriodOfZeroLeavesTheReplacementsBlank) {
    lca::LCAProjectData record = MakeRecord();
    record.consideredServiceLifeYears = 0;
    const std::vector<lca::SheetRow> rows =
        lca::BuildResultSheet(record, {1, 1, 1}, lca::ComputeResults(record, {1, 1, 1}), MakeTexts());
    EXPECT_EQ(Show(rows[2][5]), "-"); // 0 / 0
    EXPECT_EQ(Show(rows[3][5]), "-");
}

TEST(CellText, IsNeverAFormula) {
    EXPECT_EQ(lca::MakeCellText("=SUM(A1:A9)"), " =SUM(A1:A9)");
    EXPECT_EQ(lca::MakeCellText("a=b"), "a=b");
    EXPECT_EQ(lca::MakeCellText(""), "");
}

TEST(SheetName, HoldsWhatASheetNameCan) {
    const struct {
        std::string name;
        std::string sheetName;
    } cases[] = {{"Results: A/B?", "Results_ A_B_"},
                 {"*/:?[\\]", "_______"},
                 {"", ""},
                 {"Größe [m2] eines sehr langen Namens", "Größe _m2_ eines sehr langen Na"},
                 {std::string(31, 'x'), std::string(31, 'x')},
                 {std::string(32, 'x'), std::string(31, 'x')}};
    for (const auto& one : cases)
        EXPECT_EQ(lca::MakeSheetName(one.name), one.sheetName);
}

} // namespace
