// Who shows how far something is that takes a while.
#pragma once

#include <functional>

namespace workbench {

/// Called with the share that is done, 0 to 1.
using ProgressObserver = std::function<void(double share)>;

} // namespace workbench
