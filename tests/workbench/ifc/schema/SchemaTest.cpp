// The tables of the schemas against the published definitions of single types, and against their source.
#include "workbench/ifc/schema/Schema.h"

#include "support/Answers.h"

using namespace workbench::schema;

namespace {

constexpr const Schema* Schemas[] = {&IFC2X3, &IFC4, &IFC4X3};

/// "IFC4 WORD" or "IFC4 WORD NAME".
struct Question {
    explicit Question(const std::string& input) {
        std::istringstream words(input);
        std::string name;
        words >> name >> first >> second;
        schema = ChooseSchema(name).schema;
    }
    const Schema* schema = nullptr;
    std::string first, second;
};

std::string Lineage(const std::string& input) {
    const Question question(input);
    const EntityType* type = question.schema->FindEntity(question.first);
    std::string text = !type ? "none" : type->isAbstract ? "abstract" : "";
    for (; type; type = type->supertype)
        text.append(text.empty() ? "" : " ").append(type->name);
    return text;
}

std::string Place(const std::string& input) {
    const Question question(input);
    const EntityType& type = *question.schema->FindEntity(question.first);
    const auto place = type.FindAttribute(question.second);
    if (!place) return "none of " + std::to_string(type.CountAttributes());
    const Attribute& attribute = *type.GetAttribute(*place);
    EXPECT_EQ(attribute.name, question.second);
    return std::to_string(*place) + (attribute.isOptional ? " optional " : " ") + std::string(attribute.type) +
           (attribute.target ? " to " + std::string(attribute.target->name) : "");
}

std::string IsValue(const std::string& input) {
    const Question question(input);
    return question.schema->IsValueOf(question.first, question.second) ? "yes" : "no";
}

std::string Choice(const std::string& written) {
    const SchemaChoice choice = ChooseSchema(written);
    return !choice.schema ? "none" : std::string(choice.schema->GetName()) + (choice.isApproximate ? " about" : "");
}

TEST(Schema, AnswersItsCases) {
    support::ExpectAnswers(
        "workbench/ifc/schema/expected/schema.txt",
        {{"[lineage]", Lineage}, {"[attributes]", Place}, {"[values]", IsValue}, {"[editions]", Choice}});
}

/// Every row of the source, read again by other means.
TEST(Schema, HoldsEveryRowOfItsSource) {
    for (const Schema* schema : Schemas) {
        std::istringstream rows(support::ContentOf(KELVARNIX_SOURCE_DIR "/hosts/workbench/ifc/schema/" +
                                                   std::string(schema->GetName()) + ".csv"));
        std::string name, abstract, supertype, own, derived;
        std::size_t count = 0;
        for (std::getline(rows, name); std::getline(rows, name, ';'); ++count) {
            std::getline(std::getline(std::getline(rows, abstract, ';'), supertype, ';'), own, ';');
            std::getline(rows, derived);
            const EntityType* type = schema->FindEntity(name);
            ASSERT_TRUE(type) << name;
            EXPECT_EQ(type->isAbstract, abstract == "1") << name;
            EXPECT_EQ(type->supertype ? type->supertype->name : "", supertype) << name;
            EXPECT_EQ(type->inheritedCount, type->supertype ? type->supertype->CountAttributes() : 0) << name;
            std::string written;
            for (const Attribute& attribute : type->ownAttributes)
                written.append(written.empty() ? "" : " | ")
                    .append(attribute.name)
                    .append(attribute.isOptional ? "?=" : "=")
                    .append(attribute.type);
            EXPECT_EQ(written, own) << name;
        }
        EXPECT_EQ(schema->GetEntities().size(), count);
    }
}

} // namespace
