// As which member of a shared project the program acts.
#pragma once

#include "workbench/app/Outcome.h"
#include "workbench/model/Project.h"

#include <optional>
#include <string>

namespace workbench {

/// Whether the command changes what members reserve.
enum class Purpose { Reading, Changing };

/// User id of the login, which is found whatever its case; 0 for nobody. Changing a shared project needs a login, and a
/// project that is not shared takes none.
Outcome SelectMember(const Model& model, const std::string& file, const std::string& login, Purpose purpose,
                     std::int16_t& userId);

} // namespace workbench
