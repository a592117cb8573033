// kelvarnix-ifc-reader: reads one IFC file and writes what it holds to descriptor 3. It is
// started by the import with limits on memory and time and may die of a hostile file; nothing else should start it.
//   kelvarnix-ifc-reader FILE [--code-page=NAME] [--skip=ENTITY]... [--no-geometry] [--every-body]

#include <charconv>
#include <fstream>
#include <new>
#include <string>
#include <string_view>
#include <unistd.h>

#include "ElementReader.h"
#include "workbench/ifc/ChildProcess.h"
#include "workbench/ifc/ImportAnswer.h"
#include "workbench/ifc/ImportProblem.h"

namespace {

using namespace workbench;
using namespace workbench::ifc;

/// One element's geometry may take this long before the reader gives itself up and is started again without it.
constexpr unsigned LongestGeometrySeconds = 30;
/// How the time goes: reading the text up to here, then the elements.
constexpr double ShareOfReading = 0.1;

void Send(std::string_view frame) {
    while (!frame.empty()) {
        const ssize_t written = write(AnswerDescriptor, frame.data(), frame.size());
        if (written <= 0) _exit(ExitNoAnswerPipe);
        frame.remove_prefix(static_cast<std::size_t>(written));
    }
}

struct Command {
    std::string file;
    std::string codePage;
    ReadOptions options;
};

std::optional<Command> ParseCommand(int count, char** words) {
    Command command;
    for (int i = 1; i < count; ++i) {
        const std::string_view word = words[i];
        if (i == 1) {
            command.file = word;
        } else if (word == "--no-geometry") {
            command.options.geometry = false;
        } else if (word == "--every-body") {
            command.options.everyBody = true;
        } else if (word.starts_with("--code-page=")) {
            command.codePage = word.substr(word.find('=') + 1);
        } else if (word.starts_with("--skip=")) {
            step::EntityNumber number = 0;
            const auto end = std::from_chars(word.data() + 7, word.data() + word.size(), number);
            if (end.ec != std::errc()) return std::nullopt;
            command.options.skipped.insert(number);
        } else {
            return std::nullopt;
        }
    }
    return command.file.empty() ? std::nullopt : std::optional(command);
}

std::optional<std::string> ReadText(const std::string& path) {
    std::ifstream stream(path, std::ios::binary | std::ios::ate);
    const std::streamoff size = stream ? static_cast<std::streamoff>(stream.tellg()) : -1;
    if (size < 0) return std::nullopt;
    std::string text(static_cast<std::size_t>(size), '\0');
    stream.seekg(0);
    return stream.read(text.data(), size) ? std::optional(std::move(text)) : std::nullopt;
}

/// Text in the form of a model, but no model.
bool IsMostlyUnknown(const entities::Model& model) {
    std::size_t unknown = 0;
    for (const auto& [keyword, count] : model.GetUnknown())
        unknown += count;
    return 2 * unknown > model.GetFile().CountEntities();
}

/// The problem, where there is one.
std::optional<ImportProblem> Run(const Command& command) {
    auto text = ReadText(command.file);
    if (!text) return ImportProblem{ImportError::NotReadable, "cannot be read", "Check its permissions."};
    if (archive::IsZip(*text)) {
        archive::Unpacked unpacked = archive::UnpackOnly(*text, ".ifc");
        if (unpacked.problem != archive::UnpackProblem::None) return ProblemOf(unpacked.problem);
        text = std::move(unpacked.content);
    }
    step::Problem damage;
    auto file = step::StepFile::Read(std::move(*text), {command.codePage}, damage);
    if (!file) return ProblemOf(damage);
    if (auto refused = RefuseSchema(file->GetHeader())) return refused;
    const schema::SchemaChoice choice = schema::ChooseSchema(file->GetHeader().schema);
    const entities::Model model(std::move(*file), *choice.schema);
    if (IsMostlyUnknown(model)) {
        return ImportProblem{ImportError::Damaged, "holds little but entities that no IFC schema has",
                             "Export it again from the program that made it."};
    }
    Send(EncodeProgress(ShareOfReading));
    const ReadListener listener{
        [](double share) { Send(EncodeProgress(ShareOfReading + (1.0 - ShareOfReading) * share)); },
        [](step::EntityNumber entity) {
            Send(EncodeWorking(entity));
            alarm(entity == 0 ? 0 : LongestGeometrySeconds);
        }};
    Send(EncodeBuilding(ReadBuilding(model, command.options, listener)));
    return std::nullopt;
}

} // namespace

int main(int count, char** words) {
    std::set_new_handler([] { _exit(ExitOutOfMemory); });
    const auto command = ParseCommand(count, words);
    if (!command) return ExitUsage;
    try {
        if (const auto problem = Run(*command)) Send(EncodeRefusal(*problem));
    } catch (const std::bad_alloc&) {
        _exit(ExitOutOfMemory);
    } catch (const std::exception& failure) {
        Send(EncodeRefusal({ImportError::Damaged, std::string("cannot be understood (") + failure.what() + ")",
                            "Export it again from the program that made it."}));
    } catch (...) {
        Send(EncodeRefusal(
            {ImportError::Damaged, "cannot be understood", "Export it again from the program that made it."}));
    }
    _exit(ExitDone); // tearing the model down would take as long as building it
}
