#include "workbench/ifc/geometry/BspTree.h"

#include <array>

namespace workbench::geometry {
namespace {

constexpr std::size_t Candidates = 4;
/// Above so many polygons candidates are held against a sample only.
constexpr std::size_t SampleSize = 256;
/// A polygon cut in two costs as much as the halves being unequal by so many.
constexpr double CostOfCut = 4.0;

/// The largest polygons, by number.
std::vector<std::size_t> FindLargest(const Polygons& polygons) {
    std::vector<std::pair<double, std::size_t>> largest;
    for (std::size_t i = 0; i < polygons.size(); ++i) {
        const double area = GetAreaM2(polygons[i]);
        if (largest.size() == Candidates && area <= largest.back().first) continue;
        if (largest.size() == Candidates) largest.pop_back();
        const auto place = std::find_if(largest.begin(), largest.end(), [&](const auto& l) { return l.first < area; });
        largest.insert(place, {area, i});
    }
    std::vector<std::size_t> numbers;
    numbers.reserve(largest.size());
    for (const auto& [area, number] : largest)
        numbers.push_back(number);
    return numbers;
}

double CostOf(const Plane& plane, const Polygons& polygons, Budget& budget) {
    std::array<double, 4> counts{};
    const std::size_t step = 1 + polygons.size() / SampleSize;
    for (std::size_t i = 0; i < polygons.size(); i += step)
        ++counts[static_cast<std::size_t>(FindSide(polygons[i], plane))];
    budget.Spend(polygons.size() / step);
    const auto count = [&](Side side) { return counts[static_cast<std::size_t>(side)]; };
    return CostOfCut * count(Side::Across) + std::abs(count(Side::InFront) - count(Side::Behind));
}

/// The plane of one of the largest faces, that which cuts fewest.
Plane ChoosePlane(const Polygons& polygons, Budget& budget) {
    const std::vector<std::size_t> largest = FindLargest(polygons);
    std::size_t best = largest.front();
    double bestCost = CostOf(polygons[best].plane, polygons, budget);
    for (const std::size_t candidate : largest) {
        if (candidate == largest.front()) continue;
        const double cost = CostOf(polygons[candidate].plane, polygons, budget);
        if (cost < bestCost) best = candidate;
        bestCost = std::min(cost, bestCost);
    }
    return polygons[best].plane;
}

/// What a plane makes of a set of polygons.
struct Halves {
    Polygons front, back;
    double sameArea = 0.0;     ///< of those in the plane that look as it does
    double oppositeArea = 0.0; ///< and the other way
    std::size_t cuts = 0;
};

Halves Divide(Polygons&& polygons, const Plane& plane) {
    Halves halves;
    for (ConvexPolygon& polygon : polygons) {
        ConvexPolygon front;
        ConvexPolygon back;
        switch (Split(polygon, plane, front, back)) {
        case Side::InFront:
            halves.front.push_back(std::move(polygon));
            break;
        case Side::Behind:
            halves.back.push_back(std::move(polygon));
            break;
        case Side::Across:
            halves.front.push_back(std::move(front));
            halves.back.push_back(std::move(back));
            ++halves.cuts;
            break;
        case Side::OnPlane:
            (Dot(polygon.plane.normal, plane.normal) > 0.0 ? halves.sameArea : halves.oppositeArea) +=
                GetAreaM2(polygon);
            break;
        }
    }
    return halves;
}

} // namespace

/// Polygons still to be made a subtree, and whose child it will be.
struct BspTree::Open {
    Polygons polygons;
    int parent = OutsideLeaf; ///< none: the root
    bool isFront = false;
};

int& BspTree::ChildAt(int parent, bool isFront) {
    if (parent < 0) return root;
    Node& node = nodes[static_cast<std::size_t>(parent)];
    return isFront ? node.front : node.back;
}

void BspTree::Grow(Open here, std::vector<Open>& open, Budget& budget) {
    const Plane plane = ChoosePlane(here.polygons, budget);
    budget.Spend(here.polygons.size());
    Halves halves = Divide(std::move(here.polygons), plane);
    pieces += halves.cuts;
    const auto number = static_cast<int>(nodes.size());
    ChildAt(here.parent, here.isFront) = number;
    // Faces of both directions in one plane are what a wall of no thickness leaves; the larger area decides.
    const bool isOutsideInFront = halves.sameArea >= halves.oppositeArea;
    nodes.push_back({plane, isOutsideInFront ? OutsideLeaf : InsideLeaf, isOutsideInFront ? InsideLeaf : OutsideLeaf});
    if (!halves.front.empty()) open.push_back({std::move(halves.front), number, true});
    if (!halves.back.empty()) open.push_back({std::move(halves.back), number, false});
}

BspTree::BspTree(Polygons polygons, Budget& budget) : pieces(polygons.size()) {
    std::vector<Open> open;
    if (!polygons.empty()) open.push_back({std::move(polygons), OutsideLeaf, false});
    budget.CountOperand(pieces);
    while (!open.empty() && !budget.IsExceeded()) {
        Open next = std::move(open.back());
        open.pop_back();
        Grow(std::move(next), open, budget);
        budget.CountOperand(pieces);
    }
}

/// A polygon's way down the tree. A piece that comes to lie in a plane of the tree asks first what is before it and
/// then what is behind it; further planes in which it lies send it to the side that is asked for.
class BspTree::Descent {
public:
    Descent(const BspTree& tree, const ConvexPolygon& polygon) : tree(tree) { open.push_back({polygon, tree.root}); }

