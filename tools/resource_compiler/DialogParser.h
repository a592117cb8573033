// Reads a 'GDLG' resource behind its id: kind, flags, rectangle, title and items.
#pragma once

#include "Model.h"
#include "TokenStream.h"

namespace ResourceCompiler {

/// errors  SourceError: unknown item keyword, a flag that the kind of dialog does not take, arguments that do not fit
[[nodiscard]] DialogLayout ParseDialog(TokenStream& tokens, int id);

} // namespace ResourceCompiler
