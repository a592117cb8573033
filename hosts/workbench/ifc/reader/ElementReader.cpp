#include "ElementReader.h"

#include <algorithm>
#include <map>

#include "FloorArea.h"
#include "Geometry.h"
#include "Materials.h"
#include "Places.h"
#include "Quantities.h"
#include "Relations.h"
#include "Roles.h"
#include "workbench/ifc/Origins.h"

namespace workbench::ifc {
namespace {

using entities::Entity;

struct ClassRule {
    std::string_view prefix; ///< of the class name
    ElementKind kind;
    AreaRule area;
};

/// First match counts; what matches none is an object.
constexpr ClassRule ClassRules[] = {
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
    for (const ClassRule& rule : ClassRules) {
        if (className.starts_with(rule.prefix)) return rule;
    }
    return {className, ElementKind::Object, AreaRule::None};
}

/// Some programs write "family:type:number of the piece".
std::string WithoutPieceNumber(const std::string& name) {
    const std::size_t colon = name.rfind(':');
    const bool isNumbered = colon != std::string::npos && colon + 1 < name.size() &&
                            name.find_first_not_of("0123456789", colon + 1) == std::string::npos;
    return isNumbered ? name.substr(0, colon) : name;
}

std::string TypeNameOf(const Entity& piece, const Entity& type) {
    for (const std::string& name : {type.GetText("Name"), piece.GetText("ObjectType")})
        if (!name.empty()) return name;
    return WithoutPieceNumber(piece.GetText("Name"));
}

/// An element with what decides whether it stays.
struct Candidate {
    ImportedElement element;
    Entity entity;
    std::vector<std::size_t> parts; ///< indices of other candidates
    bool isOpening = false;         ///< a door or window
    MaterialUse use;                ///< of others than doors and windows
    bool isCorrected = false;       ///< the stated volume gave way to the geometry's
};

class BuildingReader {
public:
    BuildingReader(const entities::Model& model, const ReadOptions& options, const ReadListener& listener)
        : model(model), options(options), listener(listener), units(ReadUnits(model, building.warnings)),
          materials(model, units, building), places(model, units, building) {}

    ImportedBuilding Run() {
        building.schema = model.GetSchema().GetName();
        building.metresPerLengthUnit = units.lengthM;
        RemarkOnFile();
        const std::vector<Entity> objects = model.GetAll("IfcObjectDefinition");
        std::size_t done = 0;
        for (const Entity& object : objects) {
            ReadObject(object);
            if (++done % 32 == 0) listener.progress(double(done) / double(objects.size()));
        }
        materials.DeriveDensities();
        Aggregate();
        if (building.elements.empty()) {
            building.warnings.emplace_back("The file has no building element.");
        }
        ReadFloorArea(model, units, building);
        return std::move(building);
    }

private:
    /// What was assumed or left out in reading the file.
    void RemarkOnFile() {
        const step::StepFile& file = model.GetFile();
        const std::string written = file.GetHeader().schema.substr(0, 40);
        const step::CodePage& page = file.GetCodePage();
        if (schema::ChooseSchema(written).isApproximate)
            building.warnings.push_back("The file is of the schema " + written + " and is read as " + building.schema +
                                        ".");
        if (page.isDoubtful) {
            building.warnings.emplace_back(
                "The code page of the file's texts cannot be told, so letters may be wrong; name it.");
        } else if (page.name != step::CodePage().name) {
            building.warnings.push_back("The file's texts are read in the code page " + page.name + ".");
        }
        CountLeftOut("Entities with the number of an earlier one", file.CountDoubled());
        CountLeftOut("Entities of several types at once", file.CountComplex());
    }

    void CountLeftOut(const char* what, std::size_t count) {
        if (count > 0) building.warnings.push_back(std::string(what) + " are left out: " + std::to_string(count) + ".");
    }

    void ReadObject(const Entity& object) {
        switch (RoleOf(object)) {
        case EntityRole::Project:
            building.projectName = object.GetText("LongName");
            if (building.projectName.empty()) building.projectName = object.GetText("Name");
            break;
        case EntityRole::LeftOut:
            building.leftOut[std::string(object.GetTypeName())]++;
            break;
        case EntityRole::Door:
            ReadOpening(object, ElementKind::Door);
            break;
        case EntityRole::Window:
            ReadOpening(object, ElementKind::Window);
            break;
        case EntityRole::Element:
            ReadElement(object);
            break;
        case EntityRole::Other:
            break;
        }
    }

    Candidate Begin(const Entity& entity) {
        Candidate candidate;
        candidate.entity = entity;
        candidate.element.globalId = entity.GetText("GlobalId");
        candidate.element.name = entity.GetText("Name");
        candidate.element.ifcType = entity.GetTypeName();
        candidate.element.layer = places.LayerOf(entity);
        candidate.element.storey = places.StoreyOf(entity);
        return candidate;
    }

    using Quantity = std::optional<StatedQuantity>;

