// Settings trees as JSON and XML: what is written reads back, other readers agree, and bad texts are refused.
#include "workbench/trees/TreeJson.h"
#include "workbench/trees/TreeXml.h"

#include <gtest/gtest.h>

#include "support/TreeText.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>

namespace {

using host::ErrorCode;
using host::ObjectState;
using test::Item;
using test::WriteTree;
namespace Errors = host::Errors;

ObjectState Sample() {
    ObjectState pair;
    pair.Add("source", std::string("Electricity"));
    pair.Add("carbonFootprint", 0.061);
    ObjectState tree;
    tree.Add("flag", false);
    tree.Add("negative", std::numeric_limits<std::int64_t>::min());
    tree.Add("largest", std::numeric_limits<std::uint64_t>::max());
    tree.Add("whole", 3.0);
    tree.Add("tiny", 5e-324);
    tree.Add("text", std::string(" <a> & \"b\"\t'Größe'\r\n]]> 🏠 "));
    tree.Add("blank", std::string("  "));
    tree.Add("nothing", std::string());
    tree.Add("empty", ObjectState());
    tree.Add("none", ObjectState::List());
    tree.Add("dataArray", ObjectState::List{Item("list_value", pair), Item("list_value", std::int64_t{7}),
                                            Item("named", true), Item("inner", ObjectState::List{Item("n", 1.5)})});
    return tree;
}

std::string Xml(const ObjectState& tree, ErrorCode expected = host::NoError) {
    std::string text;
    EXPECT_EQ(workbench::WriteTreeXml(tree, text), expected);
    return text;
}

std::string Json(const ObjectState& tree, ErrorCode expected = host::NoError) {
    std::string text;
    EXPECT_EQ(workbench::WriteTreeJson(tree, text), expected);
    return text;
}

TEST(TreeForms, WhatIsWrittenReadsBack) {
    const std::string before = WriteTree(Sample());
    ObjectState fromXml, fromJson;
    ASSERT_EQ(workbench::ReadTreeXml(Xml(Sample()), fromXml), host::NoError) << Xml(Sample());
    EXPECT_EQ(WriteTree(fromXml), before);
    ASSERT_EQ(workbench::ReadTreeJson(Json(Sample()), fromJson), host::NoError) << Json(Sample());
    EXPECT_EQ(WriteTree(fromJson), before);
    EXPECT_EQ(Xml(fromJson), Xml(Sample()));
    EXPECT_EQ(Json(ObjectState()), "{\n}\n");
}

TEST(TreeForms, AnotherJsonReaderFindsTheSame) {
    const auto json = nlohmann::json::parse(Json(Sample()));
    EXPECT_EQ(json["flag"], false);
    EXPECT_EQ(json["largest"], std::numeric_limits<std::uint64_t>::max());
    EXPECT_TRUE(json["whole"].is_number_float());
    EXPECT_EQ(json["text"], " <a> & \"b\"\t'Größe'\r\n]]> 🏠 ");
    EXPECT_EQ(json["dataArray"][0]["list_value"]["source"], "Electricity");
    EXPECT_EQ(json["dataArray"][3]["inner"][0]["n"], 1.5);
    EXPECT_EQ(json["none"], nlohmann::json::array());
}

TEST(TreeForms, DocumentsWithoutTypesAreTexts) {
    ObjectState tree;
    ASSERT_EQ(workbench::ReadTreeXml("<root a='1'><!-- c --><one>1</one>mixed<o><x>2</x><x/></o>"
                                     "<l>\n <list_value><s>E</s></list_value><list_value>3</list_value></l></root>",
                                     tree),
              host::NoError);
    EXPECT_EQ(WriteTree(tree), "one='1' o{ x='2' x='' } l[ list_value{ s='E' } list_value='3' ] ");
}

TEST(TreeForms, ForeignJsonGetsNames) {
    ObjectState tree;
    ASSERT_EQ(workbench::ReadTreeJson(R"({"a":[1,"x",{},{"n":2},{"n":2,"m":3},[4]],"b":{"a":-1}})", tree),
              host::NoError);
    EXPECT_EQ(WriteTree(tree), "a[ list_value=i:1 list_value='x' list_value{ } n=i:2 list_value{ n=i:2 m=i:3 } "
                               "list_value[ list_value=i:4 ] ] b{ a=i:-1 } ");
}

TEST(TreeForms, WhatAFormCannotHoldIsRefused) {
    for (const double value : {std::nan(""), HUGE_VAL}) {
        Json(Item("r", value), Errors::BadValue);
        Xml(Item("r", value), Errors::BadValue);
    }
    Json(Item("t", std::string("\xC3")), Errors::BadValue);
    Json(Item("\xFF", true), Errors::BadValue);
    for (const char* text : {"\xC3", "\x01", "\xEF\xBF\xBF"})
        Xml(Item("t", std::string(text)), Errors::BadValue);
    Xml(Item("t", std::string(1, '\0')), Errors::BadValue);
    for (const char* name : {"", "1a", "a b", "a<", "-a", "ä"})
        Xml(Item(name, true), Errors::BadName);
}

TEST(TreeForms, BadTextsAreRefusedAndLeaveTheTree) {
    ObjectState tree = Item("before", true);
    for (const char* text : {"", "1", "[1]", "[{}]", "{", "{}}", "{}{}", R"({"a":null})", R"({"a":1e999})", R"({"a":)",
                             R"({"a":[})", "{\"a\":\"\xFF\"}", R"({"a" 1})"})
        EXPECT_EQ(workbench::ReadTreeJson(text, tree), Errors::BadValue) << text;
    for (const char* text :
         {"", "text", "<root>", "<root><a type='integer'>1.5</a></root>", "<root><a type='integer'/></root>",
          "<root><a type='real'>nan</a></root>", "<root><a type='real'>1e999</a></root>",
          "<root><a type='unsigned'>-1</a></root>", "<root><a type='boolean'>1</a></root>",
          "<root><a type='date'>1</a></root>", "<root><a type='integer'>9223372036854775808</a></root>"})
        EXPECT_EQ(workbench::ReadTreeXml(text, tree), Errors::BadValue) << text;
    EXPECT_EQ(WriteTree(tree), "before=b:1 ");
}

TEST(TreeForms, DeepTreesAreNoDanger) {
    constexpr std::size_t Levels = 100000;
    std::string json = "{\"a\":", xml = "<root>";
    for (std::size_t level = 0; level < Levels; ++level) {
        json += level % 2 == 0 ? "[" : "{\"a\":";
        xml += "<a>";
    }
    json += "1";
    for (std::size_t level = Levels; level-- > 0;) {
        json += level % 2 == 0 ? "]" : "}";
        xml += "</a>";
    }
    ObjectState fromJson, fromXml, again;
    ASSERT_EQ(workbench::ReadTreeJson(json + "}", fromJson), host::NoError);
    ASSERT_EQ(workbench::ReadTreeXml(xml + "</root>", fromXml), host::NoError);
    for (const ObjectState* tree : {&fromJson, &fromXml}) {
        ASSERT_EQ(workbench::ReadTreeJson(Json(*tree), again), host::NoError);
        EXPECT_EQ(WriteTree(again), WriteTree(*tree));
        ASSERT_EQ(workbench::ReadTreeXml(Xml(*tree), again), host::NoError);
        EXPECT_EQ(WriteTree(again), WriteTree(*tree));
    }
}

} // namespace
