#include "xlsx/XmlWriter.h"

#include <cassert>

namespace Xlsx {

void XmlWriter::Declaration() {
    part.Append("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n");
}

void XmlWriter::Start(const char* name) {
    CloseTag();
    part.Append("<");
    part.Append(name);
    openElements.push_back(name);
    isTagOpen = true;
}

void XmlWriter::Start(const char* name, std::initializer_list<XmlAttribute> attributes) {
    Start(name);
    for (const XmlAttribute& attribute : attributes) {
        Attribute(attribute);
    }
}

void XmlWriter::Attribute(const XmlAttribute& attribute) {
    escaped.clear();
    AppendXmlText(escaped, attribute.value, attribute.kind, TextPlace::Attribute);
    PlainAttribute(attribute.name, escaped);
}

void XmlWriter::PlainAttribute(const char* name, std::string_view value) {
    assert(isTagOpen);
    part.Append(" ");
    part.Append(name);
    part.Append("=\"");
    part.Append(value);
    part.Append("\"");
}

void XmlWriter::Text(std::string_view text, TextKind kind) {
    escaped.clear();
    AppendXmlText(escaped, text, kind, TextPlace::Content);
    PlainText(escaped);
}

void XmlWriter::PlainText(std::string_view text) {
    CloseTag();
    part.Append(text);
}

void XmlWriter::End() {
    assert(!openElements.empty());
    if (isTagOpen) {
        part.Append("/>");
        isTagOpen = false;
    } else {
        part.Append("</");
        part.Append(openElements.back());
        part.Append(">");
    }
    openElements.pop_back();
}

void XmlWriter::Leaf(const char* name, std::initializer_list<XmlAttribute> attributes) {
    Start(name, attributes);
    End();
}

void XmlWriter::TextElement(const char* name, std::string_view text) {
    Start(name);
    Text(text);
    End();
}

void XmlWriter::CloseTag() {
    if (isTagOpen) part.Append(">");
    isTagOpen = false;
}

} // namespace Xlsx
