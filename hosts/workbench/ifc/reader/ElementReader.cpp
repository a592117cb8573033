#include "ElementReader.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include <ifcpp/IFC4/include/IfcBuildingStorey.h>
#include <ifcpp/IFC4/include/IfcDoor.h>
#include <ifcpp/IFC4/include/IfcElement.h>
#include <ifcpp/IFC4/include/IfcGloballyUniqueId.h>
#include <ifcpp/IFC4/include/IfcLabel.h>
#include <ifcpp/IFC4/include/IfcPositiveLengthMeasure.h>
#include <ifcpp/IFC4/include/IfcProject.h>
#include <ifcpp/IFC4/include/IfcRelAggregates.h>
#include <ifcpp/IFC4/include/IfcWindow.h>

#include "Geometry.h"
#include "Materials.h"
#include "Places.h"
#include "Quantities.h"

namespace workbench::ifc {
namespace {

struct ClassRule {
    std::string_view prefix; ///< of the class name
    ElementKind kind;
    AreaRule area;
};

/// First match counts; what matches none is an object.
constexpr ClassRule classRules[] = {
    {"IfcCurtainWall", ElementKind::CurtainWall, AreaRule::Side},
    {"IfcWall", ElementKind::Wall, AreaRule::Side},
    {"IfcColumn", ElementKind::Column, AreaRule::None},
    {"IfcPile", ElementKind::Column, AreaRule::None},
    {"IfcBeam", ElementKind::Beam, AreaRule::None},
    {"IfcMember", ElementKind::Beam, AreaRule::None},
    {"IfcSlab", ElementKind::Slab, AreaRule::Plan},
    {"IfcRoof", ElementKind::Roof, AreaRule::Plan},
    {"IfcCovering", ElementKind::Object, AreaRule::Plan},
    {"IfcStair", ElementKind::Stair, AreaRule::None},
    {"IfcRamp", ElementKind::Stair, AreaRule::None},
    {"IfcRailing", ElementKind::Railing, AreaRule::None},
};

ClassRule RuleOf(std::string_view className) {
    for (const ClassRule& rule : classRules) {
        if (className.starts_with(rule.prefix)) return rule;
    }
    return {className, ElementKind::Object, AreaRule::None};
}

/// Elements that only the older schema has; the library skips them.
constexpr std::string_view oldLeftOut[] = {"IFCELECTRICALELEMENT", "IFCEQUIPMENTELEMENT",
                                           "IFCELECTRICDISTRIBUTIONPOINT"};

/// An element with what decides whether it stays.
struct Candidate {
    ImportedElement element;
    const IfcObjectDefinition* entity = nullptr;
    std::vector<std::size_t> parts; ///< indices of other candidates
    bool isOpening = false;         ///< a door or window
};

class BuildingReader {
public:
    BuildingReader(const LibraryModel& model, const ReadOptions& options, const ReadListener& listener)
        : model(model), options(options), listener(listener), units(ReadUnits(model, building.warnings)),
          materials(model, units, building), places(model, units, building) {}

    ImportedBuilding Run() {
        building.schema = model.Step().schema;
        building.metresPerLengthUnit = units.lengthM;
        CountOldElements();
        std::size_t done = 0;
        for (const ModelEntity& found : model.Entities()) {
            ReadEntity(found);
            if (++done % 32 == 0) listener.progress(double(done) / double(model.Entities().size()));
        }
        Aggregate();
        if (building.elements.empty()) {
            building.warnings.emplace_back("The file has no building element.");
        }
        ReadFloorArea(model, units, building);
        return std::move(building);
    }

private:
    void CountOldElements() {
        for (const std::string_view keyword : oldLeftOut) {
            const auto found = model.Step().keywords.find(std::string(keyword));
            if (found != model.Step().keywords.end()) building.leftOut[found->first] += found->second;
        }
    }

