#include "Geometry.h"

#include <cmath>
#include <unordered_set>

#include <ifcpp/IFC4/include/IfcElement.h>
#include <ifcpp/IFC4/include/IfcFeatureElementSubtraction.h>
#include <ifcpp/IFC4/include/IfcLabel.h>
#include <ifcpp/IFC4/include/IfcLocalPlacement.h>
#include <ifcpp/IFC4/include/IfcProductRepresentation.h>
#include <ifcpp/IFC4/include/IfcRelVoidsElement.h>
#include <ifcpp/IFC4/include/IfcRepresentation.h>
#include <ifcpp/geometry/Carve/GeometryConverter.h>
#include <ifcpp/model/BuildingModel.h>
#include <ifcpp/reader/ReaderSTEP.h>

#include "LibraryText.h"

namespace workbench::ifc {
namespace {

/// A circle as a polygon of this many sides has 0.07 % less area.
constexpr int sidesOfCircle = 96;
constexpr int fewestSidesOfArc = 12;
/// The library's tolerance for points that are one, in metres.
constexpr double samePointM = 1.5e-5;

/// The objects behind a list of back references that are still there and of class T.
template <class T, class Reference>
std::vector<std::shared_ptr<T>> Alive(const std::vector<std::weak_ptr<Reference>>& references) {
    std::vector<std::shared_ptr<T>> alive;
    for (const auto& reference : references) {
        if (auto object = std::dynamic_pointer_cast<T>(reference.lock())) alive.push_back(std::move(object));
    }
    return alive;
}

std::shared_ptr<BuildingModel> ReadByLibrary(const entities::Model& model) {
    auto read = std::make_shared<BuildingModel>();
    ReaderSTEP reader;
    std::string text = WriteForLibrary(model);
    reader.loadModelFromString(text, read);
    return read;
}

struct MeshSums {
    double volume = 0.0;
    double surface = 0.0;
};

/// Signed volume as seen from ORIGIN and surface of one mesh; a face may be any plane polygon.
MeshSums Sum(const carve::mesh::Mesh<3>& mesh) {
    MeshSums sums;
    if (mesh.faces.empty()) return sums;
    const vec3 origin = mesh.faces.front()->edge->vert->v;
    for (const auto* face : mesh.faces) {
        const auto* first = face->edge;
        const vec3 start = first->vert->v;
        vec3 doubled = carve::geom::VECTOR(0.0, 0.0, 0.0); // twice the area, along the face's normal
        for (const auto* edge = first->next; edge->next != first; edge = edge->next)
            doubled += carve::geom::cross(edge->vert->v - start, edge->next->vert->v - start);
        sums.surface += doubled.length() / 2.0;
        sums.volume += carve::geom::dot(start - origin, doubled) / 6.0;
    }
    return sums;
}

void Add(const carve::mesh::MeshSet<3>& set, MeshQuantities& quantities) {
    for (const auto* mesh : set.meshes) {
        if (mesh == nullptr) continue;
        const MeshSums sums = Sum(*mesh);
        if (!std::isfinite(sums.volume) || !std::isfinite(sums.surface)) continue;
        if (mesh->isClosed()) {
            quantities.closedVolumeM3 += std::abs(sums.volume);
            quantities.closedSurfaceM2 += sums.surface;
        } else {
            quantities.openSurfaceM2 += sums.surface;
        }
    }
}

void Add(const RepresentationData& representation, MeshQuantities& quantities) {
    for (const auto& item : representation.m_vec_item_data) {
        if (!item) continue;
        for (const auto& set : item->m_meshsets) {
            if (set) Add(*set, quantities);
        }
        for (const auto& set : item->m_meshsets_open) {
            if (set) Add(*set, quantities);
        }
    }
}

/// The library looks into an opening's placement before it asks whether there is one.
void GivePlacementToOpenings(const IfcElement& element) {
    for (const auto& voids : Alive<IfcRelVoidsElement>(element.m_HasOpenings_inverse)) {
        const auto& opening = voids->m_RelatedOpeningElement;
        if (opening && !opening->m_ObjectPlacement) opening->m_ObjectPlacement = std::make_shared<IfcLocalPlacement>();
    }
}

} // namespace

struct Geometry::Parts {
    std::shared_ptr<BuildingModel> model;
    std::shared_ptr<GeometrySettings> settings = std::make_shared<GeometrySettings>();
    std::shared_ptr<UnitConverter> units;
    std::shared_ptr<RepresentationConverter> converter;
    std::string trouble;

    Parts(const entities::Model& given, const UnitFactors& factors)
        : model(ReadByLibrary(given)), units(model->getUnitConverter()) {
        if (!units) units = std::make_shared<UnitConverter>();
        units->setLengthInMeterFactor(factors.lengthM);
        units->setCustomLengthFactor(1.0);
        settings->setNumVerticesPerCircle(sidesOfCircle);
        settings->setMinNumVerticesPerArc(fewestSidesOfArc);
        converter = std::make_shared<RepresentationConverter>(settings, units);
        converter->setMessageCallBack(this, Hear);
        carve::setEpsilon(samePointM * std::min(1.0, factors.lengthM));
    }

