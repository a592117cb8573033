#include "workbench/ifc/bodies/Faces.h"

#include <unordered_map>

#include "workbench/ifc/bodies/Curves.h"
#include "workbench/ifc/bodies/Placements.h"
#include "workbench/ifc/geometry/ShellCleaning.h"

namespace workbench::bodies {
namespace {

using entities::Entity;
using geometry::Body;
using geometry::Face;
using geometry::Index;
using geometry::PointLoop;
using geometry::Shell;
using geometry::Vector3;

/// Makes one shell of IfcFace entities; points that are one entity are one point.
class ShellReader {
public:
    explicit ShellReader(const Context& context) : context(context) {}

    void AddFaces(const Entity& faceSet) {
        for (const Entity& face : faceSet.GetEntities("CfsFaces"))
            AddFace(face);
    }

    /// False where a face is curved or has an edge that is not computed.
    [[nodiscard]] bool IsComplete() const { return isComplete; }
    Shell Take() { return std::move(shell); }

private:
    void AddFace(const Entity& face) {
        const Entity surface = face.GetEntity("FaceSurface");
        if (!surface.IsNone() && !surface.IsA("IfcPlane")) return Refuse(face, surface);
        Face read;
        bool hasOuter = false;
        for (const Entity& bound : face.GetEntities("Bounds")) {
            PointLoop loop = ReadLoop(bound.GetEntity("Bound"));
            if (loop.size() < 3) continue;
            // The outer bound comes first, wherever the file has it.
            const bool isOuter = bound.IsA("IfcFaceOuterBound") && !hasOuter;
            hasOuter = hasOuter || isOuter;
            read.loops.insert(isOuter ? read.loops.begin() : read.loops.end(), std::move(loop));
        }
        if (!hasOuter) PutLargestFirst(read);
        if (!read.loops.empty()) shell.faces.push_back(std::move(read));
    }

    void Refuse(const Entity& face, const Entity& surface) {
        isComplete = false;
        context.remarks.insert(std::string(face.GetTypeName()) + " over " + std::string(surface.GetTypeName()) +
                               " is not computed.");
    }

    void PutLargestFirst(Face& face) const {
        const auto size = [&](const PointLoop& loop) { return Length(GetDoubledArea(shell.points, loop)); };
        const auto largest =
            std::max_element(face.loops.begin(), face.loops.end(),
                             [&](const PointLoop& a, const PointLoop& b) { return size(a) < size(b); });
        if (largest != face.loops.end()) std::iter_swap(face.loops.begin(), largest);
    }

    PointLoop ReadLoop(const Entity& loop) {
        PointLoop read;
        if (loop.IsA("IfcPolyLoop")) {
            for (const Entity& point : loop.GetEntities("Polygon"))
                read.push_back(NumberOf(point));
        } else if (loop.IsA("IfcEdgeLoop")) {
            for (const Entity& edge : loop.GetEntities("EdgeList"))
                AddEdge(edge, read);
        }
        return read;
    }

    /// All points of an oriented edge but its last, where the next edge begins.
    void AddEdge(const Entity& oriented, PointLoop& loop) {
        const Entity edge = oriented.IsA("IfcOrientedEdge") ? oriented.GetEntity("EdgeElement") : oriented;
        const bool isForward = oriented.Get("Orientation").GetLogical().value_or(true);
        const Entity start = edge.GetEntity(isForward ? "EdgeStart" : "EdgeEnd").GetEntity("VertexGeometry");
        loop.push_back(NumberOf(start));
        const Entity curve = edge.GetEntity("EdgeGeometry");
        if (curve.IsNone() || curve.IsA("IfcLine") || curve.IsA("IfcPolyline")) return;
        isComplete = false;
        context.remarks.insert("An edge along an " + std::string(curve.GetTypeName()) + " is not computed.");
    }

