#include "workbench/trees/TreeXml.h"

#include "workbench/trees/XmlDocument.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace workbench {

namespace {

constexpr char RootName[] = "root";
constexpr char TypeName[] = "type";

/// By the order of ObjectState::Value.
constexpr std::string_view Types[] = {"boolean", "integer", "unsigned", "real", "text", "object", "list"};
constexpr std::size_t TextType = 4, ObjectType = 5, ListType = 6;

template <typename Number>
std::string WriteNumber(Number value) {
    char buffer[32];
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

template <typename Number>
std::optional<host::ObjectState::Value> ReadNumber(const std::string& text) {
    Number value{};
    const char* last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value);
    if (error != std::errc() || end != last || !std::isfinite(static_cast<double>(value))) return std::nullopt;
    return value;
}

/// Takes what the library writes. It leaves carriage returns of texts as they are, which readers take for line ends.
class TextSink : public pugi::xml_writer {
public:
    explicit TextSink(std::string& text) : text(text) {}

    void write(const void* data, std::size_t size) override {
        const std::string_view written(static_cast<const char*>(data), size);
        for (const char letter : written)
            if (letter == '\r')
                text += "&#13;";
            else
                text += letter;
    }

private:
    std::string& text;
};

class Writer : public host::ObjectState::Processor {
public:
    Writer() : element(document.append_child(RootName)) {}

    void ProcessBoolean(const std::string& name, bool value) override { Add(name, 0, value ? "true" : "false"); }
    void ProcessInteger(const std::string& name, std::int64_t value) override { Add(name, 1, WriteNumber(value)); }
    void ProcessUnsigned(const std::string& name, std::uint64_t value) override { Add(name, 2, WriteNumber(value)); }
    void ProcessReal(const std::string& name, double value) override {
        if (!std::isfinite(value)) Fail(host::Errors::BadValue);
        Add(name, 3, WriteNumber(value));
    }
    void ProcessText(const std::string& name, const std::string& value) override {
        if (!IsXmlText(value)) Fail(host::Errors::BadValue);
        Add(name, TextType, value);
    }
    void BeginObject(const std::string& name) override { Enter(name, ObjectType); }
    void EndObject(const std::string&) override { Leave(); }
    void BeginList(const std::string& name) override { Enter(name, ListType); }
    void EndList(const std::string&) override { Leave(); }

    host::ErrorCode Finish(std::string& text) const {
        if (failure != host::NoError) return failure;
        text.clear();
        TextSink sink(text);
        // Indenting costs the square of the depth.
        const unsigned format = deepest > DeepestIndented ? pugi::format_raw : pugi::format_indent;
        document.save(sink, "  ", format, pugi::encoding_utf8);
        return host::NoError;
    }

private:
    void Fail(host::ErrorCode error) {
        if (failure == host::NoError) failure = error;
    }
    pugi::xml_node Append(const std::string& name, std::size_t type) {
        if (!IsPlainXmlName(name)) Fail(host::Errors::BadName);
        pugi::xml_node child = element.append_child(name.c_str());
        if (type != TextType) child.append_attribute(TypeName).set_value(std::string(Types[type]).c_str());
        if (!child) Fail(host::Errors::OutOfMemory);
        return child;
    }
    void Add(const std::string& name, std::size_t type, const std::string& text) {
        Append(name, type).text().set(text.c_str());
    }

    void Enter(const std::string& name, std::size_t type) {
        element = Append(name, type);
        deepest = std::max(deepest, ++depth);
    }
    void Leave() {
        element = element.parent();
        --depth;
    }

    static constexpr std::size_t DeepestIndented = 100;

    pugi::xml_document document;
    pugi::xml_node element;
    std::size_t depth = 0, deepest = 0;
    host::ErrorCode failure = host::NoError;
};

bool HasElements(const pugi::xml_node& element) {
    for (const pugi::xml_node& child : element)
        if (child.type() == pugi::node_element) return true;
    return false;
}

/// What an element holds that does not say it.
std::size_t GuessType(const pugi::xml_node& element) {
    if (!HasElements(element)) return TextType;
    for (const pugi::xml_node& child : element)
        if (child.type() == pugi::node_element && child.name() != std::string_view(ListItemName)) return ObjectType;
    return ListType;
}

std::optional<std::size_t> FindType(const pugi::xml_node& element) {
    const pugi::xml_attribute attribute = element.attribute(TypeName);
    if (!attribute) return GuessType(element);
    for (std::size_t type = 0; type < std::size(Types); ++type)
        if (Types[type] == attribute.value()) return type;
    return std::nullopt;
}

std::optional<host::ObjectState::Value> ReadValue(const pugi::xml_node& element, std::size_t type) {
    const std::string text = GetOwnText(element);
    switch (type) {
    case 0:
        if (text == "true" || text == "false") return text == "true";
        return std::nullopt;
    case 1:
        return ReadNumber<std::int64_t>(text);
    case 2:
        return ReadNumber<std::uint64_t>(text);
    case 3:
        return ReadNumber<double>(text);
    default:
        return text;
    }
}

/// Adds an element's value, or opens its object or list.
bool TakeElement(const pugi::xml_node& element, host::ObjectState::Builder& builder, bool& isOpened) {
    const std::optional<std::size_t> type = FindType(element);
    if (!type) return false;
    isOpened = *type == ObjectType || *type == ListType;
    if (*type == ObjectType)
        builder.Open(element.name());
    else if (*type == ListType)
        builder.OpenList(element.name());
    if (isOpened) return true;
    const std::optional<host::ObjectState::Value> value = ReadValue(element, *type);
    if (value) builder.Add(element.name(), *value);
    return value.has_value();
}

pugi::xml_node NextElement(pugi::xml_node node) {
    while (node && node.type() != pugi::node_element)
        node = node.next_sibling();
    return node;
}

} // namespace

host::ErrorCode WriteTreeXml(const host::ObjectState& tree, std::string& document) {
    Writer writer;
    tree.Enumerate(writer);
    return writer.Finish(document);
}

host::ErrorCode ReadTreeXml(const std::string& document, host::ObjectState& tree) {
    pugi::xml_document loaded;
    if (const host::ErrorCode error = LoadXml(document, loaded)) return error;
    host::ObjectState::Builder builder;
    const pugi::xml_node root = loaded.document_element();
    pugi::xml_node next = NextElement(root.first_child());
    for (pugi::xml_node parent = root;;) {
        if (!next) { // the end of an object or list, or of the document
            if (parent == root) break;
            builder.Add(parent.name(), builder.Close());
            next = NextElement(parent.next_sibling());
            parent = parent.parent();
            continue;
        }
        bool isOpened = false;
        if (!TakeElement(next, builder, isOpened)) return host::Errors::BadValue;
        if (isOpened) parent = next;
        next = NextElement(isOpened ? next.first_child() : next.next_sibling());
    }
    tree = builder.Take();
    return host::NoError;
}

} // namespace workbench
