// All resources of the tables that are linked, as text: one line a text, item or icon.
#pragma once

#include "resources/ResourceData.h"

#include <sstream>
#include <string>

/// As in a source: with \n, \r, \t, \" and \\.
inline std::string Quote(std::string_view text) {
    const std::string_view letters = "\n\r\t\"\\", escapes = "nrt\"\\";
    std::string quoted = "\"";
    for (const char letter : text) {
        const std::size_t found = letters.find(letter);
        if (found != std::string_view::npos) quoted += '\\';
        quoted += found != std::string_view::npos ? escapes[found] : letter;
    }
    return quoted + "\"";
}

inline std::string ListItem(const Resources::DialogItem& item) {
    const char* const kinds[] = {"button", "check box", "left text", "centre text", "right text",
                                 "edit",   "integer",   "positive",  "real",        "pop-up",
                                 "list",   "multilist", "icon",      "separator",   "user item"};
    const Resources::Rectangle& place = item.rectangle;
    std::ostringstream text;
    text << item.number << ": " << kinds[int(item.kind)] << ' ' << place.left << ' ' << place.top << ' ' << place.width
         << ' ' << place.height << ' ' << Quote(item.text) << (item.font.empty() ? "" : " ") << item.font;
    if (!item.minimum.empty() || !item.maximum.empty()) text << " from " << item.minimum << " to " << item.maximum;
    if (!item.toolTip.empty()) text << " tip " << Quote(item.toolTip);
    if (item.maxLength) text << " at most " << *item.maxLength;
    if (item.iconId) text << " icon " << *item.iconId;
    if (item.headerHeight) text << " header " << *item.headerHeight;
    if (item.rowHeight) text << " rows " << *item.rowHeight;
    text << (item.framed ? " framed" : "") << (item.scrollsHorizontally ? " horizontal" : "")
         << (item.scrollsVertically ? " vertical" : "");
    for (const Resources::PopupEntry& entry : item.entries)
        text << " | " << entry.iconId.value_or(0) << ' ' << Quote(entry.text);
    return text.str();
}

/// By the look-ups, as a host asks for them.
inline std::string ListResources() {
    const char* const kinds[] = {"modal", "palette", "modeless"};
    std::ostringstream text;
    text << std::hex << "module " << Resources::OwnModuleId().developerId << ' ' << Resources::OwnModuleId().localId
         << std::dec << '\n';
    for (const Resources::StringList& list : Resources::AllStringLists()) {
        text << "\nlist " << list.id << '\n';
        for (int entry = 1; entry <= int(Resources::FindStringList(list.id)->entries.size()); ++entry)
            text << entry << ": " << Quote(Resources::String(list.id, entry)) << '\n';
    }
    for (const Resources::DialogLayout& one : Resources::AllDialogs()) {
        const Resources::DialogLayout& dialog = *Resources::FindDialog(one.id);
        const Resources::Rectangle& place = dialog.rectangle;
        text << "\ndialog " << dialog.id << ' ' << kinds[int(dialog.kind)]
             << (dialog.growsHorizontally ? " grows right" : "") << (dialog.growsVertically ? " grows down" : "") << ' '
             << place.left << ' ' << place.top << ' ' << place.width << ' ' << place.height << ' '
             << Quote(dialog.title) << '\n';
        for (const Resources::DialogItem& item : dialog.items)
            text << ListItem(item) << '\n';
    }
    text << '\n';
    for (const Resources::Icon& one : Resources::AllIcons()) {
        const Resources::Icon& icon = *Resources::FindIcon(one.id);
        text << "icon " << icon.id << ' ' << icon.fileBase << ' ' << icon.width << ' ' << icon.height << ' '
             << Quote(icon.svg) << "\n";
    }
    return text.str();
}
