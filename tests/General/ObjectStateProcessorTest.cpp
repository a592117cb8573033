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

std::string Text(const char* text) {
    return text;
}

ObjectState DataSet(bool isExported, const char* level) {
    ObjectState set;
    set.Add("enableExport", isExported);
    set.Add("levelOfDetail", Text(level));
    return set;
}

/// Every kind of value, in objects, in a list, in a list inside a list, empty containers, names that repeat.
ObjectState EveryKind() {
    ObjectState inner;
    inner.Add("flag", true);
    inner.Add("", Text("no name"));
    ObjectState tree;
    tree.Add("negative", std::numeric_limits<std::int64_t>::min());
    tree.Add("largest", std::numeric_limits<std::uint64_t>::max());
    tree.Add("real", 0.1);
    tree.Add("text", Text("Größe"));
    tree.Add("text", Text("again"));
    tree.Add("empty", ObjectState());
    tree.Add("none", ObjectState::List());
    tree.Add("inner", inner);
    tree.Add("list",
             ObjectState::List{Item("n", std::int64_t{1}), Item("list_value", inner), Item("n", std::int64_t{2}),
                               Item("deeper", ObjectState::List{Item("n", 2.5), Item("o", ObjectState())})});
    return tree;
}

constexpr char EveryKindText[] = "negative=i:-9223372036854775808 largest=u:18446744073709551615 "
                                 "real=r:0.10000000000000001 text='Größe' text='again' empty{ } none[ ] "
                                 "inner{ flag=b:1 ='no name' } list[ n=i:1 list_value{ flag=b:1 ='no name' } n=i:2 "
                                 "deeper[ n=r:2.5 o{ } ] ] ";

std::string Process(const ObjectState& tree, ObjectStateProcessor& processor) {
    tree.Enumerate(processor);
    return WriteTree(processor.TakeResult());
}

TEST(ObjectState, WalksWhatWasAddedInOrder) {
    const ObjectState tree = EveryKind();
    EXPECT_EQ(WriteTree(tree), EveryKindText);
    ObjectState copy = tree;
    EXPECT_EQ(WriteTree(copy), EveryKindText);
    copy.Add("more", true);
    EXPECT_EQ(WriteTree(tree), EveryKindText);
    copy = ObjectState();
    EXPECT_TRUE(copy.IsEmpty());
    EXPECT_EQ(std::get<std::string>(*tree.Find("text")), "Größe");
    EXPECT_EQ(tree.Find("flag"), nullptr);
}

TEST(ObjectState, ItemsOfAListHaveOneField) {
    ObjectState pair = DataSet(true, "Yearly");
    pair.Add("third", 1.0);
    ObjectState tree;
    tree.Add("list", ObjectState::List{ObjectState(), pair, Item("last", false), ObjectState()});
    EXPECT_EQ(WriteTree(tree), "list[ enableExport=b:1 levelOfDetail='Yearly' third=r:1 last=b:0 ] ");
    EXPECT_EQ(std::get<ObjectState::List>(*tree.Find("list")).size(), 4U);
}

TEST(ObjectStateProcessor, WithoutOverridesTheCopyIsTheTree) {
    ObjectStateProcessor processor;
    EXPECT_EQ(Process(EveryKind(), processor), EveryKindText);
    ObjectStateProcessor unused;
    unused.AddOverride("nowhere", "text", Text("never"));
    EXPECT_EQ(Process(EveryKind(), unused), EveryKindText);
}

TEST(ObjectStateProcessor, OverridesCountInsideTheirContainerOnly) {
    ObjectState outer;
    outer.Add("enableExport", false);
    outer.Add("xlsValues", DataSet(false, "Monthly"));
    outer.Add("other", DataSet(false, "Monthly"));
    ObjectState nested;
    nested.Add("deep", Item("deeper", DataSet(false, "Hourly")));
    outer.Add("xlsValues", nested);
    outer.Add("xlsValues", ObjectState::List{Item("enableExport", false), Item("enableExport", Text("no"))});
    ObjectStateProcessor processor;
    processor.AddOverride("xlsValues", "enableExport", true);
    processor.AddOverride("xlsValues", "enableExport", false); // the first one stays
    EXPECT_EQ(Process(outer, processor),
              "enableExport=b:0 xlsValues{ enableExport=b:1 levelOfDetail='Monthly' } "
              "other{ enableExport=b:0 levelOfDetail='Monthly' } "
              "xlsValues{ deep{ deeper{ enableExport=b:1 levelOfDetail='Hourly' } } } "
              "xlsValues[ enableExport=b:1 enableExport='no' ] "); // a text is no flag
}

TEST(ObjectStateProcessor, EveryKindHasItsOwnValues) {
    ObjectStateProcessor processor;
    processor.AddOverride("o", "f", true);
    processor.AddOverride("o", "f", std::int64_t{-5});
    processor.AddOverride("o", "f", std::uint64_t{5});
    processor.AddOverride("o", "f", 0.5);
    processor.AddOverride("o", "f", Text("t"));
    processor.AddOverride("o", "f", Item("made", true));
    processor.AddOverride("o", "f", ObjectState::List{Item("made", false)});
    ObjectState fields;
    fields.Add("f", false);
    fields.Add("f", std::int64_t{1});
    fields.Add("f", std::uint64_t{1});
    fields.Add("f", 1.0);
    fields.Add("f", Text("x"));
    fields.Add("f", EveryKind());
    fields.Add("f", ObjectState::List{});
    EXPECT_EQ(Process(Item("o", fields), processor),
              "o{ f=b:1 f=i:-5 f=u:5 f=r:0.5 f='t' f{ made=b:1 } f[ made=b:0 ] } ");
}

TEST(ObjectStateProcessor, TheInnermostContainerDecides) {
    ObjectStateProcessor processor;
    processor.AddOverride("outer", "f", Text("outer"));
    processor.AddOverride("inner", "f", Text("inner"));
    ObjectState innermost = Item("f", Text("-"));
    ObjectState inner = Item("inner", innermost);
    inner.Add("f", Text("-"));
    ObjectState tree = Item("outer", inner);
    tree.Add("inner", Item("outer", innermost));
    tree.Add("f", Text("-"));
    EXPECT_EQ(Process(tree, processor), "outer{ inner{ f='inner' } f='outer' } inner{ outer{ f='outer' } } f='-' ");
}

/// A container is no container of itself: its own override is looked for in those around it.
TEST(ObjectStateProcessor, AFinishedObjectIsReplacedByThoseAroundIt) {
    ObjectStateProcessor processor;
    processor.AddOverride("o", "o", Item("made", true));
    EXPECT_EQ(Process(Item("o", Item("o", EveryKind())), processor), "o{ o{ made=b:1 } } ");
}

TEST(ObjectStateProcessor, DepthCostsNeitherStackNorSquareTime) {
    constexpr int Levels = 100000;
    ObjectState::Builder builder;
    for (int level = 0; level < Levels; ++level) {
        if (level % 2 == 0)
            builder.Open("xlsValues");
        else
            builder.OpenList("xlsValues");
        builder.Add("enableExport", false);
    }
    while (builder.HasOpen())
        builder.Add("xlsValues", builder.Close());
    const ObjectState tree = builder.Take();
    ObjectStateProcessor processor;
    processor.AddOverride("xlsValues", "enableExport", true);
    processor.AddOverride("other", "enableExport", false);
    tree.Enumerate(processor);
    const ObjectState result = processor.TakeResult();
    const std::string text = WriteTree(ObjectState(result));
    EXPECT_EQ(text.find("=b:0"), std::string::npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '1'), Levels);
}

} // namespace
