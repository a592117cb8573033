#include "workbench/ifc/geometry/Loft.h"

#include "workbench/ifc/geometry/ShellCleaning.h"

namespace workbench::geometry {
namespace {

/// Four points further from a plane than this are two triangles, in metres.
constexpr double PlaneQuadM = 1e-7;

bool AreAlike(const Section& a, const Section& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const auto& first, const auto& second) { return first.size() == second.size(); });
}

Index CountPoints(const Section& section) {
    Index count = 0;
    for (const std::vector<Vector3>& loop : section)
        count += static_cast<Index>(loop.size());
    return count;
}

void AddPoints(const Section& section, Shell& shell) {
    for (const std::vector<Vector3>& loop : section)
        shell.points.insert(shell.points.end(), loop.begin(), loop.end());
}

Face CapOf(const Section& section, Index first) {
    Face cap;
    for (const std::vector<Vector3>& loop : section) {
        cap.loops.emplace_back();
        for (std::size_t i = 0; i < loop.size(); ++i)
            cap.loops.back().push_back(first++);
    }
    return cap;
}

void AddQuad(Index a, Index b, Index c, Index d, Shell& shell) {
    const std::vector<Vector3>& p = shell.points;
    const Vector3 normal = Unit(Cross(p[c] - p[a], p[d] - p[b]));
    if (std::abs(Dot(p[b] - p[a], normal)) + std::abs(Dot(p[d] - p[a], normal)) <= PlaneQuadM) {
        shell.faces.push_back({{{a, b, c, d}}});
    } else {
        shell.faces.push_back({{{a, b, c}}});
        shell.faces.push_back({{{a, c, d}}});
    }
}

/// The faces between the sections whose points begin at BELOW and ABOVE.
void AddSides(const Section& section, Index below, Index above, Shell& shell) {
    for (const std::vector<Vector3>& loop : section) {
        const auto count = static_cast<Index>(loop.size());
        for (Index i = 0; i < count; ++i) {
            const Index next = (i + 1) % count;
            AddQuad(below + i, below + next, above + next, above + i, shell);
        }
        below += count;
        above += count;
    }
}

} // namespace

Section PlaceSection(const Profile& profile, const Transform& place) {
    Section section;
    const auto add = [&](const Loop& loop) {
        section.emplace_back();
        for (const Vector2& point : loop.points)
            section.back().push_back(place.Apply(Raised(point)));
    };
    add(profile.outer);
    for (const Loop& hole : profile.voids)
        add(hole);
    return section;
}

Body Loft(const std::vector<Section>& sections, Ends ends) {
    if (sections.size() < 2) return {};
    Shell shell;
    const Index size = CountPoints(sections.front());
    for (const Section& section : sections) {
        if (!AreAlike(section, sections.front())) return {};
        AddPoints(section, shell);
    }
    const std::size_t count = sections.size();
    for (std::size_t i = 0; i + (ends == Ends::Capped ? 1 : 0) < count; ++i)
        AddSides(sections[i], static_cast<Index>(i) * size, static_cast<Index>((i + 1) % count) * size, shell);
    if (ends == Ends::Capped) {
        shell.faces.push_back(CapOf(sections.front(), 0));
        shell.faces.push_back(CapOf(sections.back(), static_cast<Index>(count - 1) * size));
    }
    return MakeBody(shell);
}

} // namespace workbench::geometry
