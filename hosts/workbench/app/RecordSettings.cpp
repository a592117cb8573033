#include "workbench/app/RecordSettings.h"

#include "workbench/app/Text.h"

#include "lca/Numbers.h"
#include "lca/RecordEncodings.h"
#include "text/Utf8.h"

#include <algorithm>

namespace workbench {

namespace {

std::string ListKeys() {
    std::string keys;
    for (const lca::PropertyKeyRow& row : lca::GetPropertyKeys())
        if (lca::IsProjectKey(row.key)) keys.append(row.text).append(", ");
    return keys + StandardsUnitKey;
}

std::string ListUnits() {
    const auto& [total, perArea, perAreaAndYear] = lca::UnitTypeKeys;
    return std::string(total).append(", ").append(perArea).append(" or ").append(perAreaAndYear);
}

/// Every entry must be readable: decoding and encoding again keeps as many entries as were given.
bool IsWholeText(const lca::PropertyKeyRow& row, const std::string& text) {
    if (row.key == lca::PropertyKey::Phases) return true;
    lca::LCAProjectData record;
    lca::BeginLoad(record);
    row.decode(text, record);
    return lca::SplitEntries(lca::WriteStoredText(row.encode(record))).size() == lca::SplitEntries(text).size();
}

constexpr char NegativeArea[] = "an area is 0 or more";

bool IsArea(const lca::PropertyKeyRow& row) {
    return row.quantity == lca::FloorQuantity::GrossFloorArea || row.quantity == lca::FloorQuantity::ReferenceFloorArea;
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
    if (keyText == StandardsUnitKey) return lca::FindUnitType(value) ? "" : "the unit is " + ListUnits();
    const lca::PropertyKeyRow* row = lca::FindPropertyKey(keyText);
    if (row == nullptr || !lca::IsProjectKey(row->key)) return "the key is unknown; keys are " + ListKeys();
    switch (row->kind) {
    case lca::StoredKind::Integer: {
        const std::optional<double> number = lca::ParseDecimal(value);
        const std::optional<std::int32_t> whole = lca::ParseWholeNumber(value);
        return whole && *whole >= 0 && *number == *whole ? "" : "the value is whole years, 0 or more";
    }
    case lca::StoredKind::Real: {
        const std::optional<double> number = lca::ParseDecimal(value);
        if (!number) return "the value is a number";
        return *number < 0.0 && IsArea(*row) ? NegativeArea : "";
    }
    default:
        break;
    }
    if (row->key == lca::PropertyKey::FloorSettings && HasNegativeArea(value)) return NegativeArea;
    return IsWholeText(*row, value) ? "" : "the value has an entry that cannot be read; write key=number;key=number";
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
        record.standardsUnit = *lca::FindUnitType(value);
        return;
    }
    const lca::PropertyKeyRow& row = *lca::FindPropertyKey(keyText);
    if (row.quantity)
        SetQuantity(*row.quantity, *lca::ParseDecimal(value), record);
    else if (row.kind == lca::StoredKind::Integer)
        row.decode(*lca::ParseWholeNumber(value), record);
    else
        row.decode(value, record);
}

} // namespace

Outcome RecordSettings::AddArgument(const std::string& argument) {
    return Add(argument, "write KEY=VALUE");
}

Outcome RecordSettings::AddFile(const std::string& path) {
    Result<std::string> content = ReadFile(path, "the settings file cannot be read; check the name");
    if (content.HasFailed()) return content;
    if (!utf8::IsUtf8(content.Get()))
        return Failure::Input(path + ": the text is not UTF-8; save the settings as UTF-8");
    std::string_view text = content.Get();
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string line = utf8::Trim(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty() || line.front() == '#') continue;
        const Outcome added = Add(line, "write KEY = VALUE");
        if (added.HasFailed()) return Failure::Input(path + ":" + std::to_string(number) + ": " + added.GetText());
    }
    return Outcome::Done();
}

Outcome RecordSettings::Add(std::string_view setting, const char* form) {
    const std::size_t equals = setting.find('=');
    if (equals == std::string_view::npos) return Failure::Usage(form);
    std::string key = utf8::Trim(setting.substr(0, equals)), value = utf8::Trim(setting.substr(equals + 1));
    if (const std::string fault = FindFault(key, value); !fault.empty()) return Failure::Usage(fault);
    settings.emplace_back(std::move(key), std::move(value));
    return Outcome::Done();
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
