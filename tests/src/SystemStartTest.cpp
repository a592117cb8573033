// Files and addresses are handed to the system's own programs: here to one of the test's that writes down what it got.
#include "src/SystemStart.h"
#include "support/FakeOpener.h"

#include <gtest/gtest.h>

namespace {

#if defined(_WIN32)

TEST(SystemStart, TheShellCallsTheFile) {
    const support::TestFolder folder;
    const std::string marker = folder / "marker.txt";
    const std::string file = folder.Write("a report.cmd", "@echo off\r\necho done > \"" + marker + "\"\r\n");
    EXPECT_TRUE(OpenFileWithShell(file));
    EXPECT_EQ(support::WaitFor(marker).substr(0, 4), "done");
}

#else

TEST(SystemStart, TheOpenerGetsTheFileAsOneWord) {
    for (const std::string file : {"/a b/Größe.xlsx", "/a b/19\" rack.xlsx", "/\"", "/\"\" \"/x.xlsx\""}) {
        const support::FakeOpener opener;
        EXPECT_TRUE(OpenFileWithShell(file));
        EXPECT_EQ(opener.WaitForWords(), file + "|done");
    }
}

#endif

TEST(SystemStartLimits, WhatIsTooLongIsLeft) {
    EXPECT_FALSE(OpenWithSystemStart(std::string(2500, 'x')));
    EXPECT_FALSE(OpenFileWithShell(std::string(3500, 'x')));
}

} // namespace