    static void Hear(void* parts, std::shared_ptr<StatusCallback::Message> message) {
        if (!message || message->m_message_type != StatusCallback::MESSAGE_TYPE_ERROR) return;
        std::string& trouble = static_cast<Parts*>(parts)->trouble;
        if (!trouble.empty()) return;
        for (const wchar_t c : message->m_message_text)
            trouble += c >= 0x20 && c < 0x7F ? static_cast<char>(c) : ' ';
    }

    /// Null where the library has none of that number.
    [[nodiscard]] std::shared_ptr<IfcElement> Find(step::EntityNumber number) const {
        const auto found = model->getMapIfcEntities().find(static_cast<int>(number));
        return found != model->getMapIfcEntities().end() ? std::dynamic_pointer_cast<IfcElement>(found->second)
                                                         : nullptr;
    }

    static bool IsBody(const IfcRepresentation& representation) {
        return representation.m_RepresentationIdentifier &&
               representation.m_RepresentationIdentifier->m_value == L"Body";
    }

    /// The representations named "Body"; where none has a name, those that have none.
    static std::vector<std::shared_ptr<IfcRepresentation>> Bodies(const IfcElement& element) {
        std::vector<std::shared_ptr<IfcRepresentation>> bodies;
        std::vector<std::shared_ptr<IfcRepresentation>> nameless;
        for (const auto& representation : element.m_Representation->m_Representations) {
            if (!representation) continue;
            if (IsBody(*representation)) bodies.push_back(representation);
            if (!representation->m_RepresentationIdentifier) nameless.push_back(representation);
        }
        return bodies.empty() ? nameless : bodies;
    }

    BodyGeometry Compute(const std::shared_ptr<IfcElement>& element, const GeometryTask& task) {
        BodyGeometry body;
        auto shape = std::make_shared<ProductShapeData>(element->m_entity_id);
        shape->m_ifc_object_definition = element;
        for (const auto& body : Bodies(*element)) {
            auto data = std::make_shared<RepresentationData>();
            converter->convertIfcRepresentation(body, data);
            shape->m_vec_representations.push_back(data);
            data->m_parent_product = shape;
        }
        if (shape->m_vec_representations.empty()) return body;
        if (!element->m_HasOpenings_inverse.empty()) {
            const double wholeM3 = Sum(*shape).closedVolumeM3;
            body.confirmed = task.checkOnly && task.statedVolumeM3 && *task.statedVolumeM3 * MostOff >= wholeM3 &&
                             *task.statedVolumeM3 <= MostOff * (wholeM3 - OpeningsM3(*element));
            if (body.confirmed) return body;
            SubtractOpenings(element, shape);
        }
        const MeshQuantities quantities = Sum(*shape);
        if (quantities.closedSurfaceM2 > 0.0 || quantities.openSurfaceM2 > 0.0) body.meshes = quantities;
        return body;
    }

    static MeshQuantities Sum(const ProductShapeData& shape) {
        MeshQuantities quantities;
        for (const auto& data : shape.m_vec_representations)
            Add(*data, quantities);
        return quantities;
    }

    /// All openings together, as if they did not overlap and lay wholly within the body: the most that they can take.
    double OpeningsM3(const IfcElement& element) {
        MeshQuantities quantities;
        for (const auto& voids : Alive<IfcRelVoidsElement>(element.m_HasOpenings_inverse)) {
            const auto& opening = voids->m_RelatedOpeningElement;
            if (!opening || !opening->m_Representation) continue;
            for (const auto& representation : opening->m_Representation->m_Representations) {
                auto data = std::make_shared<RepresentationData>();
                converter->convertIfcRepresentation(representation, data);
                Add(*data, quantities);
            }
        }
        return quantities.closedVolumeM3;
    }

    void SubtractOpenings(const std::shared_ptr<IfcElement>& element, std::shared_ptr<ProductShapeData>& shape) {
        GivePlacementToOpenings(*element);
        shape->m_object_placement = element->m_ObjectPlacement;
        std::unordered_set<IfcObjectPlacement*> applied;
        if (element->m_ObjectPlacement) {
            converter->getPlacementConverter()->convertIfcObjectPlacement(element->m_ObjectPlacement, shape, applied,
                                                                          false);
        }
        converter->subtractOpenings(element, shape);
    }
};

Geometry::Geometry(const entities::Model& model, const UnitFactors& units)
    : parts(std::make_unique<Parts>(model, units)) {}
Geometry::~Geometry() = default;

BodyGeometry Geometry::Compute(const entities::Entity& entity, const GeometryTask& task) {
    BodyGeometry body;
    const std::shared_ptr<IfcElement> element = parts->Find(entity.GetNumber());
    if (!element || !element->m_Representation) return body;
    parts->trouble.clear();
    try {
        body = parts->Compute(element, task);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& failure) {
        parts->trouble = failure.what();
    } catch (const carve::exception& failure) {
        parts->trouble = failure.str();
    }
    body.trouble = parts->trouble;
    return body;
}

} // namespace workbench::ifc
