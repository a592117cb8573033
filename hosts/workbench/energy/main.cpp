// Entry of the energy evaluation's module: the two exports, the four callbacks of its life, and its commands.
#include "workbench/energy/EnergyEvaluation.h"

#include "General/CallbackGuard.h"
#include "host/Entry.h"
#include "host/Registration.h"

#include <memory>

#define ENERGY_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

namespace Exchange = host::EnergyExchange;
using workbench::energy::EnergyEvaluation;

host::Host* importedHost = nullptr;
std::unique_ptr<EnergyEvaluation> evaluation;

/// Handler of a command; RefusedCommand outside of the add-on's life.
template <host::ErrorCode (EnergyEvaluation::*Answer)(const workbench::CommandData&)>
host::ErrorCode Handle(const workbench::CommandData& data, bool) {
    return General::RunGuarded(importedHost, "energy evaluation",
                               [&] { return evaluation ? (*evaluation.*Answer)(data) : host::Errors::RefusedCommand; });
}

struct Command {
    std::uint32_t code;
    workbench::PartnerHandler handler;
};

constexpr Command Commands[] = {{Exchange::AskEnabled, Handle<&EnergyEvaluation::AnswerEnabled>},
                                {Exchange::Enable, Handle<&EnergyEvaluation::Enable>},
                                {Exchange::RegisterTarget, Handle<&EnergyEvaluation::RegisterTarget>},
                                {Exchange::UnregisterTarget, Handle<&EnergyEvaluation::UnregisterTarget>},
                                {workbench::energy::ListTargetsCommand, Handle<&EnergyEvaluation::ListTargets>},
                                {workbench::energy::ExportCommand, Handle<&EnergyEvaluation::Export>}};

host::AddOnType CheckEnvironment(host::Environment& environment) {
    return General::RunGuarded(importedHost, "environment check", host::AddOnType::DoNotRegister,
                               host::AddOnType::DoNotRegister, [&] {
                                   environment.addOnName = "Energy evaluation";
                                   environment.addOnDescription = "Hands over the results of an energy evaluation";
                                   return host::AddOnType::Preload;
                               });
}

host::ErrorCode RegisterInterface() {
    return General::RunGuarded(importedHost, "interface registration", [] {
        host::ErrorCode result = host::NoError;
        for (const Command& command : Commands)
            result |= importedHost->GetRegistration().RegisterSupportedCommand(command.code, Exchange::CommandVersion);
        return result;
    });
}

host::ErrorCode Initialise() {
    return General::RunGuarded(importedHost, "initialisation", [] {
        // Only the workbench is a host for this add-on.
        auto* commands = dynamic_cast<workbench::PartnerCommands*>(&importedHost->GetRegistration());
        if (commands == nullptr) return host::Errors::RefusedCommand;
        evaluation = std::make_unique<EnergyEvaluation>(importedHost->GetAddOnCommands(), *commands);
        host::ErrorCode result = host::NoError;
        for (const Command& command : Commands)
            result |= commands->InstallPartnerHandler(command.code, Exchange::CommandVersion, command.handler);
        return result;
    });
}

host::ErrorCode FreeData() {
    evaluation.reset();
    return host::NoError;
}

} // namespace

ENERGY_EXPORT std::int32_t SetImportedFuncAddrs(const host::ImportedFunctions* functions) {
    if (!host::IsOfThisInterface(functions) || functions->host == nullptr)
        return host::Errors::BadParameters.GetValue();
    importedHost = functions->host;
    return host::NoError.GetValue();
}

ENERGY_EXPORT std::int32_t GetExportedFuncAddrs(host::ExportedFunctions* functions) {
    if (!host::IsOfThisInterface(functions) || importedHost == nullptr) return host::Errors::BadParameters.GetValue();
    functions->moduleId = Exchange::EnergyEvaluation;
    functions->checkEnvironment = CheckEnvironment;
    functions->registerInterface = RegisterInterface;
    functions->initialise = Initialise;
    functions->freeData = FreeData;
    return host::NoError.GetValue();
}
