// Shows a web address or a file with the system's own program for it. Nothing waits for that program, and what is too
// long for the system's command line is left.
#pragma once

#include <string>

/// address is narrow text. False when the program cannot be started.
bool OpenWithSystemStart(const std::string& address);

/// path is narrow text and may hold blanks and double quotes. False when the program cannot be started.
bool OpenFileWithShell(const std::string& path);
