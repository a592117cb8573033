// Settings trees: building, copying and walking them, and the copy that puts preset values in place of chosen fields.
#include "General/ObjectStateProcessor.h"

#include <gtest/gtest.h>

#include "support/TreeText.h"

#include <limits>

namespace {

using Extensions::Utilities::ObjectStateProcessor;
using host::ObjectState;
using test::Item;
using test::WriteTree;
using List = ObjectState::List;

ObjectState Tree(const std::vector<std::pair<std::string, ObjectState::Value>>& fields) {
    ObjectState tree;
    for (const auto& [name, value] : fields)
        tree.Add(name, value);
    return tree;
}

ObjectState::Value Text(const char* text) {
    return std::string(text);
}

ObjectState DataSet(bool isExported, const char* level) {
    return Tree({{"enableExport", isExported}, {"levelOfDetail", Text(level)}});
}

/// Every kind of value, in objects, in a list, in a list inside a list, empty containers, names that repeat.
ObjectState EveryKind() {
    const ObjectState inner = Tree({{"flag", true}, {"", Text("no name")}});
    return Tree({{"negative", std::numeric_limits<std::int64_t>::min()},
                 {"largest", std::numeric_limits<std::uint64_t>::max()},
                 {"real", 0.1},
                 {"text", Text("Größe")},
                 {"text", Text("again")},
                 {"empty", ObjectState()},
                 {"none", List()},
                 {"inner", inner},
                 {"list", List{Item("n", std::int64_t{1}), Item("list_value", inner), Item("n", std::int64_t{2}),
                               Item("deeper", List{Item("n", 2.5), Item("o", ObjectState())})}}});
}

constexpr char EveryKindText[] = "negative=i:-9223372036854775808 largest=u:18446744073709551615 "
                                 "real=r:0.10000000000000001 text='Größe' text='again' empty{ } none[ ] "
                                 "inner{ flag=b:1 ='no name' } list[ n=i:1 list_value{ flag=b:1 ='no name' } n=i:2 "
                                 "deeper[ n=r:2.5 o{ } ] ] ";

TEST(ObjectState, CopiesAreTheirOwnAndItemsOfAListHaveOneField) {
    const ObjectState tree = EveryKind();
    ObjectState copy = tree;
    copy.Add("list", List{ObjectState(), DataSet(true, "Yearly"), Item("last", false), ObjectState()});
    EXPECT_EQ(WriteTree(tree), EveryKindText);
    EXPECT_EQ(WriteTree(copy),
              EveryKindText + std::string("list[ enableExport=b:1 levelOfDetail='Yearly' last=b:0 ] "));
    EXPECT_EQ(std::get<std::string>(*tree.Find("text")), "Größe");
    EXPECT_EQ(tree.Find("flag"), nullptr);
}

struct Preset {
    const char* container;
    const char* field;
    ObjectState::Value value;
};

std::string Process(const ObjectState& tree, const std::vector<Preset>& presets) {
    ObjectStateProcessor processor;
    for (const auto& [container, field, value] : presets)
        processor.AddOverride(container, field, value);
    tree.Enumerate(processor);
    return WriteTree(processor.TakeResult());
}

TEST(ObjectStateProcessor, PutsPresetValuesInPlace) {
    const ObjectState innermost = Item("f", Text("-"));
    const struct {
        std::vector<Preset> presets;
        ObjectState tree;
        std::string expected;
    } cases[] = {
        {{{"nowhere", "text", Text("never")}}, EveryKind(), EveryKindText},
        // Inside their container only, however deep; of two the first; a text is no flag.
        {{{"xlsValues", "enableExport", true}, {"xlsValues", "enableExport", false}},
         Tree({{"enableExport", false},
               {"xlsValues", DataSet(false, "Monthly")},
               {"other", DataSet(false, "Monthly")},
               {"xlsValues", Item("deep", Item("deeper", DataSet(false, "Hourly")))},
               {"xlsValues", List{Item("enableExport", false), Item("enableExport", Text("no"))}}}),
         "enableExport=b:0 xlsValues{ enableExport=b:1 levelOfDetail='Monthly' } "
         "other{ enableExport=b:0 levelOfDetail='Monthly' } "
         "xlsValues{ deep{ deeper{ enableExport=b:1 levelOfDetail='Hourly' } } } "
         "xlsValues[ enableExport=b:1 enableExport='no' ] "},
        // Every kind has its own values.
        {{{"o", "f", std::int64_t{-5}}, {"o", "f", std::uint64_t{5}}, {"o", "f", Item("made", true)}},
         Item("o", Tree({{"f", std::uint64_t{1}}, {"f", EveryKind()}, {"f", List{}}, {"f", std::int64_t{1}}})),
         "o{ f=u:5 f{ made=b:1 } f[ ] f=i:-5 } "},
        // The innermost container decides. It is none of itself: its own override is looked for in those around it.
        {{{"outer", "f", Text("outer")}, {"inner", "f", Text("inner")}, {"o", "o", Item("made", true)}},
         Tree({{"outer", Tree({{"inner", innermost}, {"f", Text("-")}})},
               {"inner", Item("outer", innermost)},
               {"f", Text("-")},
               {"o", Item("o", EveryKind())}}),
         "outer{ inner{ f='inner' } f='outer' } inner{ outer{ f='outer' } } f='-' o{ o{ made=b:1 } } "}};
    for (const auto& [presets, tree, expected] : cases)
        EXPECT_EQ(Process(tree, presets), expected);
}

TEST(ObjectStateProcessor, DepthCostsNeitherStackNorSquareTime) {
    constexpr int Levels = 100000;
    ObjectState::Builder builder;
    for (int level = 0; level < Levels; ++level) {
        level % 2 == 0 ? builder.Open("xlsValues") : builder.OpenList("xlsValues");
        builder.Add("enableExport", false);
    }
    while (builder.HasOpen())
        builder.Add("xlsValues", builder.Close());
    const std::string text =
        Process(builder.Take(), {{"xlsValues", "enableExport", true}, {"other", "enableExport", false}});
    EXPECT_EQ(text.find("=b:0"), std::string::npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '1'), Levels);
}

} // namespace
