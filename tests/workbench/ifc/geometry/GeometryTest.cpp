// Curves, profiles, bodies, shells and booleans against calculations by hand that stand in expected/.
#include "Script.h"
#include "support/Answers.h"

namespace {

std::string RunScript(const std::string& script) {
    return geometrytest::Script().Run(script);
}

class Cases : public testing::TestWithParam<const char*> {};

TEST_P(Cases, HaveTheAnswersThatAreCalculatedByHand) {
    const std::string file = std::string("workbench/ifc/geometry/expected/") + GetParam() + ".txt";
    support::ExpectAnswers(file, {{"[curves]", RunScript},
                                  {"[profiles]", RunScript},
                                  {"[bodies]", RunScript},
                                  {"[shells]", RunScript},
                                  {"[openings]", RunScript},
                                  {"[booleans]", RunScript}});
}

INSTANTIATE_TEST_SUITE_P(Geometry, Cases, testing::Values("curves", "profiles", "bodies", "shells", "booleans"));

} // namespace
