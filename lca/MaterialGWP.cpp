#include "lca/MaterialGWP.h"

#include "lca/Numbers.h"
#include "lca/RecordEncodings.h"

#include <algorithm>

namespace lca {

namespace {

void SetPhase(MaterialGWP& values, std::string_view phase, double value) {
    for (auto& [name, existing] : values.byPhase)
        if (name == phase) {
            existing = value;
            return;
        }
    values.byPhase.emplace_back(phase, value);
}

} // namespace

MaterialGWP DecodeMaterialGWP(std::string_view text) {
    MaterialGWP values;
    if (text.find('=') == std::string_view::npos) {
        values.plain = ParseDecimal(text);
        return values;
    }
    for (std::string_view entry : SplitEntries(text)) {
        const auto parts = SplitEntry(entry);
        if (!parts) continue;
        if (const std::optional<double> value = ParseDecimal(parts->second)) SetPhase(values, parts->first, *value);
    }
    return values;
}

std::string EncodeMaterialGWP(const MaterialGWP& values) {
    if (values.plain) return WriteDecimal(*values.plain);
    std::string text;
    for (const auto& [phase, value] : values.byPhase) {
        if (!text.empty()) text += ';';
        text += phase + "=" + WriteDecimal(value);
    }
    return text;
}

double SumMaterialGWP(const MaterialGWP& values, const std::vector<std::string>& usedPhases) {
    if (values.plain) return *values.plain;
    double sum = 0.0;
    for (const auto& [phase, value] : values.byPhase)
        if (std::find(usedPhases.begin(), usedPhases.end(), phase) != usedPhases.end()) sum += value;
    return sum;
}

} // namespace lca
