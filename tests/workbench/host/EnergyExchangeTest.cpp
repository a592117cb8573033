// The energy evaluation beside the add-on where one of them, or the host between them, refuses.
#include "host/EnergyExchange.h"
#include "src/EnergyExchange.h"
#include "src/Kelvarnix.h"
#include "support/TreeText.h"
#include "workbench/energy/UserCommands.h"

#include "DrivenAddOn.h"

#include <set>

namespace {

namespace Exchange = host::EnergyExchange;

constexpr char TargetText[] = "Export to Kelvarnix";

class EnergyExchangeTest : public test::DrivenAddOn {
protected:
    void SetUp() override {
        ASSERT_EQ(energy.Load(KELVARNIX_BIN_DIR "/EnergyEvaluation.apx").GetText(), "");
        ASSERT_EQ(energy.Start().GetText(), "");
        DrivenAddOn::SetUp();
    }
    std::vector<std::string> Targets() {
        std::vector<std::string> menuTexts;
        EXPECT_EQ(workbench::energy::ListTargets(host.addOnCommands, menuTexts), host::NoError);
        return menuTexts;
    }
    host::ErrorCode Export(const std::string& target, const std::string& document) {
        host::ObjectState settings;
        return workbench::energy::ExportDocument(host.addOnCommands, host.registration, target, document, settings);
    }

    workbench::Module energy{host};
};

TEST_F(EnergyExchangeTest, ARefusedStepIsAnsweredAndLeavesNoList) {
    // Lists, parameters and calls; where asking fails the evaluation is switched on instead.
    constexpr int ToAsk = 3, ToRegister = 5;
    const std::set<std::string> steps = {"AddOnCommands.CreateParameterList", "AddOnCommands.AddParameter",
                                         "AddOnCommands.Call"};
    for (int refused = 0; refused <= ToAsk + ToRegister; ++refused) {
        ASSERT_EQ(UnregisterExportTarget(host), host::NoError);
        int next = 0;
        host.refusals.rule = [&](const std::string& operation, const host::Guid&) {
            return steps.count(operation) > 0 && next++ == refused ? host::ErrorCode{100} : host::NoError;
        };
        const bool isLeft = refused >= ToAsk && refused < ToAsk + ToRegister;
        EXPECT_EQ(RegisterExportTarget(host), isLeft ? 100 : 0) << refused;
        host.refusals.rule = nullptr;
        EXPECT_EQ(Targets().size(), isLeft ? 0U : 1U) << refused;
        EXPECT_EQ(host.addOnCommands.CountLists(), 0U) << refused;
        ASSERT_EQ(RegisterExportTarget(host), host::NoError);
    }
}

/// A host that has no settings of its own gets those of the three data sets.
TEST_F(EnergyExchangeTest, AsksForYearlyValuesOfThreeDataSets) {
    host::ObjectState none;
    EXPECT_EQ(HandleExportSettings(none, false), host::NoError);
    EXPECT_EQ(test::WriteTree(none), "projectKeyValuesData{ enableExport=b:1 levelOfDetail='Yearly' } "
                                     "energySourcesFactor{ enableExport=b:1 levelOfDetail='Yearly' } "
                                     "xlsValues{ enableExport=b:1 levelOfDetail='Yearly' } ");
}

TEST_F(EnergyExchangeTest, TheEvaluationRefusesWhatItCannotUse) {
    const host::ModuleId own = {1, 2};
    const auto registerTarget = [&](std::int32_t version, const std::vector<host::CommandParameter>& parameters) {
        host::ParameterListId list;
        EXPECT_FALSE(host.addOnCommands.CreateParameterList(list));
        for (const host::CommandParameter& parameter : parameters)
            EXPECT_FALSE(host.addOnCommands.AddParameter(list, parameter));
        const host::ErrorCode error =
            host.addOnCommands.Call(Exchange::EnergyEvaluation, Exchange::RegisterTarget, version, list, true);
        EXPECT_FALSE(host.addOnCommands.FreeParameterList(list));
        return error;
    };
    const host::CommandParameter id = {"mdid", own}, text = {"uiStr", std::string("Other")},
                                 type = {"exportType", std::int32_t{1}};
    EXPECT_EQ(registerTarget(2, {id, text, type}), host::Errors::CommandVersionNotSupported);
    EXPECT_EQ(registerTarget(1, {text, type}), host::Errors::BadName);
    EXPECT_EQ(registerTarget(1, {{"mdid", std::int32_t{1}}, text, type}), host::Errors::BadParameters);
    EXPECT_EQ(registerTarget(1, {id, {"uiStr", true}, type}), host::Errors::BadParameters);
    EXPECT_EQ(registerTarget(1, {id, text, {"exportType", std::int32_t{2}}}), host::Errors::BadParameters);
    EXPECT_EQ(registerTarget(1, {id, text, type}), host::NoError);
    EXPECT_EQ(registerTarget(1, {id, {"uiStr", std::string("New")}, type}), host::NoError);
    EXPECT_EQ(Targets(), (std::vector<std::string>{TargetText, "New"}));
    // Its target is gone by now: nobody answers there.
    EXPECT_EQ(Export("New", "<root/>"), host::Errors::ModuleNotInstalled);
    EXPECT_EQ(host.addOnCommands.Call(Exchange::EnergyEvaluation, host::CommandCode("NONE"), 1, {}, false),
              host::Errors::CommandNotSupported);
    energy.Unload();
    EXPECT_EQ(Export("New", "<root/>"), host::Errors::ModuleNotInstalled);
    EXPECT_EQ(host.addOnCommands.CountLists(), 0U);
}

/// What a caller may forget is answered by the host, whether the add-on has its object or not.
TEST_F(EnergyExchangeTest, MissingBlocksNeverReachTheAddOn) {
    constexpr host::ModuleId Kelvarnix = {0x38735147, 0xE8C6599F};
    const workbench::SettingsBlock emptySlot;
    const workbench::DocumentBlock noText;
    const struct {
        std::uint32_t command;
        workbench::CommandData data;
        host::ErrorCode answer;
    } cases[] = {{Exchange::AskSettings, {}, host::Errors::Code(0x81060068)},
                 {Exchange::AskSettings, {{}, nullptr, &noText}, host::Errors::Code(0x81060068)},
                 {Exchange::AskSettings, {{}, &emptySlot, nullptr}, -7003},
                 {Exchange::SendData, {}, host::Errors::Code(0x81060068)},
                 {Exchange::SendData, {{}, &emptySlot, nullptr}, host::Errors::Code(0x81060068)},
                 {Exchange::SendData, {{}, nullptr, &noText}, host::Errors::Code(0x81060068)}};
    for (const auto& one : cases)
        EXPECT_EQ(host.registration.CallCommand(Kelvarnix, one.command, 1, one.data, true), one.answer);
}

} // namespace
