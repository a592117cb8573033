// Settings trees as JSON and XML: what is written reads back, other readers agree, and bad texts are refused.
#include "workbench/trees/TreeJson.h"
#include "workbench/trees/TreeXml.h"

#include "support/Answers.h"
#include "support/TestFolder.h"
#include "support/TreeText.h"

#include <nlohmann/json.hpp>

#include <cmath>

namespace {

using host::ErrorCode;
using host::ObjectState;
using test::Item;
using test::WriteTree;
namespace Errors = host::Errors;

using Reading = ErrorCode (*)(const std::string&, ObjectState&);
using Writing = ErrorCode (*)(const ObjectState&, std::string&);

/// The tree that is read; a refused text leaves what was there.
template <Reading Read>
std::string ReadAs(const std::string& text) {
    ObjectState tree = Item("before", true);
    const ErrorCode error = Read(text, tree);
    if (error == host::NoError) return WriteTree(tree);
    EXPECT_EQ(WriteTree(tree), "before=b:1 ");
    return error == Errors::BadValue ? "bad value" : host::WriteErrorCode(error);
}

std::string Write(Writing write, const ObjectState& tree, ErrorCode expected = host::NoError) {
    std::string text;
    EXPECT_EQ(write(tree, text), expected);
    return text;
}

void ExpectBack(const ObjectState& tree) {
    EXPECT_EQ(ReadAs<workbench::ReadTreeXml>(Write(workbench::WriteTreeXml, tree)), WriteTree(tree));
    EXPECT_EQ(ReadAs<workbench::ReadTreeJson>(Write(workbench::WriteTreeJson, tree)), WriteTree(tree));
}

TEST(TreeForms, WrittenAsReviewedAndReadBack) {
    const std::string folder = "workbench/trees/expected/";
    ObjectState tree;
    ASSERT_EQ(workbench::ReadTreeXml(support::ApprovedText(folder + "tree.xml"), tree), host::NoError);
    support::ExpectApproved(folder + "tree.txt", WriteTree(tree) + "\n");
    support::ExpectApproved(folder + "tree.xml", Write(workbench::WriteTreeXml, tree));
    const std::string json = Write(workbench::WriteTreeJson, tree);
    support::ExpectApproved(folder + "tree.json", json);
    EXPECT_EQ(nlohmann::json::parse(json)["text"], " <a> & \"b\"\t'Größe'\r\n]]> 🏠 "); // another reader
    ExpectBack(tree);
    support::ExpectAnswers(folder + "texts.txt",
                           {{"[json]", ReadAs<workbench::ReadTreeJson>}, {"[xml]", ReadAs<workbench::ReadTreeXml>}});
}

TEST(TreeForms, WhatAFormCannotHoldIsRefused) {
    for (const Writing write : {workbench::WriteTreeJson, workbench::WriteTreeXml})
        for (const ObjectState& tree : {Item("r", std::nan("")), Item("r", HUGE_VAL), Item("t", std::string("\xC3"))})
            Write(write, tree, Errors::BadValue);
    Write(workbench::WriteTreeJson, Item("\xFF", true), Errors::BadValue);
    for (const std::string& text : {std::string("\x01"), std::string("\xEF\xBF\xBF"), std::string(1, '\0')})
        Write(workbench::WriteTreeXml, Item("t", text), Errors::BadValue);
    for (const char* name : {"", "1a", "a b", "a<", "-a", "ä", "a:"})
        Write(workbench::WriteTreeXml, Item(name, true), Errors::BadName);
    for (const char* name : {"_", "Az", "zA09-.", "a_Z"})
        ExpectBack(Item(name, true));
}

TEST(TreeForms, DeepTreesAreNoDanger) {
    constexpr std::size_t Levels = 100000;
    std::string json = "{\"a\":", end = "}", xml = "<root>", ends;
    for (std::size_t level = 0; level < Levels; ++level) {
        json += level % 2 == 0 ? "[" : "{\"a\":";
        end += level % 2 == 0 ? "}" : "]";
        xml += "<a>";
        ends += "</a>";
    }
    ObjectState tree;
    ASSERT_EQ(workbench::ReadTreeJson(json + "1" + end.substr(1) + "}", tree), host::NoError);
    ExpectBack(tree);
    ASSERT_EQ(workbench::ReadTreeXml(xml + ends + "</root>", tree), host::NoError);
    ExpectBack(tree);
}

} // namespace
