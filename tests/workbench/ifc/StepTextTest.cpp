// The text of a file before the library sees it: strings, headers, damage.
#include "workbench/ifc/StepText.h"

#include <gtest/gtest.h>

#include "IfcText.h"
#include "workbench/ifc/StepString.h"

using namespace workbench::ifc;

namespace {

struct StringCase {
    const char* name;
    std::string_view coded;
    std::string_view decoded;
};

// Expected letters by ISO 10303-21, 6.4.3, and the ISO 8859 tables.
const StringCase StringCases[] = {
    {"empty", "", ""},
    {"plain", "Wand-01", "Wand-01"},
    {"apostrophe", "it''s", "it's"},
    {"backslash", "C:\\\\IFC", "C:\\IFC"},
    {"one unit", "W\\X2\\00FC\\X0\\nde", "Wünde"},
    {"several units", "\\X2\\00C400D600DC\\X0\\", "ÄÖÜ"},
    {"surrogate pair", "\\X2\\D83DDE00\\X0\\", "\U0001F600"},
    {"lone surrogate", "\\X2\\D83D\\X0\\x", "\uFFFDx"},
    {"four bytes", "\\X4\\0001F600\\X0\\", "\U0001F600"},
    {"beyond Unicode", "\\X4\\00110000\\X0\\", "\uFFFD"},
    {"Latin byte", "stra\\X\\DFe", "straße"},
    {"shift", "\\S\\|ber", "über"},
    {"shift in Greek", "\\PG\\\\S\\a", "α"},
    {"shift in Cyrillic", "\\PE\\\\S\\P", "а"},
    {"raw UTF-8", "Geländer", "Geländer"},
    {"raw Latin-1", "Gel\xE4nder", "Geländer"},
    {"quote by escape", "a\\X\\27b", "a'b"},
    {"unended escape", "\\X2\\00FC", "\\X2\\00FC"},
    {"odd digits", "\\X2\\00F\\X0\\", "\\X2\\00F\\X0\\"},
    {"no hexadecimal", "\\X\\G0", "\\X\\G0"},
    {"escape at the end", "a\\S\\", "a\\S\\"},
};

TEST(StepString, Decodes) {
    for (const StringCase& row : StringCases)
        EXPECT_EQ(DecodeStepString(row.coded), row.decoded) << row.name;
}

struct HeaderCase {
    const char* name;
    std::string start;
    ImportError code;
    const char* what;
};

std::string Header(const std::string& schema) {
    return "ISO-10303-21;\nHEADER;FILE_SCHEMA(('" + schema + "'));\nENDSEC;\nDATA;\n";
}

const HeaderCase HeaderCases[] = {
    {"2x3", Header("IFC2X3"), ImportError::None, "IFC2X3"},
    {"2x3 with correction", Header("IFC2X3_TC1"), ImportError::None, "IFC2X3"},
    {"4", Header("IFC4"), ImportError::None, "IFC4"},
    {"small letters", Header("ifc4"), ImportError::None, "IFC4"},
    {"4 with addendum", Header("IFC4_ADD2"), ImportError::None, "IFC4"},
    {"byte order mark", "\xEF\xBB\xBF" + Header("IFC4"), ImportError::None, "IFC4"},
    {"comments",
     "ISO-10303-21; /* a; */ HEADER; /* FILE_SCHEMA(('IFC9')); */ FILE_SCHEMA ( ( 'IFC4' ) ) ; ENDSEC; DATA;",
     ImportError::None, "IFC4"},
    {"schema in a string",
     "ISO-10303-21;HEADER;FILE_NAME('FILE_SCHEMA((''IFC9''));');FILE_SCHEMA(('IFC4'));ENDSEC;DATA;", ImportError::None,
     "IFC4"},
    {"4x3", Header("IFC4X3_ADD2"), ImportError::UnsupportedSchema, "is of the schema IFC4X3_ADD2"},
    {"2x2", Header("IFC2X2_FINAL"), ImportError::UnsupportedSchema, "is of the schema IFC2X2_FINAL"},
    {"other field", Header("AUTOMOTIVE_DESIGN"), ImportError::UnsupportedSchema, "is of the schema AUTOMOTIVE_DESIGN"},
    {"no schema", "ISO-10303-21;HEADER;ENDSEC;DATA;", ImportError::UnsupportedSchema, "does not say its schema"},
    {"empty", "", ImportError::NotIfc, "is empty"},
    {"blanks", " \r\n\t", ImportError::NotIfc, "is empty"},
    {"text", "Dear Sir", ImportError::NotIfc, "is no IFC file"},
    {"archive", "PK\x03\x04", ImportError::NotIfc, "is a compressed archive"},
    {"XML", "<?xml version='1.0'?>", ImportError::NotIfc, "is an XML file"},
    {"binary", std::string("\x7F\x45\0\1", 4), ImportError::NotIfc, "is no IFC file but binary data"},
    {"cut in the header", "ISO-10303-21;\nHEADER;\nFILE_SCHEMA(('IF", ImportError::Damaged, "is cut off in line 3"},
    {"noise in the header", "ISO-10303-21;\nHEADER;\n\x01\x02", ImportError::Damaged, "is damaged in line 3"},
};

TEST(StepText, ReadsTheHeader) {
    for (const HeaderCase& row : HeaderCases) {
        StepProblem problem;
        const auto header = ReadStepHeader(row.start, problem);
        EXPECT_EQ(header.has_value(), row.code == ImportError::None) << row.name;
        if (header) {
            EXPECT_EQ(header->schema, row.what) << row.name;
        } else {
            EXPECT_EQ(problem.code, row.code) << row.name;
            EXPECT_EQ(problem.what, row.what) << row.name;
            EXPECT_FALSE(problem.advice.empty()) << row.name;
        }
    }
}

TEST(StepText, TakesStringsAndCommentsOutOfTheWay) {
    StepProblem problem;
    const auto step = PrepareStep(ifctest::File("IFC4", "#1 = /* no; */ IFCMATERIAL ( 'a;b(' , $,\n $ ) ;\n"
                                                        "#2=IFCMATERIAL('~0',$,$);#3=IFCMATERIAL('Wand 1',$,$);\n"),
                                  problem);
    ASSERT_TRUE(step) << problem.what;
    EXPECT_NE(
        step->text.find("\n#1=IFCMATERIAL('~0',$,$);\n#2=IFCMATERIAL('~1',$,$);\n#3=IFCMATERIAL('Wand 1',$,$);\n"),
        std::string::npos)
        << step->text;
    ASSERT_EQ(step->strings.size(), 2U);
    EXPECT_EQ(step->strings[0], "a;b(");
    EXPECT_EQ(step->strings[1], "~0");
    EXPECT_EQ(step->keywords.at("IFCMATERIAL"), 3);
}

struct DamageCase {
    const char* name;
    const char* line; ///< in place of line 8
    const char* what;
};

const DamageCase DamageCases[] = {
    {"words", "lorem ipsum;", "is damaged in line 8"},
    {"no number", "#=IFCWALL();", "is damaged in line 8"},
    {"number too large", "#99999999999=IFCWALL();", "is damaged in line 8"},
    {"other language", "#1=PRODUCT('a');", "is damaged in line 8"},
    {"too many closed", "#1=IFCWALL());", "is damaged in line 8"},
    {"closed before opened", "#1=IFCWALL())((1);", "is damaged in line 8"},
    {"not closed", "#1=IFCWALL((;", "is damaged in line 8"},
    {"too deep", "#1=IFCWALL((((((((((((((((((((((((((((((((((((((((1))))))))))))))))))))))))))))))))))))))));",
     "is damaged in line 8"},
    {"control character", "#1=IFCWALL(\x02);", "is damaged in line 8"},
    {"string without end", "#1=IFCWALL('a);", "is cut off in line 8"},
    {"comment without end", "/* #1=IFCWALL();", "is cut off in line 8"},
};

TEST(StepText, RefusesDamage) {
    for (const DamageCase& row : DamageCases) {
        StepProblem problem;
        EXPECT_FALSE(PrepareStep(ifctest::File("IFC4", std::string(row.line) + "\n"), problem)) << row.name;
        EXPECT_EQ(problem.code, ImportError::Damaged) << row.name;
        EXPECT_EQ(problem.what, row.what) << row.name;
    }
}

TEST(StepText, RefusesEveryTruncation) {
    const std::string whole =
        ifctest::File("IFC4", ifctest::MetricProject() + "#10=IFCMATERIAL('it''s\\X2\\00FC\\X0\\',$,$);\n");
    const std::size_t needed = whole.rfind("ENDSEC;") + 7;
    StepProblem problem;
    for (std::size_t length = 0; length < needed; ++length) {
        ASSERT_FALSE(PrepareStep(whole.substr(0, length), problem)) << length;
        ASSERT_FALSE(problem.what.empty()) << length;
    }
    EXPECT_TRUE(PrepareStep(whole.substr(0, needed), problem)) << "nothing is missing but the end mark";
}

} // namespace
