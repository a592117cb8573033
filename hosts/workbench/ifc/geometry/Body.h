// A body: solids with outward faces and how they came about, and what can be measured of it.
#pragma once

#include "workbench/ifc/geometry/Shell.h"

namespace workbench::geometry {

enum class BodyStatus : std::uint8_t {
    Empty,        ///< there are no faces
    Solid,        ///< every solid is closed
    ClosedByCaps, ///< small or flat gaps were closed by faces of our own
    TwoSided,     ///< open, but two parallel sides of nearly one size: a plate of their distance; no solids
    OpenSurface,  ///< open: an area and no volume
    GivenUp,      ///< an operation took too long or failed; what is left is as it was before
};

/// One connected closed part with the cavities in it.
struct Solid {
    Shell shell; ///< faces look outward
    /// The true volume over that of the faces, which have chords in place of arcs.
    double volumeRatio = 1.0;
};

struct Body {
    BodyStatus status = BodyStatus::Empty;
    std::vector<Solid> solids;
    double capAreaM2 = 0.0;     ///< of the caps of ClosedByCaps
    double sheetAreaM2 = 0.0;   ///< TwoSided: the mean of both sides; OpenSurface: all of it
    double sheetVolumeM3 = 0.0; ///< TwoSided
    double deductedM3 = 0.0;    ///< taken off by calculation where the faces could not be cut
};

[[nodiscard]] double GetVolumeM3(const Solid& solid);

/// Solids that overlap count each.
[[nodiscard]] double GetVolumeM3(const Body& body);

/// Of the solids, without faces inside; of an open surface or a plate its area on one side.
[[nodiscard]] double GetSurfaceM2(const Body& body);

/// What the body covers seen from above, each solid by itself.
[[nodiscard]] double GetPlanAreaM2(const Body& body);

[[nodiscard]] Box GetBox(const Body& body);

/// Volumes and areas go with the map; the areas of caps and sheets as if it scaled evenly. GivenUp without solids where
/// points come to lie beyond what can be worked with.
[[nodiscard]] Body Transformed(Body body, const Transform& transform);

/// Both side by side, uncut. The status is the worse of the two.
[[nodiscard]] Body Together(Body body, Body other);

/// A body whose true volume is known: sets the ratio of its solids. Left alone where that is off from the faces by more
/// than chords explain.
void SetTrueVolume(Body& body, double volumeM3);

} // namespace workbench::geometry
