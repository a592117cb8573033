// The host's reading of XML documents for add-ons.
#pragma once

#include "host/Xml.h"
#include "workbench/trees/XmlDocument.h"

namespace workbench {

class XmlReader : public host::DOMReader {
public:
    /// As LoadXml; BadValue also when the root element has another name.
    [[nodiscard]] host::ErrorCode Load(const std::string& text, const std::string& rootName);

    bool EnterElement(const std::string& name) override;
    bool EnterNextElement() override;
    void LeaveElement() override;
    std::string ReadText() const override { return GetOwnText(element); }

private:
    pugi::xml_document document;
    pugi::xml_node element;
};

class XmlReadingRole : public host::XmlReading {
public:
    host::ErrorCode ReadDocument(const std::string& document, const std::string& rootName,
                                 std::unique_ptr<host::DOMReader>& reader) override;
};

} // namespace workbench
