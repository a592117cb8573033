// Reads the resources of a preprocessed source: 'STR#', 'GDLG', 'DLGH', 'GICN' and 'MDID'.
#pragma once

#include "Lexer.h"
#include "Model.h"

#include <vector>

namespace ResourceCompiler {

/// returns the resources in the source's order, tool tips joined to their dialogs; icons still without image
/// errors  SourceError: syntax; an id used twice; a dialog's icon that no 'GICN' holds; a 'DLGH' that does not fit
///         its dialog
[[nodiscard]] Resources ParseResources(std::vector<Token> tokens);

} // namespace ResourceCompiler
