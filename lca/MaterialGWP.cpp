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

double GetPhaseGWP(const MaterialGWP& values, std::string_view phase, std::string_view firstUsedPhase) {
    if (values.plain) return phase == firstUsedPhase ? *values.plain : 0.0;
    for (const auto& [name, value] : values.byPhase)
        if (name == phase) return value;
    return 0.0;
}

std::string SetPhaseGWP(std::string_view text, std::string_view phase, std::string_view firstUsedPhase, double value) {
    std::string former(text);
    if (DecodeMaterialGWP(text).plain) former.insert(0, std::string(firstUsedPhase) + "=");
    const std::string entry = std::string(phase) + "=" + WriteDecimal(value);
    std::string result;
    bool isSet = false;
    const auto append = [&](std::string_view part) {
        if (!result.empty()) result += ';';
        result += part;
    };
    for (const std::string_view part : SplitEntries(former)) {
        const auto parts = SplitEntry(part);
        const bool isOfPhase = parts && parts->first == phase;
        if (!isOfPhase) append(part);
        if (isOfPhase && !isSet) append(entry);
        isSet = isSet || isOfPhase;
    }
    if (!isSet) append(entry);
    return result;
}

double SumMaterialGWP(const MaterialGWP& values, const std::vector<std::string>& usedPhases) {
    if (values.plain) return *values.plain;
    double sum = 0.0;
    for (const auto& [phase, value] : values.byPhase)
        if (std::find(usedPhases.begin(), usedPhases.end(), phase) != usedPhases.end()) sum += value;
    return sum;
}

} // namespace lca
