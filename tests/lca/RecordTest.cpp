// The record's rules for floor quantities, and loading it from stored values.
#include "lca/PropertyKeys.h"
#include "lca/RecordChanges.h"
#include "lca/RecordEncodings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace {

using lca::FloorQuantity;
using lca::FloorSource;
using lca::LCAProjectData;
using lca::PropertyKey;

/// Loads what a record stores into another one, in any order of the definitions.
LCAProjectData Reload(const LCAProjectData& record, bool reversed) {
    LCAProjectData loaded;
    lca::BeginLoad(loaded);
    auto rows = lca::GetPropertyKeys();
    if (reversed) std::reverse(rows.begin(), rows.end());
    for (const lca::PropertyKeyRow& row : rows)
        if (lca::IsProjectKey(row.key)) {
            const std::string description = lca::WriteDescription(row.key, record, lca::WriteMarker(row.key));
            EXPECT_TRUE(lca::ReadStoredValue(row.key, row.encode(record), description, loaded)) << row.text;
        }
    return loaded;
}

LCAProjectData MakeFullRecord() {
    LCAProjectData record;
    record.consideredServiceLifeYears = 60;
    record.standardsUnit = lca::GWPUnitType::PerArea;
    record.standards = {{"A", 1}, {"B", 2.5}};
    record.usedPhases = {"D", "A4"};
    for (const FloorQuantity quantity : lca::AllFloorQuantities) {
        const double number = 10.0 * (static_cast<int>(quantity) + 1);
        record.SetFloorValue(quantity, FloorSource::EnergyEvaluation, number + 0.5);
        record.SetFloorValue(quantity, FloorSource::ByHand, number);
        record.SetFloorChoice(quantity, static_cast<int>(quantity) % 2 == 0 ? FloorSource::EnergyEvaluation
                                                                            : FloorSource::ByHand);
    }
    record.contributionGWP[lca::ElementCategory::Inventory] = 42;
    record.contributionEnabled[lca::ElementCategory::Inventory] = false;
    record.elementLives[lca::ElementCategory::Doors] = 33;
    // Categories that have none by default.
    record.elementLives[lca::ElementCategory::OperatingEmission] = 7;
    record.contributionEnabled[lca::ElementCategory::Doors] = true;
    record.contributionShare[lca::ElementCategory::Doors] = 3;
    record.elementColours[lca::ElementCategory::Windows] = {10, 11, 12};
    return record;
}

TEST(Record, SurvivesStoringWhateverTheOrderAndNothingSurvivesAReset) {
    LCAProjectData record = MakeFullRecord();
    EXPECT_TRUE(Reload(record, false) == record);
    EXPECT_TRUE(Reload(record, true) == record);
    record.Reset();
    EXPECT_TRUE(record == LCAProjectData());
}

TEST(Record, PlainValuesFillEmptyMaps) {
    LCAProjectData record;
    lca::BeginLoad(record);
    EXPECT_TRUE(lca::ReadStoredValue(PropertyKey::GrossFloorArea, 150.0, {}, record));
    EXPECT_TRUE(lca::ReadStoredValue(PropertyKey::ReferenceFloorArea, 150.0, {}, record));
    EXPECT_EQ(record.evaluatedFloorValues.count(FloorQuantity::GrossFloorArea), 1U);
    EXPECT_EQ(record.evaluatedFloorValues.count(FloorQuantity::ReferenceFloorArea), 0U);
    EXPECT_EQ(record.enteredFloorValues.at(FloorQuantity::ReferenceFloorArea), 150);
}

/// What another program or a damaged model left as a default value.
TEST(Record, KeepsItsValueWhereTheStoredOneIsUnusable) {
    const double infinite = std::numeric_limits<double>::infinity();
    const std::pair<PropertyKey, lca::StoredValue> unusable[] = {
        {PropertyKey::ServiceLife, 60.0},     {PropertyKey::ServiceLife, "60"},        {PropertyKey::Phases, 1},
        {PropertyKey::GrossFloorArea, 5},     {PropertyKey::GrossFloorArea, infinite}, {PropertyKey::GWP, 1.0},
        {PropertyKey::GWPStandards, infinite}};
    const LCAProjectData full = MakeFullRecord();
    for (const auto& [key, stored] : unusable) {
        LCAProjectData record = full;
        EXPECT_FALSE(lca::ReadStoredValue(key, stored, {}, record));
        EXPECT_TRUE(record == full) << lca::GetKeyText(key);
    }
    LCAProjectData record;
    EXPECT_TRUE(lca::ReadStoredValue(PropertyKey::ServiceLife, -5, {}, record));
    EXPECT_EQ(record.consideredServiceLifeYears, 0U); // not four thousand million years
    record.consideredServiceLifeYears = 4000000000U;
    EXPECT_EQ(lca::GetRow(PropertyKey::ServiceLife).encode(record), lca::StoredValue(INT32_MAX));
}

