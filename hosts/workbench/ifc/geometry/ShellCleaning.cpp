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

/// Faces that hang together, with only the points that they use.
struct Part {
    Shell shell;
    std::vector<Index> numbers; ///< of the faces in the whole
};

/// Copies faces into parts; remembers the new numbers of one part's points at a time.
class PartMaker {
public:
    explicit PartMaker(const Shell& whole) : whole(whole), newNumber(whole.points.size(), Unused) {}

    Part Make(std::vector<Index> faces) {
        Part part{{}, std::move(faces)};
        for (const Index face : part.numbers) {
            part.shell.faces.push_back(whole.faces[face]);
            for (PointLoop& loop : part.shell.faces.back().loops)
                for (Index& point : loop)
                    point = NumberOf(point, part.shell);
        }
        for (const Index point : used)
            newNumber[point] = Unused;
        used.clear();
        return part;
    }

private:
    static constexpr Index Unused = static_cast<Index>(-1);

    Index NumberOf(Index point, Shell& part) {
        if (newNumber[point] == Unused) {
            newNumber[point] = static_cast<Index>(part.points.size());
            part.points.push_back(whole.points[point]);
            used.push_back(point);
        }
        return newNumber[point];
    }

    const Shell& whole;
    std::vector<Index> newNumber;
    std::vector<Index> used;
};

std::vector<Part> SplitParts(const Shell& shell, const std::vector<Index>& partOf) {
    const Index count = partOf.empty() ? 0 : *std::max_element(partOf.begin(), partOf.end()) + 1;
    std::vector<std::vector<Index>> facesOf(count);
    for (Index face = 0; face < partOf.size(); ++face)
        facesOf[partOf[face]].push_back(face);
    PartMaker maker(shell);
    std::vector<Part> parts;
    parts.reserve(facesOf.size());
    for (std::vector<Index>& faces : facesOf)
        parts.push_back(maker.Make(std::move(faces)));
    return parts;
}

bool IsFlat(const Shell& part) {
    return std::abs(GetSignedVolumeM3(part)) <= FlatShare * GetSurfaceM2(part) * GetBox(part).GetDiagonal();
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

double CapAreaOf(const Shell& part, Index firstCap, const std::vector<Index>& numbers) {
    double area = 0.0;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (numbers[i] >= firstCap) area += Length(GetDoubledArea(part.points, part.faces[i])) / 2.0;
    return area;
}

/// SHELL is closed; its faces from FIRSTCAP on are our own. Caps of flat parts, as a lone face within the body is one
/// with its cap, do not count.
std::optional<Body> FindSolids(Shell& shell, Index firstCap, const std::vector<EdgeUse>& uses) {
    const std::optional<std::vector<Index>> partOf = OrientFaces(shell.points, shell.faces, uses);
    if (!partOf) return std::nullopt;
    Body body;
    for (Part& part : SplitParts(shell, *partOf)) {
        if (IsFlat(part.shell)) continue;
        body.capAreaM2 += CapAreaOf(part.shell, firstCap, part.numbers);
        if (GetSignedVolumeM3(part.shell) < 0.0) TurnFaces(part.shell);
        body.solids.push_back({std::move(part.shell), 1.0});
    }
    body.status = body.capAreaM2 > 0.0 ? BodyStatus::ClosedByCaps : BodyStatus::Solid;
    return body;
}

Body CloseAndOrient(const Shell& shell) {
    std::vector<EdgeUse> uses = CollectEdgeUses(shell.faces);
    const std::vector<EdgeUse> odd = FindOddEdges(uses);
    const std::optional<Caps> caps = FindCaps(shell.points, odd, GetSurfaceM2(shell));
    if (!caps) return OpenBody(shell);
    Shell closed = shell;
    closed.faces.insert(closed.faces.end(), caps->faces.begin(), caps->faces.end());
    if (!odd.empty()) uses = CollectEdgeUses(closed.faces);
    std::optional<Body> body = FindSolids(closed, static_cast<Index>(shell.faces.size()), uses);
    if (!body) return OpenBody(shell);
    // Of what is closed but flat, both sides are there.
    return body->solids.empty() ? OpenSurface(GetSurfaceM2(shell) / 2.0) : std::move(*body);
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
    return CloseAndOrient(welded);
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
