// The embedded resources as constants: what a host's resource reader answers from. Nothing is allocated or read at run
// time; every reference stays valid as long as the program runs. Texts are UTF-8.
#pragma once

#include "resources/ResourceIds.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Resources {

/// A fixed array that somebody else owns.
template <class Element>
struct ConstantList {
    const Element* first = nullptr;
    std::size_t count = 0;

    [[nodiscard]] constexpr std::size_t size() const { return count; }
    [[nodiscard]] constexpr bool empty() const { return count == 0; }
    [[nodiscard]] constexpr const Element* begin() const { return first; }
    [[nodiscard]] constexpr const Element* end() const { return first + count; }
    /// index  below size()
    [[nodiscard]] constexpr const Element& operator[](std::size_t index) const { return first[index]; }
};

struct StringList {
    int id;
    ConstantList<std::string_view> entries; ///< entry n of the resource is entries[n - 1]
};

enum class ItemKind {
    Button,
    CheckBox,
    LeftText,
    CenterText,
    RightText,
    TextEdit,
    IntEdit,
    PosIntEdit,
    RealEdit,
    PopupControl,
    SingleSelList,
    MultiSelList,
    Icon,
    Separator, ///< vertical where higher than wide
    UserItem
};

/// Pixels; an item's position counts from the dialog's top left corner.
struct Rectangle {
    int left, top, width, height;
};

struct PopupEntry {
    std::optional<int> iconId;
    std::string_view text;
};

/// What a kind of item does not have is empty, none or false.
struct DialogItem {
    int number; ///< from 1, without gaps
    ItemKind kind;
    Rectangle rectangle; ///< may lie outside the dialog: editors that move onto a list, items kept hidden
    std::string_view text;
    std::string_view font;             ///< font word of the source, such as "LargePlain"
    std::string_view minimum, maximum; ///< of number edits; empty: no bound
    std::string_view toolTip;
    std::optional<int> maxLength;                        ///< characters, of text edits
    std::optional<int> iconId;                           ///< of icons
    std::optional<int> headerHeight;                     ///< pixels, of lists with a header
    std::optional<int> rowHeight;                        ///< pixels, of lists
    bool framed, scrollsHorizontally, scrollsVertically; ///< of lists
    ConstantList<PopupEntry> entries;                    ///< of pop-ups
};

enum class DialogKind { Modal, Palette, Modeless };

struct DialogLayout {
    int id;
    DialogKind kind;
    bool growsHorizontally, growsVertically;
    Rectangle rectangle; ///< position on the screen and size of the content
    std::string_view title;
    ConstantList<DialogItem> items; ///< item n is items[n - 1]
};

struct Icon {
    int id;
    std::string_view fileBase;
    int width, height;    ///< pixels
    std::string_view svg; ///< the image as SVG text
};

struct ModuleId {
    std::uint32_t developerId, localId;
};

/// Null where there is no resource with that id.
[[nodiscard]] const StringList* FindStringList(int id);
[[nodiscard]] const DialogLayout* FindDialog(int id);
[[nodiscard]] const Icon* FindIcon(int id);

/// Entries count from 1; empty where the list or the entry is absent.
[[nodiscard]] std::string_view String(int list, int entry);
[[nodiscard]] std::string_view String(ResourceIds::StringId id);

[[nodiscard]] ModuleId OwnModuleId();

/// All of a kind, in the order of the source.
[[nodiscard]] ConstantList<StringList> AllStringLists();
[[nodiscard]] ConstantList<DialogLayout> AllDialogs();
[[nodiscard]] ConstantList<Icon> AllIcons();

} // namespace Resources
