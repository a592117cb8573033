// Settings trees as XML: each field is an element of its name; docs/energy-exchange.md shows the form.
#pragma once

#include "host/ObjectState.h"
#include "host/Values.h"

namespace workbench {

/// BadName for a field whose name cannot be an element's; BadValue for a text that XML cannot hold and for a number
/// that is not finite.
[[nodiscard]] host::ErrorCode WriteTreeXml(const host::ObjectState& tree, std::string& document);

/// Also documents that do not say types: what has child elements is an object, or a list when all of them are named
/// "list_value"; all else is a text. BadValue for one that is not well-formed or whose value does not fit its type;
/// OutOfMemory for one that is too large.
[[nodiscard]] host::ErrorCode ReadTreeXml(const std::string& document, host::ObjectState& tree);

/// Name of an item of a list that has none of its own.
inline constexpr char ListItemName[] = "list_value";

} // namespace workbench
