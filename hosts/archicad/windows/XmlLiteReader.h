// Reading XML documents with the system's reader.
#pragma once

#include "host/Xml.h"

namespace archicad {

class XmlLiteReading : public host::XmlReading {
public:
    host::ErrorCode ReadDocument(const std::string& document, const std::string& rootName,
                                 std::unique_ptr<host::DOMReader>& reader) override;
};

} // namespace archicad
