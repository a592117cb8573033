// Settings trees as JSON: objects and values as they are, a list as an array of objects of one field.
#pragma once

#include "host/ObjectState.h"
#include "host/Values.h"

namespace workbench {

/// BadValue for a text that is no UTF-8 and for a number that is not finite.
[[nodiscard]] host::ErrorCode WriteTreeJson(const host::ObjectState& tree, std::string& text);

/// The text is one JSON object. JSON has one kind of whole number: those that fit are signed. An item of an array that
/// is no object of one field is named "list_value". BadValue for text that is no JSON, and for a null.
[[nodiscard]] host::ErrorCode ReadTreeJson(const std::string& text, host::ObjectState& tree);

} // namespace workbench
