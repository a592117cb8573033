#include "lca/PropertyKeys.h"

#include "lca/Numbers.h"
#include "lca/RecordEncodings.h"

#include <algorithm>
#include <cmath>

namespace lca {

namespace {

constexpr PropertyKeyRow OfMaterial(PropertyKey key, std::string_view text, StoredKind kind) {
    return {key, text, kind, KeyOwner::BuildingMaterial, {}, nullptr, nullptr};
}

constexpr PropertyKeyRow OfElement(PropertyKey key, std::string_view text, StoredKind kind) {
    return {key, text, kind, KeyOwner::Element, {}, nullptr, nullptr};
}

/// A text of the record: one encoding, both ways.
template <std::string (*Encode)(const LCAProjectData&), void (*Decode)(std::string_view, LCAProjectData&)>
constexpr PropertyKeyRow OfText(PropertyKey key, std::string_view text) {
    return {key,
            text,
            StoredKind::Text,
            KeyOwner::Project,
            {},
            [](const StoredValue& stored, LCAProjectData& record) { Decode(std::get<std::string>(stored), record); },
            [](const LCAProjectData& record) -> StoredValue { return Encode(record); }};
}

/// The plain value, which also fills what the maps of its sources lack.
template <FloorQuantity Quantity>
constexpr PropertyKeyRow OfQuantity(PropertyKey key) {
    return {key,
            GetKeyText(Quantity),
            StoredKind::Real,
            KeyOwner::Project,
            Quantity,
            [](const StoredValue& stored, LCAProjectData& record) {
                const double value = std::get<double>(stored);
                record.SetPlainValue(Quantity, value);
                record.enteredFloorValues.emplace(Quantity, value);
                if (Quantity != FloorQuantity::ReferenceFloorArea) record.evaluatedFloorValues.emplace(Quantity, value);
            },
            [](const LCAProjectData& record) -> StoredValue { return record.GetPlainValue(Quantity); }};
}

void DecodeServiceLife(const StoredValue& stored, LCAProjectData& record) {
    record.consideredServiceLifeYears = static_cast<std::uint32_t>(std::max(std::get<std::int32_t>(stored), 0));
}

StoredValue EncodeServiceLife(const LCAProjectData& record) {
    return static_cast<std::int32_t>(std::min<std::uint32_t>(record.consideredServiceLifeYears, INT32_MAX));
}

constexpr std::array<PropertyKeyRow, PropertyKeyCount> Rows = {
    OfMaterial(PropertyKey::GWPPerUnit, "GWP/UNIT", StoredKind::Text),
    OfMaterial(PropertyKey::UnitType, "UNITTYPE", StoredKind::Text),
    OfMaterial(PropertyKey::ServiceYear, "SERVICEYEAR", StoredKind::Integer),
    OfElement(PropertyKey::GWP, "GWP", StoredKind::Real),
    OfElement(PropertyKey::Include, "INCLUDE", StoredKind::Boolean),
    OfElement(PropertyKey::GWPPercentage, "GWPPERCENTAGE", StoredKind::Real),
    OfText<EncodeStandards, DecodeStandards>(PropertyKey::GWPStandards, "GWP-STANDARDS"),
    OfText<EncodePhases, DecodePhases>(PropertyKey::Phases, "PHASES"),
    PropertyKeyRow{PropertyKey::ServiceLife,
                   "SERVICELIFE",
                   StoredKind::Integer,
                   KeyOwner::Project,
                   {},
                   DecodeServiceLife,
                   EncodeServiceLife},
    OfText<EncodeContribution, DecodeContribution>(PropertyKey::Contribution, "CONTRIBUTION"),
    OfText<EncodeElementLives, DecodeElementLives>(PropertyKey::ElementLives, "ELEMLIVES"),
    OfText<EncodeElementColours, DecodeElementColours>(PropertyKey::ElementColours, "ELEMCOLORS"),
    OfQuantity<FloorQuantity::GrossFloorArea>(PropertyKey::GrossFloorArea),
    OfQuantity<FloorQuantity::OperationalEmission>(PropertyKey::OperationalEmission),
    OfQuantity<FloorQuantity::ReferenceFloorArea>(PropertyKey::ReferenceFloorArea),
    OfText<EncodeFloorSettings, DecodeFloorSettings>(PropertyKey::FloorSettings, "FLOOR_SETTINGS"),
    OfQuantity<FloorQuantity::SolarPanels>(PropertyKey::SolarPanels),
    OfQuantity<FloorQuantity::MaxSolarContribution>(PropertyKey::MaxSolarContribution),
    OfQuantity<FloorQuantity::ElectricitySourceFactor>(PropertyKey::ElectricitySourceFactor)};

constexpr bool StandByPosition() {
    for (std::size_t i = 0; i < PropertyKeyCount; ++i)
        if (Rows[i].key != static_cast<PropertyKey>(i) ||
            (i < FirstElementKey) != (Rows[i].owner == KeyOwner::BuildingMaterial) ||
            (i >= FirstProjectKey) != (Rows[i].owner == KeyOwner::Project))
            return false;
    return true;
}
static_assert(StandByPosition());

constexpr std::string_view KeyMarker = "LCAID=\"";
constexpr std::string_view UnitMarker = "LCAUNIT=\"";

struct Marker {
    std::size_t begin = 0;
    std::size_t end = 0; ///< one past the closing quote
    std::string_view text;
};

std::optional<Marker> FindQuoted(std::string_view description, std::string_view opening) {
    const std::size_t begin = description.find(opening);
    if (begin == std::string_view::npos) return std::nullopt;
    const std::size_t text = begin + opening.size();
    const std::size_t quote = description.find('"', text);
    if (quote == std::string_view::npos) return std::nullopt;
    return Marker{begin, quote + 1, description.substr(text, quote - text)};
}

} // namespace

const std::array<PropertyKeyRow, PropertyKeyCount>& GetPropertyKeys() {
    return Rows;
}

const PropertyKeyRow& GetRow(PropertyKey key) {
    return Rows[static_cast<std::size_t>(key)];
}

const PropertyKeyRow* FindPropertyKey(std::string_view keyText) {
    const auto row = std::find_if(Rows.begin(), Rows.end(), [&](const auto& one) { return one.text == keyText; });
    return row == Rows.end() ? nullptr : &*row;
}

bool ReadStoredValue(PropertyKey key, const StoredValue& stored, std::string_view description, LCAProjectData& record) {
    const PropertyKeyRow& row = GetRow(key);
    if (row.decode == nullptr || stored.index() != static_cast<std::size_t>(row.kind)) return false;
    const double* real = std::get_if<double>(&stored);
    if (real != nullptr && !std::isfinite(*real)) return false;
    row.decode(stored, record);
    if (key == PropertyKey::GWPStandards) record.standardsUnit = ReadUnitMarker(description);
    return true;
}

std::string WriteDescription(PropertyKey key, const LCAProjectData& record, std::string_view description) {
    return key == PropertyKey::GWPStandards ? WriteUnitMarker(description, record.standardsUnit)
                                            : std::string(description);
}

std::string WriteStoredText(const StoredValue& stored) {
    if (const auto* integer = std::get_if<std::int32_t>(&stored)) return std::to_string(*integer);
    if (const auto* real = std::get_if<double>(&stored)) return WriteDecimal(*real);
    return std::get<std::string>(stored);
}

std::string WriteMarker(PropertyKey key) {
    return std::string(KeyMarker) + std::string(GetKeyText(key)) + "\"";
}

std::optional<PropertyKey> FindMarker(std::string_view description) {
    const std::optional<Marker> marker = FindQuoted(description, KeyMarker);
    const PropertyKeyRow* row = marker ? FindPropertyKey(marker->text) : nullptr;
    return row == nullptr ? std::nullopt : std::optional(row->key);
}

GWPUnitType ReadUnitMarker(std::string_view description) {
    const std::optional<Marker> marker = FindQuoted(description, UnitMarker);
    return marker ? FindUnitType(marker->text).value_or(GWPUnitType::PerAreaAndYear) : GWPUnitType::PerAreaAndYear;
}

std::string WriteUnitMarker(std::string_view description, GWPUnitType unit) {
    std::string result(description);
    if (const std::optional<Marker> old = FindQuoted(description, UnitMarker)) {
        const bool hasBlank = old->begin > 0 && description[old->begin - 1] == ' ';
        const std::size_t begin = old->begin - (hasBlank ? 1 : 0);
        result.erase(begin, old->end - begin);
    }
    if (unit == GWPUnitType::PerAreaAndYear) return result;
    if (!result.empty()) result += ' ';
    return result + std::string(UnitMarker) + std::string(GetKeyText(unit)) + "\"";
}

} // namespace lca
