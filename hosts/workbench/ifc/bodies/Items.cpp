#include "workbench/ifc/bodies/Items.h"

#include "workbench/ifc/bodies/Curves.h"
#include "workbench/ifc/bodies/CutterRemarks.h"
#include "workbench/ifc/bodies/Faces.h"
#include "workbench/ifc/bodies/Placements.h"
#include "workbench/ifc/bodies/Sweeps.h"
#include "workbench/ifc/geometry/HalfSpace.h"

namespace workbench::bodies {
namespace {

using entities::Entity;
using geometry::Body;
using geometry::Box;
using geometry::Plane;
using geometry::Transform;

constexpr std::size_t LongestChain = 1000;

bool IsNeverABody(const Entity& item) {
    return item.IsA("IfcCurve") || item.IsA("IfcPoint") || item.IsA("IfcGeometricSet") ||
           item.IsA("IfcAnnotationFillArea") || item.IsA("IfcTextLiteral") || item.IsA("IfcBoundingBox");
}

/// With the flag the material lies on the side away from the plane's normal.
Plane ReadSurface(const Context& context, const Entity& halfSpace) {
    const Transform position = ReadPlacement(context, halfSpace.GetEntity("BaseSurface").GetEntity("Position"));
    const Plane plane = geometry::PlaneAt(position.origin, position.z);
    return halfSpace.Get("AgreementFlag").GetLogical().value_or(true) ? plane : Turned(plane);
}

Body ReadHalfSpace(const Context& context, const Entity& halfSpace, const Box& around) {
    if (!halfSpace.GetEntity("BaseSurface").IsA("IfcPlane")) {
        context.remarks.insert("A half space behind an " +
                               std::string(halfSpace.GetEntity("BaseSurface").GetTypeName()) + " is not computed.");
        return {};
    }
    const Plane surface = ReadSurface(context, halfSpace);
    if (!halfSpace.IsA("IfcPolygonalBoundedHalfSpace")) return geometry::HalfSpace(surface, around);
    const geometry::Loop boundary = ToLoop(ReadCurve(context, halfSpace.GetEntity("PolygonalBoundary")));
    return geometry::BoundedHalfSpace(surface, ReadPlacement(context, halfSpace.GetEntity("Position")), boundary,
                                      around);
}

Body Subtract(const Context& context, const Body& first, const Body& second) {
    geometry::Subtraction result = geometry::SubtractOpenings(first, {second});
    RemarkOnCutters(context.remarks, result.uses, "A body that clips another one");
    return std::move(result.body);
}

} // namespace

Body ItemReader::Read(const Context& context, const Entity& item, Detail detail) {
    return Read(context, item, detail, 0);
}

Body ItemReader::ReadAll(const Context& context, const Entity& representation, Detail detail) {
    return ReadAll(context, representation, detail, 0);
}

Body ItemReader::ReadAll(const Context& context, const Entity& representation, Detail detail, int depth) {
    Body whole;
    for (const Entity& item : representation.GetEntities("Items"))
        whole = Together(std::move(whole), Read(context, item, detail, depth));
    return whole;
}

Body ItemReader::Read(const Context& context, const Entity& item, Detail detail, int depth) {
    if (!context.MayEnter(depth)) {
        context.remarks.insert("What is nested too deep is left out.");
        return {};
    }
    if (item.IsA("IfcMappedItem")) return ReadMapped(context, item, detail, depth);
    if (item.IsA("IfcBooleanResult")) return ReadBoolean(context, item, detail, depth);
    if (item.IsA("IfcCsgSolid")) return Read(context, item.GetEntity("TreeRootExpression"), detail, depth + 1);
    if (auto faces = ReadFaces(context, item)) return std::move(*faces);
    if (auto sweep = ReadSweep(context, item)) return std::move(*sweep);
    if (!IsNeverABody(item)) RemarkNotComputed(context, item);
    return {};
}

Body ItemReader::ReadMapped(const Context& context, const Entity& item, Detail detail, int depth) {
    const Entity source = item.GetEntity("MappingSource");
    const Entity representation = source.GetEntity("MappedRepresentation");
    const Key key{representation.GetNumber(), detail};
    auto found = known.find(key);
    if (found == known.end()) {
        found = known.emplace(key, Known{{}, {"A copy of itself is left out."}}).first;
        Known read;
        const Context own{context.model, context.units, read.remarks, context.nested};
        read.body = ReadAll(own, representation, detail, depth + 1);
        found->second = std::move(read);
    }
    context.remarks.insert(found->second.remarks.begin(), found->second.remarks.end());
    const Transform origin = ReadPlacement(context, source.GetEntity("MappingOrigin"));
    return Transformed(found->second.body,
                       Combine(ReadOperator(context, item.GetEntity("MappingTarget")), Inverse(origin)));
}

/// First operands may be results in turn, and often are hundreds deep.
Body ItemReader::ReadBoolean(const Context& context, const Entity& item, Detail detail, int depth) {
    std::vector<Entity> results{item};
    for (const Entity& first : item.GetChain("FirstOperand", LongestChain)) {
        if (!first.IsA("IfcBooleanResult")) break;
        results.push_back(first);
    }
    Body body = Read(context, results.back().GetEntity("FirstOperand"), detail, depth + 1);
    for (auto result = results.rbegin(); result != results.rend(); ++result)
        body = Apply(context, std::move(body), *result, detail, depth);
    return body;
}

Body ItemReader::Apply(const Context& context, Body first, const Entity& result, Detail detail, int depth) {
    const std::string_view operation = result.Get("Operator").GetEnumeration();
    if (detail == Detail::Uncut && operation != "UNION") return first;
    const Entity operand = result.GetEntity("SecondOperand");
    const Body second = operand.IsA("IfcHalfSpaceSolid") ? ReadHalfSpace(context, operand, GetBox(first))
                                                         : Read(context, operand, detail, depth + 1);
    if (detail == Detail::Uncut) return Together(std::move(first), second);
    if (operation == "DIFFERENCE") return Subtract(context, first, second);
    return geometry::Combine(operation == "UNION" ? geometry::Operation::Unite : geometry::Operation::Intersect, first,
                             second);
}

} // namespace workbench::bodies