TEST(Record, FloorValueComesFromTheChosenMapOrThePlainField) {
    LCAProjectData record;
    record.SetPlainValue(FloorQuantity::OperationalEmission, 7);
    EXPECT_EQ(record.GetFloorValue(FloorQuantity::OperationalEmission, FloorSource::EnergyEvaluation), 7);
    record.SetFloorValue(FloorQuantity::OperationalEmission, FloorSource::ByHand, 8);
    EXPECT_EQ(record.GetFloorValue(FloorQuantity::OperationalEmission, FloorSource::ByHand), 8);
    // Setting by hand renewed the plain field; the other map is never taken in place of the chosen one.
    record.SetFloorValue(FloorQuantity::OperationalEmission, FloorSource::ByHand, 9);
    record.SetPlainValue(FloorQuantity::OperationalEmission, 1);
    EXPECT_EQ(record.GetFloorValue(FloorQuantity::OperationalEmission, FloorSource::EnergyEvaluation), 1);
}

TEST(Record, ReferenceAreaFromTheEvaluationIsTheGrossArea) {
    LCAProjectData record;
    record.SetFloorValue(FloorQuantity::GrossFloorArea, FloorSource::EnergyEvaluation, 200);
    record.SetFloorValue(FloorQuantity::GrossFloorArea, FloorSource::ByHand, 180);
    record.SetFloorValue(FloorQuantity::ReferenceFloorArea, FloorSource::ByHand, 100);
    const auto reference = [&] {
        return record.GetFloorValue(FloorQuantity::ReferenceFloorArea, FloorSource::EnergyEvaluation);
    };
    EXPECT_EQ(reference(), 180); // the gross area has no choice yet: by hand
    record.SetFloorChoice(FloorQuantity::GrossFloorArea, FloorSource::EnergyEvaluation);
    EXPECT_EQ(reference(), 200);
    EXPECT_EQ(record.GetFloorValue(FloorQuantity::ReferenceFloorArea, FloorSource::ByHand), 100);
}

using Standards = std::vector<lca::Standard>;

/// What one member changed goes onto what another has stored meanwhile: only that, and all of it.
TEST(Record, ChangesGoOntoAnothersState) {
    const lca::Standard a{"A", 1}, b{"B", 2}, c{"C", 3}, changed{"A", 9}, theirs{"T", 5};
    const struct {
        Standards before, edited, onto, expected;
    } standards[] = {{{a, b}, {a, b}, {theirs}, {theirs}},                   // nothing changed
                     {{a, b}, {b, a}, {a, b}, {b, a}},                       // nobody else did: as edited
                     {{a, b}, {changed, b}, {theirs, a}, {theirs, changed}}, // in the old one's place
                     {{a}, {a, c}, {a, theirs}, {a, theirs, c}},             // added at the end
                     {{a, b}, {b}, {theirs, a, a}, {theirs, a}},             // removed once
                     {{a, b}, {b}, {theirs}, {theirs}},                      // which the other has removed, too
                     {{a, b}, {changed, b}, {theirs}, {theirs, changed}}};   // what was typed is not lost
    for (const auto& row : standards) {
        LCAProjectData before, edited, onto;
        before.standards = row.before;
        edited.standards = row.edited;
        onto.standards = row.onto;
        EXPECT_TRUE(lca::ApplyChanges(before, edited, onto).standards == row.expected) << &row - standards;
    }
    LCAProjectData before = MakeFullRecord(), edited = before, onto = before;
    before.usedPhases = {"A1-A3", "C3"};
    edited.usedPhases = {"C3", "D"};
    edited.SetPlainValue(FloorQuantity::SolarPanels, 77);
    edited.elementLives[lca::ElementCategory::Doors] = 44;
    edited.contributionGWP.erase(lca::ElementCategory::Inventory);
    onto.usedPhases = {"A1-A3", "B4", "C3"};
    onto.consideredServiceLifeYears = 81;
    onto.SetPlainValue(FloorQuantity::GrossFloorArea, 66);
    onto.elementLives[lca::ElementCategory::Windows] = 12;
    onto.contributionShare[lca::ElementCategory::Installations] = 3;
    LCAProjectData expected = onto;
    expected.usedPhases = {"B4", "C3", "D"};
    expected.SetPlainValue(FloorQuantity::SolarPanels, 77);
    expected.elementLives[lca::ElementCategory::Doors] = 44;
    expected.contributionGWP.erase(lca::ElementCategory::Inventory);
    const LCAProjectData applied = lca::ApplyChanges(before, edited, onto);
    EXPECT_EQ(applied.usedPhases, expected.usedPhases);
    EXPECT_TRUE(applied == expected);
}

} // namespace
