// What the program says about inputs and outputs that cannot be used, run as a user runs it.
#include "Program.h"
#include "TestHouse.h"

#include "../ifc/IfcText.h"
#include "support/PeakMemory.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <random>

namespace {

using namespace clitest;
using nlohmann::json;
namespace fs = std::filesystem;

class CliFaultsTest : public testing::Test {
protected:
    void SetUp() override {
        model = folder.Write("house.ifc", HouseText());
        table = folder.Write("table.csv", HouseTable);
    }
    std::string SaveHouse() {
        const std::string project = folder / "house.kvp";
        EXPECT_EQ(Kelvarnix({"assess", model, "--materials", table, "--save", project, "--quiet"}).code, 0);
        return project;
    }
    std::size_t CountFiles() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder.Path()), {}));
    }

    support::TestFolder folder;
    std::string model, table;
};

std::string Noise(std::size_t size) {
    std::mt19937 random(5);
    std::string noise(size, '\0');
    for (char& letter : noise)
        letter = static_cast<char>(random());
    return noise;
}

TEST_F(CliFaultsTest, ModelsThatCannotBeRead) {
    const std::string good = HouseText();
    const struct {
        const char* name;
        std::string content;
        const char* reason;
    } cases[] = {{"empty.ifc", "", "is empty"},
                 {"noise.ifc", Noise(5000), "is no IFC file"},
                 {"text.ifc", "hello\n", "is no IFC file"},
                 {"half.ifc", good.substr(0, good.size() / 2), "is cut off"},
                 {"schema.ifc", ifctest::File("IFC4X3", ""), "IFC4X3"},
                 {"no element.ifc", ifctest::File("IFC4", ifctest::MetricProject()), "has no building element"},
                 {"empty.kvp", "", "this is no Kelvarnix project"},
                 {"noise.kvp", Noise(5000), "this is no Kelvarnix project"},
                 {"ifc.kvp", good, "this is no Kelvarnix project"}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const std::string file = folder.Write(row.name, row.content);
        for (const char* command : {"assess", "info", "materials"})
            ExpectRefusal(Kelvarnix({command, file}), 3, file, row.reason);
        EXPECT_EQ(support::ContentOf(file), row.content);
    }
    for (const char* name : {"missing.ifc", "missing.kvp"})
        ExpectRefusal(Kelvarnix({"assess", folder / name}), 3, folder / name, "");
    ExpectRefusal(Kelvarnix({"assess", model, "--materials", folder / "no.csv"}), 3, folder / "no.csv",
                  "check the name");
    ExpectRefusal(Kelvarnix({"assess", model, "--settings", folder / "no.txt"}), 3, folder / "no.txt",
                  "check the name");
    const std::string bad = folder.Write("bad.csv", "applies_to;name;unit;gwp\nmaterial;a;m3;x\n");
    const std::string saved = folder / "never.kvp";
    ExpectRefusal(Kelvarnix({"assess", model, "--materials", bad, "--save", saved}), 3, bad + ":2: gwp is \"x\"", "");
    EXPECT_FALSE(fs::exists(saved));
}

TEST_F(CliFaultsTest, OddModelsAreReadAsFarAsTheyGo) {
    // Two placements that stand on each other; a file that says nothing of units; a negative, an absurd and an
    // unreadable volume.
    const std::string circle = HouseText("#90=IFCLOCALPLACEMENT(#91,#7);\n#91=IFCLOCALPLACEMENT(#90,#7);\n"
                                         "#30=IFCWALL('0000000000000000Circle',$,'Circle',$,$,#90,$,$,$);\n" +
                                         ifctest::Quantity(300, 30, "VOLUME", "NetVolume", "1.") +
                                         "#31=IFCRELASSOCIATESMATERIAL('c',$,$,$,(#30),#42);\n");
    const auto assess = [&](const std::string& name, const std::string& text) {
        const Finished finished = Kelvarnix({"assess", folder.Write(name, text), "--materials", table, "--json", "-"});
        EXPECT_EQ(finished.code, 0) << name << finished.errors;
        return finished.code == 0 ? json::parse(finished.output) : json();
    };
    EXPECT_EQ(assess("circle.ifc", circle)["categories"][1]["gwp"], 1530 + 240); // 1 m3 of concrete more
    std::string unitless = HouseText();
    for (const char* unit : {"#1=", "#2=", "#3=", "#4="})
        unitless.erase(unitless.find(unit), unitless.find('\n', unitless.find(unit)) + 1 - unitless.find(unit));
    const json metres = assess("no units.ifc", unitless);
    EXPECT_EQ(metres["categories"][1]["gwp"], 1530);
    EXPECT_TRUE(Contains(metres["warnings"].dump(), "unit")) << metres["warnings"];
    for (const char* volume : {"-2.", "1.E300", "$", "'x'"}) {
        std::string odd = HouseText();
        const std::string stated = "'NetVolume',$,$,2.";
        odd.replace(odd.find(stated), stated.size(), "'NetVolume',$,$," + std::string(volume));
        const json answer = assess("odd.ifc", odd);
        EXPECT_EQ(answer["categories"][1]["gwp"], 930)
            << volume << ": the wood's area is stated, the brick's volume not";
        EXPECT_TRUE(Contains(answer["warnings"].dump(), "in 1 of 1 components no volume")) << answer["warnings"];
    }
}

