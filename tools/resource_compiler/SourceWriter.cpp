#include "SourceWriter.h"

#include <cstdio>
#include <sstream>

namespace ResourceCompiler {
namespace {

// "{a, b, c}"
template <class First, class... Rest>
std::string Braced(const First& first, const Rest&... rest) {
    std::ostringstream text;
    text << std::boolalpha << "{" << first;
    ((text << ", " << rest), ...);
    text << "}";
    return text.str();
}

template <class Number>
std::string Name(const char* start, Number number) {
    return start + std::to_string(number);
}

// A C++ literal of ASCII only; octal escapes end after three digits, so that no following digit joins them.
std::string Quoted(const std::string& text) {
    std::string literal = "\"";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '\n') {
            literal += "\\n";
        } else if (character == '"' || character == '\\' || character == '?') {
            literal += {'\\', character};
        } else if (byte >= 0x20 && byte < 0x7F) {
            literal += character;
        } else {
            char octal[5];
            std::snprintf(octal, sizeof octal, "\\%03o", static_cast<unsigned int>(byte));
            literal += octal;
        }
    }
    return literal += '"';
}

// With the length, which is then no work at the start of the program.
std::string Literal(const std::string& text) {
    return Braced(Quoted(text), text.size());
}

std::string Optional(const std::optional<int>& number) {
    return number ? std::to_string(*number) : "std::nullopt";
}

std::string Written(const Rectangle& rectangle) {
    return Braced(rectangle.left, rectangle.top, rectangle.width, rectangle.height);
}

// Arrays of no element do not exist in C++: an empty list is written `{}` where it is used.
std::string ListOf(const std::string& array, std::size_t count) {
    return count == 0 ? "{}" : Braced(array, count);
}

class SourceWriter {
public:
    explicit SourceWriter(const Resources& resources) : resources(resources) {}

    std::string Run(const std::string& origin) {
        out << "// Made from " << origin << " at build time: do not edit.\n#include \"resources/ResourceTables.h\"\n\n"
            << "namespace Resources {\nnamespace {\n\n";
        WriteStringLists();
        WriteDialogs();
        WriteIcons();
        out << "} // namespace\n\n";
        WriteTable("StringList", "StringListsTable", "stringLists", resources.stringLists.size());
        WriteTable("DialogLayout", "DialogsTable", "dialogs", resources.dialogs.size());
        WriteTable("Icon", "IconsTable", "icons", resources.icons.size());
        const ModuleId moduleId = resources.moduleId.value_or(ModuleId{});
        out << "const ModuleId StoredModuleId" << Braced(moduleId.developerId, moduleId.localId) << ";\n\n"
            << "} // namespace Resources\n";
        return out.str();
    }

private:
    const Resources& resources;
    std::ostringstream out;

    template <class Element, class Write>
    void WriteArray(const char* type, const std::string& name, const std::vector<Element>& elements, Write write) {
        if (elements.empty()) return;
        out << "constexpr " << type << " " << name << "[] = {\n";
        for (const Element& element : elements)
            out << "    " << write(element) << ",\n";
        out << "};\n\n";
    }

    void WriteTable(const char* type, const char* table, const std::string& name, std::size_t count) {
        out << "const ConstantList<" << type << "> " << table << ListOf(name, count) << ";\n";
    }

    void WriteStringLists() {
        for (const StringList& list : resources.stringLists)
            WriteArray("std::string_view", Name("strings", list.id), list.entries, Literal);
        WriteArray("StringList", "stringLists", resources.stringLists, [](const StringList& list) {
            return Braced(list.id, ListOf(Name("strings", list.id), list.entries.size()));
        });
    }

    void WriteDialogs() {
        for (const DialogLayout& dialog : resources.dialogs)
            WriteItems(dialog);
        WriteArray("DialogLayout", "dialogs", resources.dialogs, [](const DialogLayout& dialog) {
            return Braced(dialog.id, "DialogKind::" + dialog.kind, dialog.growsHorizontally, dialog.growsVertically,
                          Written(dialog.rectangle), Literal(dialog.title),
                          ListOf(Name("items", dialog.id), dialog.items.size()));
        });
    }

    void WriteItems(const DialogLayout& dialog) {
        const auto entriesName = [&](std::size_t number) { return Name("entries", dialog.id) + Name("Item", number); };
        for (std::size_t index = 0; index < dialog.items.size(); ++index)
            WriteArray("PopupEntry", entriesName(index + 1), dialog.items[index].entries,
                       [](const PopupEntry& entry) { return Braced(Optional(entry.iconId), Literal(entry.text)); });
        std::size_t number = 0;
        WriteArray("DialogItem", Name("items", dialog.id), dialog.items, [&](const DialogItem& item) {
            ++number;
            return Braced(number, "ItemKind::" + item.kind, Written(item.rectangle), Literal(item.text),
                          Literal(item.font), Literal(item.minimum), Literal(item.maximum), Literal(item.toolTip),
                          Optional(item.maxLength), Optional(item.iconId), Optional(item.headerHeight),
                          Optional(item.rowHeight), item.framed, item.scrollsHorizontally, item.scrollsVertically,
                          ListOf(entriesName(number), item.entries.size()));
        });
    }

    void WriteIcons() {
        WriteArray("Icon", "icons", resources.icons, [](const Icon& icon) {
            return Braced(icon.id, Literal(icon.fileBase), icon.width, icon.height, Literal(icon.svg));
        });
    }
};

} // namespace

std::string WriteSource(const Resources& resources, const std::string& origin) {
    return SourceWriter(resources).Run(origin);
}

} // namespace ResourceCompiler
