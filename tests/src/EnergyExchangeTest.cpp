// The exchange with the energy evaluation as the module sees it: what it asks of the host, in which order, and what it
// answers when the host refuses.
#include "src/EnergyExchange.h"

#include "src/Kelvarnix.h"

#include <gtest/gtest.h>

#include "support/NullHost.h"
#include "support/TreeText.h"

#include <map>

namespace {

using Calls = std::vector<std::string>;

constexpr host::ModuleId OwnId = {11, 22};

class OwnResources : public test::NullResources {
public:
    host::ModuleId ReadModuleId(std::int16_t number) override { return number == 32500 ? OwnId : host::ModuleId(); }
    std::string ReadString(std::int16_t list, std::int16_t entry) override {
        return list == 32555 && entry == 1 ? "Export to Kelvarnix" : "another text";
    }
};

/// Notes every operation, fails where the test says so, and answers like an energy evaluation.
class RecordingCommands : public test::NullAddOnCommands {
public:
    host::ErrorCode CreateParameterList(host::ParameterListId& list) override {
        list.value = 5;
        parameters.clear();
        const host::ErrorCode error = Note("create");
        if (error != host::NoError) list = {};
        return error;
    }
    host::ErrorCode AddParameter(host::ParameterListId list, const host::CommandParameter& parameter) override {
        EXPECT_EQ(list.value, 5);
        parameters[parameter.name] = parameter.value;
        return Note("add " + parameter.name + "=" + Describe(parameter.value));
    }
    host::ErrorCode ReadParameter(host::ParameterListId, const std::string& name,
                                  host::CommandParameter& parameter) override {
        parameter = {name, answer};
        return Note("read " + name);
    }
    host::ErrorCode FreeParameterList(host::ParameterListId) override { return Note("free"); }
    host::ErrorCode Call(const host::ModuleId& target, std::uint32_t code, std::int32_t version,
                         host::ParameterListId list, bool) override {
        EXPECT_TRUE(target == (host::ModuleId{0x47732F64, 0x4A8188E7}));
        EXPECT_EQ(version, 1);
        std::string text;
        for (int shift = 24; shift >= 0; shift -= 8)
            text += static_cast<char>((code >> shift) & 255U);
        return Note(text + (list.IsNull() ? " without list" : ""));
    }

    Calls calls;
    std::map<std::string, host::ErrorCode> failures; ///< by call
    host::CommandParameter::Value answer = true;     ///< to the enabled test

private:
    static std::string Describe(const host::CommandParameter::Value& value) {
        if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "true" : "false";
        if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
        if (const auto* text = std::get_if<std::string>(&value)) return *text;
        const auto& id = std::get<host::ModuleId>(value);
        return std::to_string(id.developerId) + "," + std::to_string(id.localId);
    }
    host::ErrorCode Note(const std::string& call) {
        calls.push_back(call);
        const auto failure = failures.find(call);
        return failure == failures.end() ? host::NoError : failure->second;
    }

    std::map<std::string, host::CommandParameter::Value> parameters;
};

class EnergyExchangeTest : public testing::Test {
protected:
    EnergyExchangeTest() {
        host.resources = &resources;
        host.addOnCommands = &commands;
    }
    Calls TakeCalls() { return std::exchange(commands.calls, {}); }

