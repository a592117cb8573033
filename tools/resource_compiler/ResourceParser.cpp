#include "ResourceParser.h"

#include "DialogParser.h"
#include "TokenStream.h"

#include <algorithm>
#include <set>

namespace ResourceCompiler {
namespace {

constexpr std::int64_t LargestId = 32767;
constexpr std::int64_t LargestUnsigned = 4294967295LL;

class ResourceParser {
public:
    explicit ResourceParser(std::vector<Token> source) : tokens(std::move(source)) {}

    Resources Run() {
        while (tokens.Peek().kind != TokenKind::End)
            ReadResource();
        JoinHelp();
        CheckIcons();
        CheckHelp();
        return std::move(resources);
    }

private:
    TokenStream tokens;
    Resources resources;
    std::set<std::pair<std::string, int>> usedIds;

    void ReadResource() {
        const Token type = tokens.Take(TokenKind::ResourceType, "a resource type such as 'STR#'");
        const int id = static_cast<int>(tokens.TakeNumber("the resource id", 1, LargestId));
        if (!usedIds.insert({type.text, id}).second)
            throw SourceError(type.position,
                              "'" + type.text + "' " + std::to_string(id) + " stands in the source twice");
        if (type.text == "STR#")
            ReadStrings(id);
        else if (type.text == "GDLG")
            resources.dialogs.push_back(ParseDialog(tokens, id));
        else if (type.text == "DLGH")
            ReadHelp(id, type.position);
        else if (type.text == "GICN")
            ReadIcon(id, type.position);
        else if (type.text == "MDID")
            ReadModuleId(type.position);
        else
            throw SourceError(type.position, "unknown resource type '" + type.text + "'");
    }

    void OpenBody() {
        tokens.TakeText("the resource's name");
        tokens.TakeMark("{");
    }

    void ReadStrings(int id) {
        OpenBody();
        StringList list{id, {}};
        while (!tokens.SkipMark("}"))
            list.entries.push_back(tokens.Take(TokenKind::Text, "a string or \"}\"").text);
        resources.stringLists.push_back(std::move(list));
    }

    void ReadHelp(int id, const Position& position) {
        tokens.Take(TokenKind::Word, "the dialog's anchor name");
        tokens.TakeMark("{");
        DialogHelp help{id, {}, position};
        while (!tokens.SkipMark("}")) {
            const auto next = static_cast<std::int64_t>(help.toolTips.size()) + 1;
            tokens.TakeNumber("item number " + std::to_string(next), next, next);
            help.toolTips.push_back(tokens.TakeText("the tool tip"));
            tokens.Take(TokenKind::Word, "the item's anchor name");
        }
        resources.helps.push_back(std::move(help));
    }

    void ReadIcon(int id, const Position& position) {
        OpenBody();
        Icon icon;
        icon.id = id;
        icon.position = position;
        icon.fileBase = tokens.IsMark("}") ? std::to_string(id) : tokens.TakeText("the image's file base");
        tokens.TakeMark("}");
        resources.icons.push_back(std::move(icon));
    }

    void ReadModuleId(const Position& position) {
        if (resources.moduleId) throw SourceError(position, "a module has one 'MDID' only");
        OpenBody();
        ModuleId moduleId;
        moduleId.developerId = static_cast<std::uint32_t>(tokens.TakeNumber("the developer id", 0, LargestUnsigned));
        moduleId.localId = static_cast<std::uint32_t>(tokens.TakeNumber("the local id", 0, LargestUnsigned));
        tokens.TakeMark("}");
        resources.moduleId = moduleId;
    }

    void JoinHelp() {
        for (const DialogHelp& help : resources.helps) {
            const auto dialog = std::find_if(resources.dialogs.begin(), resources.dialogs.end(),
                                             [&](const DialogLayout& layout) { return layout.id == help.id; });
            if (dialog == resources.dialogs.end())
                throw SourceError(help.position, "there is no 'GDLG' " + std::to_string(help.id) + " for this 'DLGH'");
            if (dialog->items.size() != help.toolTips.size())
                throw SourceError(help.position, "'DLGH' " + std::to_string(help.id) + " has " +
                                                     std::to_string(help.toolTips.size()) + " items, its dialog " +
                                                     std::to_string(dialog->items.size()));
            for (std::size_t index = 0; index < help.toolTips.size(); ++index)
                dialog->items[index].toolTip = help.toolTips[index];
        }
    }

    void CheckHelp() const {
        for (const DialogLayout& dialog : resources.dialogs)
            if (usedIds.count({"DLGH", dialog.id}) == 0)
                throw SourceError(dialog.position, "'GDLG' " + std::to_string(dialog.id) + " has no 'DLGH'");
    }

    void CheckIcon(const std::optional<int>& iconId, const Position& position) const {
        if (iconId && usedIds.count({"GICN", *iconId}) == 0)
            throw SourceError(position, "there is no 'GICN' " + std::to_string(*iconId));
    }

    void CheckIcons() const {
        for (const DialogLayout& dialog : resources.dialogs)
            for (const DialogItem& item : dialog.items) {
                CheckIcon(item.iconId, item.position);
                for (const PopupEntry& entry : item.entries)
                    CheckIcon(entry.iconId, item.position);
            }
    }
};

} // namespace

Resources ParseResources(std::vector<Token> tokens) {
    return ResourceParser(std::move(tokens)).Run();
}

} // namespace ResourceCompiler
