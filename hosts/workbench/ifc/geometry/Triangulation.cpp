#include "workbench/ifc/geometry/Triangulation.h"

#include <optional>

namespace workbench::geometry {
namespace {

constexpr std::size_t MostPoints = 20'000;
/// Looks at corners until which ears are chosen with care.
constexpr std::size_t MostLooks = 400'000'000;

struct Corner {
    Vector2 point;
    Index number = 0;
};

using Ring = std::vector<Corner>;

/// Twice the area of the triangle, above 0 where it runs to the left.
double Turning(const Vector2& a, const Vector2& b, const Vector2& c) {
    return Cross(b - a, c - a);
}

double DoubledArea(const Ring& ring) {
    double doubled = 0.0;
    for (std::size_t i = 2; i < ring.size(); ++i)
        doubled += Turning(ring[0].point, ring[i - 1].point, ring[i].point);
    return doubled;
}

/// How a triangle treats points on its border: the first way makes good triangles, the second finds ears where holes
/// touch the outline, the last ends the work where loops cross.
enum class Care : std::uint8_t { KeepBorderFree, KeepInsideFree, TakeAny };

bool IsInside(const Vector2& p, const Vector2& a, const Vector2& b, const Vector2& c, Care care) {
    const double ab = Turning(a, b, p);
    const double bc = Turning(b, c, p);
    const double ca = Turning(c, a, p);
    return care == Care::KeepBorderFree ? ab >= 0.0 && bc >= 0.0 && ca >= 0.0 : ab > 0.0 && bc > 0.0 && ca > 0.0;
}

/// A ring that runs to the left, from which ears are cut until nothing is left.
class EarClipper {
public:
    explicit EarClipper(const Ring& ring) : ring(ring), left(ring.size()) {
        double size = 0.0;
        for (std::size_t i = 0; i < left; ++i) {
            next.push_back(static_cast<Index>((i + 1) % left));
            before.push_back(static_cast<Index>((i + left - 1) % left));
            size = std::max(size, Length(ring[i].point - ring[0].point));
        }
        flat = 1e-14 * size * size;
        for (Index i = 0; i < ring.size(); ++i)
            if (IsReflex(i)) reflex.push_back(i);
    }

    std::vector<Triangle> Run() {
        Index at = 0;
        std::size_t failures = 0;
        auto care = Care::KeepBorderFree;
        while (left > 2) {
            if (CanCut(at, care)) {
                at = Cut(at);
                failures = 0;
                care = looks < MostLooks ? Care::KeepBorderFree : Care::TakeAny;
            } else {
                at = next[at];
                if (++failures < left) continue;
                failures = 0;
                care = care == Care::KeepBorderFree ? Care::KeepInsideFree : Care::TakeAny;
            }
        }
        return std::move(triangles);
    }

private:
    [[nodiscard]] const Vector2& At(Index i) const { return ring[i].point; }
    [[nodiscard]] double TurningAt(Index i) const { return Turning(At(before[i]), At(i), At(next[i])); }
    [[nodiscard]] bool IsReflex(Index i) const { return TurningAt(i) < 0.0; }

    [[nodiscard]] bool CanCut(Index i, Care care) {
        if (care == Care::TakeAny) return true;
        const double turning = TurningAt(i);
        if (std::abs(turning) <= flat) return true;
        return turning > 0.0 && IsFree(i, care);
    }

    /// True where no corner that turns inward lies in the ear at I.
    [[nodiscard]] bool IsFree(Index i, Care care) {
        const Vector2& a = At(before[i]);
        const Vector2& b = At(i);
        const Vector2& c = At(next[i]);
        const Vector2 low{std::min({a.x, b.x, c.x}), std::min({a.y, b.y, c.y})};
        const Vector2 high{std::max({a.x, b.x, c.x}), std::max({a.y, b.y, c.y})};
        looks += reflex.size();
        return std::none_of(reflex.begin(), reflex.end(), [&](Index other) {
            const Vector2& p = At(other);
            if (p.x < low.x || p.x > high.x || p.y < low.y || p.y > high.y) return false;
            return p != a && p != b && p != c && IsInside(p, a, b, c, care);
        });
    }

    Index Cut(Index i) {
        const Index from = before[i];
        const Index to = next[i];
        if (std::abs(TurningAt(i)) > flat) triangles.push_back({ring[from].number, ring[i].number, ring[to].number});
        next[from] = to;
        before[to] = from;
        --left;
        std::erase_if(reflex,
                      [&](Index other) { return other == i || ((other == from || other == to) && !IsReflex(other)); });
        return from;
    }