    /// Of a door or window: its own before its type's.
    static Quantity FirstOf(const Quantity& attribute, const Quantity& own, const Quantity& ofType) {
        if (attribute) return attribute;
        if (own || !ofType) return own;
        return StatedQuantity{ofType->value, ofType->name + " of the type"};
    }

    [[nodiscard]] Quantity LengthOf(const Entity& entity, const char* attribute) const {
        const auto length = PlausibleQuantity(entity.GetReal(attribute).value_or(0.0) * units.lengthM);
        return length ? Quantity({*length, attribute}) : std::nullopt;
    }

    static Quantity AreaOf(const Quantity& widthM, const Quantity& heightM, const Quantity& statedM2) {
        if (!widthM || !heightM) return statedM2;
        return StatedQuantity{widthM->value * heightM->value, widthM->name + " x " + heightM->name};
    }

    void ReadOpening(const Entity& opening, ElementKind kind) {
        Candidate candidate = Begin(opening);
        candidate.isOpening = true;
        ImportedElement& element = candidate.element;
        element.kind = kind;
        const OpeningSize own = PickOpeningSize(ReadStatedValues(model, units, opening));
        const Entity type = TypeOf(model, opening);
        const OpeningSize ofType = PickOpeningSize(ReadStatedValues(model, units, type));
        element.typeName = TypeNameOf(opening, type);
        const Quantity widthM = FirstOf(LengthOf(opening, "OverallWidth"), own.widthM, ofType.widthM);
        const Quantity heightM = FirstOf(LengthOf(opening, "OverallHeight"), own.heightM, ofType.heightM);
        if (widthM) element.overallWidthM = widthM->value;
        if (heightM) element.overallHeightM = heightM->value;
        if (const Quantity area = AreaOf(widthM, heightM, FirstOf({}, own.areaM2, ofType.areaM2))) {
            element.areaM2 = area->value;
            element.areaSource = QuantitySource::StatedGross;
            element.areaOrigin = OriginBeginnings::Stated + area->name;
        }
        Keep(std::move(candidate));
    }

    void ReadElement(const Entity& entity) {
        Candidate candidate = Begin(entity);
        ImportedElement& element = candidate.element;
        const ClassRule rule = RuleOf(element.ifcType);
        element.kind = rule.kind;
        const std::string whose = element.ifcType + " " + element.globalId;
        const StatedQuantities stated =
            PickStated(ReadStatedValues(model, units, entity), rule.area, whose, building.warnings);
        candidate.use = materials.UseOf(entity);
        materials.TakeWeight(candidate.use, stated);
        const BodyGeometry body = ComputeGeometry(entity, whose, TaskOf(rule.area, stated, candidate.use));
        candidate.isCorrected =
            SetQuantities(element, rule.area, stated, body.meshes, ThicknessOf(stated, candidate.use), body.check);
        if (!body.trouble.empty() && element.volumeSource != QuantitySource::StatedNet &&
            element.volumeSource != QuantitySource::StatedGross) {
            building.warnings.push_back("The geometry of " + whose + " may be inexact: " + body.trouble);
        }
        Keep(std::move(candidate));
    }

    [[nodiscard]] GeometryTask TaskOf(AreaRule rule, const StatedQuantities& stated, const MaterialUse& use) const {
        const bool hasArea = ThicknessOf(stated, use).valueM > 0.0 || HasStatedArea(rule, stated);
        const auto volume = StatedVolume(stated);
        return {volume ? std::optional(volume->value) : std::nullopt, options.everyBody || !volume || !hasArea};
    }

    BodyGeometry ComputeGeometry(const Entity& entity, const std::string& whose, const GeometryTask& task) {
        if (!options.geometry || entity.GetEntity("Representation").IsNone()) return {};
        const step::EntityNumber number = entity.GetNumber();
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
            for (const Entity& part : PartsOf(model, candidate.entity)) {
                const auto known = byEntity.find(part);
                if (known != byEntity.end()) candidate.parts.push_back(known->second);
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
            if (element.volumeM3 <= 0.0 && element.areaM2 > 0.0) building.withoutVolume.push_back(FindingOf(element));
            if (candidate.use.areSharesUnknown) building.sharesUnknown.push_back(FindingOf(element));
            element.components = SplitByMaterial(candidate.use, element.volumeM3, element.areaM2);
            element.sharesOrigin = candidate.use.origin;
            if (element.components.empty()) {
                element.sharesOrigin = "no material";
                element.components.push_back({materials.WithoutMaterial(), element.volumeM3, element.areaM2});
            }
            if (HasNoMaterial(element)) building.withoutMaterial.push_back(FindingOf(element));
            if (candidate.isCorrected) {
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

    const entities::Model& model;
    const ReadOptions& options;
    const ReadListener& listener;
    ImportedBuilding building;
    UnitFactors units;
    Materials materials;
    Places places;
    std::optional<Geometry> geometry;
    std::vector<Candidate> candidates;
    std::map<Entity, std::size_t> byEntity;
};

} // namespace

ImportedBuilding ReadBuilding(const entities::Model& model, const ReadOptions& options, const ReadListener& listener) {
    return BuildingReader(model, options, listener).Run();
}

} // namespace workbench::ifc
