#include "workbench/app/RecordSettings.h"

#include "workbench/app/Text.h"

#include "lca/Numbers.h"
#include "lca/RecordEncodings.h"

#include <algorithm>

namespace workbench {

namespace {

constexpr char PerAreaAndYearText[] = "GWP_KG_M2_A";

std::string Trim(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string ListKeys() {
    std::string keys;
    for (std::size_t i = lca::FirstProjectKey; i < lca::PropertyKeyCount; ++i)
        keys.append(lca::GetKeyText(static_cast<lca::PropertyKey>(i))).append(", ");
    return keys + StandardsUnitKey;
}

/// Every entry must be readable: decoding and encoding again keeps as many entries as were given.
bool IsWholeText(lca::PropertyKey key, const std::string& text) {
    if (key == lca::PropertyKey::Phases) return true;
    lca::LCAProjectData record;
    lca::BeginLoad(record);
    lca::StoredValue stored;
    stored.text = text;
    lca::ReadStoredValue(key, stored, record);
    lca::WriteStoredValue(key, record, stored);
    return lca::SplitEntries(stored.text).size() == lca::SplitEntries(text).size();
}

constexpr char NegativeArea[] = "an area is 0 or more";

bool IsArea(lca::PropertyKey key) {
    return key == lca::PropertyKey::GrossFloorArea || key == lca::PropertyKey::ReferenceFloorArea;
}

bool HasNegativeArea(const std::string& floorSettings) {
    lca::LCAProjectData record;
    lca::DecodeFloorSettings(floorSettings, record);
    for (const lca::FloorQuantity area : {lca::FloorQuantity::GrossFloorArea, lca::FloorQuantity::ReferenceFloorArea})
        if (lca::ValueOr(record.enteredFloorValues, area, 0.0) < 0.0 ||
            lca::ValueOr(record.evaluatedFloorValues, area, 0.0) < 0.0)
            return true;
    return false;
}

/// What is wrong with a value; empty when it fits.
std::string FindFault(const std::string& keyText, const std::string& value) {
    if (keyText == StandardsUnitKey)
        return value == "GWP_KG" || value == "GWP_KG_M2" || value == PerAreaAndYearText
                   ? ""
                   : "the unit is GWP_KG, GWP_KG_M2 or GWP_KG_M2_A";
    const std::optional<lca::PropertyKey> key = lca::FindPropertyKey(keyText);
    if (!key || !lca::IsProjectKey(*key)) return "the key is unknown; keys are " + ListKeys();
    switch (lca::GetStoredKind(*key)) {
    case lca::StoredKind::Integer: {
        const std::optional<double> number = lca::ParseDecimal(value);
        const std::optional<std::int32_t> whole = lca::ParseWholeNumber(value);
        return whole && *whole >= 0 && *number == *whole ? "" : "the value is whole years, 0 or more";
    }
    case lca::StoredKind::Real: {
        const std::optional<double> number = lca::ParseDecimal(value);
        if (!number) return "the value is a number";
        return *number < 0.0 && IsArea(*key) ? NegativeArea : "";
    }
    case lca::StoredKind::Text:
        break;
    }
    if (*key == lca::PropertyKey::FloorSettings && HasNegativeArea(value)) return NegativeArea;
    return IsWholeText(*key, value) ? "" : "the value has an entry that cannot be read; write key=number;key=number";
}

void SetQuantity(lca::FloorQuantity quantity, double value, lca::LCAProjectData& record) {
    using lca::FloorQuantity;
    using lca::FloorSource;
    const bool isLimit = quantity == FloorQuantity::MaxSolarContribution;
    const FloorSource source = isLimit ? FloorSource::EnergyEvaluation : FloorSource::ByHand;
    record.SetFloorValue(quantity, source, value);
    record.ChooseFloorSource(quantity, source);
    // Who states the panels' yield wants it to count, whatever limit there was.
    if (quantity == FloorQuantity::SolarPanels)
        record.ChooseFloorSource(FloorQuantity::MaxSolarContribution, FloorSource::ByHand);
}

void ApplyOne(const std::string& keyText, const std::string& value, lca::LCAProjectData& record) {
    if (keyText == StandardsUnitKey) {
        record.standardsUnit = lca::ReadUnitType(value);
        return;
    }
    const lca::PropertyKey key = *lca::FindPropertyKey(keyText);
    if (const std::optional<lca::FloorQuantity> quantity = lca::GetFloorQuantity(key)) {
        SetQuantity(*quantity, *lca::ParseDecimal(value), record);
        return;
    }
    const lca::GWPUnitType unit = record.standardsUnit;
    lca::StoredValue stored;
    stored.text = value;
    stored.integer = lca::ParseWholeNumber(value).value_or(0);
    lca::ReadStoredValue(key, stored, record);
    record.standardsUnit = unit; // has a key of its own
}

} // namespace

Outcome RecordSettings::AddArgument(const std::string& argument) {
    const std::size_t equals = argument.find('=');
    if (equals == std::string::npos) return Failure{UsageError, "--set " + argument + ": write KEY=VALUE"};
    return Add(argument.substr(0, equals), argument.substr(equals + 1), "--set " + argument, UsageError);
}

Outcome RecordSettings::AddFile(const std::string& path) {
    std::string text;
    if (!ReadFile(path, text))
        return Failure{InputUnreadable, path + ": the settings file cannot be read; check the name"};
    if (!IsUtf8(text)) return Failure{InputUnreadable, path + ": the text is not UTF-8; save the settings as UTF-8"};
    if (text.compare(0, 3, "\xEF\xBB\xBF") == 0) text.erase(0, 3);
    std::size_t number = 0;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = Trim(text.substr(begin, end - begin));
        begin = end + 1;
        ++number;
        if (line.empty() || line[0] == '#') continue;
        const std::string where = path + ":" + std::to_string(number);
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos) return Failure{InputUnreadable, where + ": write KEY = VALUE"};
        if (Outcome failure = Add(line.substr(0, equals), line.substr(equals + 1), where, InputUnreadable))
            return failure;
    }
    return {};
}

Outcome RecordSettings::Add(std::string key, std::string value, const std::string& where, ExitCode code) {
    key = Trim(key);
    value = Trim(value);
    if (const std::string fault = FindFault(key, value); !fault.empty()) return Failure{code, where + ": " + fault};
    settings.emplace_back(std::move(key), std::move(value));
    return {};
}

bool RecordSettings::Has(lca::PropertyKey key) const {
    return std::any_of(settings.begin(), settings.end(),
                       [&](const auto& setting) { return setting.first == lca::GetKeyText(key); });
}

void RecordSettings::Apply(lca::LCAProjectData& record) const {
    const std::string_view last = lca::GetKeyText(lca::PropertyKey::FloorSettings);
    for (const auto& [key, value] : settings)
        if (key != last) ApplyOne(key, value, record);
    for (const auto& [key, value] : settings)
        if (key == last) ApplyOne(key, value, record);
}

} // namespace workbench
