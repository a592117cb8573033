// Moves and grows a dialog's items when it is resized, each by its share of the change.
#pragma once

#include "host/Dialogs.h"
#include "host/Host.h"

#include <cstddef>
#include <vector>

namespace General {

/// Fractions of the dialog's change in width (right, wider) and height (down, taller).
struct AnchorFactors {
    double moveRight = 0.0;
    double moveDown = 0.0;
    double growWider = 0.0;
    double growTaller = 0.0;
};

/// Where an item goes when the dialog has changed by so many pixels since registration; whole pixels.
host::Rectangle ComputeAnchored(const host::Rectangle& registered, const AnchorFactors& factors, int widthChange,
                                int heightChange);

/// Smallest dialog extent at which an item of this extent, growing by `factor`, keeps 18 pixels (or what it has).
int ComputeMinimumExtent(int dialogExtent, int itemExtent, double factor);

struct ItemAnchor {
    std::int16_t item;
    AnchorFactors factors;
};

class ResizeAnchoring {
public:
    explicit ResizeAnchoring(host::Host& host) : host(host) {}

    /// Remembers the item's present rectangle and raises the dialog's minimum size. All items of one dialog are
    /// registered at one size of it.
    void Register(host::DialogId dialog, std::int16_t item, const AnchorFactors& factors);
    /// Forgets what was registered before, and registers these; the dialog's minimum size is at least `minimum`.
    void RegisterAll(host::DialogId dialog, const ItemAnchor* items, std::size_t count, host::Size minimum);
    /// Puts every registered item of the dialog where its present size wants it; between begin and end of a move.
    void Apply(host::DialogId dialog);
    void Reset();

private:
    struct Anchor {
        std::int16_t item = 0;
        host::Rectangle registered;
        AnchorFactors factors;
    };

    host::Host& host;
    host::Size registeredSize;
    host::Size minimumSize;
    std::vector<Anchor> anchors;
};

} // namespace General
