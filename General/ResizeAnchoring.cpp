#include "General/ResizeAnchoring.h"

#include <algorithm>
#include <cmath>

namespace General {

namespace {

constexpr int SmallestItemExtent = 18;

std::int16_t Pixels(double value) {
    return static_cast<std::int16_t>(value);
}

} // namespace

host::Rectangle ComputeAnchored(const host::Rectangle& registered, const AnchorFactors& factors, int widthChange,
                                int heightChange) {
    return {Pixels(registered.left + widthChange * factors.moveRight),
            Pixels(registered.top + heightChange * factors.moveDown),
            Pixels(registered.width + widthChange * factors.growWider),
            Pixels(registered.height + heightChange * factors.growTaller)};
}

int ComputeMinimumExtent(int dialogExtent, int itemExtent, double factor) {
    if (factor <= 0.0) return 0;
    const int spare = itemExtent - std::min(itemExtent, SmallestItemExtent);
    return static_cast<int>(std::ceil(dialogExtent - spare / factor));
}

void ResizeAnchoring::Register(host::DialogId dialog, std::int16_t item, const AnchorFactors& factors) {
    registeredSize = host.GetDialogs().ReadSize(dialog);
    const host::Rectangle rectangle = host.GetDialogItems().ReadRectangle(dialog, item);
    anchors.push_back({item, rectangle, factors});
    const auto raise = [](std::int16_t& minimum, int extent) {
        minimum = static_cast<std::int16_t>(std::max<int>(minimum, extent));
    };
    raise(minimumSize.width, ComputeMinimumExtent(registeredSize.width, rectangle.width, factors.growWider));
    raise(minimumSize.height, ComputeMinimumExtent(registeredSize.height, rectangle.height, factors.growTaller));
    host.GetDialogs().SetMinimumSize(dialog, minimumSize);
}

void ResizeAnchoring::RegisterAll(host::DialogId dialog, const ItemAnchor* items, std::size_t count,
                                  host::Size minimum) {
    Reset();
    minimumSize = minimum;
    for (const ItemAnchor* anchor = items; anchor != items + count; ++anchor)
        Register(dialog, anchor->item, anchor->factors);
}

void ResizeAnchoring::Apply(host::DialogId dialog) {
    const host::Size size = host.GetDialogs().ReadSize(dialog);
    for (const Anchor& anchor : anchors)
        host.GetDialogItems().SetRectangle(dialog, anchor.item,
                                           ComputeAnchored(anchor.registered, anchor.factors,
                                                           size.width - registeredSize.width,
                                                           size.height - registeredSize.height));
}

void ResizeAnchoring::Reset() {
    anchors.clear();
    minimumSize = {};
}

} // namespace General
