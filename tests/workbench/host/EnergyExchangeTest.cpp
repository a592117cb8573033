// The energy evaluation beside the add-on, both loaded as modules: registration, request, and what the data do to the
// record, the model and the palette.
#include "host/EnergyExchange.h"
#include "src/EnergyExchange.h"
#include "src/Kelvarnix.h"
#include "support/TreeText.h"
#include "workbench/app/SchemaView.h"
#include "workbench/energy/UserCommands.h"

#include "lca/Numbers.h"

#include "DrivenAddOn.h"

#include <set>

namespace {

namespace Exchange = host::EnergyExchange;
using lca::FloorQuantity;
using lca::FloorSource;

constexpr char TargetText[] = "Export to Kelvarnix";

std::string Electricity(const std::string& factor) {
    return "<list_value><source>Electricity</source><carbonFootprint>" + factor + "</carbonFootprint></list_value>";
}
std::string Sources(const std::string& items) {
    return "<energySourcesFactor><dataArray>" + items + "</dataArray></energySourcesFactor>";
}
std::string KeyValues(const std::string& area, const std::string& emission) {
    return "<projectKeyValuesData><grossFloorArea>" + area + "</grossFloorArea><co2emission>" + emission +
           "</co2emission></projectKeyValuesData>";
}
std::string Category(const std::string& name, const std::string& values) {
    return "<list_value><first><energyCatagoriesToXLSReportDesc>" + name +
           "</energyCatagoriesToXLSReportDesc></first><second><values>" + values + "</values></second></list_value>";
}
std::string Quantities(const std::string& items) {
    return "<multiThermalBlockXLSData><list_value><xlsQuantities>" + items +
           "</xlsQuantities></list_value></multiThermalBlockXLSData>";
}
std::string Solar(const std::string& yield) {
    return Quantities(Category("Heating", "1") + Category("SolarPhotovoltaic", yield));
}

class EnergyExchangeTest : public test::DrivenAddOn {
protected:
    void SetUp() override {
        ASSERT_EQ(energy.Load(KELVARNIX_BIN_DIR "/EnergyEvaluation.apx"), "");
        ASSERT_EQ(energy.Start(), "");
        DrivenAddOn::SetUp();
        SetDefault(lca::PropertyKey::FloorSettings,
                   host::Variant::OfText("FLOORAREA_M=1;OPERATIONAL_EMISSION_M=2;SOLAR_PANELS_M=3;MAX_SOLAR_CONT_M=4;"
                                         "MAX_SOLAR_CONT_E=4;ELECTRICITY_S_FACTOR_M=5;MAX_SOLAR_CONT_C=1"));
        stepsOfSetUp = CountSteps();
        Reopen();
    }
    /// Back to the record as the test began with it.
    void TakeBackAll() {
        while (CountSteps() > stepsOfSetUp)
            ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
        Reopen();
    }
    std::vector<std::string> Targets() {
        std::vector<std::string> menuTexts;
        EXPECT_EQ(workbench::energy::ListTargets(host.addOnCommands, menuTexts), host::NoError);
        return menuTexts;
    }
    host::ErrorCode Export(const std::string& target, const std::string& document) {
        return workbench::energy::ExportDocument(host.addOnCommands, host.registration, target, document, settings);
    }
    /// Sends the parts inside of the root element.
    host::ErrorCode Send(const std::string& parts) { return SendDocument("<root>" + parts + "</root>"); }
    host::ErrorCode SendDocument(const std::string& document) { return Export(TargetText, document); }
    lca::LCAProjectData Record() { return workbench::ReadRecord(Model()); }
    /// What counts, of the four quantities and the solar limit: each value with * when it is the evaluation's.
    std::string State() {
        const lca::LCAProjectData record = Record();
        std::string text;
        for (const FloorQuantity quantity :
             {FloorQuantity::GrossFloorArea, FloorQuantity::OperationalEmission, FloorQuantity::SolarPanels,
              FloorQuantity::MaxSolarContribution, FloorQuantity::ElectricitySourceFactor}) {
            text += lca::WriteDecimal(record.GetFloorValue(quantity));
            text += record.GetFloorChoice(quantity) == FloorSource::EnergyEvaluation ? "* " : " ";
        }
        return text;
    }