    [[nodiscard]] bool IsDone() const { return open.empty(); }

    void Step() {
        Probe probe = std::move(open.back());
        open.pop_back();
        const int node = probe.node;
        if (node < 0) {
            Settle(std::move(probe));
        } else {
            Descend(std::move(probe), tree.nodes[static_cast<std::size_t>(node)]);
        }
    }

    std::vector<PlacedPiece> TakePlaced() { return std::move(placed); }

private:
    enum class Phase : std::uint8_t { Free, Before, Behind };

    struct Probe {
        ConvexPolygon polygon;
        int node = OutsideLeaf;
        Phase phase = Phase::Free;
        int behind = OutsideLeaf;    ///< where to ask for what is behind
        bool isBeforeInside = false; ///< what was found before
    };

    void Settle(Probe probe) {
        using enum Place;
        const bool isInside = probe.node == InsideLeaf;
        if (probe.phase == Phase::Before) {
            open.push_back({std::move(probe.polygon), probe.behind, Phase::Behind, OutsideLeaf, isInside});
        } else if (probe.phase == Phase::Free || probe.isBeforeInside == isInside) {
            placed.push_back({std::move(probe.polygon), isInside ? Inside : Outside});
        } else {
            placed.push_back({std::move(probe.polygon), isInside ? OnSame : OnOpposite});
        }
    }

    void Descend(Probe probe, const Node& node) {
        ConvexPolygon front;
        ConvexPolygon back;
        switch (Split(probe.polygon, node.plane, front, back)) {
        case Side::InFront:
            GoOn(node.front, std::move(probe));
            break;
        case Side::Behind:
            GoOn(node.back, std::move(probe));
            break;
        case Side::Across:
            open.push_back({std::move(front), node.front, probe.phase, probe.behind, probe.isBeforeInside});
            open.push_back({std::move(back), node.back, probe.phase, probe.behind, probe.isBeforeInside});
            break;
        case Side::OnPlane:
            LieOn(node, std::move(probe));
            break;
        }
    }

    void LieOn(const Node& node, Probe probe) {
        const bool looksAlike = Dot(probe.polygon.plane.normal, node.plane.normal) > 0.0;
        const int before = looksAlike ? node.front : node.back;
        const int behind = looksAlike ? node.back : node.front;
        if (probe.phase == Phase::Free) {
            probe.phase = Phase::Before;
            probe.behind = behind;
        }
        const int next = probe.phase == Phase::Before ? before : behind;
        GoOn(next, std::move(probe));
    }

    void GoOn(int node, Probe probe) {
        probe.node = node;
        open.push_back(std::move(probe));
    }

    const BspTree& tree;
    std::vector<Probe> open;
    std::vector<PlacedPiece> placed;
};

std::vector<PlacedPiece> BspTree::Cut(const ConvexPolygon& polygon, Budget& budget) const {
    Descent descent(*this, polygon);
    while (!descent.IsDone() && !budget.IsExceeded()) {
        descent.Step();
        budget.Spend(1);
    }
    return descent.TakePlaced();
}

} // namespace workbench::geometry
