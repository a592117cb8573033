#include "workbench/ifc/geometry/ShellCleaning.h"

#include "workbench/ifc/geometry/Caps.h"
#include "workbench/ifc/geometry/Edges.h"
#include "workbench/ifc/geometry/Orientation.h"
#include "workbench/ifc/geometry/PointWeld.h"
#include "workbench/ifc/geometry/TJunctions.h"
#include "workbench/ifc/geometry/TwoSided.h"

namespace workbench::geometry {
namespace {

/// A part with less volume than this share of surface times diagonal is flat.
constexpr double FlatShare = 1e-9;

/// The loop over welded points without repeats; empty where fewer than three are left or one cannot be used.
PointLoop WeldedLoop(const Shell& shell, const PointLoop& loop, const std::vector<Index>& same) {
    PointLoop welded;
    for (const Index point : loop) {
        if (point >= same.size() || !IsUsable(shell.points[point])) return {};
        if (welded.empty() || welded.back() != same[point]) welded.push_back(same[point]);
    }
    while (welded.size() > 1 && welded.back() == welded.front())
        welded.pop_back();
    return welded.size() < 3 ? PointLoop() : welded;
}

/// A face without outer bound has no loops.
Face WeldedFace(const Shell& shell, const Face& face, const std::vector<Index>& same) {
    Face welded;
    for (const PointLoop& loop : face.loops) {
        PointLoop kept = WeldedLoop(shell, loop, same);
        if (kept.empty() && welded.loops.empty()) return {};
        if (!kept.empty()) welded.loops.push_back(std::move(kept));
    }
    return welded;
}

void TurnInnerBounds(const std::vector<Vector3>& points, Face& face) {
    const Vector3 outer = GetDoubledArea(points, face.loops.front());
    for (std::size_t i = 1; i < face.loops.size(); ++i)
        if (Dot(outer, GetDoubledArea(points, face.loops[i])) > 0.0)
            std::reverse(face.loops[i].begin(), face.loops[i].end());
}

Shell Welded(const Shell& shell) {
    const std::vector<Index> same = FindSamePoints(shell.points);
    Shell welded{shell.points, {}};
    welded.faces.reserve(shell.faces.size());
    for (const Face& face : shell.faces) {
        Face kept = WeldedFace(shell, face, same);
        if (kept.loops.empty()) continue;
        TurnInnerBounds(shell.points, kept);
        welded.faces.push_back(std::move(kept));
    }
    return welded;
}

/// How many faces run along each edge of each face, kept up to date while faces are dropped.
class EdgeCounts {
public:
    explicit EdgeCounts(const std::vector<Face>& faces) : starts(faces.size() + 1, 0) {
        const std::vector<EdgeUse> uses = CollectEdgeUses(faces);
        for (const EdgeUse& use : uses)
            ++starts[use.face + 1];
        for (std::size_t i = 1; i < starts.size(); ++i)
            starts[i] += starts[i - 1];
        edgeOf.resize(uses.size());
        std::vector<std::size_t> next(starts.begin(), starts.end() - 1);
        ForEachEdge(uses, [&](std::span<const EdgeUse> edge) {
            for (const EdgeUse& use : edge)
                edgeOf[next[use.face]++] = counts.size();
            counts.push_back(edge.size());
        });
    }

    /// True where each edge of FACE is met an odd number of times, but never once.
    [[nodiscard]] bool IsInner(Index face) const {
        for (std::size_t i = starts[face]; i < starts[face + 1]; ++i)
            if (counts[edgeOf[i]] < 3 || counts[edgeOf[i]] % 2 == 0) return false;
        return true;
    }

