#include "workbench/cli/JsonText.h"

#include <nlohmann/json.hpp>

namespace workbench::cli {

std::string WriteJsonText(const nlohmann::ordered_json& json) {
    return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

} // namespace workbench::cli