    const Ring& ring;
    std::vector<Index> next, before;
    std::vector<Index> reflex;
    std::vector<Triangle> triangles;
    std::size_t left;
    std::size_t looks = 0;
    double flat = 0.0;
};

/// Where the ray from a point to the right first meets a ring.
struct Hit {
    std::size_t edge = 0;
    double x = 0.0;
};

std::optional<Hit> FindHit(const Ring& ring, const Vector2& from) {
    std::optional<Hit> nearest;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vector2& a = ring[i].point;
        const Vector2& b = ring[(i + 1) % ring.size()].point;
        // What bounds the inside to the right runs upward.
        if (!(a.y <= from.y && from.y <= b.y && a.y < b.y)) continue;
        const double x = a.x + (b.x - a.x) * (from.y - a.y) / (b.y - a.y);
        if (x >= from.x && (!nearest || x < nearest->x)) nearest = Hit{i, x};
    }
    return nearest;
}

std::size_t FindNearest(const Ring& ring, const Vector2& from) {
    const auto distance = [&](const Corner& corner) { return Length(corner.point - from); };
    const auto nearest = std::min_element(ring.begin(), ring.end(),
                                          [&](const Corner& a, const Corner& b) { return distance(a) < distance(b); });
    return static_cast<std::size_t>(nearest - ring.begin());
}

/// The corner of RING that FROM, a point within it, sees: an end of the edge to its right, or a corner before that.
std::size_t FindVisible(const Ring& ring, const Vector2& from) {
    const std::optional<Hit> hit = FindHit(ring, from);
    if (!hit) return FindNearest(ring, from);
    const std::size_t other = (hit->edge + 1) % ring.size();
    std::size_t best = ring[hit->edge].point.x > ring[other].point.x ? hit->edge : other;
    const Vector2 on{hit->x, from.y};
    const Vector2 end = ring[best].point;
    const bool isAbove = end.y > from.y;
    double bestSlope = std::abs(end.y - from.y) / (end.x - from.x);
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vector2& p = ring[i].point;
        const Vector2& second = isAbove ? on : end;
        const Vector2& third = isAbove ? end : on;
        if (p == end || !(p.x > from.x) || !IsInside(p, from, second, third, Care::KeepBorderFree)) continue;
        const double slope = std::abs(p.y - from.y) / (p.x - from.x);
        if (slope < bestSlope || (slope == bestSlope && p.x < ring[best].point.x)) {
            best = i;
            bestSlope = slope;
        }
    }
    return best;
}

std::size_t FindRightmost(const Ring& ring) {
    const auto right = std::max_element(ring.begin(), ring.end(),
                                        [](const Corner& a, const Corner& b) { return a.point.x < b.point.x; });
    return static_cast<std::size_t>(right - ring.begin());
}

/// Makes one ring of both by a cut there and back.
void JoinHole(Ring& ring, const Ring& hole) {
    const auto start = static_cast<std::ptrdiff_t>(FindRightmost(hole));
    const auto at = static_cast<std::ptrdiff_t>(FindVisible(ring, hole[static_cast<std::size_t>(start)].point));
    Ring way(hole.begin() + start, hole.end());
    way.insert(way.end(), hole.begin(), hole.begin() + start + 1);
    way.push_back(ring[static_cast<std::size_t>(at)]);
    ring.insert(ring.begin() + at + 1, way.begin(), way.end());
}

/// The loops as rings, the outline turned to the left and holes to the right; a loop without area goes.
std::vector<Ring> ToRings(const std::vector<std::vector<Vector2>>& loops) {
    std::vector<Ring> rings;
    Index number = 0;
    for (const std::vector<Vector2>& loop : loops) {
        Ring ring;
        for (const Vector2& point : loop)
            ring.push_back({point, number++});
        const double area = DoubledArea(ring);
        if (area == 0.0 && !rings.empty()) continue;
        if ((area < 0.0) == rings.empty()) std::reverse(ring.begin(), ring.end());
        rings.push_back(std::move(ring));
    }
    return rings;
}

double RightEnd(const Ring& ring) {
    return ring[FindRightmost(ring)].point.x;
}

} // namespace

std::vector<Triangle> Triangulate(const std::vector<std::vector<Vector2>>& loops) {
    std::size_t points = 0;
    for (const std::vector<Vector2>& loop : loops)
        points += loop.size() + 2;
    if (loops.empty() || loops.front().size() < 3 || points > MostPoints) return {};
    std::vector<Ring> rings = ToRings(loops);
    const bool isTurned = rings.front().front().number != 0;
    std::sort(rings.begin() + 1, rings.end(), [](const Ring& a, const Ring& b) { return RightEnd(a) > RightEnd(b); });
    for (std::size_t i = 1; i < rings.size(); ++i)
        JoinHole(rings.front(), rings[i]);
    std::vector<Triangle> triangles = EarClipper(rings.front()).Run();
    if (isTurned)
        for (Triangle& triangle : triangles)
            std::swap(triangle[1], triangle[2]);
    return triangles;
}

Transform PlaneFrame(const Vector3& normal) {
    return Frame({}, normal, AnyNormalTo(normal));
}

std::vector<Triangle> Triangulate(const Shell& shell, const Face& face) {
    const Transform frame = PlaneFrame(GetDoubledArea(shell.points, face));
    std::vector<std::vector<Vector2>> loops;
    PointLoop numbers;
    for (const PointLoop& loop : face.loops) {
        loops.emplace_back();
        for (const Index point : loop) {
            const Vector3 from = shell.points[point] - shell.points[face.loops[0][0]];
            loops.back().push_back({Dot(from, frame.x), Dot(from, frame.y)});
            numbers.push_back(point);
        }
    }
    std::vector<Triangle> triangles = Triangulate(loops);
    for (Triangle& triangle : triangles)
        for (Index& corner : triangle)
            corner = numbers[corner];
    return triangles;
}

std::vector<Triangle> Triangulate(const Shell& shell) {
    std::vector<Triangle> triangles;
    for (const Face& face : shell.faces) {
        const std::vector<Triangle> more = Triangulate(shell, face);
        triangles.insert(triangles.end(), more.begin(), more.end());
    }
    return triangles;
}

} // namespace workbench::geometry
