#include "lca/LCAProjectData.h"

#include "lca/LifeCycleModules.h"

#include <algorithm>
#include <cmath>

namespace lca {

LCAProjectData::LCAProjectData() {
    Reset();
}

void LCAProjectData::Reset() {
    plainValues.fill(0.0);
    SetPlainValue(FloorQuantity::ElectricitySourceFactor, 0.053);
    consideredServiceLifeYears = 50;
    standardsUnit = GWPUnitType::PerAreaAndYear;
    standards.clear();
    usedPhases.clear();
    for (const LifeCycleModule& module : LifeCycleModules)
        if (module.isUsedByDefault) usedPhases.emplace_back(module.code);
    floorChoice.clear();
    evaluatedFloorValues.clear();
    enteredFloorValues.clear();
    contributionEnabled.clear();
    contributionShare.clear();
    contributionGWP.clear();
    elementLives.clear();
    for (const CategoryRow& row : CategoryRows) {
        elementColours[row.category] = row.colour;
        if (row.hasServiceLife) elementLives[row.category] = row.lifeYears;
        if (!row.isShare) continue;
        contributionEnabled[row.category] = true;
        contributionShare[row.category] = row.sharePercent;
    }
}

void LCAProjectData::SetFloorValue(FloorQuantity quantity, FloorSource source, double value) {
    (source == FloorSource::EnergyEvaluation ? evaluatedFloorValues : enteredFloorValues)[quantity] = value;
    SetPlainValue(quantity, value);
}

void LCAProjectData::SetFloorChoice(FloorQuantity quantity, FloorSource source) {
    floorChoice[quantity] = source == FloorSource::EnergyEvaluation;
}

void LCAProjectData::ChooseFloorSource(FloorQuantity quantity, FloorSource source) {
    SetFloorChoice(quantity, source);
    SetPlainValue(quantity, GetFloorValue(quantity, source));
    if (source == FloorSource::ByHand) return;
    if (quantity == FloorQuantity::SolarPanels)
        ChooseFloorSource(FloorQuantity::MaxSolarContribution, FloorSource::ByHand);
    if (quantity == FloorQuantity::MaxSolarContribution)
        ChooseFloorSource(FloorQuantity::SolarPanels, FloorSource::ByHand);
}

FloorSource LCAProjectData::GetFloorChoice(FloorQuantity quantity) const {
    return ValueOr(floorChoice, quantity, false) ? FloorSource::EnergyEvaluation : FloorSource::ByHand;
}

double LCAProjectData::GetFloorValue(FloorQuantity quantity, FloorSource source) const {
    if (quantity == FloorQuantity::ReferenceFloorArea && source == FloorSource::EnergyEvaluation)
        return GetFloorValue(FloorQuantity::GrossFloorArea);
    const auto& map = source == FloorSource::EnergyEvaluation ? evaluatedFloorValues : enteredFloorValues;
    return ValueOr(map, quantity, GetPlainValue(quantity));
}

std::optional<double> LCAProjectData::GetAreaYears() const {
    const double areaM2 = GetFloorValue(FloorQuantity::ReferenceFloorArea);
    if (std::fabs(areaM2) <= SmallestArea || consideredServiceLifeYears == 0) return std::nullopt;
    return consideredServiceLifeYears * areaM2;
}

bool LCAProjectData::IsPhaseUsed(const std::string& code) const {
    return std::find(usedPhases.begin(), usedPhases.end(), code) != usedPhases.end();
}

void LCAProjectData::SetPhaseUsed(const std::string& code, bool isUsed) {
    if (isUsed == IsPhaseUsed(code)) return;
    if (isUsed)
        usedPhases.push_back(code);
    else
        usedPhases.erase(std::remove(usedPhases.begin(), usedPhases.end(), code), usedPhases.end());
}

bool operator==(const LCAProjectData& a, const LCAProjectData& b) {
    return a.plainValues == b.plainValues && a.consideredServiceLifeYears == b.consideredServiceLifeYears &&
           a.standardsUnit == b.standardsUnit && a.standards == b.standards && a.usedPhases == b.usedPhases &&
           a.floorChoice == b.floorChoice && a.evaluatedFloorValues == b.evaluatedFloorValues &&
           a.enteredFloorValues == b.enteredFloorValues && a.contributionEnabled == b.contributionEnabled &&
           a.contributionShare == b.contributionShare && a.contributionGWP == b.contributionGWP &&
           a.elementLives == b.elementLives && a.elementColours == b.elementColours;
}

} // namespace lca
