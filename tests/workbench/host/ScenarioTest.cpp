// Scenarios: each file under scenarios/ is what a user does, one action a line behind ">", with what that changes below
// it: of dialogs, menus, alerts, the report and the model, everything that is different from before and nothing else.
// Behind ">>" is what another scenario shows already; what it changes is left out.
// Lines behind "#" say where the numbers come from.
#include "support/ApprovedText.h"
#include "support/FakeOpener.h"
#include "support/TreeText.h"
#include "workbench/energy/UserCommands.h"

#include "DrivenAddOn.h"
#include "ShownState.h"

#include <cstdio>
#include <cstdlib>
#include <map>

namespace {

using namespace ResourceIds;

constexpr char TargetText[] = "Export to Kelvarnix";

/// The words of a command, counted from 0, which is its name.
class Words {
public:
    explicit Words(std::string command) : line(std::move(command)) {}
    std::string Word(int position) const {
        std::istringstream stream(Rest(position));
        std::string word;
        stream >> word;
        return word;
    }
    int Number(int position) const { return std::atoi(Word(position).c_str()); }
    std::int16_t Short(int position) const { return static_cast<std::int16_t>(Number(position)); }
    bool IsOn(int position) const { return Word(position) == "on"; }
    /// From a word to the end, where \n is a line's end, \0 a zero and {3*x} stands for xxx.
    std::string Rest(int position) const {
        std::istringstream stream(line);
        std::string rest;
        for (int i = 0; i < position; ++i)
            stream >> rest;
        rest.clear();
        std::getline(stream >> std::ws, rest);
        const auto replace = [&](const std::string& sign, char letter) {
            for (std::size_t at = rest.find(sign); at != std::string::npos; at = rest.find(sign))
                rest.replace(at, sign.size(), 1, letter);
        };
        replace("\\n", '\n');
        replace("\\0", '\0');
        const std::size_t open = rest.find('{'), star = rest.find('*', open), close = rest.find('}', open);
        if (star > close || close == std::string::npos) return rest;
        std::string repeated;
        for (int i = std::atoi(rest.c_str() + open + 1); i > 0; --i)
            repeated += rest.substr(star + 1, close - star - 1);
        return rest.replace(open, close - open + 1, repeated);
    }
    std::vector<std::int32_t> Numbers(int position) const {
        std::istringstream rest(Rest(position));
        return {std::istream_iterator<std::int32_t>(rest), {}};
    }
    /// Texts between "|".
    std::vector<std::string> Fields(int position) const {
        std::istringstream rest(Rest(position));
        std::vector<std::string> fields;
        for (std::string field; std::getline(rest, field, '|');)
            fields.push_back(field);
        return fields;
    }

private:
    std::string line;
};

std::vector<std::string> SplitLines(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::string Hexadecimal(host::ErrorCode code) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", static_cast<unsigned>(code.GetValue()));
    return text;
}

class ScenarioTest : public test::DrivenAddOn, public testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        host.dialogManager.modalUser = [this](host::DialogId opened) {
            Settle();
            const auto isOpen = [&] {
                const workbench::DialogState* state = host.openDialogs.Find(opened);
                return state != nullptr && state->closedBy == 0;
            };
            while (isOpen() && next < script.size())
                Step();
        };
        host.dialogManager.reportSink = [this](const std::string& line) { Note("report: " + line); };
        host.dialogManager.alertAnswer = [this](const host::Alert& alert) {
            const char* const types[] = {"information", "warning", "error"};
            std::string text = std::string(types[int(alert.type)]) + ": " + test::Quote(alert.title) + " " +
                               test::Quote(alert.largeText) + " " + test::Quote(alert.smallText);
            for (const std::string& button : alert.buttons)
                text += " [" + button + "]";
            Note(text);
            return button;
        };
        host.progress.observer = [this](const workbench::ProgressRole::State& state) {
            if (!state.isOpen)
                Note("progress in database " + std::to_string(int(host.databases.GetCurrent().type)) + ": " +
                     state.title + ", " + state.phase + ", of " + std::to_string(state.maximum) + " told " +
                     std::to_string(state.updates) + " times");
        };
        host.userInput.pointAnswer = [this](const std::string& prompt) {
            Note("asks for a point: " + prompt);
            return point;
        };
        host.userInput.colourAnswer = [this](const host::PickerColour& present) {
            Note("asks for a colour instead of " + std::to_string(present.red) + " " + std::to_string(present.green) +
                 " " + std::to_string(present.blue));
            return colour;
        };
        host.userInput.fileAnswer = [this](const host::SaveFileQuestion& question) {
            Note("asks for a file: " + question.title + ", " + question.proposedName + ", " + question.typeManager +
                 ", " + question.extension);
            return file;
        };
        host.pictures.temporaryFolder = folder.GetPath();
        host.pictures.painter = [this](const std::string& path, int width, int height, double scale, const auto& draw) {
            workbench::RecordedContext context;
            draw(context);
            std::string text = "paints " + path + " " + std::to_string(width) + "x" + std::to_string(height) + " x" +
                               std::to_string(scale).substr(0, 3) + " with " + std::to_string(context.calls.size());
            Note(text + " calls");
            if (!picture.empty()) folder.Write(path.substr(folder.GetPath().size() + 1), picture);
            return picture != "none";
        };
    }

    void Note(const std::string& event) { events += "  ! " + event + "\n"; }

    /// Writes what is different since the last action, where that is to be seen.
    void Settle() {
        const test::ShownState now = test::TakeState(host);
        CompareOpenings(now);
        if (isShown) found += events + test::DescribeChanges(before, now);
        for (std::size_t at = found.find(" \n"); at != std::string::npos; at = found.find(" \n"))
            found.erase(at, 1); // no line of the file ends in a blank
        events.clear();
        before = now;
    }

    /// A dialog that opens again is compared with its first opening.
    void CompareOpenings(const test::ShownState& now) {
        const auto isIn = [](const test::ShownState& state, const std::string& name) {
            return std::any_of(state.begin(), state.end(), [&](const auto& line) { return line.first == name; });
        };
        for (const std::string name : {"palette", "materials", "settings", "report"}) {
            if (isIn(before, name) || !isIn(now, name)) continue;
            test::ShownState& first = openings[name];
            before.insert(before.end(), first.begin(), first.end());
            for (const auto& line : first.empty() ? now : test::ShownState())
                if (line.first.compare(0, name.size() + 1, name + ".") == 0) first.push_back(line);
        }
    }

    void Step() {
        const std::string& line = script[next++];
        if (line.compare(0, 2, "  ") == 0) return; // of what is expected
        found += line + "\n";
        if (line.empty() || line[0] != '>') return;
        isShown = line[1] != '>';
        Words words(line.substr(isShown ? 1 : 2));
        const std::vector<host::DialogId> open = host.openDialogs.List();
        dialog = open.empty() ? host::DialogId() : open.back();
        if (words.Word(0) == "palette:") {
            dialog = Palette()->id;
            words = Words(words.Rest(1));
        }
        const auto command = Commands().find(words.Word(0));
        ASSERT_NE(command, Commands().end()) << line;
        isDone = true;
        command->second(*this, words);
        if (!isDone) Note("cannot be done");
        Settle();
    }

    /// Compares all that was found with the file.
    void Play(const std::string& name) {
        script = SplitLines(support::ApprovedText(name));
        while (next < script.size())
            Step();
        Mask(folder.GetPath(), "<folder>");
        support::ExpectApproved(name, found);
    }

    void Mask(const std::string& text, const std::string& name) {
        for (std::size_t at = found.find(text); at != std::string::npos; at = found.find(text))
            found.replace(at, text.size(), name);
    }
    using Command = void (*)(ScenarioTest& test, const Words& words);
    static const std::map<std::string, Command>& Commands();

    workbench::DialogManager& User() { return host.dialogManager; }
    void Load(workbench::Module& loaded, const char* name) {
        EXPECT_EQ(loaded.Load(std::string(KELVARNIX_BIN_DIR "/") + name).GetText(), "");
        EXPECT_EQ(loaded.Start().GetText(), "");
    }
    void ChooseMenu(const Words& words) {
        static const std::map<std::string, std::int16_t> MenuItems = {{"palette", Menus::Palette},
                                                                      {"materials", Menus::BuildingMaterials},
                                                                      {"settings", Menus::ProjectSettings},
                                                                      {"report", Menus::MaterialReport},
                                                                      {"information", Menus::Information}};
        const int item = words.Word(2).empty() ? 1 : words.Number(2);
        isDone = !host.registration.ChooseMenu(MenuItems.at(words.Word(1)), item);
    }
    /// By the value that a user reads: of a choice the option's text.
    host::PropertyValue ValueOf(lca::PropertyKey key, const std::string& text) {
        const host::PropertyDefinition definition = test::FindByKey(Model(), key);
        host::Variant value = definition.defaultValue;
        value.text = text;
        value.real = std::atof(text.c_str());
        value.integer = std::atoi(text.c_str());
        value.boolean = text == "true";
        for (const host::PropertyOption& option : definition.options)
            if (option.text == text) value.guid = option.key;
        return test::ValueOf(Model(), key, value);
    }
    static lca::PropertyKey KeyOf(const Words& words, int position) {
        return lca::FindPropertyKey(words.Word(position))->key;
    }
    void ChangeDefault(const Words& words) {
        SetDefault(KeyOf(words, 1), ValueOf(KeyOf(words, 1), words.Rest(2)).value);
    }
    void ChangeMaterial(const Words& words) {
        for (const host::BuildingMaterial& material : Model().GetBuildingMaterials())
            if (material.name == words.Word(1)) StoreValue(material.index, ValueOf(KeyOf(words, 2), words.Rest(3)));
    }
    void ChangeElement(const Words& words) {
        const std::vector<host::PropertyValue> values = {ValueOf(KeyOf(words, 2), words.Rest(3))};
        const host::Guid element = test::GuidOf(words.Number(1));
        isDone = !host.commands.Call("element", [&] { return host.properties.WriteElementValues(element, values); });
    }
    /// name|id|fill|pen|background pen|surface
    void AddMaterial(const std::vector<std::string>& fields) {
        const auto number = [&](std::size_t i) { return static_cast<std::int16_t>(std::atoi(fields.at(i).c_str())); };
        host::BuildingMaterial material;
        material.name = fields.at(0);
        material.id = fields.at(1);
        material.cutFill = {number(2)};
        material.cutFillPen = number(3);
        material.cutFillBackgroundPen = number(4);
        material.cutSurface = {number(5)};
        Model().AddBuildingMaterial(material);
    }
    /// As in the host's own dialog of properties.
    void ChangeDefinition(lca::PropertyKey key, const std::function<void(host::PropertyDefinition&)>& change) {
        host::PropertyDefinition definition = test::FindByKey(Model(), key);
        change(definition);
        isDone = !host.commands.Call("definition", [&] { return host.properties.ChangeDefinition(definition); });
    }
    /// A definition with the name and in the group, both new where they are not there yet; by a key its copy.
    void AddDefinition(const std::vector<std::string>& fields) {
        host::PropertyDefinition definition;
        if (const auto* row = lca::FindPropertyKey(fields.at(2))) definition = test::FindByKey(Model(), row->key);
        definition.name = fields.at(1);
        definition.valueType = host::ValueType::String;
        if (definition.defaultValue.type != host::ValueType::None) definition.valueType = definition.defaultValue.type;
        isDone = !host.commands.Call("definition", [&] {
            host::PropertyGroup group{{}, fields.at(0)};
            if (host.properties.CreateGroup(group))
                for (const host::PropertyGroup& one : Model().GetGroups())
                    if (one.name == group.name) group = one;
            definition.group = group.guid;
            return host.properties.CreateDefinition(definition);
        });
    }
    void AddWalls(int first, int last) {
        for (int i = first; i <= last; ++i)
            test::AddElement(Model(), i, host::ElementType::Wall, test::Inside, {});
    }
    void AddWallOnLayer(int number, const std::string& layer) {
        test::AddElement(Model(), number, host::ElementType::Wall, Model().AddLayer(layer), {{test::Concrete, 1, 1}});
    }
    /// name|library part, from 0|angle|x ratio|y ratio|addon_update
    void AddFavourite(const std::vector<std::string>& fields) {
        const auto number = [&](std::size_t i) { return std::atof(fields.at(i).c_str()); };
        const workbench::LibraryPart& part = Model().libraryParts.at(static_cast<std::size_t>(number(1)));
        workbench::FavouriteRow favourite{fields.at(0), true,      part.identifier, number(2),
                                          number(3),    number(4), part.parameters};
        favourite.parameters.back().real = number(5);
        if (fields.size() > 6) favourite.libraryPart.replace(40, 8, fields[6]); // another revision
        Model().favourites.push_back(favourite);
    }
    host::ObjectParameter& ParameterOf(const Words& words, int position) {
        for (host::ObjectParameter& one :
             Model().libraryParts.at(static_cast<std::size_t>(words.Number(position))).parameters)
            if (one.name == words.Word(position + 1)) return one;
        throw std::runtime_error("no such parameter");
    }
    /// Of a placed object, counted from 1, as the user does in the host's own dialog.
    void ChangeUpdateFlag(const Words& words) {
        const workbench::PlacedObject before = Model().GetPlacedObjects().at(std::size_t(words.Number(1)) - 1);
        workbench::PlacedObject after = before;
        after.parameters.back().real = words.Number(2);
        isDone = !host.commands.Call("object", [&] {
            host.GetProject()->Record({before, after});
            return host::NoError;
        });
    }
    void Hold(const Words& words) {
        const std::string set = words.Word(1);
        std::erase_if(Model().reservations, [&](const auto& one) { return one.lockableSet == set; });
        if (words.Number(2) != 0) Model().reservations.push_back({set, words.Short(2)});
    }
    /// Refuses an operation with a code, each time or the n-th time alone.
    void Refuse(const Words& words) {
        const std::string refused = words.Word(1);
        const auto code = static_cast<std::uint32_t>(std::strtoul(words.Word(2).c_str(), nullptr, 16));
        const int only = words.Number(3);
        int times = 0;
        host.refusals.rule = [=](const std::string& operation, const host::Guid&) mutable {
            const bool isMeant = operation == refused && (++times == only || only == 0);
            return isMeant ? host::Errors::Code(code) : host::NoError;
        };
    }
    void Throw(const std::string& thrower) {
        host.refusals.rule = [=](const std::string& operation, const host::Guid&) -> host::ErrorCode {
            if (operation == thrower) throw std::runtime_error("of " + thrower);
            return host::NoError;
        };
    }
    void AddDatabase(host::DatabaseType type) {
        const int number = 90 + int(Model().databases.size());
        Model().databases.push_back({type, test::GuidOf(number), "database " + std::to_string(number)});
    }
    void SwitchWindow(const Words& words) {
        const auto type = static_cast<host::DatabaseType>(words.Number(1));
        std::vector<host::Database> databases;
        EXPECT_EQ(host.databases.ListDatabases(type, databases), host::NoError);
        isDone = !host.SwitchWindow(databases.empty() ? host::Database{type, {}, {}} : databases.front());
    }
    void DrawCells(const Words& words) {
        for (const std::int32_t row : words.Numbers(3)) {
            workbench::RecordedContext context;
            User().DrawCell(dialog, words.Short(1), row, words.Short(2), context);
            for (const workbench::DrawingCall& call : context.calls)
                Note("row " + std::to_string(row) + " " + test::DescribeDrawing(call));
        }
    }
    void Send(const Words& words) {
        host::ObjectState settings;
        const host::ErrorCode error = workbench::energy::ExportDocument(host.addOnCommands, host.registration,
                                                                        TargetText, words.Rest(1), settings);
        Note("answer " + Hexadecimal(error));
        const std::string tree = test::WriteTree(settings);
        if (std::exchange(wanted, tree) != tree && !tree.empty()) Note("wants " + tree);
    }
    void ListTargets() {
        std::vector<std::string> texts;
        EXPECT_EQ(workbench::energy::ListTargets(host.addOnCommands, texts), host::NoError);
        for (const std::string& text : texts)
            Note("target " + text);
        Note(std::to_string(host.addOnCommands.CountLists()) + " lists");
    }
    /// As another program reads it.
    void ShowWorkbook(const Words& words) {
        const std::string shown = folder / "shown.txt";
        const std::string command = KELVARNIX_PYTHON " -I -X utf8 " KELVARNIX_SOURCE_DIR
                                                     "/tests/workbench/host/show_workbook.py '" +
                                    (folder / words.Rest(2)) + "' " + words.Word(1) + " >'" + shown + "' 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0) << support::ContentOf(shown);
        for (const std::string& line : SplitLines(support::ContentOf(shown)))
            Note(test::MaskTimes(line));
    }

    std::vector<std::string> script;
    std::size_t next = 0; ///< of the script
    std::string found, events, wanted;
    bool isDone = true, isShown = true;
    test::ShownState before;
    std::map<std::string, test::ShownState> openings;
    support::TestFolder folder;
    const support::FakeOpener opener;
    std::optional<host::Point> point;
    std::optional<host::PickerColour> colour;
    std::optional<std::string> file;
    std::string picture = "\xFF\xD8\xFF";
    std::int16_t button = 2;
    workbench::Module energy{host};
};

