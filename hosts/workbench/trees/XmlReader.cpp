#include "workbench/trees/XmlReader.h"

namespace workbench {

host::ErrorCode XmlReader::Load(const std::string& text, const std::string& rootName) {
    if (const host::ErrorCode error = LoadXml(text, document)) return error;
    element = document.document_element();
    return element.name() == rootName ? host::NoError : host::Errors::BadValue;
}

bool XmlReader::EnterElement(const std::string& name) {
    const pugi::xml_node child = element.child(name.c_str());
    if (child) element = child;
    return !child.empty();
}

bool XmlReader::EnterNextElement() {
    const pugi::xml_node next = element.next_sibling(element.name());
    if (next) element = next;
    return !next.empty();
}

void XmlReader::LeaveElement() {
    if (element.parent().type() == pugi::node_element) element = element.parent();
}

host::ErrorCode XmlReadingRole::ReadDocument(const std::string& document, const std::string& rootName,
                                             std::unique_ptr<host::DOMReader>& reader) {
    reader.reset();
    auto loaded = std::make_unique<XmlReader>();
    if (const host::ErrorCode error = loaded->Load(document, rootName)) return error;
    reader = std::move(loaded);
    return host::NoError;
}

} // namespace workbench
