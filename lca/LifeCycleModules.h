// The modules of EN 15978 by which a material's GWP can be given, in the order in which they are shown.
#pragma once

#include <array>
#include <string_view>

namespace lca {

struct LifeCycleModule {
    std::string_view code;
    bool isUsedByDefault;
};

inline constexpr std::array<LifeCycleModule, 8> LifeCycleModules = {{
    {"A1-A3", true}, // product stage
    {"A4", false},   // transport to the site
    {"B1", false},   // use
    {"C1", false},   // deconstruction, demolition
    {"C2", false},   // transport to waste processing
    {"C3", true},    // waste processing
    {"C4", true},    // disposal
    {"D", false},    // reuse, recovery and recycling potential
}};

} // namespace lca
