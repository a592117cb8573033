#include "workbench/ifc/IfcImport.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <system_error>
#include <vector>

#include "workbench/ifc/ChildProcess.h"
#include "workbench/ifc/ImportAnswer.h"
#include "workbench/ifc/ImportProblem.h"

namespace workbench::ifc {
namespace {

/// So often a reader that dies over one element's geometry is started again without it, before all geometry is given
/// up.
constexpr std::size_t MostSkipped = 12;

/// One import: the reader program, started again where an element's geometry kills it.
class Import {
public:
    Import(const std::filesystem::path& file, const ImportSettings& settings, const ImportProgress& progress,
           const std::filesystem::path& reader)
        : file(file), settings(settings), progress(progress), reader(reader),
          deadline(std::chrono::steady_clock::now() + settings.time) {}

    ImportResult Run() {
        if (const auto refused = Look()) return Refuse(*refused);
        std::error_code failure;
        if (!std::filesystem::is_regular_file(reader, failure)) return NoReader();
        for (;;) {
            AnswerReader answer;
            const ChildReport report = RunOnce(answer);
            if (answer.Refusal()) return Refuse(*answer.Refusal());
            if (answer.Building() && !answer.IsBroken() && report.ending == ChildEnding::Exited) {
                return Finish(std::move(*answer.Building()));
            }
            const bool died = report.ending == ChildEnding::Killed ||
                              (report.ending == ChildEnding::Exited && report.exitCode != ExitDone);
            if (!died || !answer.Working() || withoutGeometry) return Explain(report, answer);
            withoutGeometry = skipped.size() == MostSkipped;
            skipped.push_back(*answer.Working());
        }
    }

private:
    /// What can be refused without the reader program.
    std::optional<ImportProblem> Look() const {
        std::error_code failure;
        const auto status = std::filesystem::status(file, failure);
        if (!std::filesystem::exists(status)) {
            return ImportProblem{ImportError::NotReadable, "does not exist", "Check the path."};
        }
        if (std::filesystem::is_directory(status)) {
            return ImportProblem{ImportError::NotReadable, "is a folder", "Give the .ifc file in it."};
        }
        std::ifstream stream(file, std::ios::binary);
        std::string start(step::HeaderLimit, '\0');
        stream.read(start.data(), static_cast<std::streamsize>(start.size()));
        if (stream.bad() || (stream.gcount() == 0 && !stream.eof())) {
            return ImportProblem{ImportError::NotReadable, "cannot be read", "Check its permissions."};
        }
        start.resize(static_cast<std::size_t>(stream.gcount()));
        return RefuseStart(start);
    }

    ChildReport RunOnce(AnswerReader& answer) {
        ChildCommand command{reader, {file.string()}, settings.memoryBytes, deadline};
        if (!settings.codePage.empty()) command.arguments.push_back("--code-page=" + settings.codePage);
        if (settings.everyBody) command.arguments.emplace_back("--every-body");
        if (withoutGeometry) command.arguments.emplace_back("--no-geometry");
        for (const std::uint64_t entity : skipped)
            command.arguments.push_back("--skip=" + std::to_string(entity));
        return RunChild(command, [&](std::string_view piece) {
            if (!answer.Take(piece)) return false;
            shown = std::max(shown, answer.Progress());
            cancelled = progress && !progress(shown);
            return !cancelled;
        });
    }

    ImportResult Finish(ImportedBuilding building) {
        if (withoutGeometry) {
            building.warnings.emplace_back(
                "The geometry of too many elements cannot be computed; only stated quantities are used.");
        }
        if (progress && !progress(1.0)) cancelled = true;
        return cancelled ? Cancel() : ImportResult(std::move(building));
    }

    ImportResult Explain(const ChildReport& report, const AnswerReader& answer) {
        if (cancelled) return Cancel();
        switch (report.ending) {
        case ChildEnding::NotStarted:
            return NoReader();
        case ChildEnding::OutOfTime:
            return Fail(ImportError::OutOfTime, "could not be read within " + std::to_string(Seconds()) + " seconds",
                        "Export a smaller part of the model, or allow more time.");
        case ChildEnding::Exited:
            if (report.exitCode == ExitOutOfMemory) return OutOfMemory();
            break;
        case ChildEnding::Killed:
            if (report.signal == SIGKILL) return OutOfMemory();
            return Fail(ImportError::ReaderDied,
                        "could not be read: the reader stopped with signal " + std::to_string(report.signal),
                        "The file is probably damaged; export it again from the program that made it.");
        case ChildEnding::Stopped:
            break;
        }
        return Fail(ImportError::ReaderDied,
                    std::string("could not be read: the reader gave ") +
                        (answer.IsBroken() ? "a broken answer" : "no answer"),
                    "The file is probably damaged; export it again from the program that made it.");
    }

    ImportResult OutOfMemory() {
        return Fail(ImportError::OutOfMemory,
                    "needs more than " + std::to_string(settings.memoryBytes >> 20) + " MiB of memory to read",
                    "Export a smaller part of the model, or allow more memory.");
    }

    ImportResult NoReader() {
        return ImportResult(ImportError::ReaderMissing,
                            file.string() + " could not be read: the program " + reader.string() +
                                " cannot be started; build or install it beside the calling program");
    }

    ImportResult Cancel() { return Fail(ImportError::Cancelled, "was not read", "The import was stopped."); }
    ImportResult Refuse(const ImportProblem& problem) { return Fail(problem.code, problem.what, problem.advice); }

    /// One sentence: the advice, a sentence of its own, follows after a semicolon.
    ImportResult Fail(ImportError code, const std::string& what, std::string advice) {
        if (!advice.empty() && advice.front() >= 'A' && advice.front() <= 'Z') advice.front() += 'a' - 'A';
        if (!advice.empty() && advice.back() == '.') advice.pop_back();
        return ImportResult(code, file.string() + " " + what + "; " + advice);
    }

    [[nodiscard]] long long Seconds() const {
        return std::max<long long>(1, std::chrono::duration_cast<std::chrono::seconds>(settings.time).count());
    }

    const std::filesystem::path& file;
    const ImportSettings& settings;
    const ImportProgress& progress;
    const std::filesystem::path& reader;
    std::chrono::steady_clock::time_point deadline;
    std::vector<std::uint64_t> skipped;
    bool withoutGeometry = false;
    bool cancelled = false;
    double shown = 0.0;
};

} // namespace

std::filesystem::path DefaultReaderProgram() {
    std::error_code failure;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", failure);
    return (failure ? std::filesystem::path() : self.parent_path()) / "kelvarnix-ifc-reader";
}

ImportResult ReadIfcFile(const std::filesystem::path& file, const ImportSettings& settings,
                         const ImportProgress& progress, const std::filesystem::path& readerProgram) {
    return Import(file, settings, progress, readerProgram).Run();
}

} // namespace workbench::ifc
