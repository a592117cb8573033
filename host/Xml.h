// Role: reading XML documents. ArchiCAD is not known to have a function for this; its adapter brings a reader along.
#pragma once

#include "host/Values.h"

#include <memory>

namespace host {

/// A cursor that is always in one element of a document. Texts are UTF-8.
class DOMReader {
public:
    virtual ~DOMReader() = default;

    /// Enters the first child element of this name; if there is none, stays and returns false.
    virtual bool EnterElement(const std::string& name) = 0;
    /// Moves to the next sibling of the same name; if there is none, stays and returns false.
    virtual bool EnterNextElement() = 0;
    /// Moves to the parent; stays at the root.
    virtual void LeaveElement() = 0;
    /// The text directly in the element, without that of its children.
    virtual std::string ReadText() const = 0;
};

class XmlReading {
public:
    virtual ~XmlReading() = default;

    /// Reads a complete document in memory as UTF-8, whatever encoding it declares; the reader starts in the root
    /// element. Entities that the document itself declares are not expanded. BadValue if it is not well-formed or has
    /// another root, OutOfMemory if it is too large; the reader is then null.
    virtual ErrorCode ReadDocument(const std::string& document, const std::string& rootName,
                                   std::unique_ptr<DOMReader>& reader) = 0;
};

} // namespace host
