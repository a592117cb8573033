// A bar on standard error for what takes longer than a second; nothing where that is no terminal.
#pragma once

#include <chrono>
#include <string>

namespace workbench::cli {

class ProgressBar {
public:
    explicit ProgressBar(std::string text);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// share is 0 to 1.
    void Show(double share);
    /// Removes the bar from the terminal.
    void Clear();

private:
    std::string text;
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
    bool isTerminal;
    bool isShown = false;
};

} // namespace workbench::cli