    workbench::Module energy{host};
    host::ObjectState settings; ///< what the target of the last export asked for
    std::size_t stepsOfSetUp = 0;
};

constexpr char Untouched[] = "1 2 3 4* 5 ";

TEST_F(EnergyExchangeTest, RegistersOnceARunAndLeavesAtTheEnd) {
    EXPECT_EQ(Targets(), std::vector<std::string>{TargetText});
    EXPECT_EQ(host.addOnCommands.CountLists(), 0U);
    host.Quit();
    EXPECT_TRUE(Targets().empty());
    EXPECT_FALSE(host.registration.RaiseEvent(host::ProjectEvent::AllInputFinished));
    EXPECT_TRUE(Targets().empty());
    EXPECT_EQ(SendDocument("<root/>"), host::Errors::BadName);
    EXPECT_TRUE(settings.IsEmpty());
}

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

TEST_F(EnergyExchangeTest, AsksForYearlyValuesOfThreeDataSets) {
    ASSERT_EQ(SendDocument("<root/>"), host::NoError);
    for (const auto& [name, value] : settings.GetFields()) {
        const auto& set = std::get<host::ObjectState>(value);
        const bool isWanted = name != "hourlyProfiles";
        EXPECT_EQ(std::get<bool>(*set.Find("enableExport")), isWanted) << name;
        EXPECT_EQ(std::get<std::string>(*set.Find("levelOfDetail")), isWanted ? "Yearly" : "Hourly") << name;
    }
    EXPECT_EQ(settings.GetFields().size(), 4U);
    host::ObjectState none;
    EXPECT_EQ(HandleExportSettings(none, false), host::NoError);
    EXPECT_EQ(test::WriteTree(none), "projectKeyValuesData{ enableExport=b:1 levelOfDetail='Yearly' } "
                                     "energySourcesFactor{ enableExport=b:1 levelOfDetail='Yearly' } "
                                     "xlsValues{ enableExport=b:1 levelOfDetail='Yearly' } ");
}

TEST_F(EnergyExchangeTest, EachPartIsTakenOnItsOwn) {
    const struct {
        const char* name;
        std::string parts;
        const char* state;
        std::size_t steps; // undoable commands that changed the model
    } cases[] = {
        {"nothing", "", Untouched, 0},
        {"key values", KeyValues("120.5", "900"), "120.5* 900* 3 4* 5 ", 1},
        {"electricity", Sources(Electricity("0.25")), "1 2 3 4* 0.25* ", 1},
        {"solar", Solar("77"), "1 2 77* 4 5 ", 1},
        {"all", Solar("77") + KeyValues("120.5", "900") + Sources(Electricity("0.25")), "120.5* 900* 77* 4 0.25* ", 3},
        {"several sources",
         Sources(Electricity("1") + "<list_value><source>Gas</source></list_value>" + Electricity("0.5")),
         "1 2 3 4* 0.5* ", 2},
        {"several yields", Quantities(Category("SolarPhotovoltaic", "1") + Category("SolarPhotovoltaic", "2")),
         "1 2 2* 4 5 ", 2},
        {"decimal comma, plus, exponent, blanks", KeyValues("12,5", " +9e2\n"), "12.5* 900* 3 4* 5 ", 1},
        {"negative and zero", KeyValues("0", "-900"), "0* -900* 3 4* 5 ", 1},
        {"another source",
         Sources("<list_value><source>electricity</source><carbonFootprint>9</carbonFootprint>"
                 "</list_value>"),
         Untouched, 0},
    };
    for (const auto& one : cases) {
        TakeBackAll();
        EXPECT_EQ(Send(one.parts), host::NoError) << one.name;
        EXPECT_EQ(State(), one.state) << one.name;
        EXPECT_EQ(CountSteps() - stepsOfSetUp, one.steps) << one.name;
    }
    EXPECT_TRUE(host.dialogManager.shownAlerts.empty());
    EXPECT_TRUE(report.empty());
}

TEST_F(EnergyExchangeTest, APartThatIsNotWholeIsSkippedAndTheOthersAreTaken) {
    const std::string area = "<grossFloorArea>7</grossFloorArea>";
    std::string tooMany;
    for (int i = 0; i < 1001; ++i)
        tooMany += Electricity(std::to_string(i));
    const struct {
        const char* name;
        std::string parts; ///< beside key values that are whole
    } cases[] = {
        {"no number", Sources(Electricity("much"))},
        {"empty", Solar("")},
        {"not a number", Sources(Electricity("nan"))},
        {"not finite", Solar("inf")},
        {"too large", Solar("1e999")},
        {"grouped", Solar("1.234,5")},
        {"one of several", Sources(Electricity("1") + Electricity("x") + Electricity("2"))},
        {"without factor", Sources("<list_value><source>Electricity</source></list_value>")},
        {"without list", "<energySourcesFactor/>"},
        {"without quantities", "<multiThermalBlockXLSData><list_value/></multiThermalBlockXLSData>"},
        {"without values", Quantities("<list_value><first><energyCatagoriesToXLSReportDesc>SolarPhotovoltaic"
                                      "</energyCatagoriesToXLSReportDesc></first></list_value>")},
        {"no building has so many", Sources(tooMany)},
        {"outside of its part", Electricity("1") + area},
    };
    for (const auto& one : cases) {
        TakeBackAll();
        EXPECT_EQ(Send(one.parts + KeyValues("120.5", "900")), host::NoError) << one.name;
        EXPECT_EQ(State(), "120.5* 900* 3 4* 5 ") << one.name;
    }
    TakeBackAll(); // what an entity stands for is not looked up
    EXPECT_EQ(SendDocument("<!DOCTYPE root [<!ENTITY five '5'>]><root>" + Solar("&five;") + KeyValues("120.5", "900") +
                           "</root>"),
              host::NoError);
    EXPECT_EQ(State(), "120.5* 900* 3 4* 5 ");
    for (const std::string& keyValues : {KeyValues("x", "900"), KeyValues("120.5", "nan"),
                                         "<projectKeyValuesData>" + area + "</projectKeyValuesData>"}) {
        TakeBackAll();
        EXPECT_EQ(Send(keyValues + Solar("77")), host::NoError) << keyValues;
        EXPECT_EQ(State(), "1 2 77* 4 5 ") << keyValues;
    }
}

TEST_F(EnergyExchangeTest, ABrokenDocumentIsNothing) {
    const std::string whole = "<root>" + KeyValues("120.5", "900") + Solar("77") + "</root>";
    const std::size_t steps = CountSteps();
    for (const std::string& document :
         {std::string(), std::string("no XML"), whole.substr(0, whole.size() - 1),
          "<other>" + KeyValues("1", "1") + "</other>", whole + whole, "<root>" + KeyValues("1", "2 & 3") + "</root>"})
        EXPECT_EQ(SendDocument(document), host::Errors::BadValue) << document;
    EXPECT_EQ(State(), Untouched);
    EXPECT_EQ(CountSteps(), steps);
    EXPECT_TRUE(host.dialogManager.shownAlerts.empty());
    EXPECT_TRUE(report.empty());
}

TEST_F(EnergyExchangeTest, AnOpenPaletteIsUpdatedAtTheEnd) {
    TogglePalette();
    const std::string before = Cell(2, 6);
    ASSERT_EQ(Send(KeyValues("10", "3") + Solar("4") + Sources(Electricity("0.25"))), host::NoError);
    // 50 years of 3 kg less 4 kWh x 0.25 kg/kWh, and the same by 10 m2
    EXPECT_NE(before, "100.00");
    EXPECT_EQ(Cell(2, 6) + " " + Cell(2, 7) + " " + Cell(2, 8), "100.00 10.00 0.20");
    TogglePalette();
    ASSERT_EQ(Send(KeyValues("10", "5")), host::NoError);
    EXPECT_EQ(Palette(), nullptr);
    TogglePalette();
    EXPECT_EQ(Cell(2, 6), "200.00");
}

TEST_F(EnergyExchangeTest, WhatChangedInTheModelMeanwhileStays) {
    SetDefault(lca::PropertyKey::ServiceLife, host::Variant::OfInteger(80)); // by another member, say
    ASSERT_EQ(Send(KeyValues("10", "3")), host::NoError);
    EXPECT_EQ(Default(lca::PropertyKey::ServiceLife).integer, 80);
    ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
    EXPECT_EQ(State(), Untouched);
}

/// In a shared project whose settings another member holds, nothing is stored, and nothing stays in memory either.
TEST_F(EnergyExchangeTest, WithoutTheRightNothingIsTaken) {
    Model().members = {{1, "anna", "Anna"}, {2, "ben", "Ben"}};
    host.access.userId = 1;
    TogglePalette();
    EXPECT_EQ(Send(KeyValues("10", "3") + Solar("4")), host::Errors::NoAccessRight);
    EXPECT_EQ(State(), Untouched);
    Model().members.clear();
    ASSERT_EQ(Send(Sources(Electricity("0.25"))), host::NoError);
    EXPECT_EQ(State(), "1 2 3 4* 0.25* ");
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
    EXPECT_EQ(State(), Untouched);
}

/// Beside no energy evaluation the add-on says nothing at start and at the end.
TEST_F(EnergyExchangeTest, RunsWithoutTheEvaluation) {
    module.Unload();
    energy.Unload();
    workbench::WorkbenchHost alone;
    alone.dialogManager.reportSink = [this](const std::string& line) { report.push_back(line); };
    workbench::Module addOn{alone};
    ASSERT_EQ(addOn.Load(KELVARNIX_BIN_DIR "/Kelvarnix.apx"), "");
    ASSERT_EQ(addOn.Start(), "");
    alone.OpenProject(test::MakeBuilding(), host::ProjectEvent::New);
    alone.Quit();
    EXPECT_EQ(alone.addOnCommands.CountLists(), 0U);
    EXPECT_TRUE(report.empty());
}

TEST_F(EnergyExchangeTest, DataThatComeWhileTheSettingsAreOpenStay) {
    InDialog(ResourceIds::Menus::ProjectSettings, [&] {
        Type(ResourceIds::ProjectSettingsItems::ServiceLifeEdit, "61");
        EXPECT_EQ(Send(KeyValues("82", "612")), host::NoError);
        Press(ResourceIds::ProjectSettingsItems::OkButton);
    });
    EXPECT_EQ(Default(lca::PropertyKey::ServiceLife).integer, 61);
    EXPECT_EQ(Default(lca::PropertyKey::GrossFloorArea).real, 82);
    EXPECT_NE(Default(lca::PropertyKey::FloorSettings).text.find("FLOORAREA_E=82"), std::string::npos);
}

} // namespace
