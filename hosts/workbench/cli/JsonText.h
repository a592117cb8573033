// JSON as the program writes it.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace workbench::cli {

/// Indented, with a line end. Bytes that are no UTF-8, as the names of a damaged model may hold, become U+FFFD.
std::string WriteJsonText(const nlohmann::ordered_json& json);

} // namespace workbench::cli