    void ReadEntity(const ModelEntity& found) {
        switch (found.role) {
        case EntityRole::Project: {
            const auto& project = dynamic_cast<const IfcProject&>(*found.entity);
            building.projectName = model.Text(project.m_LongName);
            if (building.projectName.empty()) building.projectName = model.Text(project.m_Name);
            break;
        }
        case EntityRole::LeftOut:
            building.leftOut[found.entity->className()]++;
            break;
        case EntityRole::Door:
            ReadOpening<IfcDoor>(found, ElementKind::Door);
            break;
        case EntityRole::Window:
            ReadOpening<IfcWindow>(found, ElementKind::Window);
            break;
        case EntityRole::Element:
            ReadElement(found);
            break;
        default:
            break;
        }
    }

    Candidate Begin(const ModelEntity& found, const IfcElement& element) {
        Candidate candidate;
        candidate.entity = &element;
        candidate.element.globalId = model.Text(element.m_GlobalId);
        candidate.element.name = model.Text(element.m_Name);
        candidate.element.ifcType = found.entity->className();
        candidate.element.layer = places.LayerOf(element);
        candidate.element.storey = places.StoreyOf(element);
        return candidate;
    }

    template <class Opening>
    void ReadOpening(const ModelEntity& found, ElementKind kind) {
        const auto opening = std::dynamic_pointer_cast<Opening>(found.entity);
        Candidate candidate = Begin(found, *opening);
        candidate.isOpening = true;
        ImportedElement& element = candidate.element;
        element.kind = kind;
        const auto quantities = ReadQuantities(model, units, *opening, QuantityPlaces::QuantitySets);
        const auto size = [&](const std::shared_ptr<IfcPositiveLengthMeasure>& own, const char* name) {
            if (own) {
                if (const auto length = PlausibleQuantity(own->m_value * units.lengthM)) return length;
            }
            const auto stated = quantities.find(name);
            return stated != quantities.end() ? PlausibleQuantity(stated->second) : std::nullopt;
        };
        element.overallWidthM = size(opening->m_OverallWidth, "Width");
        element.overallHeightM = size(opening->m_OverallHeight, "Height");
        if (element.overallWidthM && element.overallHeightM) {
            element.areaM2 = *element.overallWidthM * *element.overallHeightM;
            element.areaSource = QuantitySource::StatedGross;
        }
        Keep(std::move(candidate));
    }

    void ReadElement(const ModelEntity& found) {
        const auto entity = std::dynamic_pointer_cast<IfcElement>(found.entity);
        Candidate candidate = Begin(found, *entity);
        ImportedElement& element = candidate.element;
        const ClassRule rule = RuleOf(element.ifcType);
        element.kind = rule.kind;
        const std::string whose = element.ifcType + " " + element.globalId;
        const StatedQuantities stated = PickStated(ReadQuantities(model, units, *entity, QuantityPlaces::QuantitySets),
                                                   rule.area, whose, building.warnings);
        uses.push_back(materials.UseOf(*entity));
        const MaterialUse& use = uses.back();
        useOf[found.entity.get()] = uses.size() - 1;
        const BodyGeometry body = ComputeGeometry(found.number, entity, whose, TaskOf(rule.area, stated, use));
        if (SetQuantities(element, rule.area, stated, body.meshes, TotalThicknessM(use))) corrected.insert(&*entity);
        if (!body.trouble.empty() && element.volumeSource != QuantitySource::StatedNet &&
            element.volumeSource != QuantitySource::StatedGross) {
            building.warnings.push_back("The geometry of " + whose + " may be inexact: " + body.trouble);
        }
        Keep(std::move(candidate));
    }

    static GeometryTask TaskOf(AreaRule rule, const StatedQuantities& stated, const MaterialUse& use) {
        const bool hasArea = TotalThicknessM(use) > 0.0 || StatedArea(rule, stated).has_value();
        return {StatedVolume(stated), StatedVolume(stated) && hasArea};
    }

    BodyGeometry ComputeGeometry(int number, const std::shared_ptr<IfcElement>& entity, const std::string& whose,
                                 const GeometryTask& task) {
        if (!options.geometry) return {};
        if (options.skipped.contains(number)) {
            building.warnings.push_back("The geometry of " + whose + " cannot be computed.");
            return {};
        }
        if (!geometry) geometry.emplace(model, units);
        listener.working(number);
        BodyGeometry body = geometry->Compute(entity, task);
        listener.working(0);
        return body;
    }

