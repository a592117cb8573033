#include "workbench/ifc/bodies/Elements.h"

#include <algorithm>
#include <cstdio>

#include "workbench/ifc/bodies/CutterRemarks.h"
#include "workbench/ifc/bodies/Placements.h"

namespace workbench::bodies {
namespace {

using entities::Entity;
using geometry::BodyStatus;
using geometry::Transform;

constexpr std::string_view SolidTypes[] = {"SweptSolid", "AdvancedSweptSolid",   "Clipping",     "CSG",
                                           "Brep",       "AdvancedBrep",         "Tessellation", "SurfaceModel",
                                           "SolidModel", "MappedRepresentation", "BoundingBrep", "FaceBasedSurface"};
constexpr std::string_view OtherNames[] = {"Axis",      "Box",       "FootPrint", "Annotation", "Profile",
                                           "Clearance", "Reference", "CoG",       "Plan",       "Surface"};

template <std::size_t Count>
bool IsAmong(const std::string& text, const std::string_view (&names)[Count]) {
    return std::find(std::begin(names), std::end(names), text) != std::end(names);
}

std::string NameOf(const Entity& representation) {
    return representation.GetText("RepresentationIdentifier");
}

bool IsBody(const Entity& representation) {
    return NameOf(representation) == "Body";
}
bool IsFacetted(const Entity& representation) {
    return NameOf(representation) == "Facetation" || NameOf(representation) == "Tessellation";
}
bool IsNameless(const Entity& representation) {
    return NameOf(representation).empty();
}
bool IsOfSolids(const Entity& representation) {
    return IsAmong(representation.GetText("RepresentationType"), SolidTypes) &&
           !IsAmong(NameOf(representation), OtherNames);
}

bool IsUncut(geometry::CutterUse use) {
    return use != geometry::CutterUse::Cut && use != geometry::CutterUse::Apart;
}

/// Opening in the element's coordinates.
Transform Between(const Context& context, const Entity& element, const Entity& opening) {
    return Combine(Inverse(ReadProductPlacement(context, element)), ReadProductPlacement(context, opening));
}

} // namespace

std::vector<Entity> FindBodies(const Entity& product) {
    const std::vector<Entity> all = product.GetEntity("Representation").GetEntities("Representations");
    for (const auto& isWanted : {IsBody, IsFacetted, IsNameless, IsOfSolids}) {
        std::vector<Entity> bodies;
        std::copy_if(all.begin(), all.end(), std::back_inserter(bodies), isWanted);
        if (!bodies.empty()) return bodies;
    }
    return {};
}

ElementBody ElementReader::ReadOwn(const Entity& product, Detail detail) {
    ElementBody read;
    std::size_t nested = 0;
    const Context context{model, units, read.remarks, nested};
    for (const Entity& representation : FindBodies(product))
        read.body = Together(std::move(read.body), items.ReadAll(context, representation, detail));
    return read;
}

/// Those that have a body.
std::vector<Entity> ElementReader::FindOpenings(const Entity& element) const {
    std::vector<Entity> openings;
    for (const Entity& relation : model.GetReferencing(element, "IfcRelVoidsElement", "RelatingBuildingElement")) {
        const Entity opening = relation.GetEntity("RelatedOpeningElement");
        if (!FindBodies(opening).empty()) openings.push_back(opening);
    }
    return openings;
}

void ElementReader::TakeOpenings(const Entity& element, ElementBody& read) {
    std::size_t nested = 0;
    const Context context{model, units, read.remarks, nested};
    std::vector<geometry::Body> cutters;
    const std::vector<Entity> openings = FindOpenings(element);
    for (const Entity& opening : openings) {
        ElementBody cutter = ReadOwn(opening, Detail::Full);
        read.remarks.merge(cutter.remarks);
        cutters.push_back(Transformed(std::move(cutter.body), Between(context, element, opening)));
    }
    if (cutters.empty() || read.body.solids.empty()) return;
    geometry::Subtraction result = geometry::SubtractOpenings(read.body, cutters);
    RemarkOnCutters(read.remarks, result.uses, "An opening");
    for (std::size_t i = 0; i < openings.size(); ++i)
        if (IsUncut(result.uses[i])) read.uncutOpenings.push_back(openings[i].GetText("GlobalId"));
    read.body = std::move(result.body);
}

ElementBody ElementReader::Read(const Entity& element) {
    ElementBody read = ReadOwn(element, Detail::Full);
    TakeOpenings(element, read);
    return read;
}

double ElementReader::ReadUncutVolumeM3(const Entity& element) {
    return GetVolumeM3(ReadOwn(element, Detail::Uncut).body);
}

std::string DescribeMethod(const geometry::Body& body) {
    switch (body.status) {
    case BodyStatus::Empty:
        return "no body";
    case BodyStatus::Solid:
        return "closed faces";
    case BodyStatus::ClosedByCaps: {
        char text[80];
        std::snprintf(text, sizeof text, "closed by caps; %.3g m2", body.capAreaM2);
        return text;
    }
    case BodyStatus::TwoSided:
        return "two-sided shell";
    case BodyStatus::OpenSurface:
        return body.solids.empty() ? "open surface" : "closed faces; open ones beside them are left out";
    case BodyStatus::GivenUp:
        return body.solids.empty() ? "given up" : "closed faces; a cut was given up";
    }
    return {};
}

} // namespace workbench::bodies
