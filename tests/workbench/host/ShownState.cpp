#include "ShownState.h"

#include "lca/PropertyKeys.h"

#include <algorithm>
#include <iomanip>
#include <map>
#include <sstream>

namespace test {

namespace {

const std::map<std::int16_t, std::string> DialogNames = {
    {32406, "palette"}, {32407, "materials"}, {32408, "settings"}, {32409, "report"}};
const char* const Alignments[] = {"left", "centre", "right"};
const char* const Icons[] = {"", "[x]", "[ ]"};

std::string Write(const host::Colour& colour) {
    std::ostringstream text;
    text << '#' << std::hex << std::uppercase << std::setfill('0');
    for (const int channel : {colour.red, colour.green, colour.blue})
        text << std::setw(2) << channel;
    return text.str() + (colour.alpha == 0 ? " transparent" : "");
}

std::string OnOneLine(const std::string& text) {
    std::string line;
    for (const char letter : text)
        line += letter == '\n' ? "\\n" : std::string(1, letter);
    return line;
}

std::string Join(const std::vector<std::string>& texts, const char* separator) {
    std::string all;
    for (std::size_t i = 0; i < texts.size(); ++i)
        all += (i == 0 ? "" : separator) + texts[i];
    return all;
}

template <typename Values>
std::string WriteNumbers(const Values& values) {
    std::ostringstream text;
    for (const auto value : values)
        text << (text.tellp() == 0 ? "" : " ") << value;
    return text.str();
}

std::string DescribeItem(const workbench::ItemState& item) {
    const host::Rectangle& place = item.rectangle;
    std::ostringstream text;
    text << '[' << place.left << ',' << place.top << ' ' << place.width << 'x' << place.height << ']';
    if (!item.text.empty()) text << ' ' << Quote(MaskTimes(item.text));
    if (!item.popUpTexts.empty()) text << " entry " << item.selectedEntry << " of " << Join(item.popUpTexts, ", ");
    if (item.icon != 0) text << " icon " << item.icon;
    if (!(item.background == workbench::ItemState().background)) text << " on " << Write(item.background);
    text << (item.isChecked ? " checked" : "") << (item.isEnabled ? "" : " off") << (item.isVisible ? "" : " hidden")
         << (item.isDrawing ? "" : " not drawn");
    return text.str();
}

std::string DescribeColumn(const workbench::ColumnState& column) {
    std::ostringstream text;
    text << column.place.begin << '-' << column.place.end << ' ' << Alignments[int(column.place.alignment)] << ' '
         << Quote(column.header.text) << ' ' << column.header.width << ">=" << column.header.minimumWidth << ' '
         << Alignments[int(column.header.alignment)] << (column.header.resizable ? "" : " fixed")
         << (column.ownerDrawn ? " drawn" : "");
    if (column.editor != 0) text << " editor " << column.editor;
    return text.str();
}

std::string DescribeRow(const workbench::RowState& row) {
    if (row.isSeparator) return "-----";
    std::vector<std::string> cells;
    for (const workbench::CellState& cell : row.cells)
        cells.push_back(Icons[int(cell.icon)] + OnOneLine(cell.text) +
                        (cell.style == host::TextStyle::Bold ? " bold" : ""));
    return Join(cells, " | ") + (row.style == host::TextStyle::Bold ? " (bold)" : "") +
           (row.status == host::RowStatus::Normal ? "" : " (not selectable)");
}

void AddItem(const std::string& name, const workbench::ItemState& item, ShownState& state) {
    state.emplace_back(name, DescribeItem(item));
    for (std::size_t i = 0; i < item.list.columns.size(); ++i)
        state.emplace_back(name + " column " + std::to_string(i + 1), DescribeColumn(item.list.columns[i]));
    for (std::size_t i = 0; i < item.list.rows.size(); ++i)
        state.emplace_back(name + " row " + std::to_string(i + 1), DescribeRow(item.list.rows[i]));
    if (!item.list.columns.empty()) {
        state.emplace_back(name + " selected", WriteNumbers(item.list.selected));
        state.emplace_back(name + " fillings", std::to_string(item.list.clearings));
    }
    for (std::size_t i = 0; i < item.drawing.size(); ++i)
        state.emplace_back(name + " drawing " + std::to_string(i + 1), DescribeDrawing(item.drawing[i]));
}

void AddDialogs(workbench::OpenDialogs& dialogs, ShownState& state) {
    for (const host::DialogId id : dialogs.List()) {
        const workbench::DialogState& dialog = *dialogs.Find(id);
        const std::string& name = DialogNames.at(dialog.resource);
        std::ostringstream text;
        text << Quote(dialog.title) << ' ' << dialog.size.width << 'x' << dialog.size.height
             << " >= " << dialog.minimumSize.width << 'x' << dialog.minimumSize.height << ' '
             << host::WriteGuid(dialog.guid) << (dialog.moveGrowDepth == 0 ? "" : " still moving");
        state.emplace_back(name, text.str());
        std::ostringstream redraws;
        for (std::size_t i = 0; i < dialog.items.size(); ++i) {
            AddItem(name + "." + std::to_string(i + 1), dialog.items[i], state);
            if (dialog.items[i].redraws > 0) redraws << ' ' << i + 1 << 'x' << dialog.items[i].redraws;
        }
        state.emplace_back(name + ".redraws", redraws.str());
    }
}

std::string Write(const host::PropertyDefinition& definition, const host::Variant& value) {
    switch (value.type) {
    case host::ValueType::Integer:
        return std::to_string(value.integer);
    case host::ValueType::Real:
        return WriteNumbers(std::vector{value.real});
    case host::ValueType::Boolean:
        return value.boolean ? "true" : "false";
    case host::ValueType::String:
        return Quote(value.text);
    case host::ValueType::Guid:
        for (const host::PropertyOption& option : definition.options)
            if (option.key == value.guid) return Quote(option.text);
        return "another";
    default:
        return "none";
    }
}

std::string DescribeDefinition(const host::PropertyDefinition& definition) {
    std::ostringstream text;
    text << Write(definition, definition.defaultValue) << "; " << definition.description << " type "
         << int(definition.valueType) << " collection " << int(definition.collection)
         << (definition.editable ? "" : " fixed") << ", at " << definition.availability.size();
    for (const host::PropertyOption& option : definition.options)
        text << ", " << option.text;
    return text.str();
}

std::string DescribeValues(const workbench::Model& model, const workbench::Model::Values& values) {
    std::vector<std::string> texts;
    for (const host::PropertyDefinition& definition : model.GetDefinitions())
        if (const auto found = values.find(definition.guid); found != values.end())
            texts.push_back(definition.name + " " + Write(definition, found->second));
    return Join(texts, ", ");
}

std::string DescribeParameter(const host::ObjectParameter& parameter) {
    std::string text = parameter.isArray
                           ? std::to_string(parameter.rows) + "x" + std::to_string(parameter.columns) + ": "
                           : std::string();
    if (parameter.kind == host::ParameterKind::Real)
        return text + WriteNumbers(parameter.isArray ? parameter.realArray : std::vector{parameter.real});
    for (const char16_t unit : parameter.isArray ? parameter.textArray : parameter.text)
        text += unit == 0 ? '|' : unit < 128 ? static_cast<char>(unit) : '?';
    return parameter.isArray ? text : Quote(MaskTimes(text));
}

void AddObjects(const workbench::Model& model, ShownState& state) {
    int number = 0;
    for (const workbench::PlacedObject& object : model.GetPlacedObjects()) {
        const std::string name = "object " + std::to_string(++number);
        std::ostringstream text;
        for (const workbench::LibraryPart& part : model.libraryParts)
            if (part.identifier == object.libraryPart) text << part.fileName;
        text << " at " << object.position.x << ',' << object.position.y << " turned " << object.angle << " scaled "
             << object.xRatio << ',' << object.yRatio;
        for (const workbench::DatabaseRow& database : model.databases)
            if (database.guid == object.database) text << " in " << database.name;
        state.emplace_back(name, text.str());
        for (const host::ObjectParameter& parameter : object.parameters)
            state.emplace_back(name + " " + parameter.name, DescribeParameter(parameter));
    }
}

void AddModel(const workbench::Model& model, ShownState& state) {
    for (const host::ClassificationSystem& system : model.GetSystems())
        for (const workbench::ClassificationItem& item : model.GetItems())
            if (item.system == system.guid && system.name.compare(0, 3, "LCA") == 0)
                state.emplace_back(system.name + " " + system.version, item.item.name);
    for (const host::PropertyDefinition& definition : model.GetDefinitions())
        for (const host::PropertyGroup& group : model.GetGroups())
            if (group.guid == definition.group)
                state.emplace_back(group.name + " / " + definition.name, DescribeDefinition(definition));
    for (const host::BuildingMaterial& material : model.GetBuildingMaterials())
        if (const auto* values = model.FindMaterialValues(material.index))
            state.emplace_back("material " + OnOneLine(material.name), DescribeValues(model, *values));
    state.emplace_back("classified materials", std::to_string(model.GetMaterialClassifications().size()));
    for (std::uint32_t i = 0; i < model.GetElements().size(); ++i)
        if (const auto* values = model.FindElementValues(i))
            state.emplace_back("own " + model.GetElements()[i].name, DescribeValues(model, *values));
    AddObjects(model, state);
    std::vector<std::string> holders;
    for (const workbench::Reservation& one : model.reservations)
        holders.push_back(one.lockableSet + " by " + std::to_string(one.userId));
    for (const workbench::ReservationRequest& one : model.requests)
        holders.push_back(one.lockableSet + " wanted by " + std::to_string(one.userId));
    state.emplace_back("reserved", Join(holders, ", "));
}

} // namespace

std::string Quote(const std::string& text) {
    return '"' + OnOneLine(text) + '"';
}

std::string MaskTimes(std::string text) {
    const std::string form = "0000-00-00 00:00:00";
    for (std::size_t at = 0; at + form.size() <= text.size(); ++at) {
        std::string part = text.substr(at, form.size());
        for (char& letter : part)
            if (letter >= '0' && letter <= '9') letter = '0';
        if (part == form) text.replace(at, form.size(), "<time>");
    }
    return text;
}

std::string DescribeDrawing(const workbench::DrawingCall& call) {
    const char* const kinds[] = {"fill", "frame", "image", "sector", "text", "slanted"};
    std::ostringstream text;
    text << kinds[int(call.kind)] << ' ' << call.left << ',' << call.top << ' ' << call.right << ',' << call.bottom
         << ' ' << Write(call.colour);
    if (call.kind == workbench::DrawingCall::Kind::Sector) text << " from " << call.startAngle << " by " << call.sweep;
    if (!call.text.empty()) text << ' ' << Quote(call.text);
    if (call.slanted) text << " turned " << call.slanted->angle << " within " << call.slanted->maximumWidth;
    if (!call.image) return text.str();
    std::map<std::string, char> letters; // a picture as one letter a pixel, each colour with its own
    text << ' ' << call.image->GetResolutionDpi() << " dpi";
    for (int y = 0; y < call.image->GetHeight(); ++y) {
        text << "\n    ";
        for (int x = 0; x < call.image->GetWidth(); ++x) {
            const auto next = static_cast<char>('a' + letters.size());
            text << letters.try_emplace(Write(call.image->GetPixel(x, y)), next).first->second;
        }
    }
    for (const auto& [colour, letter] : letters)
        text << "\n    " << letter << ' ' << colour;
    return text.str();
}

ShownState TakeState(workbench::WorkbenchHost& host) {
    ShownState state;
    AddDialogs(host.openDialogs, state);
    for (const workbench::RegistrationRole::Menu& menu : host.registration.GetMenus())
        state.emplace_back("menu " + std::to_string(menu.strings), menu.itemText.value_or("as it is"));
    if (host.GetProject() == nullptr) return state;
    state.emplace_back("databases", "front " + std::to_string(int(host.databases.frontWindow.type)) + ", current " +
                                        std::to_string(int(host.databases.GetCurrent().type)));
    AddModel(host.GetProject()->model, state);
    const std::vector<std::string> steps = host.GetProject()->ListUndoNames();
    state.emplace_back("undo steps",
                       std::to_string(steps.size()) + (steps.empty() ? std::string() : ' ' + Quote(steps.back())));
    return state;
}

std::string DescribeChanges(const ShownState& before, const ShownState& after) {
    const std::map<std::string, std::string> former(before.begin(), before.end()), now(after.begin(), after.end());
    std::string changes;
    for (const auto& [name, text] : after) {
        const auto found = former.find(name);
        if (found != former.end() && found->second == text) continue;
        changes.append("  ").append(name).append(text.empty() ? ":" : ": ").append(text).append("\n");
    }
    for (const auto& [name, text] : before) {
        const std::string owner = name.substr(0, name.find('.'));
        if (now.count(name) == 0 && (owner == name || now.count(owner) != 0)) changes += "  " + name + " is gone\n";
    }
    return changes;
}

} // namespace test
