// The material table: what is read, what is refused with which line and reason, and which row a name finds.
#include "workbench/app/MaterialTable.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace workbench;

const std::string Header = "applies_to;name;unit;gwp;service_life;density\n";
const std::string PhaseHeader = "applies_to;name;unit;A1-A3;C3;D\n";

MaterialTable Parsed(const std::string& text) {
    MaterialTable table;
    const Outcome failure = MaterialTable::Parse("t.csv", text, table);
    EXPECT_FALSE(failure) << failure->sentence;
    return table;
}

/// kind name|unit|plain GWP|phases|service life|density; "-" for none.
std::string Describe(const MaterialRow& row) {
    const auto number = [](double value) { return std::to_string(static_cast<long>(std::lround(value * 1000))); };
    std::string phases;
    for (const auto& [phase, value] : row.gwp.byPhase)
        phases += phase + ":" + number(value) + " ";
    return std::to_string(static_cast<int>(row.appliesTo)) + " " + row.name + "|" + row.unit + "|" +
           (row.gwp.plain ? number(*row.gwp.plain) : "-") + "|" + phases + "|" +
           (row.serviceLifeYears ? std::to_string(*row.serviceLifeYears) : "-") + "|" +
           (row.densityKgM3 ? number(*row.densityKgM3) : "-");
}

