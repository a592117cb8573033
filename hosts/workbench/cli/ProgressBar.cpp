#include "workbench/cli/ProgressBar.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace workbench::cli {

ProgressBar::ProgressBar(std::string text) : text(std::move(text)), isTerminal(isatty(STDERR_FILENO) == 1) {}

ProgressBar::~ProgressBar() {
    Clear();
}

void ProgressBar::Show(double share) {
    using namespace std::chrono_literals;
    if (!isTerminal || (!isShown && std::chrono::steady_clock::now() - start < 1s)) return;
    isShown = true;
    constexpr int Width = 30;
    const int filled = static_cast<int>(std::clamp(share, 0.0, 1.0) * Width);
    const std::string bar =
        std::string(static_cast<std::size_t>(filled), '#') + std::string(static_cast<std::size_t>(Width - filled), '.');
    std::fprintf(stderr, "\r%s [%s] %3d %%", text.c_str(), bar.c_str(), static_cast<int>(share * 100));
    std::fflush(stderr);
}

void ProgressBar::Clear() {
    if (isShown) std::fputs("\r\033[K", stderr);
    isShown = false;
}

} // namespace workbench::cli