TEST_F(CliFaultsTest, ProjectsThatCannotBeRead) {
    const std::string project = SaveHouse();
    const std::string content = support::ContentOf(project);
    for (const std::size_t length : {std::size_t(50), content.size() / 2, content.size() - 1}) {
        const std::string cut = folder.Write("cut.kvp", content.substr(0, length));
        ExpectRefusal(Kelvarnix({"assess", cut, "--save", cut}), 3, cut, "");
        EXPECT_EQ(support::ContentOf(cut).size(), length);
    }
    std::string newer = content;
    newer[63] = static_cast<char>(newer[63] + 1); // PRAGMA user_version: bytes 60 to 63, big endian
    const std::string later = folder.Write("newer.kvp", newer);
    for (const char* command : {"assess", "info", "materials", "record"})
        ExpectRefusal(Kelvarnix({command, later}), 3, later, "written by a newer version");
    ExpectRefusal(Kelvarnix({"assess", model, "--save", later}), 5, later, "written by a newer version");
    EXPECT_EQ(support::ContentOf(later), newer);
}

bool BecomeNobody() {
    return getuid() != 0 || setuid(65534) == 0;
}

TEST_F(CliFaultsTest, AReadOnlyProjectIsAssessedAndNotSaved) {
    const Surroundings nobody{{}, BecomeNobody};
    if (Kelvarnix({"--help"}, nobody).code != 0) GTEST_SKIP() << "another user cannot reach the program";
    const std::string project = SaveHouse(), content = support::ContentOf(project);
    fs::permissions(folder.Path(), fs::perms(0555)); // for whoever runs the tests, too
    fs::permissions(project, fs::perms(0444));
    const std::string json = folder / "new.json", other = folder / "other.kvp";
    const std::size_t files = CountFiles();
    EXPECT_EQ(Kelvarnix({"assess", project}, nobody).code, 0);
    ExpectRefusal(Kelvarnix({"assess", project, "--save", project, "--set", "SERVICELIFE=1"}, nobody), 5, project,
                  "cannot be written");
    ExpectRefusal(Kelvarnix({"energy", project, "--export", KELVARNIX_SOURCE_DIR "/samples/energy.xml"}, nobody), 5,
                  project, "cannot be written");
    ExpectRefusal(Kelvarnix({"assess", project, "--save", other, "--quiet"}, nobody), 5, other, "");
    ExpectRefusal(Kelvarnix({"assess", project, "--json", json, "--quiet"}, nobody), 5, json, "cannot be written");
    fs::permissions(project, fs::perms(0));
    ExpectRefusal(Kelvarnix({"assess", project}, nobody), 3, project, "");
    fs::permissions(project, fs::perms(0644));
    fs::permissions(folder.Path(), fs::perms(0755));
    EXPECT_EQ(support::ContentOf(project), content);
    EXPECT_EQ(CountFiles(), files);
}

/// Runs the body in a process of its own with a disk of 1 MiB mounted on the folder; its checks count in this test.
template <typename Body>
void OnASmallDisk(const std::string& folder, Body body) {
    const pid_t child = fork();
    if (child == 0) {
        const bool isMounted = unshare(CLONE_NEWNS) == 0 &&
                               mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                               mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=1m") == 0;
        if (!isMounted) _exit(77);
        body();
        std::fflush(nullptr);
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 77) GTEST_SKIP() << "this machine lets nobody mount a disk";
    EXPECT_EQ(status, 0);
}

TEST_F(CliFaultsTest, AFullDiskKeepsWhatWasThere) {
    const std::string project = SaveHouse(), disk = folder / "disk";
    fs::create_directory(disk);
    OnASmallDisk(disk, [&] {
        const std::string kept = disk + "/kept.kvp";
        fs::copy_file(project, kept);
        const auto room = fs::space(disk).available;
        std::ofstream(disk + "/filler", std::ios::binary) << std::string(room - 8192, 'x') << std::flush;
        ExpectRefusal(Kelvarnix({"assess", model, "--save", disk + "/new.kvp", "--quiet"}), 5, disk + "/new.kvp",
                      "the disk is full");
        // The whole record and a long list of standards: more than fits.
        const std::string standards = "GWP-STANDARDS=" + std::string(60000, 'a') + "=1";
        ExpectRefusal(Kelvarnix({"assess", kept, "--save", kept, "--quiet", "--set", standards}), 5, kept,
                      "the disk is full");
        EXPECT_EQ(std::distance(fs::directory_iterator(disk), {}), 2) << "unfinished files were left";
        const Finished after = Kelvarnix({"assess", kept, "--json", "-"});
        EXPECT_EQ(after.code, 0) << after.errors;
        EXPECT_EQ(json::parse(after.output)["categories"][1]["gwp"], 1530);
        std::ofstream(disk + "/filler", std::ios::app) << std::string(8192, 'x') << std::flush;
        ExpectRefusal(Kelvarnix({"assess", kept, "--json", disk + "/r.json", "--quiet"}), 5, disk + "/r.json",
                      "cannot be written");
        EXPECT_FALSE(fs::exists(disk + "/r.json"));
    });
}

