// Sets what GetLastResult answers; for the archive writer and its handles only.
#pragma once

#include "zip/ZipResult.h"

namespace zip {

void SetLastResult(ZipResult result);

} // namespace zip
