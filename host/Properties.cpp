#include "host/Properties.h"

namespace host {

Variant Variant::OfInteger(std::int32_t value) {
    Variant variant;
    variant.type = ValueType::Integer;
    variant.integer = value;
    return variant;
}

Variant Variant::OfReal(double value) {
    Variant variant;
    variant.type = ValueType::Real;
    variant.real = value;
    return variant;
}

Variant Variant::OfBoolean(bool value) {
    Variant variant;
    variant.type = ValueType::Boolean;
    variant.boolean = value;
    return variant;
}

Variant Variant::OfText(std::string value) {
    Variant variant;
    variant.type = ValueType::String;
    variant.text = std::move(value);
    return variant;
}

Variant Variant::OfGuid(const Guid& value) {
    Variant variant;
    variant.type = ValueType::Guid;
    variant.guid = value;
    return variant;
}

Variant Variant::OfPlain(const PlainValue& value) {
    if (const auto* integer = std::get_if<std::int32_t>(&value)) return OfInteger(*integer);
    if (const auto* real = std::get_if<double>(&value)) return OfReal(*real);
    return OfText(std::get<std::string>(value));
}

std::optional<PlainValue> Variant::GetPlain() const {
    switch (type) {
    case ValueType::Integer:
        return integer;
    case ValueType::Real:
        return real;
    case ValueType::String:
        return text;
    default:
        return std::nullopt;
    }
}

bool operator==(const Variant& a, const Variant& b) {
    if (a.type != b.type) return false;
    switch (a.type) {
    case ValueType::Integer:
        return a.integer == b.integer;
    case ValueType::Real:
        return a.real == b.real;
    case ValueType::String:
        return a.text == b.text;
    case ValueType::Boolean:
        return a.boolean == b.boolean;
    case ValueType::Guid:
        return a.guid == b.guid;
    case ValueType::None:
        return true;
    }
    return false;
}

bool operator==(const PropertyDefinition& a, const PropertyDefinition& b) {
    return a.guid == b.guid && a.group == b.group && a.name == b.name && a.description == b.description &&
           a.valueType == b.valueType && a.collection == b.collection && a.editable == b.editable &&
           a.defaultValue == b.defaultValue && a.availability == b.availability && a.options == b.options;
}

} // namespace host