TEST(MaterialTable, ReadsGoodForms) {
    const struct {
        const char* what;
        std::string text;
        std::vector<std::string> rows; ///< numbers in thousandths
    } cases[] = {
        {"point", Header + "material;Beton;m3;241.5;60;2400\n", {"0 Beton|m3|241500||60|2400000"}},
        {"comma and plus", Header + "material;Beton;kg;+0,125;;0,5", {"0 Beton|kg|125||-|500"}},
        {"negative, zero", Header + "material;Holz;m2;-3;0;0\n", {"0 Holz|m2|-3000||0|0"}},
        {"door and window",
         Header + "door;D;piece;1;;\nwindow;W;m2;2;;\n",
         {"1 D|piece|1000||-|-", "2 W|m2|2000||-|-"}},
        {"byte order mark", "\xEF\xBB\xBF" + Header + "material;A;m3;1;;\n", {"0 A|m3|1000||-|-"}},
        {"CRLF and empty lines",
         "applies_to;name;unit;gwp\r\n\r\nmaterial;A;m3;1\r\n   \r\nmaterial;B;m3;2\r\n",
         {"0 A|m3|1000||-|-", "0 B|m3|2000||-|-"}},
        {"blanks around cells", "applies_to ; name;unit;gwp\n material;  A b ;m3 ;\t1\n", {"0 A b|m3|1000||-|-"}},
        {"columns in another order", "gwp;unit;name;applies_to\n1;m3;A;material\n", {"0 A|m3|1000||-|-"}},
        {"quotes",
         Header + "material;\"a;b \"\"c\"\"\";m3;1;;\nmaterial; \" d \" ;m3;1;;\nmaterial;12\" e;m3;1;;\n",
         {"0 a;b \"c\"|m3|1000||-|-", "0  d |m3|1000||-|-", "0 12\" e|m3|1000||-|-"}},
        {"not filled in", Header + "material;A;m3;;30;\n", {"0 A|m3|-||30|-"}},
        {"phases",
         PhaseHeader + "material;A;m3;1;-2,5;\nmaterial;B;kg;;;\n",
         {"0 A|m3|-|A1-A3:1000 C3:-2500 |-|-", "0 B|kg|-||-|-"}},
        {"header alone", "applies_to;name;unit;D", {}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        const MaterialTable table = Parsed(row.text);
        std::vector<std::string> found;
        for (const MaterialRow& one : table.GetRows())
            found.push_back(Describe(one));
        EXPECT_EQ(found, row.rows);
    }
}

TEST(MaterialTable, RefusesWithLineAndReason) {
    const std::string one = Header + "material;A;m3;1;;\n";
    const struct {
        const char* what;
        std::string text;
        const char* sentence; ///< begins so
    } cases[] = {
        {"empty", "", "t.csv:1: the table is empty"},
        {"empty lines", "\n \n", "t.csv:2: the table is empty"},
        {"unknown column", "applies_to;name;unit;gwp;colour\n", "t.csv:1: column \"colour\" is unknown"},
        {"another separator", "applies_to,name,unit,gwp\n", "t.csv:1: column \"applies_to,name,unit,gwp\" is unknown"},
        {"no name column", "applies_to;unit;gwp\n", "t.csv:1: column \"name\" is missing"},
        {"no unit column", "applies_to;name;gwp\n", "t.csv:1: column \"unit\" is missing"},
        {"double column", "applies_to;name;unit;gwp;name\n", "t.csv:1: column \"name\" occurs twice"},
        {"neither gwp nor phases", "applies_to;name;unit\n", "t.csv:1: the table needs either column \"gwp\""},
        {"gwp and phases", "applies_to;name;unit;gwp;D\n", "t.csv:1: the table needs either column \"gwp\""},
        {"no number", one + "material;B;m3;12a;;\n", "t.csv:3: gwp is \"12a\", which is no number"},
        {"grouped number", one + "material;B;m3;1.000,5;;\n", "t.csv:3: gwp is \"1.000,5\", which is no number"},
        {"infinite", one + "material;B;m3;inf;;\n", "t.csv:3: gwp is \"inf\", which is no number"},
        {"number of a phase", PhaseHeader + "material;B;m3;1;x;2\n", "t.csv:2: C3 is \"x\", which is no number"},
        {"kind", one + "roof;B;m3;1;;\n", "t.csv:3: applies_to is \"roof\""},
        {"unit of a material", one + "material;B;piece;1;;\n", "t.csv:3: the unit is \"piece\"; it is m3, m2 or kg"},
        {"unit of a door", one + "door;B;m3;1;;\n", "t.csv:3: the unit is \"m3\"; it is piece or m2"},
        {"no unit", one + "window;B;;1;;\n", "t.csv:3: the unit is \"\"; it is piece or m2"},
        {"no name", one + "material; ;m3;1;;\n", "t.csv:3: the name is empty"},
        {"Latin-1", one + "material;D\xE4mmung;m3;1;;\n", "t.csv:3: the text is not UTF-8"},
        {"NUL", one + std::string("material;B\0;m3;1;;\n", 19), "t.csv:3: the text is not UTF-8"},
        {"open quote", one + "material;\"B;m3;1;;\n", "t.csv:3: a quote is not closed"},
        {"cell too few", one + "material;B;m3;1;\n", "t.csv:3: the line has 5 cells, the first line has 6"},
        {"cell too many", one + "material;B;m3;1;;;\n", "t.csv:3: the line has 7 cells, the first line has 6"},
        {"negative density", one + "material;B;m3;1;;-1\n", "t.csv:3: density is \"-1\""},
        {"part of a year", one + "material;B;m3;1;2,5;\n", "t.csv:3: service_life is \"2,5\"; it is whole years"},
        {"negative life", one + "material;B;m3;1;-1;\n", "t.csv:3: service_life is \"-1\""},
        {"life past 32 bits", one + "material;B;m3;1;2147483648;\n", "t.csv:3: service_life is \"2147483648\""},
        {"after empty lines and CRLF", Header + "\r\n\r\nmaterial;B;m3;x;;\r\n", "t.csv:4: gwp is \"x\""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        MaterialTable table;
        const Outcome failure = MaterialTable::Parse("t.csv", row.text, table);
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->code, InputUnreadable);
        EXPECT_EQ(failure->sentence.substr(0, std::string(row.sentence).size()), row.sentence);
    }
}

TEST(MaterialTable, FindsExactNamesFirstThenPatterns) {
    const MaterialTable table = Parsed(Header + "material;*beton*;m3;1;;\n"
                                                "material;Leichtbeton;m3;;;\n" // not filled in
                                                "material;Stahlbeton 1;m3;2;;\n"
                                                "material;STAHLBETON 1;m3;3;;\n"
                                                "material;Dämmung*;m3;4;;\n"
                                                "material;ΞΎΛΟ;m3;5;;\n"
                                                "material;Бетон;m3;6;;\n"
                                                "material;a*c*;m3;7;;\n"
                                                "material;Größe;m3;8;;\n"
                                                "door;*;piece;9;;\n"
                                                "material;Žula Čedič;m3;10;;\n");
    const struct {
        const char* name;
        int gwp; ///< 0: none
        AppliesTo appliesTo = AppliesTo::Material;
    } cases[] = {{"stahlBETON 1", 2},
                 {"Stahlbeton 10", 1},
                 {"Leichtbeton", 1},
                 {"DÄMMUNG 12 cm", 4},
                 {"ξύλο", 5},
                 {"БЕТОН", 6},
                 {"бетонъ", 0},
                 {"GRÖßE", 8},
                 {"žULA čEDIČ", 10},
                 {"abbbc", 7},
                 {"ac", 7},
                 {"acd", 7},
                 {"bac", 0},
                 {"", 0},
                 {"Bet", 0},
                 {"Haustür", 9, AppliesTo::Door},
                 {"", 9, AppliesTo::Door},
                 {"Haustür", 0, AppliesTo::Window}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const MaterialRow* found = table.Find(row.appliesTo, row.name);
        ASSERT_EQ(found != nullptr, row.gwp != 0);
        EXPECT_EQ(found == nullptr ? 0 : found->gwp.plain.value(), row.gwp);
    }
}

TEST(MaterialTable, QuotedNamesComeBack) {
    for (const std::string name :
         {"plain", "a;b", "\"quoted\"", "12\" pipe", " blanks ", "semi;\"both\"", "*", "two\nlines"}) {
        const MaterialTable table = Parsed(Header + "material;" + QuoteCell(name) + ";m3;1;;\n");
        EXPECT_NE(table.Find(AppliesTo::Material, name), nullptr) << name;
    }
}

} // namespace
