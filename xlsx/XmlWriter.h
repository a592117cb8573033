// The only place where tags are made: elements, attributes and text of one XML document, written to a part as they
// come.
#pragma once

#include "xlsx/PartFile.h"
#include "xlsx/XmlText.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Xlsx {

/// An attribute's name, which outlives the call, and its value.
struct XmlAttribute {
    XmlAttribute(const char* name, std::string value, TextKind kind = TextKind::Token)
        : name(name), value(std::move(value)), kind(kind) {}
    XmlAttribute(const char* name, const char* value) : name(name), value(value) {}
    XmlAttribute(const char* name, double value) : name(name), value(NumberText(value)) {}
    template <class Integer, class = std::enable_if_t<std::is_integral_v<Integer>>>
    XmlAttribute(const char* name, Integer value) : name(name), value(std::to_string(value)) {}

    const char* name;
    std::string value;
    TextKind kind = TextKind::Token;
};

/// Names are literals: the writer keeps their addresses until the element's end. Failures stay in the part file.
class XmlWriter {
public:
    explicit XmlWriter(PartFile& part) : part(part) {}
    XmlWriter(const XmlWriter&) = delete;
    XmlWriter& operator=(const XmlWriter&) = delete;

    void Declaration();

    void Start(const char* name);
    void Start(const char* name, std::initializer_list<XmlAttribute> attributes);
    /// Only between Start and whatever comes next in the element.
    void Attribute(const XmlAttribute& attribute);
    /// A value that needs no escaping: digits, references, numbers.
    void PlainAttribute(const char* name, std::string_view value);
    void Text(std::string_view text, TextKind kind = TextKind::Prose);
    /// Content that needs no escaping.
    void PlainText(std::string_view text);
    /// Ends the element started last; one without content ends as an empty tag.
    void End();

    /// An element without content.
    void Leaf(const char* name, std::initializer_list<XmlAttribute> attributes = {});
    /// An element whose only attribute is "val".
    template <class Value>
    void ValueLeaf(const char* name, const Value& value) {
        Leaf(name, {{"val", value}});
    }
    /// An element that holds nothing but text.
    void TextElement(const char* name, std::string_view text);

private:
    void CloseTag();

    PartFile& part;
    std::vector<const char*> openElements;
    std::string escaped; // kept to save allocations
    bool isTagOpen = false;
};

} // namespace Xlsx
