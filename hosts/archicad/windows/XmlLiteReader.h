// Reading XML documents with the system's reader.
#pragma once

#include "host/Xml.h"

namespace archicad {

/// The system's reader knows namespaces: a name whose prefix nobody declares is not well-formed for it.
class XmlLiteReading : public host::XmlReading {
public:
    host::ErrorCode ReadDocument(const std::string& document, const std::string& rootName,
                                 std::unique_ptr<host::DOMReader>& reader) override;
};

} // namespace archicad
