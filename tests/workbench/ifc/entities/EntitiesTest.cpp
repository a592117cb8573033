// Entities of entities/model.ifc by number, type and attribute, and the way back to those that refer to them.
#include "workbench/ifc/entities/Model.h"

#include "support/Answers.h"

using namespace workbench;
using entities::Entity;

namespace {

class Entities : public testing::Test {
protected:
    static entities::Model Read() {
        step::Problem problem;
        auto file = step::StepFile::Read(support::ApprovedText("workbench/ifc/entities/model.ifc"), {}, problem);
        if (!file) throw std::runtime_error(problem.what);
        return {std::move(*file), schema::IFC4};
    }

    /// "30 Name": the entity and the word behind it.
    [[nodiscard]] Entity Ask(const std::string& input, std::string& word, std::string& second) const {
        std::istringstream words(input);
        step::EntityNumber number = 0;
        words >> number >> word >> second;
        return model.Find(number);
    }

    [[nodiscard]] support::Answer Of(std::string (*tell)(const entities::Model&, const Entity&, const std::string&,
                                                         const std::string&)) const {
        return [this, tell](const std::string& input) {
            std::string word, second;
            const Entity entity = Ask(input, word, second);
            return tell(model, entity, word, second);
        };
    }

    static std::string Numbers(const std::vector<Entity>& found) {
        std::string text;
        for (const Entity& entity : found)
            text.append(text.empty() ? "#" : " #").append(std::to_string(entity.GetNumber()));
        return text;
    }

    const entities::Model model = Read();
};

TEST_F(Entities, AnswerTheirCases) {
    using entities::Model;
    using Word = const std::string&;
    support::ExpectAnswers(
        "workbench/ifc/entities/expected/entities.txt",
        {{"[types]", Of([](const Model&, const Entity& entity, Word type, Word) {
              return std::string(entity.GetTypeName()) + (entity.IsA(type) ? " yes" : " no");
          })},
         {"[texts]", Of([](const Model&, const Entity& entity, Word attribute, Word) {
              return entity.GetText(attribute) + std::string(entity.Get(attribute).IsMissing() ? "missing" : "");
          })},
         {"[references]", Of([](const Model&, const Entity& entity, Word attribute, Word) {
              return "one #" + std::to_string(entity.GetEntity(attribute).GetNumber()) + " all " +
                     Numbers(entity.GetEntities(attribute));
          })},
         {"[chains]", Of([](const Model&, const Entity& entity, Word attribute, Word most) {
              return Numbers(entity.GetChain(attribute, std::stoul(most)));
          })},
         {"[referencing]", Of([](const Model& model, const Entity& entity, Word type, Word attribute) {
              return Numbers(model.GetReferencing(entity, type, attribute));
          })},
         {"[all]", [this](const std::string& type) { return Numbers(model.GetAll(type)); }}});
}

TEST_F(Entities, CountWhatTheSchemaDoesNotKnow) {
    EXPECT_EQ(model.GetUnknown(), (std::map<std::string, std::size_t>{{"IFCKERB", 1}}));
    EXPECT_EQ(model.Find(71).GetReal("NominalValue"), 0.25);
    EXPECT_EQ(model.Find(80).Get("CoordList").GetItem(1).GetItem(2).GetNumber(), 6.0);
}

} // namespace
