#include "workbench/app/QuantityList.h"

#include "workbench/app/GlobalId.h"
#include "workbench/app/Quantities.h"
#include "workbench/ifc/ImportedBuilding.h"
#include "workbench/ifc/Origins.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace workbench {

namespace {

using namespace ifc::OriginBeginnings;

/// By Doubt.
constexpr const char* DoubtTexts[] = {"no quantity",
                                      "a surface and no volume",
                                      "stated and computed volume differ by more than 5 %",
                                      "volume of an open shell",
                                      "volume of a body closed by caps",
                                      "no material",
                                      "equal shares of the materials"};
static_assert(std::size(DoubtTexts) == static_cast<std::size_t>(Doubt::EqualShares) + 1);

bool IsStatedOff(const Element& element) {
    return element.statedVolumeM3 && element.computedVolumeM3 &&
           std::abs(*element.statedVolumeM3 - *element.computedVolumeM3) > MostOffShare * *element.computedVolumeM3;
}

bool HasNoMaterial(const Model& model, const Element& element) {
    const auto components = model.GetComponents(element);
    return std::any_of(components.begin(), components.end(), [&](const host::MaterialComponent& component) {
        return model.FindBuildingMaterial(component.buildingMaterial)->name == ifc::NoMaterialName;
    });
}

std::vector<Doubt> FindDoubts(const Model& model, const ElementQuantities& quantities) {
    const Element& element = *quantities.element;
    if (IsOpening(element)) return quantities.areaM2 > 0.0 ? std::vector<Doubt>() : std::vector{Doubt::NoQuantity};
    const std::string volume = FindOrigin(element, OriginFields::Volume);
    const std::pair<Doubt, bool> all[] = {
        {Doubt::NoQuantity, quantities.volumeM3 == 0.0 && quantities.areaM2 == 0.0},
        {Doubt::SurfaceWithoutVolume, quantities.volumeM3 == 0.0 && quantities.areaM2 != 0.0},
        {Doubt::StatedOff, IsStatedOff(element)},
        {Doubt::OpenShell, volume.starts_with(OpenShell)},
        {Doubt::ClosedByCaps, volume.starts_with(ClosedByCaps)},
        {Doubt::NoMaterial, HasNoMaterial(model, element)},
        {Doubt::EqualShares, FindOrigin(element, OriginFields::Shares).starts_with(EqualShares)}};
    std::vector<Doubt> doubts;
    for (const auto& [doubt, isThere] : all)
        if (isThere) doubts.push_back(doubt);
    return doubts;
}

std::optional<double> Split(const std::optional<double>& whole, double share) {
    return whole ? std::optional(*whole * share) : std::nullopt;
}

QuantityPart MakePart(const Model& model, const host::MaterialComponent& component, double thicknessM) {
    const double densityKgM3 = model.FindBuildingMaterial(component.buildingMaterial)->densityKgM3;
    QuantityPart part;
    part.material = component.buildingMaterial;
    part.thicknessM = thicknessM;
    part.volumeM3 = component.volumeM3;
    part.areaM2 = component.areaM2;
    if (densityKgM3 > 0.0) part.massKg = densityKgM3 * component.volumeM3;
    return part;
}

void AddParts(const Model& model, ElementQuantities& quantities) {
    const Element& element = *quantities.element;
    const auto components = model.GetComponents(element);
    const auto thicknessesM = model.GetThicknesses(element);
    quantities.volumeM3 = SumVolumeM3(model, element);
    for (std::size_t i = 0; i < components.size(); ++i) {
        QuantityPart part = MakePart(model, components[i], thicknessesM[i]);
        const double share = quantities.volumeM3 > 0.0 ? part.volumeM3 / quantities.volumeM3
                                                       : 1.0 / static_cast<double>(components.size());
        part.statedVolumeM3 = Split(element.statedVolumeM3, share);
        part.computedVolumeM3 = Split(element.computedVolumeM3, share);
        if (part.thicknessM > 0.0)
            quantities.areaM2 = std::max(quantities.areaM2, part.areaM2);
        else
            quantities.areaM2 += part.areaM2;
        quantities.parts.push_back(part);
    }
}

ElementQuantities Measure(const Model& model, const Element& element) {
    ElementQuantities quantities;
    quantities.element = &element;
    AddParts(model, quantities);
    if (quantities.parts.empty()) {
        quantities.areaM2 = element.openingAreaM2;
        quantities.parts.emplace_back().areaM2 = element.openingAreaM2;
    }
    quantities.doubts = FindDoubts(model, quantities);
    return quantities;
}

std::string DescribeSource(const ElementQuantities& quantities) {
    if (IsOpening(*quantities.element)) return "doors and windows have none";
    if (quantities.volumeM3 == 0.0) return "none";
    const std::string origin = FindOrigin(*quantities.element, OriginFields::Volume);
    return origin.empty() ? "not recorded" : origin.substr(0, origin.find(ifc::OriginDetail));
}

void AddToSummary(const ElementQuantities& quantities, QuantitySummary& summary) {
    ++summary.elements;
    summary.volumeM3 += quantities.volumeM3;
    if (!quantities.doubts.empty()) {
        ++summary.doubtful;
        summary.doubtfulVolumeM3 += quantities.volumeM3;
    }
    const Element& element = *quantities.element;
    if (!element.statedVolumeM3 || !element.computedVolumeM3) return;
    ++summary.compared;
    summary.statedM3 += *element.statedVolumeM3;
    summary.differenceM3 += std::abs(*element.statedVolumeM3 - *element.computedVolumeM3);
}

} // namespace

const char* DescribeDoubt(Doubt doubt) {
    return DoubtTexts[static_cast<std::size_t>(doubt)];
}

std::vector<ElementQuantities> ListQuantities(const Model& model) {
    std::vector<ElementQuantities> list;
    for (const Element& element : model.GetElements())
        list.push_back(Measure(model, element));
    return list;
}

std::string FindOrigin(const Element& element, const char* field) {
    return element.origins ? FindOrigin(*element.origins, field) : std::string();
}

std::vector<Finding> ListDoubts(const std::vector<ElementQuantities>& elements) {
    std::vector<Finding> findings;
    for (const ElementQuantities& quantities : elements)
        for (const Doubt doubt : quantities.doubts) {
            const Element& element = *quantities.element;
            const std::string owner = NameElement(WriteGlobalId(element.guid), element.kind, element.name);
            const std::string kind = DescribeDoubt(doubt);
            const std::string sentence = std::string(kind).append(": ").append(owner);
            findings.push_back({kind, "elements", owner, sentence, quantities.volumeM3});
        }
    return findings;
}

QuantitySummary Summarise(const std::vector<ElementQuantities>& elements) {
    QuantitySummary summary;
    std::map<std::string, VolumeSource> sources;
    for (const ElementQuantities& quantities : elements) {
        AddToSummary(quantities, summary);
        VolumeSource& source = sources[DescribeSource(quantities)];
        ++source.elements;
        source.volumeM3 += quantities.volumeM3;
    }
    for (auto& [origin, source] : sources) {
        source.origin = origin;
        summary.sources.push_back(std::move(source));
    }
    std::stable_sort(summary.sources.begin(), summary.sources.end(),
                     [](const VolumeSource& a, const VolumeSource& b) { return a.volumeM3 > b.volumeM3; });
    return summary;
}

} // namespace workbench
