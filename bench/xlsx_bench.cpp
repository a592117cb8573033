// How fast a workbook of 1,000,000 cells is written, what memory it takes, and where the time goes.
//   xlsx_bench [FOLDER]
// Half of the cells are numbers, half are texts out of 10,000. The workbook goes into the folder (default: the
// temporary one) and is removed. A second workbook of a tenth of the cells shows that the memory does not follow their
// number. At the end styles are registered: ten times as many take ten times as long, and up to three times that where
// only the few fit the processor's cache; a hundred times would be a search through the lists.
#include "platform/TemporaryFolder.h"
#include "platform/Text.h"
#include "xlsx/StyleRegistry.h"
#include "xlsx/Workbook.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double Seconds(Clock::duration time) {
    return std::chrono::duration<double>(time).count();
}

/// Adds the time until its end to a sum.
class Stopwatch {
public:
    explicit Stopwatch(Clock::duration& sum) : sum(sum) {}
    ~Stopwatch() { sum += Clock::now() - start; }
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;

private:
    Clock::duration& sum;
    Clock::time_point start = Clock::now();
};

/// The system's files, with the time spent in them.
class TimedFiles final : public platform::FileLayer {
public:
    Clock::duration spent{};
    std::uint64_t bytesWritten = 0;
    std::uint64_t bytesRead = 0;

    std::unique_ptr<platform::OutputFile> CreateOrTruncate(const std::string& path) override {
        const Stopwatch watch(spent);
        return std::make_unique<Output>(*this, files.CreateOrTruncate(path));
    }
    platform::Creation CreateEmpty(const std::string& path, const std::string& model) override {
        const Stopwatch watch(spent);
        return files.CreateEmpty(path, model);
    }
    std::unique_ptr<platform::InputFile> OpenForReading(const std::string& path) override {
        const Stopwatch watch(spent);
        std::unique_ptr<platform::InputFile> file = files.OpenForReading(path);
        if (!file) return nullptr;
        return std::make_unique<Input>(*this, std::move(file));
    }
    platform::Creation CreateFolder(const std::string& path) override {
        const Stopwatch watch(spent);
        return files.CreateFolder(path);
    }
    bool RemoveFile(const std::string& path) override {
        const Stopwatch watch(spent);
        return files.RemoveFile(path);
    }
    bool RemoveFolder(const std::string& path) override {
        const Stopwatch watch(spent);
        return files.RemoveFolder(path);
    }
    bool Replace(const std::string& from, const std::string& to) override {
        const Stopwatch watch(spent);
        return files.Replace(from, to);
    }

private:
    class Output final : public platform::OutputFile {
    public:
        Output(TimedFiles& owner, std::unique_ptr<platform::OutputFile> file) : owner(owner), file(std::move(file)) {
            if (!this->file) std::abort();
        }
        bool CanSeek() const override { return file->CanSeek(); }
        bool Write(const void* data, std::size_t sizeBytes) override {
            const Stopwatch watch(owner.spent);
            owner.bytesWritten += sizeBytes;
            return file->Write(data, sizeBytes);
        }
        bool Seek(std::uint64_t offset) override {
            const Stopwatch watch(owner.spent);
            return file->Seek(offset);
        }
        bool Flush() override {
            const Stopwatch watch(owner.spent);
            return file->Flush();
        }
        bool Close() override {
            const Stopwatch watch(owner.spent);
            return file->Close();
        }

    private:
        TimedFiles& owner;
        std::unique_ptr<platform::OutputFile> file;
    };

    class Input final : public platform::InputFile {
    public:
        Input(TimedFiles& owner, std::unique_ptr<platform::InputFile> file) : owner(owner), file(std::move(file)) {}
        std::optional<std::size_t> Read(void* data, std::size_t sizeBytes) override {
            const Stopwatch watch(owner.spent);
            const std::optional<std::size_t> got = file->Read(data, sizeBytes);
            owner.bytesRead += got.value_or(0);
            return got;
        }
        bool Seek(std::uint64_t offset) override { return file->Seek(offset); }
        std::optional<platform::FileFacts> GetFacts() override { return file->GetFacts(); }

    private:
        TimedFiles& owner;
        std::unique_ptr<platform::InputFile> file;
    };

    platform::FileLayer& files = platform::GetOperatingSystemFiles();
};