/// Holds the write lock that SQLite's file format places at 1 GiB: PENDING, RESERVED and the SHARED range.
class Holder {
public:
    explicit Holder(const std::string& file) {
        int ready[2];
        EXPECT_EQ(pipe(ready), 0);
        process = fork();
        if (process == 0) {
            const int descriptor = open(file.c_str(), O_RDWR);
            struct flock lock {};
            lock.l_type = F_WRLCK;
            lock.l_start = 0x40000000;
            lock.l_len = 512;
            [[maybe_unused]] const ssize_t told = fcntl(descriptor, F_SETLK, &lock) == 0 ? write(ready[1], "x", 1) : 0;
            pause();
            _exit(0);
        }
        char letter = 0;
        close(ready[1]);
        EXPECT_EQ(read(ready[0], &letter, 1), 1);
        close(ready[0]);
    }
    ~Holder() {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    pid_t process = -1;
};

TEST_F(CliFaultsTest, AProjectInUseSaysWhoHasIt) {
    const std::string project = SaveHouse(), content = support::ContentOf(project);
    const Holder holder(project);
    const std::string who = "is being written by process " + std::to_string(holder.process);
    ExpectRefusal(Kelvarnix({"assess", model, "--save", project, "--quiet"}), 5, project, who);
    ExpectRefusal(Kelvarnix({"info", project}), 3, project, who);
    EXPECT_EQ(support::ContentOf(project), content);
}

TEST_F(CliFaultsTest, OutputThatCannotBeWritten) {
    const std::string nowhere = folder / "no/such/folder/a";
    ExpectRefusal(Kelvarnix({"assess", model, "--quiet", "--json", nowhere}), 5, nowhere, "cannot be written");
    ExpectRefusal(Kelvarnix({"assess", model, "--quiet", "--json", folder.Path()}), 5, folder.Path(),
                  "cannot be written");
    ExpectRefusal(Kelvarnix({"assess", model, "--quiet", "--save", nowhere + ".kvp"}), 5, nowhere + ".kvp", "");
    ExpectRefusal(Kelvarnix({"materials", model, "--out", nowhere}), 5, nowhere, "cannot be written");
    if (!fs::is_character_file("/dev/full")) GTEST_SKIP() << "there is no /dev/full";
    ExpectRefusal(Kelvarnix({"assess", model, "--quiet", "--json", "/dev/full"}), 5, "/dev/full", "cannot be written");
    EXPECT_TRUE(fs::is_character_file("/dev/full")) << "the device was replaced by a file";
    const Surroundings full{"/dev/full", {}};
    const std::string project = SaveHouse();
    const std::vector<std::vector<std::string>> commands = {
        {"assess", model, "--materials", table, "--set", "FLOORAREA=1", "--set", "REFERENCE_FLOORAREA=1"},
        {"assess", model, "--quiet", "--json", "-"},
        {"info", model},
        {"materials", model},
        {"record", project}};
    for (const auto& command : commands)
        ExpectRefusal(Kelvarnix(command, full), 5, "standard output", "cannot be written");
}

TEST_F(CliFaultsTest, OutputGoesWhereALinkLeads) {
    const std::string target = folder.Write("target.json", "old"), link = folder / "link.json";
    fs::create_symlink(target, link);
    ASSERT_EQ(Kelvarnix({"assess", model, "--quiet", "--json", link}).code, 0);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_TRUE(json::parse(support::ContentOf(target)).contains("categories"));
}

TEST_F(CliFaultsTest, TwoHundredMegabytesOfGarbageStayBelowOneGibibyte) {
    const std::string block = Noise(1 << 20);
    const std::string start = HouseText().substr(0, HouseText().find("#20="));
    for (const char* name : {"garbage.ifc", "garbage.kvp"}) {
        const std::string file = folder.Write(name, fs::path(name).extension() == ".ifc" ? start : "");
        {
            std::ofstream stream(file, std::ios::binary | std::ios::app);
            for (int i = 0; i < 200; ++i)
                stream << block;
        }
        const Finished finished = Kelvarnix({"assess", file});
        ExpectRefusal(finished, 3, file, "");
        EXPECT_LT(finished.peakKiB, support::GibibyteInKiB) << name;
        fs::remove(file);
    }
    // A material table of that size, too.
    const std::string file = folder.Write("garbage.csv", HouseTable);
    {
        std::ofstream stream(file, std::ios::binary | std::ios::app);
        for (int i = 0; i < 200; ++i)
            stream << block;
    }
    const Finished finished = Kelvarnix({"assess", model, "--materials", file});
    ExpectRefusal(finished, 3, file + ":7: the text is not UTF-8", "");
    EXPECT_LT(finished.peakKiB, support::GibibyteInKiB);
}

} // namespace