    void Keep(Candidate candidate) {
        byEntity[candidate.entity] = candidates.size();
        candidates.push_back(std::move(candidate));
    }

    /// A whole goes where any of its parts, however deep, has a volume or an area of its own; parts of doors and
    /// windows go with them.
    void Aggregate() {
        std::vector<bool> isPartOfOpening(candidates.size(), false);
        for (Candidate& candidate : candidates) {
            for (const auto& relation : Alive<IfcRelAggregates>(candidate.entity->m_IsDecomposedBy_inverse)) {
                for (const auto& part : relation->m_RelatedObjects) {
                    const auto known = byEntity.find(part.get());
                    if (known != byEntity.end()) candidate.parts.push_back(known->second);
                }
            }
        }
        for (std::size_t i = 0; i < candidates.size(); ++i) {
            std::set<std::size_t> below;
            if (candidates[i].isOpening) CollectParts(i, below);
            for (const std::size_t part : below)
                isPartOfOpening[part] = part != i && !candidates[part].isOpening;
        }
        for (std::size_t i = 0; i < candidates.size(); ++i) {
            if (isPartOfOpening[i]) {
                building.leftOut[candidates[i].element.ifcType + " (part of a door or window)"]++;
            } else if (!candidates[i].isOpening && PartsContribute(i)) {
                building.sumsOfParts.push_back(FindingOf(candidates[i].element));
            } else {
                Finish(candidates[i]);
            }
        }
    }

    /// All candidates below WHOLE; a circle of parts ends where it began.
    void CollectParts(std::size_t whole, std::set<std::size_t>& below) const {
        std::vector<std::size_t> open{whole};
        while (!open.empty()) {
            const std::size_t next = open.back();
            open.pop_back();
            for (const std::size_t part : candidates[next].parts) {
                if (below.insert(part).second) open.push_back(part);
            }
        }
    }

    [[nodiscard]] bool PartsContribute(std::size_t whole) const {
        std::set<std::size_t> below;
        CollectParts(whole, below);
        return !below.contains(whole) && std::any_of(below.begin(), below.end(), [&](std::size_t part) {
            return !candidates[part].isOpening && candidates[part].element.volumeM3 > 0.0;
        });
    }

    void Finish(Candidate& candidate) {
        ImportedElement& element = candidate.element;
        if (element.volumeM3 <= 0.0 && element.areaM2 <= 0.0) building.withoutQuantity.push_back(FindingOf(element));
        if (!candidate.isOpening) {
            const MaterialUse& use = uses[useOf.at(candidate.entity)];
            element.components = SplitByMaterial(use, element.volumeM3, element.areaM2);
            if (element.components.empty()) {
                element.components.push_back({materials.WithoutMaterial(), element.volumeM3, element.areaM2});
            }
            if (HasNoMaterial(element)) building.withoutMaterial.push_back(FindingOf(element));
            if (corrected.contains(candidate.entity)) {
                building.correctedVolumes.push_back(
                    {FindingOf(element), *element.statedVolumeM3, *element.geometryVolumeM3});
            }
        }
        building.elements.push_back(std::move(element));
    }

    [[nodiscard]] bool HasNoMaterial(const ImportedElement& element) const {
        return std::any_of(element.components.begin(), element.components.end(),
                           [&](const ImportedComponent& component) {
                               return building.materials[component.material].name == NoMaterialName;
                           });
    }

    static ImportFinding FindingOf(const ImportedElement& element) {
        return {element.globalId, element.ifcType, element.name};
    }

    const LibraryModel& model;
    const ReadOptions& options;
    const ReadListener& listener;
    ImportedBuilding building;
    UnitFactors units;
    Materials materials;
    Places places;
    std::optional<Geometry> geometry;
    std::vector<Candidate> candidates;
    std::vector<MaterialUse> uses;
    std::unordered_map<const void*, std::size_t> useOf;
    std::unordered_map<const IfcObjectDefinition*, std::size_t> byEntity;
    std::set<const void*> corrected;
};

} // namespace

ImportedBuilding ReadBuilding(const LibraryModel& model, const ReadOptions& options, const ReadListener& listener) {
    return BuildingReader(model, options, listener).Run();
}

} // namespace workbench::ifc