/// Highest resident memory of this process so far, in kB; 0 where the system does not tell.
long PeakMemory() {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        long size = 0;
        if (word == "VmHWM:" && status >> size) return size;
    }
    return 0;
}

std::vector<std::string> Texts() {
    std::vector<std::string> texts;
    for (unsigned i = 0; i < 10000; ++i) {
        texts.push_back("Component " + std::to_string(i * 7919U % 10000));
    }
    return texts;
}

void Measure(const std::string& target, unsigned rows, const std::vector<std::string>& texts) {
    constexpr unsigned Columns = 10;
    TimedFiles files;
    const long memoryBefore = PeakMemory();
    const Clock::time_point start = Clock::now();
    Xlsx::CWorkbook workbook("Bench", files);
    Xlsx::CWorksheet& sheet = workbook.AddSheet("Cells");
    for (unsigned row = 0; row < rows; ++row) {
        sheet.BeginRow();
        for (unsigned column = 0; column < Columns; column += 2) {
            sheet.AddCell(texts[(row * 31 + column * 17) % texts.size()]);
            sheet.AddCell(row * 0.37 + column * 11.3);
        }
    }
    const Clock::time_point filled = Clock::now();
    const double filesWhileFilling = Seconds(files.spent);
    const bool isSaved = workbook.Save(platform::WideFromNarrow(target).value());
    const Clock::time_point saved = Clock::now();
    if (!isSaved) {
        std::fprintf(stderr, "xlsx_bench: cannot write '%s'\n", target.c_str());
        std::exit(1);
    }
    const double total = Seconds(saved - start);
    const double inFiles = Seconds(files.spent);
    const double inXml = Seconds(filled - start) - filesWhileFilling; // the other parts take less than a millisecond
    const double cells = static_cast<double>(rows) * Columns;
    std::printf("%8.0f cells: %.3f s, %.0f cells/s, peak memory %ld kB (%ld kB before)\n", cells, total, cells / total,
                PeakMemory(), memoryBefore);
    std::printf("          XML and texts %4.1f %%, deflate %4.1f %%, files %4.1f %% (%.1f MB written, %.1f MB read)\n",
                100 * inXml / total, 100 * (total - inXml - inFiles) / total, 100 * inFiles / total,
                static_cast<double>(files.bytesWritten) / 1e6, static_cast<double>(files.bytesRead) / 1e6);
    static_cast<void>(files.RemoveFile(target));
}

/// Registers styles that differ in everything a list is kept of, each of them a second time too.
double SecondsToRegister(unsigned count) {
    std::vector<Xlsx::Style> styles(count);
    for (unsigned i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        styles[i].font.name = "Font " + number;
        styles[i].fill.foreground = number;
        styles[i].border.bottom.colour = number;
        styles[i].numberFormat.id = Xlsx::FirstCustomFormat;
        styles[i].numberFormat.suffix = number;
    }
    const Clock::time_point start = Clock::now();
    Xlsx::CStyleRegistry registry;
    for (int round = 0; round < 2; ++round) {
        for (const Xlsx::Style& style : styles) {
            registry.AddStyle(style);
        }
    }
    const double seconds = Seconds(Clock::now() - start);
    if (registry.GetCellFormats().size() != count + 2) std::abort();
    return seconds;
}

void MeasureStyles() {
    constexpr unsigned Few = 2000;
    constexpr unsigned Many = 20000;
    double forFew = SecondsToRegister(Few);
    double forMany = SecondsToRegister(Many);
    for (int i = 0; i < 4; ++i) { // the quickest of five has the least disturbance
        forFew = std::min(forFew, SecondsToRegister(Few));
        forMany = std::min(forMany, SecondsToRegister(Many));
    }
    std::printf("%8u styles: %.4f s; %u styles: %.4f s, %.1f times as long\n", Few, forFew, Many, forMany,
                forMany / forFew);
}

} // namespace

int main(int argumentCount, char** arguments) {
    const std::string folder = argumentCount > 1 ? std::string(arguments[1]) + "/" : platform::GetTemporaryRoot();
    const std::vector<std::string> texts = Texts();
    for (const unsigned rows : {10000U, 100000U}) {
        Measure(folder + "kelvarnix_bench.xlsx", rows, texts);
    }
    MeasureStyles();
}