    OwnResources resources;
    RecordingCommands commands;
    test::NullHost host;
};

const Calls EnabledTest = {"create", "add isEcoDesignerStarEnabled=false", "IESE", "read isEcoDesignerStarEnabled",
                           "free"};
const Calls Registering = {"create",           "add mdid=11,22", "add uiStr=Export to Kelvarnix",
                           "add exportType=1", "LESR",           "free"};

Calls Join(Calls first, const Calls& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TEST_F(EnergyExchangeTest, EnabledOnlyWhenEveryStepSaysSo) {
    EXPECT_TRUE(IsEnergyEvaluationEnabled(host));
    EXPECT_EQ(TakeCalls(), EnabledTest);
    const struct {
        const char* failingCall;
        Calls calls; // whatever fails, what was created is freed
    } cases[] = {{"create", {"create"}},
                 {"add isEcoDesignerStarEnabled=false", {"create", "add isEcoDesignerStarEnabled=false", "free"}},
                 {"IESE", {"create", "add isEcoDesignerStarEnabled=false", "IESE", "free"}},
                 {"read isEcoDesignerStarEnabled", EnabledTest}};
    for (const auto& one : cases) {
        commands.failures = {{one.failingCall, host::Errors::General}};
        EXPECT_FALSE(IsEnergyEvaluationEnabled(host)) << one.failingCall;
        EXPECT_EQ(TakeCalls(), one.calls) << one.failingCall;
    }
    commands.failures.clear();
    for (const host::CommandParameter::Value& answer :
         {host::CommandParameter::Value(false), host::CommandParameter::Value(std::int32_t{1}),
          host::CommandParameter::Value(std::string("1"))}) {
        commands.answer = answer;
        EXPECT_FALSE(IsEnergyEvaluationEnabled(host));
    }
}

TEST_F(EnergyExchangeTest, RegistrationSwitchesTheEvaluationOnWhereItIsOff) {
    EXPECT_EQ(RegisterExportTarget(host), host::NoError);
    EXPECT_EQ(TakeCalls(), Join(EnabledTest, Registering));
    commands.answer = false;
    EXPECT_EQ(RegisterExportTarget(host), host::NoError);
    EXPECT_EQ(TakeCalls(), Join(Join(EnabledTest, {"EEDS without list"}), Registering));
    commands.failures = {{"EEDS without list", 77}};
    EXPECT_EQ(RegisterExportTarget(host), 77);
    EXPECT_EQ(TakeCalls(), Join(EnabledTest, {"EEDS without list"}));
}

TEST_F(EnergyExchangeTest, FailuresOfTheRegistrationAreAnswered) {
    for (std::size_t step = 0; step + 1 < Registering.size(); ++step) {
        commands.failures = {{Registering[step], 100 + static_cast<int>(step)}};
        // The first list is the enabled test's, which then fails and is followed by switching on.
        EXPECT_EQ(RegisterExportTarget(host), 100 + static_cast<int>(step));
        const Calls calls = TakeCalls();
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "free"), step == 0 ? 0 : 2);
    }
}

TEST_F(EnergyExchangeTest, UnregistersByTheIdentifierAlone) {
    EXPECT_EQ(UnregisterExportTarget(host), host::NoError);
    EXPECT_EQ(TakeCalls(), (Calls{"create", "add mdid=11,22", "LESU", "free"}));
    commands.failures = {{"LESU", 9}};
    EXPECT_EQ(UnregisterExportTarget(host), 9);
    EXPECT_EQ(TakeCalls().back(), "free");
}

TEST_F(EnergyExchangeTest, SettingsAreBuiltOrAdapted) {
    host::ObjectState settings;
    EXPECT_EQ(HandleExportSettings(settings, false), host::NoError);
    EXPECT_EQ(test::WriteTree(settings), "projectKeyValuesData{ enableExport=b:1 levelOfDetail='Yearly' } "
                                         "energySourcesFactor{ enableExport=b:1 levelOfDetail='Yearly' } "
                                         "xlsValues{ enableExport=b:1 levelOfDetail='Yearly' } ");
    host::ObjectState fields, sets;
    fields.Add("enableExport", false);
    fields.Add("levelOfDetail", std::string("Hourly"));
    sets.Add("xlsValues", fields);
    sets.Add("hourlyProfiles", fields);
    settings = host::ObjectState();
    settings.Add("version", std::int64_t{3});
    settings.Add("sets", sets);
    EXPECT_EQ(HandleExportSettings(settings, false), host::NoError);
    EXPECT_EQ(test::WriteTree(settings), "version=i:3 sets{ xlsValues{ enableExport=b:1 levelOfDetail='Yearly' } "
                                         "hourlyProfiles{ enableExport=b:0 levelOfDetail='Hourly' } } ");
}

} // namespace
