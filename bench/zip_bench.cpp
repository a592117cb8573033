// How small and how fast the archive's compressor is.
//   zip_bench [FILE...] [--benchmark_...]
// Works on the files and on a worksheet part that it makes itself. Prints sizes first, then times at the archive's
// level beside a checksum pass and a copy of the same bytes: the ratio tells on any machine.
#include "zip/Crc32.h"
#include "zip/Deflater.h"
#include "zip/ZipFormat.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

struct Input {
    std::string name;
    std::string bytes;
};

class MemorySource final : public zip::ByteSource {
public:
    explicit MemorySource(const std::string& bytes) : bytes(bytes) {}
    std::optional<std::size_t> Read(std::uint8_t* data, std::size_t sizeBytes) override {
        const std::size_t now = std::min(sizeBytes, bytes.size() - at);
        std::memcpy(data, bytes.data() + at, now);
        at += now;
        return now;
    }

private:
    const std::string& bytes;
    std::size_t at = 0;
};

class CountingSink final : public zip::ByteSink {
public:
    std::size_t total = 0;
    bool Write(const std::uint8_t*, std::size_t sizeBytes) override {
        total += sizeBytes;
        return true;
    }
};

std::size_t DeflatedSize(zip::Deflater& deflater, const std::string& bytes, int level) {
    MemorySource source(bytes);
    CountingSink sink;
    if (deflater.Compress(source, sink, level) != zip::DeflateResult::Success) std::abort();
    return sink.total;
}

// 60,000 rows of two shared strings out of 4,000 and seven numbers of up to six digits.
std::string WorksheetPart() {
    std::mt19937 random(7);
    std::string part = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<worksheet><sheetData>";
    char cell[120];
    for (int row = 1; row <= 60000; ++row) {
        part.append(cell, std::snprintf(cell, sizeof cell, "<row r=\"%d\" x14ac:dyDescent=\"0.25\">", row));
        for (int column = 0; column < 9; ++column) {
            const double number = static_cast<double>(random() % 100'000'000) / 1e5;
            const unsigned string = random() % 4000;
            const int size = column < 2
                                 ? std::snprintf(cell, sizeof cell, "<c r=\"%c%d\" s=\"%d\" t=\"s\"><v>%u</v></c>",
                                                 'A' + column, row, column + 1, string)
                                 : std::snprintf(cell, sizeof cell, "<c r=\"%c%d\" s=\"%d\"><v>%g</v></c>",
                                                 'A' + column, row, column + 1, number);
            part.append(cell, static_cast<std::size_t>(size));
        }
        part += "</row>";
    }
    return part + "</sheetData></worksheet>";
}

void PrintSizes(const std::vector<Input>& inputs) {
    zip::Deflater deflater;
    for (const Input& input : inputs) {
        std::printf("%s: %zu bytes\n", input.name.c_str(), input.bytes.size());
        for (int level = 1; level <= 9; ++level) {
            const std::size_t size = DeflatedSize(deflater, input.bytes, level);
            std::printf("  level %d %10zu  %.3f %%\n", level, size,
                        100.0 * static_cast<double>(size) / static_cast<double>(input.bytes.size()));
        }
    }
    std::fflush(stdout);
}

void SetSpeed(benchmark::State& state, const Input& input) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * input.bytes.size()));
}

void Register(const Input& input) {
    benchmark::RegisterBenchmark(("deflate/" + input.name).c_str(), [&input](benchmark::State& state) {
        zip::Deflater deflater;
        std::size_t size = 0;
        for (auto _ : state) {
            size = DeflatedSize(deflater, input.bytes, zip::PackLevel);
        }
        state.counters["size"] = static_cast<double>(size);
        SetSpeed(state, input);
    });
    benchmark::RegisterBenchmark(("crc/" + input.name).c_str(), [&input](benchmark::State& state) {
        for (auto _ : state) {
            const auto* bytes = reinterpret_cast<const std::uint8_t*>(input.bytes.data());
            benchmark::DoNotOptimize(zip::Crc32(0, bytes, input.bytes.size()));
        }
        SetSpeed(state, input);
    });
    benchmark::RegisterBenchmark(("memcpy/" + input.name).c_str(), [&input](benchmark::State& state) {
        std::string copy(input.bytes.size(), '\0');
        for (auto _ : state) {
            std::memcpy(copy.data(), input.bytes.data(), copy.size());
            benchmark::ClobberMemory();
        }
        SetSpeed(state, input);
    });
}

} // namespace

int main(int argumentCount, char** arguments) {
    benchmark::Initialize(&argumentCount, arguments);
    std::vector<Input> inputs;
    for (int i = 1; i < argumentCount; ++i) {
        std::ifstream file(arguments[i], std::ios::binary);
        const std::string path = arguments[i];
        inputs.push_back({path.substr(path.rfind('/') + 1), {std::istreambuf_iterator<char>(file), {}}});
        if (!file || inputs.back().bytes.empty()) {
            std::fprintf(stderr, "zip_bench: cannot read '%s'\n", arguments[i]);
            return 1;
        }
    }
    inputs.push_back({"worksheet part", WorksheetPart()});
    PrintSizes(inputs);
    for (const Input& input : inputs) {
        Register(input);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
