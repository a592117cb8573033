#include "Program.h"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace clitest {

namespace {

constexpr char Prelude[] = R"sh(
PATH=$BIN:$PATH
sql() { python3 -c 'import sqlite3, sys
for row in sqlite3.connect(sys.argv[1], isolation_level=None).execute(sys.argv[2]): print(*row)' "$@"; }
)sh";

[[noreturn]] void Start(const std::string& folder, const std::string& line, int output) {
    setenv("BIN", KELVARNIX_BIN_DIR, 1);
    setenv("HERE", KELVARNIX_SOURCE_DIR "/tests/workbench/cli", 1);
    setenv("SAMPLES", KELVARNIX_SOURCE_DIR "/samples", 1);
    setenv("FONTCONFIG_FILE", KELVARNIX_SOURCE_DIR "/tests/support/fonts.conf", 1);
    setenv("SHARED", KELVARNIX_SOURCE_DIR "/../shared", 1);
    // The leak checker of a sanitizer's build crashes at the exit of about every second process that has painted text
    // with Qt ("Tracer caught signal 11"): it follows thread-local storage of plugins that Qt has unloaded by then.
    const bool paints = Contains(line, "--charts") || Contains(line, "--report") || Contains(line, " drawing ");
    const char* present = std::getenv("ASAN_OPTIONS");
    const std::string options = (present == nullptr ? std::string() : std::string(present) + ":") + "detect_leaks=0";
    if (paints) setenv("ASAN_OPTIONS", options.c_str(), 1);
    const std::string script = Prelude + line;
    if (chdir(folder.c_str()) != 0 || dup2(output, STDOUT_FILENO) < 0 || dup2(output, STDERR_FILENO) < 0) _exit(98);
    execl("/bin/sh", "sh", "-c", script.c_str(), nullptr);
    _exit(97);
}

} // namespace

Finished Shell(const std::string& folder, const std::string& line) {
    const int output = memfd_create("output", MFD_CLOEXEC);
    const pid_t child = fork();
    if (child == 0) Start(folder, line, output);
    int status = 0;
    rusage used{};
    EXPECT_EQ(wait4(child, &status, 0, &used), child);
    std::string text(static_cast<std::size_t>(lseek(output, 0, SEEK_END)), '\0');
    EXPECT_EQ(pread(output, text.data(), text.size(), 0), static_cast<ssize_t>(text.size()));
    close(output);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status), text, used.ru_maxrss};
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

} // namespace clitest
