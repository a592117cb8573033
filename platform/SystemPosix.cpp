#include "platform/System.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace platform {

const char* const OpenAddressCommand = "xdg-open ";
const char* const OpenFileCommand = "xdg-open ";

std::optional<std::string> ReadEnvironmentVariable(const std::string& name) {
    const char* value = std::getenv(name.c_str());
    if (value == nullptr) return std::nullopt;
    return std::string(value);
}

std::uint64_t GetThreadId() {
    return static_cast<std::uint64_t>(syscall(SYS_gettid));
}

std::uint64_t GetProcessClockTicks() {
    return static_cast<std::uint64_t>(std::clock());
}

std::tm GetLocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm fields{};
    localtime_r(&now, &fields);
    return fields;
}

namespace {

std::vector<std::string> WordsOf(const std::string& commandLine) {
    std::vector<std::string> words;
    bool isInWord = false;
    bool isQuoted = false;
    for (std::size_t i = 0; i < commandLine.size(); ++i) {
        const char letter = commandLine[i];
        if (letter == ' ' && !isQuoted) {
            isInWord = false;
            continue;
        }
        if (!isInWord) words.emplace_back();
        isInWord = true;
        if (letter == '"' && isQuoted && i + 1 < commandLine.size() && commandLine[i + 1] == '"') {
            words.back().push_back(commandLine[++i]); // a doubled one stands for itself
        } else if (letter == '"') {
            isQuoted = !isQuoted;
        } else {
            words.back().push_back(letter);
        }
    }
    return words;
}

// In the first child: leaves the program to a second one, which has no parent that must wait for it. The pipe's end
// closes by itself when the program starts; otherwise the reason goes through it.
[[noreturn]] void StartInSecondChild(char* const* words, int report) {
    setsid();
    if (fork() == 0) {
        const int nothing = open("/dev/null", O_RDWR);
        if (nothing >= 0) {
            dup2(nothing, STDIN_FILENO);
            dup2(nothing, STDOUT_FILENO);
        }
        execvp(words[0], words);
        const int reason = errno;
        const ssize_t written = write(report, &reason, sizeof reason);
        _exit(written == sizeof reason ? 127 : 126);
    }
    _exit(0);
}

} // namespace

bool StartHidden(const std::string& commandLine) {
    std::vector<std::string> words = WordsOf(commandLine);
    if (words.empty()) return false;
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);

    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return false;
    const pid_t child = fork();
    if (child == 0) StartInSecondChild(pointers.data(), ends[1]);
    close(ends[1]);
    int reason = 0;
    ssize_t got = 0;
    if (child > 0) {
        do {
            got = read(ends[0], &reason, sizeof reason);
        } while (got < 0 && errno == EINTR);
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    close(ends[0]);
    return child > 0 && got == 0;
}

} // namespace platform
