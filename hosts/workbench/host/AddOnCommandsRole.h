// Commands between the loaded add-ons, with the parameter lists that are under way.
#pragma once

#include "host/AddOnCommands.h"
#include "workbench/host/RegistrationRole.h"

#include <map>

namespace workbench {

class AddOnCommandsRole : public host::AddOnCommands {
public:
    explicit AddOnCommandsRole(const RegistrationRole& registration) : registration(registration) {}

    host::ErrorCode CreateParameterList(host::ParameterListId& list) override;
    host::ErrorCode AddParameter(host::ParameterListId list, const host::CommandParameter& parameter) override;
    host::ErrorCode ReadParameter(host::ParameterListId list, const std::string& name,
                                  host::CommandParameter& parameter) override;
    host::ErrorCode ChangeParameter(host::ParameterListId list, const host::CommandParameter& parameter) override;
    host::ErrorCode FreeParameterList(host::ParameterListId list) override;
    host::ErrorCode Call(const host::ModuleId& target, std::uint32_t code, std::int32_t version,
                         host::ParameterListId list, bool silent) override {
        return registration.CallCommand(target, code, version, {list}, silent);
    }

    /// Lists that were created and not freed.
    std::size_t CountLists() const { return lists.size(); }

private:
    /// BadParameters when there is no such list, BadName when it has no such parameter.
    host::ErrorCode Find(host::ParameterListId list, const std::string& name, host::CommandParameter::Value*& value);

    const RegistrationRole& registration;
    std::map<std::int32_t, std::map<std::string, host::CommandParameter::Value>> lists;
    std::int32_t lastId = 0;
};

} // namespace workbench
