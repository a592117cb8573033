// Role: reading XML documents. ArchiCAD is not known to have a function for this: its adapter brings a reader along.
#pragma once

#include "host/Values.h"

#include <memory>

namespace host {

/// Stands in one element of a document and moves from there. Texts are UTF-8.
class DOMReader {
public:
    virtual ~DOMReader() = default;

    /// Goes into the first child element of this name; where there is none, stays and answers false.
    virtual bool EnterElement(const std::string& name) = 0;
    /// Goes on to the next element beside this one that has the same name; where there is none, stays and answers
    /// false.
    virtual bool EnterNextElement() = 0;
    /// Back to the parent; stays at the root.
    virtual void LeaveElement() = 0;
    /// The texts directly in the element, without those of its children.
    virtual std::string ReadText() const = 0;
};

class XmlReading {
public:
    virtual ~XmlReading() = default;

    /// Reads a whole UTF-8 document in memory, whatever encoding it declares, and stands in its root element. Entities
    /// that the document itself declares are not expanded. BadValue when it is not well-formed or has another root;
    /// OutOfMemory when it is too large. The reader is then empty.
    virtual ErrorCode ReadDocument(const std::string& document, const std::string& rootName,
                                   std::unique_ptr<DOMReader>& reader) = 0;
};

} // namespace host