const std::map<std::string, ScenarioTest::Command>& ScenarioTest::Commands() {
    using T = ScenarioTest;
    using W = const Words;
    static const std::map<std::string, Command> Commands = {
        // The host and its modules.
        {"start", [](T& t, W&) { t.Load(t.module, "Kelvarnix.apx"); }},
        {"start-energy", [](T& t, W&) { t.Load(t.energy, "EnergyEvaluation.apx"); }},
        {"unload", [](T& t, W&) { t.module.Unload(); }},
        {"quit", [](T& t, W&) { t.host.Quit(); }},
        {"new", [](T& t, W&) { t.host.OpenProject(test::MakeBuilding(), host::ProjectEvent::New); }},
        {"new-and-reset", [](T& t, W&) { t.host.OpenProject(test::MakeBuilding(), host::ProjectEvent::NewAndReset); }},
        {"empty", [](T& t, W&) { t.host.OpenProject(workbench::CreateProject(), host::ProjectEvent::New); }},
        {"event", [](T& t, W& w) { t.isDone = !t.host.registration.RaiseEvent(host::ProjectEvent(w.Number(1))); }},
        {"turn", [](T& t, W&) { t.host.TurnEventLoop(); }},
        {"window", [](T& t, W& w) { t.SwitchWindow(w); }},
        {"palettes", [](T& t, W& w) { t.User().ShowPalettes(w.IsOn(1)); }},
        {"painting", [](T& t, W& w) { t.host.openDialogs.isPainting = w.IsOn(1); }},
        {"want", [](T& t, W& w) { t.isDone = !t.User().RequestPalette(host::ParseGuid(w.Word(1))); }},
        {"refuse", [](T& t, W& w) { t.Refuse(w); }},
        {"throw", [](T& t, W& w) { t.Throw(w.Word(1)); }},
        {"refuse-nothing", [](T& t, W&) { t.host.refusals.rule = nullptr; }},
        {"send", [](T& t, W& w) { t.Send(w); }},
        {"targets", [](T& t, W&) { t.ListTargets(); }},
        {"workbook", [](T& t, W& w) { t.ShowWorkbook(w); }},
        // The model and who shares it.
        {"default", [](T& t, W& w) { t.ChangeDefault(w); }},
        {"describe", [](T& t, W& w) { t.ChangeDefinition(KeyOf(w, 1), [&](auto& one) { one.description = w.Rest(2); }); }},
        {"call", [](T& t, W& w) { t.ChangeDefinition(KeyOf(w, 1), [&](auto& one) { one.name = w.Rest(2); }); }},
        {"no-default", [](T& t, W& w) { t.ChangeDefinition(KeyOf(w, 1), [](auto& one) { one.defaultValue = {}; }); }},
        {"add-definition", [](T& t, W& w) { t.AddDefinition(w.Fields(1)); }},
        {"add-walls", [](T& t, W& w) { t.AddWalls(w.Number(1), w.Number(2)); }},
        {"add-layer", [](T& t, W& w) { t.AddWallOnLayer(w.Number(1), w.Rest(2)); }},
        {"material", [](T& t, W& w) { t.ChangeMaterial(w); }},
        {"element", [](T& t, W& w) { t.ChangeElement(w); }},
        {"add-material", [](T& t, W& w) { t.AddMaterial(w.Fields(1)); }},
        {"add-favourite", [](T& t, W& w) { t.AddFavourite(w.Fields(1)); }},
        {"no-favourites", [](T& t, W&) { t.Model().favourites.clear(); }},
        {"columns", [](T& t, W& w) { t.ParameterOf(w, 1).columns = w.Number(3); }},
        {"rename", [](T& t, W& w) { t.ParameterOf(w, 1).name = w.Word(3); }},
        {"no-parts", [](T& t, W&) { t.Model().libraryParts.clear(); }},
        {"update-flag", [](T& t, W& w) { t.ChangeUpdateFlag(w); }},
        {"add-database", [](T& t, W& w) { t.AddDatabase(host::DatabaseType(w.Number(1))); }},
        {"project-name", [](T& t, W& w) { t.host.GetProject()->name = w.Rest(1); }},
        {"undo", [](T& t, W&) { t.isDone = !t.host.GetProject()->Undo(); }},
        {"share",
         [](T& t, W&) {
             t.Model().members = {{1, "anna", "Anna"}, {2, "ben", ""}};
         }},
        {"user", [](T& t, W& w) { t.host.access.userId = w.Short(1); }},
        {"server", [](T& t, W& w) { t.host.teamwork.isServerReachable = w.IsOn(1); }},
        {"unshare", [](T& t, W&) { t.Model().members.clear(); }},
        {"hold", [](T& t, W& w) { t.Hold(w); }},
        // The user.
        {"opened", [](T& t, W&) { t.Note("opened " + t.opener.WaitForWords()); }},
        {"menu", [](T& t, W& w) { t.ChooseMenu(w); }},
        {"press", [](T& t, W& w) { t.isDone = t.User().Press(t.dialog, w.Short(1)); }},
        {"type", [](T& t, W& w) { t.isDone = t.User().Type(t.dialog, w.Short(1), w.Rest(2)); }},
        {"cell", [](T& t, W& w) { t.isDone = t.TypeIntoCell(w.Short(1), w.Short(2), w.Rest(3)); }},
        {"toggle", [](T& t, W& w) { t.isDone = t.User().Toggle(t.dialog, w.Short(1)); }},
        {"choose", [](T& t, W& w) { t.isDone = t.User().Choose(t.dialog, w.Short(1), w.Short(2)); }},
        {"select", [](T& t, W& w) { t.isDone = t.User().SelectRows(t.dialog, w.Short(1), w.Numbers(2)); }},
        {"click", [](T& t, W& w) { t.isDone = t.User().ClickCell(t.dialog, w.Short(1), w.Number(2), w.Short(3)); }},
        {"pick",
         [](T& t, W& w) { t.isDone = t.User().DoubleClickCell(t.dialog, w.Short(1), w.Number(2), w.Short(3)); }},
        {"resize",
         [](T& t, W& w) {
             t.User().Resize(t.dialog, {w.Short(1), w.Short(2)});
         }},
        {"close", [](T& t, W&) { t.User().RequestClose(t.dialog); }},
        {"draw", [](T& t, W& w) { t.DrawCells(w); }},
        // What the user is going to answer.
        {"point",
         [](T& t, W& w) {
             t.point = host::Point{std::atof(w.Word(1).c_str()), std::atof(w.Word(2).c_str())};
         }},
        {"no-point", [](T& t, W&) { t.point.reset(); }},
        {"colour",
         [](T& t, W& w) {
             t.colour =
                 host::PickerColour{std::uint16_t(w.Number(1)), std::uint16_t(w.Number(2)), std::uint16_t(w.Number(3))};
         }},
        {"no-colour", [](T& t, W&) { t.colour.reset(); }},
        {"file", [](T& t, W& w) { t.file = t.folder / w.Rest(1); }},
        {"no-file", [](T& t, W&) { t.file.reset(); }},
        {"picture", [](T& t, W& w) { t.picture = w.Rest(1); }},
        {"button", [](T& t, W& w) { t.button = w.Short(1); }},
    };
    return Commands;
}

TEST_P(ScenarioTest, ChangesWhatItMust) {
    Play("workbench/host/scenarios/" + std::string(GetParam()) + ".txt");
}

INSTANTIATE_TEST_SUITE_P(All, ScenarioTest,
                         testing::Values("settings", "standards", "materials", "sharing", "palette", "editing",
                                         "material_report", "result_report", "workbook", "energy", "calculation",
                                         "schema", "early"),
                         [](const auto& info) { return std::string(info.param); });

} // namespace
