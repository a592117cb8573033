// Stands for the desktop's program that opens files and addresses, and writes down what it was given.
#pragma once

#include "support/TestFolder.h"

#include <chrono>
#include <cstdlib>
#include <thread>

namespace support {

/// What a program wrote that ends with "done"; what there is when it did not in time.
inline std::string WaitFor(const std::string& file) {
    for (int i = 0; i < 300 && ContentOf(file).find("done") == std::string::npos; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    return ContentOf(file);
}

#if !defined(_WIN32)

/// In front of all others on the path as long as it lives.
class FakeOpener {
public:
    FakeOpener() {
        folder.Write("xdg-open", "#!/bin/sh\nprintf '%s|' \"$@\" >'" + marker + "'\nprintf done >>'" + marker + "'\n");
        std::filesystem::permissions(folder / "xdg-open", std::filesystem::perms::owner_all);
        setenv("PATH", (folder.GetPath() + ":" + former).c_str(), 1);
    }
    ~FakeOpener() { setenv("PATH", former.c_str(), 1); }

    /// Each word that it was given with "|" behind it, then "done".
    std::string WaitForWords() const { return WaitFor(marker); }

private:
    TestFolder folder;
    const std::string marker = folder / "marker.txt";
    const std::string former = std::getenv("PATH");
};

#endif

} // namespace support
