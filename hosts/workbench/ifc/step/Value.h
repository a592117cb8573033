// One argument of an entity as it stands in the file's text: a view that costs nothing to copy and is turned into a
// number, a text or a list only when it is asked. Whatever does not fit the question is answered with nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace workbench::step {

class TextDecoder;

using EntityNumber = std::uint64_t;

enum class ValueKind : std::uint8_t {
    Missing, ///< "$", an argument that is not there, and what is no value
    Derived, ///< "*": the schema says how it follows from others
    Integer,
    Real,
    Text,
    Enumeration, ///< ".AREA.", also the logical values ".T.", ".F." and ".U."
    Reference,   ///< "#12"
    List,
    Typed, ///< "IFCLENGTHMEASURE(3.)"
    Binary
};

class Value {
public:
    class Iterator;

    Value() = default;
    /// TOKEN is one whole value without blanks around it; the text and DECODER must outlive the value.
    Value(std::string_view token, const TextDecoder& decoder) : token(token), decoder(&decoder) {}

    [[nodiscard]] ValueKind GetKind() const;
    /// True for Derived too.
    [[nodiscard]] bool IsMissing() const;

    /// Of an integer or real, also within a typed value. Finite.
    [[nodiscard]] std::optional<double> GetNumber() const;
    [[nodiscard]] std::optional<std::int64_t> GetInteger() const;
    /// UTF-8, also within a typed value; empty where there is none.
    [[nodiscard]] std::string GetText() const;
    /// "AREA", as it is written, also within a typed value; empty where there is none.
    [[nodiscard]] std::string_view GetEnumeration() const;
    /// Of ".T." and ".F.", also within a typed value.
    [[nodiscard]] std::optional<bool> GetLogical() const;
    [[nodiscard]] std::optional<EntityNumber> GetReference() const;
    /// Hexadecimal digits of a binary; the first says how many bits of the second are unused.
    [[nodiscard]] std::string_view GetBinary() const;

    /// "IFCLENGTHMEASURE" as it is written, and what stands in its parentheses.
    [[nodiscard]] std::string_view GetTypeName() const;
    [[nodiscard]] Value GetContent() const;

    /// A value without text and parentheses, as it is written.
    [[nodiscard]] std::string_view GetWritten() const { return token; }

    /// Items of a list, read one after the other; other values have none.
    [[nodiscard]] Iterator begin() const;
    [[nodiscard]] static std::default_sentinel_t end() { return {}; }
    /// Walks over the items before it; Missing where there are not so many.
    [[nodiscard]] Value GetItem(std::size_t index) const;
    [[nodiscard]] std::size_t CountItems() const;

private:
    [[nodiscard]] Value Bare() const;

    std::string_view token;
    const TextDecoder* decoder = nullptr;
};

/// Goes through "(a,b,c)".
class Value::Iterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Value;
    using difference_type = std::ptrdiff_t;

    Iterator() = default;
    /// TEXT from the opening parenthesis to the closing one.
    Iterator(std::string_view text, const TextDecoder& decoder);

    const Value& operator*() const { return current; }
    const Value* operator->() const { return &current; }
    Iterator& operator++();
    void operator++(int) { ++*this; }
    [[nodiscard]] bool operator==(std::default_sentinel_t) const { return isAtEnd; }

private:
    void TakeItem();

    std::string_view text;
    std::size_t at = 0; ///< behind the current item
    const TextDecoder* decoder = nullptr;
    Value current;
    bool isAtEnd = true;
};

} // namespace workbench::step
