// Files and addresses are handed to the system's own programs: here to one of the test's that writes down what it got.
#include "src/SystemStart.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace {

/// What the called program wrote; "(none)" when it did not in time.
std::string WaitFor(const std::string& file) {
    for (int i = 0; i < 300 && support::ContentOf(file).find("done") == std::string::npos; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    return support::ContentOf(file);
}

#if defined(_WIN32)

TEST(SystemStart, TheShellCallsTheFile) {
    const support::TestFolder folder;
    const std::string marker = folder / "marker.txt";
    const std::string file = folder.Write("a report.cmd", "@echo off\r\necho done > \"" + marker + "\"\r\n");
    EXPECT_TRUE(OpenFileWithShell(file));
    EXPECT_EQ(WaitFor(marker).substr(0, 4), "done");
}

#else

/// Puts a program of the desktop's opener's name in front of all others.
class SystemStart : public testing::Test {
protected:
    void SetUp() override {
        folder.Write("xdg-open", "#!/bin/sh\nprintf '%s|' \"$@\" >'" + marker + "'\nprintf done >>'" + marker + "'\n");
        std::filesystem::permissions(folder / "xdg-open", std::filesystem::perms::owner_all);
        setenv("PATH", (folder.Path() + ":" + former).c_str(), 1);
    }
    void TearDown() override { setenv("PATH", former.c_str(), 1); }

    support::TestFolder folder;
    const std::string marker = folder / "marker.txt";
    const std::string former = std::getenv("PATH");
};

TEST_F(SystemStart, TheOpenerGetsTheFileAsOneWord) {
    EXPECT_TRUE(OpenFileWithShell("/a b/Größe.xlsx"));
    EXPECT_EQ(WaitFor(marker), "/a b/Größe.xlsx|done");
}

TEST_F(SystemStart, TheOpenerGetsTheAddress) {
    EXPECT_TRUE(OpenWithSystemStart("https://kelvarnix.example/"));
    EXPECT_EQ(WaitFor(marker), "https://kelvarnix.example/|done");
}

#endif

TEST(SystemStartLimits, WhatIsTooLongIsLeft) {
    EXPECT_FALSE(OpenWithSystemStart(std::string(2500, 'x')));
    EXPECT_FALSE(OpenFileWithShell(std::string(3500, 'x')));
}

} // namespace
