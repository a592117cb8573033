// "Generate LCA report...": asks for a file, has the chart pictures drawn, writes the spreadsheet, says how it went and
// can open the file.
#pragma once

#include "host/Host.h"

#include <string>

class AddOnContext;

/// Of the open palette's present results.
void GenerateReport(host::Host& host, AddOnContext& context);

/// Starts the system's program for a file, given by its narrow path.
void OpenFileWithShell(const std::string& path);
