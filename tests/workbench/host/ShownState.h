// What a user can see and what the model holds, as named lines: two of them compared say what an action has changed.
#pragma once

#include "workbench/host/WorkbenchHost.h"

#include <string>
#include <utility>
#include <vector>

namespace test {

using ShownState = std::vector<std::pair<std::string, std::string>>;

/// Dialogs with their items, lists and charts, menus, and of the model what commands change.
ShownState TakeState(workbench::WorkbenchHost& host);
/// One line for each that is new or has changed, and for each that is gone; of a closed dialog only that it is.
std::string DescribeChanges(const ShownState& before, const ShownState& after);
std::string DescribeDrawing(const workbench::DrawingCall& call);
/// What stands in the form of a time is no two runs' alike.
std::string MaskTimes(std::string text);
std::string Quote(const std::string& text);

} // namespace test
