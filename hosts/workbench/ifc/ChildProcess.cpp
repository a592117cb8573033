#include "workbench/ifc/ChildProcess.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace workbench::ifc {
namespace {

constexpr int ExitNotExecuted = 127;
using Clock = std::chrono::steady_clock;

void Limit(int resource, rlim_t value) {
    rlimit limit{};
    if (getrlimit(static_cast<__rlimit_resource_t>(resource), &limit) != 0) return;
    limit.rlim_cur = std::min(value, limit.rlim_max);
    limit.rlim_max = limit.rlim_cur;
    setrlimit(static_cast<__rlimit_resource_t>(resource), &limit);
}

/// Only what is safe between fork and exec of a process with threads.
[[noreturn]] void BecomeChild(const ChildCommand& command, char* const* arguments, char* const* environment, int answer,
                              int nowhere, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(ExitNotExecuted);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    if (answer == AnswerDescriptor) {
        fcntl(answer, F_SETFD, 0);
    } else {
        dup2(answer, AnswerDescriptor);
    }
    for (int standard = 0; standard < 3; ++standard)
        dup2(nowhere, standard);
    close_range(AnswerDescriptor + 1, ~0U, 0);
    Limit(RLIMIT_CORE, 0);
    if (LimitsAddressSpace && command.memoryBytes != 0) Limit(RLIMIT_AS, command.memoryBytes);
    execve(arguments[0], arguments, environment);
    _exit(ExitNotExecuted);
}

/// The child allocates millions of small objects and frees none: large pages and few requests halve its time.
std::vector<std::string> ChildEnvironment() {
    std::vector<std::string> variables;
    for (char** variable = environ; *variable != nullptr; ++variable) {
        if (!std::string_view(*variable).starts_with("GLIBC_TUNABLES=")) variables.emplace_back(*variable);
    }
    variables.emplace_back("GLIBC_TUNABLES=glibc.malloc.hugetlb=1:glibc.malloc.top_pad=33554432");
    return variables;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

class Descriptor {
public:
    explicit Descriptor(int number) : number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }
    void Close() {
        if (number >= 0) close(number);
        number = -1;
    }
    [[nodiscard]] int Number() const { return number; }

private:
    int number;
};

/// Ends and reaps the child whatever happens.
class Child {
public:
    explicit Child(pid_t process) : process(process) {}
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() {
        if (!reaped) Kill();
    }

    void Kill() {
        kill(process, SIGKILL);
        Wait(0);
    }

    /// True once the child has ended.
    bool Wait(int options) {
        if (reaped) return true;
        pid_t ended = 0;
        do {
            ended = waitpid(process, &status, options);
        } while (ended < 0 && errno == EINTR);
        reaped = ended != 0;
        return reaped;
    }

    [[nodiscard]] ChildReport Report() const {
        if (WIFSIGNALED(status)) return {ChildEnding::Killed, 0, WTERMSIG(status)};
        if (WEXITSTATUS(status) == ExitNotExecuted) return {ChildEnding::NotStarted, ExitNotExecuted, 0};
        return {ChildEnding::Exited, WEXITSTATUS(status), 0};
    }

private:
    pid_t process;
    int status = 0;
    bool reaped = false;
};

enum class Listening : std::uint8_t { Closed, OutOfTime, Stopped };

Listening Listen(int answer, Clock::time_point deadline, const ChildListener& listener) {
    std::vector<char> buffer(1 << 16);
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0) return Listening::OutOfTime;
        pollfd waiting{answer, POLLIN, 0};
        const int ready = poll(&waiting, 1, static_cast<int>(std::min<long long>(left, 100)));
        if (ready < 0 && errno != EINTR) return Listening::Closed;
        std::size_t count = 0;
        if (ready > 0) {
            const ssize_t got = read(answer, buffer.data(), buffer.size());
            if (got == 0 || (got < 0 && errno != EINTR)) return Listening::Closed;
            count = got < 0 ? 0 : static_cast<std::size_t>(got);
        }
        if (!listener({buffer.data(), count})) return Listening::Stopped;
    }
}

} // namespace

ChildReport RunChild(const ChildCommand& command, const ChildListener& listener) {
    std::vector<std::string> words{command.program.string()};
    words.insert(words.end(), command.arguments.begin(), command.arguments.end());
    std::vector<std::string> variables = ChildEnvironment();
    const std::vector<char*> arguments = Pointers(words);
    const std::vector<char*> environment = Pointers(variables);

    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) return {};
    Descriptor readEnd(ends[0]);
    Descriptor writeEnd(ends[1]);
    Descriptor nowhere(open("/dev/null", O_RDWR | O_CLOEXEC));
    if (nowhere.Number() < 0) return {};

    const pid_t parent = getpid();
    const pid_t process = fork();
    if (process < 0) return {};
    if (process == 0) {
        BecomeChild(command, arguments.data(), environment.data(), writeEnd.Number(), nowhere.Number(), parent);
    }
    Child child(process);
    writeEnd.Close();
    const Listening end = Listen(readEnd.Number(), command.deadline, listener);
    if (end != Listening::Closed) {
        child.Kill();
        return {end == Listening::OutOfTime ? ChildEnding::OutOfTime : ChildEnding::Stopped, 0, 0};
    }
    while (!child.Wait(WNOHANG)) {
        if (Clock::now() >= command.deadline) {
            child.Kill();
            return {ChildEnding::OutOfTime, 0, 0};
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return child.Report();
}

} // namespace workbench::ifc
