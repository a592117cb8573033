#include "workbench/host/AddOnCommandsRole.h"

namespace workbench {

host::ErrorCode AddOnCommandsRole::CreateParameterList(host::ParameterListId& list) {
    list.value = ++lastId;
    lists[list.value];
    return host::NoError;
}

host::ErrorCode AddOnCommandsRole::AddParameter(host::ParameterListId list, const host::CommandParameter& parameter) {
    const auto found = lists.find(list.value);
    if (found == lists.end()) return host::Errors::BadParameters;
    const bool isNew = found->second.try_emplace(parameter.name, parameter.value).second;
    return isNew ? host::NoError : host::Errors::BadName;
}

host::ErrorCode AddOnCommandsRole::ReadParameter(host::ParameterListId list, const std::string& name,
                                                 host::CommandParameter& parameter) {
    host::CommandParameter::Value* value = nullptr;
    const host::ErrorCode error = Find(list, name, value);
    if (value != nullptr) parameter = {name, *value};
    return error;
}

host::ErrorCode AddOnCommandsRole::ChangeParameter(host::ParameterListId list,
                                                   const host::CommandParameter& parameter) {
    host::CommandParameter::Value* value = nullptr;
    const host::ErrorCode error = Find(list, parameter.name, value);
    if (value != nullptr) *value = parameter.value;
    return error;
}

host::ErrorCode AddOnCommandsRole::FreeParameterList(host::ParameterListId list) {
    return lists.erase(list.value) == 1 ? host::NoError : host::Errors::BadParameters;
}

host::ErrorCode AddOnCommandsRole::Find(host::ParameterListId list, const std::string& name,
                                        host::CommandParameter::Value*& value) {
    const auto found = lists.find(list.value);
    if (found == lists.end()) return host::Errors::BadParameters;
    const auto parameter = found->second.find(name);
    if (parameter == found->second.end()) return host::Errors::BadName;
    value = &parameter->second;
    return host::NoError;
}

} // namespace workbench
