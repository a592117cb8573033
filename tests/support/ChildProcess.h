// Checks that need a process of their own, because they give up rights or room on the disk. Not for Windows.
#pragma once

#include <csignal>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace support {

/// What the check answers, 0 to 255; -1 when the process did not end by itself.
inline int InChild(const std::function<int()>& check) {
    const pid_t child = fork();
    if (child == 0) _exit(check());
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
}

/// From here on no file of this process grows beyond so many bytes, as on a full disk.
inline bool LimitFileSizes(rlim_t mostBytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{mostBytes, mostBytes};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

/// From here on this process may do no more than any user may.
inline bool GiveUpRights() {
    return geteuid() != 0 || (setgid(65534) == 0 && setuid(65534) == 0);
}

} // namespace support