    Index NumberOf(const Entity& point) {
        const auto [known, isNew] = numbers.try_emplace(point.GetNumber(), static_cast<Index>(shell.points.size()));
        if (isNew) shell.points.push_back(ReadPoint(context, point));
        return known->second;
    }

    const Context& context;
    Shell shell;
    std::unordered_map<step::EntityNumber, Index> numbers;
    bool isComplete = true;
};

std::optional<Shell> ReadShell(const Context& context, const std::vector<Entity>& faceSets) {
    ShellReader reader(context);
    for (const Entity& faceSet : faceSets)
        reader.AddFaces(faceSet);
    if (!reader.IsComplete()) return std::nullopt;
    return reader.Take();
}

Body ReadBrep(const Context& context, const Entity& brep) {
    const std::optional<Shell> outer = ReadShell(context, {brep.GetEntity("Outer")});
    if (!outer) return {};
    std::vector<Shell> cavities;
    for (const Entity& cavity : brep.GetEntities("Voids"))
        if (auto shell = ReadShell(context, {cavity})) cavities.push_back(std::move(*shell));
    return geometry::MakeBodyWithCavities(*outer, cavities);
}

Body ReadSurfaces(const Context& context, const std::vector<Entity>& faceSets) {
    const std::optional<Shell> shell = ReadShell(context, faceSets);
    return shell ? geometry::MakeBody(*shell) : Body{};
}

// Face sets over a list of points

/// Numbers of points, which the file counts from 1, perhaps through another list.
class Numbering {
public:
    explicit Numbering(const Entity& faceSet) {
        for (const step::Value& index : faceSet.Get("PnIndex"))
            through.push_back(index.GetInteger().value_or(0));
    }

    [[nodiscard]] PointLoop ReadLoop(const step::Value& indices) const {
        PointLoop loop;
        for (const step::Value& index : indices)
            loop.push_back(NumberOf(index.GetInteger().value_or(0)));
        return loop;
    }

private:
    /// Out of range, so that the face is dropped, for numbers that are none.
    [[nodiscard]] Index NumberOf(std::int64_t written) const {
        constexpr Index None = static_cast<Index>(-1);
        if (!through.empty())
            written = written >= 1 && written <= static_cast<std::int64_t>(through.size())
                          ? through[static_cast<std::size_t>(written - 1)]
                          : 0;
        return written >= 1 && written < None ? static_cast<Index>(written - 1) : None;
    }

    std::vector<std::int64_t> through;
};

Face ReadPolygon(const Entity& polygon, const Numbering& numbering) {
    Face face{{numbering.ReadLoop(polygon.Get("CoordIndex"))}};
    for (const step::Value& inner : polygon.Get("InnerCoordIndices"))
        face.loops.push_back(numbering.ReadLoop(inner));
    return face;
}

Body ReadFaceSet(const Context& context, const Entity& faceSet) {
    Shell shell{ReadPointList(context, faceSet.GetEntity("Coordinates")), {}};
    const Numbering numbering(faceSet);
    for (const step::Value& triangle : faceSet.Get("CoordIndex"))
        shell.faces.push_back({{numbering.ReadLoop(triangle)}});
    for (const Entity& polygon : faceSet.GetEntities("Faces"))
        shell.faces.push_back(ReadPolygon(polygon, numbering));
    return geometry::MakeBody(shell);
}

} // namespace

std::optional<Body> ReadFaces(const Context& context, const Entity& item) {
    if (item.IsA("IfcManifoldSolidBrep")) return ReadBrep(context, item);
    if (item.IsA("IfcFaceBasedSurfaceModel")) return ReadSurfaces(context, item.GetEntities("FbsmFaces"));
    if (item.IsA("IfcShellBasedSurfaceModel")) return ReadSurfaces(context, item.GetEntities("SbsmBoundary"));
    if (item.IsA("IfcConnectedFaceSet")) return ReadSurfaces(context, {item});
    if (item.IsA("IfcTessellatedFaceSet")) return ReadFaceSet(context, item);
    return std::nullopt;
}

} // namespace workbench::bodies
