// What the parser makes of a source and the writer puts out.
#pragma once

#include "Source.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace ResourceCompiler {

struct StringList {
    int id = 0;
    std::vector<std::string> entries; ///< UTF-8
};

struct Rectangle {
    int left = 0, top = 0, width = 0, height = 0; ///< pixels
};

struct PopupEntry {
    std::optional<int> iconId;
    std::string text;
};

/// `kind` is the item's keyword, which is also the name of its enumerator in the data.
struct DialogItem {
    std::string kind;
    Rectangle rectangle;
    std::string text, font, minimum, maximum, toolTip;
    std::optional<int> maxLength, iconId, headerHeight, rowHeight;
    bool framed = false, scrollsHorizontally = false, scrollsVertically = false;
    std::vector<PopupEntry> entries;
    Position position;
};

struct DialogLayout {
    int id = 0;
    std::string kind; ///< Modal, Palette or Modeless
    bool growsHorizontally = false, growsVertically = false;
    Rectangle rectangle;
    std::string title;
    std::vector<DialogItem> items; ///< in order; item numbers start at 1
    Position position;
};

/// The texts shown for the items of the dialog with the same id.
struct DialogHelp {
    int id = 0;
    std::vector<std::string> toolTips;
    Position position;
};

struct Icon {
    int id = 0;
    std::string fileBase;
    int width = 0, height = 0; ///< pixels, from the file's name
    std::string svg;           ///< the image file's text
    Position position;
};

struct ModuleId {
    std::uint32_t developerId = 0, localId = 0;
};

struct Resources {
    std::vector<StringList> stringLists;
    std::vector<DialogLayout> dialogs;
    std::vector<DialogHelp> helps;
    std::vector<Icon> icons;
    std::optional<ModuleId> moduleId;
};

} // namespace ResourceCompiler
