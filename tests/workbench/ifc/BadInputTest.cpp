// Inputs and readers that go wrong: each ends in a plain sentence, at once, and leaves no process behind.
#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "IfcText.h"
#include "workbench/ifc/ChildProcess.h"

using namespace workbench::ifc;
using namespace ifctest;
using namespace std::chrono_literals;

namespace {

void ExpectNoChild() {
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child was left";
}

void ExpectFailure(const ImportResult& result, ImportError code, const std::string& part) {
    EXPECT_TRUE(result.HasFailed());
    EXPECT_EQ(static_cast<int>(result.GetError()), static_cast<int>(code)) << result.GetText();
    EXPECT_NE(result.GetText().find(part), std::string::npos) << result.GetText();
    EXPECT_EQ(result.GetText().find('\n'), std::string::npos) << result.GetText();
    ExpectNoChild();
}

TEST(BadInput, IsRefusedPlainly) {
    const std::string good = File("IFC4", MetricProject());
    std::string noise(4096, '\0');
    std::mt19937 random(7);
    for (char& c : noise)
        c = static_cast<char>(random());
    ExpectFailure(Read(""), ImportError::NotIfc, "model.ifc is empty; ");
    ExpectFailure(Read(noise), ImportError::NotIfc, "model.ifc is no IFC file but binary data; ");
    ExpectFailure(Read(good.substr(0, good.size() / 2)), ImportError::Damaged, "model.ifc is cut off in line ");
    ExpectFailure(Read(File("IFC5", "")), ImportError::UnsupportedSchema, "model.ifc is of the schema IFC5; ");
    ExpectFailure(Read(File("", "")), ImportError::UnsupportedSchema, "model.ifc does not say its schema; ");
    ExpectFailure(Read(File("IFC4", noise)), ImportError::Damaged, "model.ifc is damaged in line 8; ");
    ExpectFailure(Read(File("IFC4", MetricProject() +
                                        std::string("#20=IFCA();#21=IFCB();#22=IFCC();#23=IFCD();#24=IFCE();#25=IFCF();"
                                                    "#26=IFCG();#27=IFCH();#28=IFCI();#29=IFCJ();"))),
                  ImportError::Damaged, "entities that no IFC schema has");
    ExpectFailure(ReadIfcFile("/nowhere/a.ifc", {}, {}, Reader()), ImportError::NotReadable,
                  "/nowhere/a.ifc does not exist; ");
    ExpectFailure(ReadIfcFile("/tmp", {}, {}, Reader()), ImportError::NotReadable, "/tmp is a folder; ");
}

TEST(BadInput, AFileWithoutElementsIsReadAndSaysSo) {
    const ImportedBuilding building = Building(File("IFC4", ""));
    EXPECT_TRUE(building.elements.empty());
    EXPECT_EQ(std::count(building.warnings.begin(), building.warnings.end(), "The file has no building element."), 1);
}

TEST(BadInput, CirclesEnd) {
    const std::string body =
        MetricProject() + Box(50, 4.0, 0.25, 2.0) + Box(60, 1.0, 1.0, 1.0) +
        "#20=IFCWALL('placed',$,$,$,$,#30,#53,$,$);\n#30=IFCLOCALPLACEMENT(#31,#7);\n#31=IFCLOCALPLACEMENT(#30,#7);\n"
        "#21=IFCOPENINGELEMENT('hole',$,$,$,$,#30,#63,$,$);\n#22=IFCRELVOIDSELEMENT('v',$,$,$,#20,#21);\n"
        "#23=IFCWALL('cut by itself',$,$,$,$,#9,#40,$,$);\n#40=IFCPRODUCTDEFINITIONSHAPE($,$,(#41));\n"
        "#41=IFCSHAPEREPRESENTATION(#6,'Body','CSG',(#42));\n#42=IFCBOOLEANRESULT(.DIFFERENCE.,#42,#51);\n"
        "#24=IFCWALL('copy of itself',$,$,$,$,#9,#43,$,$);\n#43=IFCPRODUCTDEFINITIONSHAPE($,$,(#44));\n"
        "#44=IFCSHAPEREPRESENTATION(#6,'Body','MappedRepresentation',(#45));\n#45=IFCMAPPEDITEM(#46,$);\n#46="
        "IFCREPRESENTATIONMAP(#7,#44);\n"
        "#25=IFCWALL('sound',$,$,$,$,#9,#53,$,$);\n";
    const ImportedBuilding building = Building(File("IFC4", body));
    EXPECT_NEAR(Element(building, "sound").volumeM3, 2.0, 1e-9) << "what comes after a crash is read";
    EXPECT_NEAR(Element(building, "placed").volumeM3, 1.75, 1e-6);
    EXPECT_EQ(Ids(building.withoutQuantity), "cut by itself copy of itself");
    ExpectNoChild();
}

TEST(BadInput, TruncatedAndFlippedFilesNeverCrashTheCaller) {
    const std::string whole =
        File("IFC2X3", MetricProject() + Box(50, 4.0, 0.25, 2.0) + "#20=IFCWALL('w',$,$,$,$,#9,#53,$);\n");
    const std::size_t data = whole.find("DATA;");
    std::mt19937 random(11);
    for (int round = 0; round < 60; ++round) {
        std::string flipped = whole;
        for (int i = 0; i < 3; ++i)
            flipped[data + 6 + random() % (whole.size() - data - 40)] = "0123456789#,()$.'ABC"[random() % 20];
        const ImportResult result = Read(flipped, {.time = 20s});
        EXPECT_EQ(result.HasFailed(), result.GetError() != ImportError::None);
        EXPECT_EQ(result.HasFailed(), !result.GetText().empty());
    }
    ExpectNoChild();
}

/// A reader program that is a shell script.
class FakeReader {
public:
    explicit FakeReader(const std::string& script) : file("reader", "#!/bin/sh\n" + script + "\n") {
        chmod(file.Path().c_str(), 0755);
    }
    ImportResult Read(std::chrono::milliseconds time = 10s, const ImportProgress& progress = {}) const {
        const TemporaryFile model("model.ifc", File("IFC4", MetricProject()));
        return ReadIfcFile(model.Path(), {.memoryBytes = 0, .time = time}, progress, file.Path());
    }

private:
    TemporaryFile file;
};

TEST(BadReader, IsToldPlainly) {
    ExpectFailure(FakeReader("kill -SEGV $$").Read(), ImportError::ReaderDied, "stopped with signal 11");
    ExpectFailure(FakeReader("kill -KILL $$").Read(), ImportError::OutOfMemory, "of memory to read");
    ExpectFailure(FakeReader("exit 71").Read(), ImportError::OutOfMemory, "of memory to read");
    ExpectFailure(FakeReader("exit 0").Read(), ImportError::ReaderDied, "gave no answer");
    ExpectFailure(FakeReader("exit 5").Read(), ImportError::ReaderDied, "gave no answer");
    ExpectFailure(FakeReader("head -c 100000 /dev/zero >&3; sleep 60").Read(), ImportError::ReaderDied,
                  "gave a broken answer");
    ExpectFailure(FakeReader("printf KVIF >&3").Read(), ImportError::ReaderDied, "gave no answer");
    const TemporaryFile model("model.ifc", File("IFC4", ""));
    ExpectFailure(ReadIfcFile(model.Path(), {}, {}, "/nowhere/reader"), ImportError::ReaderMissing,
                  "/nowhere/reader cannot be started");
    const TemporaryFile notExecutable("reader", "text");
    ExpectFailure(ReadIfcFile(model.Path(), {}, {}, notExecutable.Path()), ImportError::ReaderMissing,
                  "cannot be started");
}

TEST(BadReader, IsStoppedInTime) {
    for (const char* script : {"sleep 60", "exec 3>&-; sleep 60", "while :; do :; done"}) {
        const auto start = std::chrono::steady_clock::now();
        ExpectFailure(FakeReader(script).Read(300ms), ImportError::OutOfTime, "within 1 seconds");
        EXPECT_LT(std::chrono::steady_clock::now() - start, 5s) << script;
    }
}

TEST(BadReader, IsStoppedOnRequest) {
    const auto start = std::chrono::steady_clock::now();
    ExpectFailure(FakeReader("sleep 60").Read(50s, [](double) { return false; }), ImportError::Cancelled,
                  "was not read");
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
}

TEST(BadReader, WritesNothingToTheTerminal) {
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    ExpectFailure(FakeReader("echo noise; echo noise >&2").Read(), ImportError::ReaderDied, "gave no answer");
    EXPECT_EQ(testing::internal::GetCapturedStderr() + testing::internal::GetCapturedStdout(), "");
}

TEST(Limits, TooLittleMemoryIsAPlainError) {
    if (!LimitsAddressSpace) GTEST_SKIP() << "an address space limit and the address sanitizer exclude each other";
    std::string body = MetricProject();
    for (int id = 100; id < 3'500'000; ++id)
        body.append("#").append(std::to_string(id)).append("=IFCCARTESIANPOINT((1.,2.,3.));\n");
    ExpectFailure(Read(File("IFC4", body), {.memoryBytes = std::uint64_t(160) << 20}), ImportError::OutOfMemory,
                  "needs more than 160 MiB of memory");
}

enum class Garbage { Noise, NoiseBehindAHeader, UnknownEntities };

void WriteGarbage(const std::filesystem::path& path, Garbage kind) {
    constexpr std::size_t Blocks = 200;
    std::mt19937_64 random(3);
    std::string block(1 << 20, '\0');
    for (std::size_t i = 0; i < block.size(); ++i)
        block[i] = kind == Garbage::UnknownEntities ? "#1=IFCNOTHING(1);\n"[i % 18] : static_cast<char>(random());
    if (kind == Garbage::UnknownEntities) block.resize(block.size() / 18 * 18);
    const std::string whole = File("IFC4", "");
    const std::size_t end = whole.find("ENDSEC;\nEND-ISO");
    std::ofstream stream(path, std::ios::binary);
    if (kind != Garbage::Noise) stream << whole.substr(0, end);
    for (std::size_t i = 0; i < Blocks; ++i)
        stream.write(block.data(), static_cast<std::streamsize>(block.size()));
    stream << whole.substr(end);
}

TEST(Limits, TwoHundredMegabytesOfGarbageStayBelowOneGibibyte) {
    const struct {
        Garbage kind;
        ImportError code;
        const char* what;
    } rows[] = {{Garbage::Noise, ImportError::NotIfc, "is no IFC file"},
                {Garbage::NoiseBehindAHeader, ImportError::Damaged, "is damaged in line 8"},
                {Garbage::UnknownEntities, ImportError::Damaged, "entities that no IFC schema has"}};
    for (const auto& row : rows) {
        const TemporaryFile file("garbage.ifc", "");
        WriteGarbage(file.Path(), row.kind);
        ExpectFailure(ReadIfcFile(file.Path(), {}, {}, Reader()), row.code, row.what);
    }
    rusage self{};
    rusage children{};
    getrusage(RUSAGE_SELF, &self);
    getrusage(RUSAGE_CHILDREN, &children); // the largest child
    constexpr long GibibyteInKiB = 1L << 20;
    RecordProperty("parentKiB", static_cast<int>(self.ru_maxrss));
    RecordProperty("childKiB", static_cast<int>(children.ru_maxrss));
    EXPECT_LT(self.ru_maxrss, GibibyteInKiB);
    EXPECT_LT(children.ru_maxrss, GibibyteInKiB);
}

} // namespace
