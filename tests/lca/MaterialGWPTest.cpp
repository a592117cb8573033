// The two forms of a material's GWP per unit.
#include "lca/MaterialGWP.h"

#include <gtest/gtest.h>

namespace {

struct FormCase {
    const char* text;
    std::vector<std::string> usedPhases;
    double gwpPerUnit;
};

TEST(MaterialGWP, SumsWhatTheProjectUses) {
    const std::vector<std::string> defaults = {"A1-A3", "C3", "C4"};
    const std::vector<FormCase> cases = {
        {"", defaults, 0},
        {"241", defaults, 241},
        {"0,68", defaults, 0.68},
        {"241", {}, 241}, // a plain number counts even without a used phase
        {"abc", defaults, 0},
        {"A1-A3=241;C3=6.73;C4=4,97;D=-4.6", defaults, 252.7},
        {"A1-A3=241;C3=6.73;C4=4.97;D=-4.6", {"A1-A3", "D"}, 236.4},
        {"A1-A3=241", {}, 0},
        {"A1-A3=241;C3=x;C4", defaults, 241},
        {"A1-A3=1;A1-A3=2", defaults, 2}, // the later entry of a phase wins
        {"=5", defaults, 0},
    };
    for (const FormCase& one : cases)
        EXPECT_NEAR(lca::SumMaterialGWP(lca::DecodeMaterialGWP(one.text), one.usedPhases), one.gwpPerUnit, 1e-12)
            << one.text;
}

TEST(MaterialGWP, WritesWhatItReads) {
    for (const std::string text : {"241", "A1-A3=241;C3=6.73;B6=0"})
        EXPECT_EQ(lca::EncodeMaterialGWP(lca::DecodeMaterialGWP(text)), text);
    EXPECT_EQ(lca::EncodeMaterialGWP(lca::DecodeMaterialGWP("")), "");
}

struct PhaseCase {
    const char* text;
    const char* phase;
    double read;
    const char* afterSetting2;
};

TEST(MaterialGWP, ReadsAndSetsOnePhase) {
    const PhaseCase cases[] = {
        {"", "C3", 0, "C3=2"},
        {"241", "A1-A3", 241, "A1-A3=2"},     // a plain number belongs to the first used phase
        {"0,68", "C3", 0, "A1-A3=0,68;C3=2"}, // and is kept there as it was typed
        {"A1-A3=1;B6=9;C3=4", "C3", 4, "A1-A3=1;B6=9;C3=2"},
        {"C3=4;x;A1-A3=1", "D", 0, "C3=4;x;A1-A3=1;D=2"}, // what cannot be read stays
        {"C3=4;C3=5;D=1", "C3", 5, "C3=2;D=1"},
        {"12 kg", "C3", 0, "12 kg;C3=2"},
        {"C3=abc", "C3", 0, "C3=2"},
    };
    for (const PhaseCase& one : cases) {
        EXPECT_EQ(lca::GetPhaseGWP(lca::DecodeMaterialGWP(one.text), one.phase, "A1-A3"), one.read) << one.text;
        EXPECT_EQ(lca::SetPhaseGWP(one.text, one.phase, "A1-A3", 2), one.afterSetting2) << one.text;
    }
}

} // namespace
