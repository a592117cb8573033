// As which member of a shared project somebody acts.
#pragma once

#include "workbench/model/Model.h"

#include <string>

namespace workbench {

/// Whether what is done changes what members reserve.
enum class Purpose { Reading, Changing };

struct MemberChoice {
    enum class Finding {
        Found,
        NotShared, ///< the project is not shared and takes no login
        Unknown,   ///< no member has this login
        Needed     ///< changing a shared project needs a login
    };

    Finding finding = Finding::Found;
    std::int16_t userId = 0; ///< 0: nobody
};

/// The member of the login, which is found whatever its case; an empty one is nobody.
MemberChoice ChooseMember(const Model& model, const std::string& login, Purpose purpose);

/// "anna, bert"
std::string ListLogins(const Model& model);

} // namespace workbench