    void Drop(Index face) {
        for (std::size_t i = starts[face]; i < starts[face + 1]; ++i)
            --counts[edgeOf[i]];
    }

private:
    std::vector<std::size_t> starts; ///< by face, into edgeOf
    std::vector<std::size_t> edgeOf; ///< into counts
    std::vector<std::size_t> counts; ///< by edge
};

void DropInnerFaces(std::vector<Face>& faces) {
    EdgeCounts counts(faces);
    std::size_t kept = 0;
    for (Index face = 0; face < faces.size(); ++face) {
        if (counts.IsInner(face)) {
            counts.Drop(face);
        } else {
            if (kept != face) faces[kept] = std::move(faces[face]);
            ++kept;
        }
    }
    faces.resize(kept);
}

/// The faces of each part with only the points that they use.
std::vector<Shell> SplitParts(const Shell& shell, const std::vector<Index>& partOf) {
    const Index count = partOf.empty() ? 0 : *std::max_element(partOf.begin(), partOf.end()) + 1;
    std::vector<Shell> parts(count);
    std::vector<std::vector<Index>> facesOf(count);
    for (Index face = 0; face < partOf.size(); ++face)
        facesOf[partOf[face]].push_back(face);
    constexpr Index unused = static_cast<Index>(-1);
    std::vector<Index> newNumber(shell.points.size(), unused);
    for (Index part = 0; part < count; ++part) {
        std::vector<Index> used;
        for (const Index face : facesOf[part]) {
            parts[part].faces.push_back(shell.faces[face]);
            for (PointLoop& loop : parts[part].faces.back().loops) {
                for (Index& point : loop) {
                    if (newNumber[point] == unused) {
                        newNumber[point] = static_cast<Index>(parts[part].points.size());
                        parts[part].points.push_back(shell.points[point]);
                        used.push_back(point);
                    }
                    point = newNumber[point];
                }
            }
        }
        for (const Index point : used)
            newNumber[point] = unused;
    }
    return parts;
}

std::vector<Solid> ToSolids(std::vector<Shell> parts) {
    std::vector<Solid> solids;
    for (Shell& part : parts) {
        const double volume = GetSignedVolumeM3(part);
        if (std::abs(volume) <= FlatShare * GetSurfaceM2(part) * GetBox(part).GetDiagonal()) continue;
        if (volume < 0.0) TurnFaces(part);
        solids.push_back({std::move(part), 1.0});
    }
    return solids;
}

Body OpenSurface(double areaM2) {
    Body body;
    body.status = BodyStatus::OpenSurface;
    body.sheetAreaM2 = areaM2;
    return body;
}

Body OpenBody(const Shell& shell) {
    const std::optional<Plate> plate = FindPlate(shell);
    if (!plate) return OpenSurface(GetSurfaceM2(shell));
    Body body;
    body.status = BodyStatus::TwoSided;
    body.sheetAreaM2 = plate->areaM2;
    body.sheetVolumeM3 = plate->volumeM3;
    return body;
}

/// Every edge of SHELL is met an even number of times.
std::optional<std::vector<Solid>> FindSolids(Shell& shell, const std::vector<EdgeUse>& uses) {
    const std::optional<std::vector<Index>> partOf = OrientFaces(shell.points, shell.faces, uses);
    if (!partOf) return std::nullopt;
    return ToSolids(SplitParts(shell, *partOf));
}

/// Of what is closed but flat, both sides are there.
Body BodyOf(std::vector<Solid> solids, const Shell& shell, double capAreaM2) {
    if (solids.empty()) return OpenSurface(GetSurfaceM2(shell) / 2.0);
    Body body;
    body.status = capAreaM2 > 0.0 ? BodyStatus::ClosedByCaps : BodyStatus::Solid;
    body.solids = std::move(solids);
    body.capAreaM2 = capAreaM2;
    return body;
}

Body CloseAndOrient(Shell shell) {
    std::vector<EdgeUse> uses = CollectEdgeUses(shell.faces);
    const std::vector<EdgeUse> odd = FindOddEdges(uses);
    const std::optional<Caps> caps = FindCaps(shell.points, odd, GetSurfaceM2(shell));
    if (!caps) return OpenBody(shell);
    Shell closed = shell;
    closed.faces.insert(closed.faces.end(), caps->faces.begin(), caps->faces.end());
    if (!odd.empty()) uses = CollectEdgeUses(closed.faces);
    std::optional<std::vector<Solid>> solids = FindSolids(closed, uses);
    return solids ? BodyOf(std::move(*solids), shell, caps->areaM2) : OpenBody(shell);
}

/// Where in BODY the cavity lies, with a margin for rounding.
Solid* FindAround(Body& body, const Box& cavity) {
    for (Solid& solid : body.solids)
        if (IsWithin(cavity, Grown(GetBox(solid.shell), SamePointM))) return &solid;
    return nullptr;
}

} // namespace

Body MakeBody(const Shell& shell) {
    Shell welded = Welded(shell);
    if (welded.faces.empty()) return {};
    SplitTJunctions(welded.points, welded.faces);
    DropInnerFaces(welded.faces);
    return CloseAndOrient(std::move(welded));
}

Body MakeBodyWithCavities(const Shell& outer, const std::vector<Shell>& cavities) {
    Body body = MakeBody(outer);
    for (const Shell& cavity : cavities) {
        for (Solid& hollow : MakeBody(cavity).solids) {
            Solid* around = FindAround(body, GetBox(hollow.shell));
            if (around == nullptr) continue;
            TurnFaces(hollow.shell);
            Append(around->shell, hollow.shell);
        }
    }
    return body;
}

} // namespace workbench::geometry
