#include "DialogParser.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace ResourceCompiler {
namespace {

constexpr std::int64_t LargestLength = 32767;

// Words of one group exclude each other.
struct FlagWord {
    std::string_view word;
    std::string_view group;
    bool modal, modeless, palette;
};

constexpr FlagWord FlagWords[] = {
    {"noGrow", "grow", true, true, true},
    {"hGrow", "grow", true, true, true},
    {"vGrow", "grow", true, true, true},
    {"grow", "grow", true, true, true},
    {"topCaption", "caption", false, true, true},
    {"leftCaption", "caption", false, true, true},
    {"noCaption", "caption", true, true, true},
    {"close", "close", false, true, true},
    {"noClose", "close", false, true, true},
    {"minimize", "minimize", false, true, false},
    {"noMinimize", "minimize", false, true, false},
    {"maximize", "maximize", false, true, false},
    {"noMaximize", "maximize", false, true, false},
    {"normalFrame", "frame", true, true, true},
    {"thickFrame", "frame", true, true, true},
    {"noFrame", "frame", true, true, true},
};

bool Takes(const FlagWord& flag, const std::string& dialogKind) {
    return dialogKind == "Modal" ? flag.modal : dialogKind == "Modeless" ? flag.modeless : flag.palette;
}

void ReadFlags(TokenStream& tokens, DialogLayout& dialog) {
    std::set<std::string_view> groups;
    while (tokens.SkipMark("|")) {
        const Token word = tokens.Take(TokenKind::Word, "a flag");
        const auto flag = std::find_if(std::begin(FlagWords), std::end(FlagWords),
                                       [&](const FlagWord& known) { return known.word == word.text; });
        if (flag == std::end(FlagWords) || !Takes(*flag, dialog.kind))
            throw SourceError(word.position, "a " + dialog.kind + " dialog takes no flag \"" + word.text + "\"");
        if (!groups.insert(flag->group).second)
            throw SourceError(word.position, "the flag \"" + word.text + "\" contradicts or repeats an earlier one");
        dialog.growsHorizontally = dialog.growsHorizontally || word.text == "grow" || word.text == "hGrow";
        dialog.growsVertically = dialog.growsVertically || word.text == "grow" || word.text == "vGrow";
    }
}

void ReadFont(TokenStream& tokens, DialogItem& item) {
    item.font = tokens.TakeOneOf({"ExtraSmall", "SmallPlain", "SmallBold", "SmallItalic", "SmallUnderline",
                                  "SmallShadow", "SmallOutline", "LargePlain", "LargeBold", "LargeItalic",
                                  "LargeUnderline", "LargeShadow", "LargeOutline"});
}

// Words joined by bars, in any order; may be absent.
void SkipStyles(TokenStream& tokens, std::initializer_list<std::string_view> words) {
    if (!tokens.SkipOneOf(words)) return;
    while (tokens.SkipMark("|"))
        tokens.TakeOneOf(words);
}

void ReadScroll(TokenStream& tokens, DialogItem& item) {
    const std::string word = tokens.TakeOneOf({"NoScroll", "HScroll", "VScroll", "HVScroll"});
    item.scrollsHorizontally = word == "HScroll" || word == "HVScroll";
    item.scrollsVertically = word == "VScroll" || word == "HVScroll";
}

void ReadButton(TokenStream& tokens, DialogItem& item) {
    ReadFont(tokens, item);
    tokens.SkipOneOf({"frame", "noFrame"});
    tokens.SkipOneOf({"BevelEdge", "RoundedBevelEdge"});
    item.text = tokens.TakeText("the button's text");
}

void ReadCheckBox(TokenStream& tokens, DialogItem& item) {
    ReadFont(tokens, item);
    item.text = tokens.TakeText("the check box's text");
}

void ReadStaticText(TokenStream& tokens, DialogItem& item) {
    ReadFont(tokens, item);
    SkipStyles(tokens, {"vTop", "vCenter", "vBottom", "noTrunc", "truncEnd", "truncMiddle"});
    tokens.SkipOneOf({"Default", "StaticEdge", "ClientEdge", "ModalFrame"});
    item.text = tokens.TakeText("the text");
}

void ReadEditStyles(TokenStream& tokens, DialogItem& item) {
    ReadFont(tokens, item);
    SkipStyles(tokens, {"frame", "update", "absolute", "relative", "editable"});
}

void ReadTextEdit(TokenStream& tokens, DialogItem& item) {
    ReadEditStyles(tokens, item);
    item.maxLength = static_cast<int>(tokens.TakeNumber("the maximum number of characters", 1, LargestLength));
}

void ReadNumberEdit(TokenStream& tokens, DialogItem& item) {
    ReadEditStyles(tokens, item);
    item.minimum = tokens.TakeText("the minimum");
    item.maximum = tokens.TakeText("the maximum");
}

void ReadPopup(TokenStream& tokens, DialogItem& item) {
    tokens.TakeNumber("the list's height", 0, LargestLength);
    tokens.TakeNumber("the text offset", 0, LargestLength);
    while (tokens.Peek().kind == TokenKind::Number || tokens.IsWord("NoIcon")) {
        PopupEntry entry;
        if (!tokens.SkipOneOf({"NoIcon"}))
            entry.iconId = static_cast<int>(tokens.TakeNumber("an icon id", 1, LargestLength));
        entry.text = tokens.TakeText("the entry's text");
        item.entries.push_back(entry);
    }
}

void ReadList(TokenStream& tokens, DialogItem& item) {
    ReadFont(tokens, item);
    tokens.TakeOneOf({"PartialItems", "NoPartialItems"});
    ReadScroll(tokens, item);
    item.rowHeight = static_cast<int>(tokens.TakeNumber("the row height", 1, LargestLength));
    if (tokens.SkipOneOf({"HasHeader"}))
        item.headerHeight = static_cast<int>(tokens.TakeNumber("the header height", 1, LargestLength));
    item.framed = tokens.SkipOneOf({"HasFrame"}).has_value();
}

void TakeEdge(TokenStream& tokens) {
    tokens.TakeOneOf({"Default", "StaticEdge", "ClientEdge", "ModalFrame"});
}

void ReadIcon(TokenStream& tokens, DialogItem& item) {
    item.iconId = static_cast<int>(tokens.TakeNumber("the icon id", 1, LargestLength));
    TakeEdge(tokens);
}

void ReadSeparator(TokenStream&, DialogItem&) {}

void ReadUserItem(TokenStream& tokens, DialogItem&) {
    tokens.SkipOneOf({"PartialUpdate"});
    TakeEdge(tokens);
}

struct ItemSyntax {
    std::string_view keyword;
    void (*readArguments)(TokenStream&, DialogItem&);
};

constexpr ItemSyntax ItemSyntaxes[] = {
    {"Button", ReadButton},
    {"CheckBox", ReadCheckBox},
    {"LeftText", ReadStaticText},
    {"CenterText", ReadStaticText},
    {"RightText", ReadStaticText},
    {"TextEdit", ReadTextEdit},
    {"IntEdit", ReadNumberEdit},
    {"PosIntEdit", ReadNumberEdit},
    {"RealEdit", ReadNumberEdit},
    {"PopupControl", ReadPopup},
    {"SingleSelList", ReadList},
    {"MultiSelList", ReadList},
    {"Icon", ReadIcon},
    {"Separator", ReadSeparator},
    {"UserItem", ReadUserItem},
};

DialogItem ReadItem(TokenStream& tokens) {
    const Token keyword = tokens.Take(TokenKind::Word, "an item keyword or \"}\"");
    const auto syntax = std::find_if(std::begin(ItemSyntaxes), std::end(ItemSyntaxes),
                                     [&](const ItemSyntax& known) { return known.keyword == keyword.text; });
    if (syntax == std::end(ItemSyntaxes))
        throw SourceError(keyword.position, "unknown item keyword \"" + keyword.text + "\"");
    DialogItem item;
    item.kind = keyword.text;
    item.position = keyword.position;
    item.rectangle = tokens.TakeRectangle();
    syntax->readArguments(tokens, item);
    return item;
}

} // namespace

DialogLayout ParseDialog(TokenStream& tokens, int id) {
    DialogLayout dialog;
    dialog.id = id;
    dialog.position = tokens.Peek().position;
    dialog.kind = tokens.TakeOneOf({"Modal", "Palette", "Modeless"});
    ReadFlags(tokens, dialog);
    dialog.rectangle = tokens.TakeRectangle();
    dialog.title = tokens.TakeText("the title");
    tokens.TakeMark("{");
    while (!tokens.SkipMark("}"))
        dialog.items.push_back(ReadItem(tokens));
    return dialog;
}

} // namespace ResourceCompiler
