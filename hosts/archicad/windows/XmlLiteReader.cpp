#include "archicad/windows/XmlLiteReader.h"

#include "archicad/windows/ComPointer.h"
#include "archicad/windows/WideText.h"
#include "archicad/windows/XmlPreparation.h"

#include <objidl.h>
#include <shlwapi.h>
#include <xmllite.h>

#include <map>
#include <new>
#include <vector>

namespace archicad {

namespace {

constexpr std::size_t MemoryLimit = std::size_t{512} << 20U; ///< bytes that a document and its elements may take
constexpr GUID ReaderId = {0x7279fc81, 0x709d, 0x4095, {0xb6, 0x3d, 0x69, 0xfe, 0x4b, 0x0d, 0x90, 0x30}};
constexpr std::size_t None = SIZE_MAX;

/// A program that never reads a document needs no reader: it is taken from the system when it is first asked for.
HRESULT CreateReader(IXmlReader** reader) {
    using Create = HRESULT(WINAPI*)(REFIID, void**, IMalloc*);
    static const HMODULE Library = LoadLibraryExW(L"xmllite.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (Library == nullptr) return E_FAIL;
    const auto create = reinterpret_cast<Create>(reinterpret_cast<void*>(GetProcAddress(Library, "CreateXmlReader")));
    return create == nullptr ? E_FAIL : create(ReaderId, reinterpret_cast<void**>(reader), nullptr);
}

struct Element {
    std::size_t name = 0; ///< position among the names
    std::size_t parent = None;
    std::size_t firstChild = None;
    std::size_t lastChild = None;
    std::size_t next = None; ///< beside this one
    std::string text;        ///< directly in it
};

struct Tree {
    std::vector<Element> elements; ///< the root is the first
    std::map<std::string, std::size_t> names;
};

class TreeReader : public host::DOMReader {
public:
    explicit TreeReader(Tree read) : tree(std::move(read)) {}

    bool EnterElement(const std::string& name) override {
        return Enter(tree.elements[place].firstChild, FindName(name));
    }
    bool EnterNextElement() override { return Enter(tree.elements[place].next, tree.elements[place].name); }
    void LeaveElement() override {
        if (tree.elements[place].parent != None) place = tree.elements[place].parent;
    }
    std::string ReadText() const override { return tree.elements[place].text; }

private:
    std::size_t FindName(const std::string& name) const {
        const auto found = tree.names.find(name);
        return found == tree.names.end() ? None : found->second;
    }
    /// The first of this and those behind it that has the name.
    bool Enter(std::size_t candidate, std::size_t name) {
        while (candidate != None && tree.elements[candidate].name != name)
            candidate = tree.elements[candidate].next;
        if (candidate == None) return false;
        place = candidate;
        return true;
    }

    Tree tree;
    std::size_t place = 0;
};

/// Takes what the system's reader comes by.
class TreeBuilder {
public:
    TreeBuilder(IXmlReader& reader, std::size_t usedMemory) : reader(reader), usedMemory(usedMemory) {}

    host::ErrorCode Build() {
        XmlNodeType type = XmlNodeType_None;
        HRESULT result = S_OK;
        while ((result = reader.Read(&type)) == S_OK) {
            if (!Take(type)) return host::Errors::BadValue;
            if (usedMemory > MemoryLimit) return host::Errors::OutOfMemory;
        }
        const bool isWhole = result == S_FALSE && current == None && !tree.elements.empty();
        return isWhole ? host::ErrorCode(host::NoError) : host::ErrorCode(host::Errors::BadValue);
    }

    Tree tree;

private:
    bool Take(XmlNodeType type) {
        switch (type) {
        case XmlNodeType_Element:
            return Open();
        case XmlNodeType_EndElement:
            Close();
            return true;
        case XmlNodeType_Text:
        case XmlNodeType_CDATA:
            return AddText();
        case XmlNodeType_Whitespace:
            blanks = current == None ? std::string() : ReadValue();
            return true;
        default:
            return true;
        }
    }

    bool Open() {
        const WCHAR* name = nullptr;
        UINT length = 0;
        if (FAILED(reader.GetQualifiedName(&name, &length)) || (current == None && !tree.elements.empty()))
            return false;
        const bool isEmpty = reader.IsEmptyElement() != FALSE;
        const auto entry = tree.names.try_emplace(Utf8FromWide({name, length}), tree.names.size()).first;
        const std::size_t place = tree.elements.size();
        tree.elements.push_back({entry->second, current, None, None, None, {}});
        usedMemory += sizeof(Element);
        if (current != None) {
            Element& parent = tree.elements[current];
            (parent.firstChild == None ? parent.firstChild : tree.elements[parent.lastChild].next) = place;
            parent.lastChild = place;
        }
        blanks.clear();
        if (!isEmpty) current = place;
        return true;
    }

    /// Blanks count where an element holds nothing else.
    void Close() {
        Element& element = tree.elements[current];
        if (element.firstChild == None && element.text.empty()) element.text = blanks;
        blanks.clear();
        current = element.parent;
    }

    bool AddText() {
        if (current == None) return false;
        const std::string text = ReadValue();
        usedMemory += text.size();
        tree.elements[current].text += text;
        return true;
    }

    std::string ReadValue() {
        const WCHAR* value = nullptr;
        UINT length = 0;
        return FAILED(reader.GetValue(&value, &length)) ? std::string() : Utf8FromWide({value, length});
    }

    IXmlReader& reader;
    std::size_t usedMemory;
    std::size_t current = None;
    std::string blanks;
};

host::ErrorCode ReadTree(const std::string& document, const std::string& rootName, Tree& tree) {
    if (document.size() > MemoryLimit) return host::Errors::OutOfMemory;
    const std::optional<std::string> prepared = PrepareXml(document);
    if (!prepared) return host::Errors::BadValue;
    ComPointer<IXmlReader> system;
    ComPointer<IStream> stream;
    *stream.Receive() =
        SHCreateMemStream(reinterpret_cast<const BYTE*>(prepared->data()), static_cast<UINT>(prepared->size()));
    if (stream.Get() == nullptr) return host::Errors::OutOfMemory;
    if (FAILED(CreateReader(system.Receive())) || FAILED(system->SetProperty(XmlReaderProperty_MaxElementDepth, 0)) ||
        FAILED(system->SetInput(stream.Get())))
        return host::Errors::General;
    TreeBuilder builder(*system.Get(), prepared->size() + document.size());
    if (const host::ErrorCode error = builder.Build(); error != host::NoError) return error;
    tree = std::move(builder.tree);
    const auto root = tree.names.find(rootName);
    if (root == tree.names.end() || root->second != tree.elements.front().name) return host::Errors::BadValue;
    return host::NoError;
}

} // namespace

host::ErrorCode XmlLiteReading::ReadDocument(const std::string& document, const std::string& rootName,
                                             std::unique_ptr<host::DOMReader>& reader) {
    reader.reset();
    try {
        Tree tree;
        if (const host::ErrorCode error = ReadTree(document, rootName, tree); error != host::NoError) return error;
        reader = std::make_unique<TreeReader>(std::move(tree));
        return host::NoError;
    } catch (const std::bad_alloc&) {
        return host::Errors::OutOfMemory;
    }
}

} // namespace archicad
