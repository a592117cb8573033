// "Generate LCA report...": asks for a file, has the chart pictures drawn, writes the spreadsheet, says how it went and
// can open the file.
#pragma once

#include "host/Host.h"

class AddOnContext;

/// Of the open palette's present results.
void GenerateReport(host::Host& host, AddOnContext& context);
