#include "Program.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace clitest {

namespace {

/// A file without a name that a process writes and this one reads.
class Capture {
public:
    explicit Capture(const char* name) : descriptor(memfd_create(name, MFD_CLOEXEC)) {}
    ~Capture() { close(descriptor); }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    std::string Read() const {
        std::string text(static_cast<std::size_t>(lseek(descriptor, 0, SEEK_END)), '\0');
        EXPECT_EQ(pread(descriptor, text.data(), text.size(), 0), static_cast<ssize_t>(text.size()));
        return text;
    }

    const int descriptor;
};

/// The leak checker of a sanitizer's build crashes at the exit of about every second process that has painted text with
/// Qt ("Tracer caught signal 11"): it follows thread-local storage of plugins that Qt has unloaded by then. Everything
/// else stays checked.
void TurnLeakCheckOffForPictures(const std::vector<char*>& arguments) {
    const bool paints = std::any_of(arguments.begin(), arguments.end(), [](const char* argument) {
        const std::string text = argument == nullptr ? "" : argument;
        return text == "--charts" || text == "--report" || text == "drawing";
    });
    if (!paints) return;
    const char* present = std::getenv("ASAN_OPTIONS");
    const std::string options = (present == nullptr ? std::string() : std::string(present) + ":") + "detect_leaks=0";
    setenv("ASAN_OPTIONS", options.c_str(), 1);
}

[[noreturn]] void Start(std::vector<char*> arguments, const Surroundings& surroundings, int output, int errors) {
    if (!surroundings.outputPath.empty()) output = open(surroundings.outputPath.c_str(), O_WRONLY);
    if (output < 0 || dup2(output, STDOUT_FILENO) < 0 || dup2(errors, STDERR_FILENO) < 0) _exit(98);
    if (surroundings.prepare && !surroundings.prepare()) _exit(99);
    TurnLeakCheckOffForPictures(arguments);
    execv(arguments.front(), arguments.data());
    _exit(97);
}

} // namespace

Finished Kelvarnix(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    std::vector<std::string> texts = {std::string(KELVARNIX_BIN_DIR) + "/kelvarnix"};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    const Capture output("output"), errors("errors");
    const pid_t child = fork();
    if (child == 0) Start(pointers, surroundings, output.descriptor, errors.descriptor);
    int status = 0;
    rusage used{};
    EXPECT_EQ(wait4(child, &status, 0, &used), child);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status), output.Read(), errors.Read(),
            used.ru_maxrss};
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

void ExpectRefusal(const Finished& finished, int code, const std::string& name, const std::string& part) {
    const std::string& text = finished.errors;
    EXPECT_EQ(finished.code, code) << text;
    EXPECT_EQ(text.substr(0, 11), "kelvarnix: ") << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
    EXPECT_TRUE(Contains(text, name)) << text;
    EXPECT_TRUE(Contains(text, part)) << text;
    EXPECT_EQ(finished.output, "");
}

} // namespace clitest
