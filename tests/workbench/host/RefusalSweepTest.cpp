// The add-on on a host that refuses: through each thing that a user does, each operation of the host fails in turn. No
// stored value may change that the user did not change, and each failure is answered by the add-on's own message or
// stands as one line in the host's report, except where the table of exceptions says that it is normal.
#include "DrivenAddOn.h"
#include "lca/RecordEncodings.h"
#include "support/TestFolder.h"

#include <cstdio>
#include <map>

namespace {

using namespace ResourceIds;
using lca::PropertyKey;
using Snapshot = std::map<std::string, std::string>;
namespace Settings = ProjectSettingsItems;
namespace Materials = BuildingMaterialsItems;

std::string Describe(const host::Variant& value) {
    return std::to_string(value.integer) + "|" + std::to_string(value.real) + "|" + std::to_string(value.boolean) +
           "|" + value.text + "|" + host::WriteGuid(value.guid);
}

/// A project with settings, values, placed reports and a favourite; the add-on loaded, its palette open.
class Stage : public test::DrivenAddOn {
public:
    Stage() {
        SetUp();
        SetDefault(
            PropertyKey::FloorSettings,
            host::Variant::OfText("FLOORAREA_M=80;FLOORAREA_E=111;REFERENCE_FLOORAREA_M=70;SOLAR_PANELS_M=2000"));
        SetDefault(PropertyKey::GWPStandards, host::Variant::OfText("Code=5"));
        StoreGWP(test::Concrete, "100");
        StoreGWP(test::Timber, "A1-A3=3;C3=1");
        Reopen();
        TogglePalette();
        palette = Palette()->id;
        host.userInput.pointAnswer = [](const std::string&) { return std::optional(host::Point{1, 2}); };
        EXPECT_TRUE(host.dialogManager.Press(palette, PaletteItems::PlaceButton));
        host.userInput.fileAnswer = [this](const auto&) { return std::optional(folder / "report.xlsx"); };
        host.pictures.temporaryFolder = folder.GetPath();
        host.pictures.painter = [](const std::string& file, int, int, double, const auto&) {
            std::ofstream(file, std::ios::binary) << "\xFF\xD8\xFF";
            return true;
        };
        host.dialogManager.alertAnswer = [](const host::Alert&) { return std::int16_t{2}; };
        host.dialogManager.shownAlerts.clear();
        report.clear();
    }
    void TestBody() override {}

    /// As InDialog, where the host may not open the dialog.
    void Use(std::int16_t menu, const std::function<void()>& work) {
        host.dialogManager.modalUser = [&](host::DialogId opened) {
            dialog = opened;
            work();
        };
        EXPECT_EQ(host.registration.ChooseMenu(menu, 1), host::NoError);
        host.dialogManager.modalUser = nullptr;
    }
    void UseSettings(const char* serviceLife) {
        Use(Menus::ProjectSettings, [&] {
            shownFloorArea = Item(Settings::GrossFloorAreaEdit).text;
            Type(Settings::ServiceLifeEdit, serviceLife);
            Press(Settings::OkButton);
        });
    }
    void UseMaterials() {
        Use(Menus::BuildingMaterials, [&] {
            const std::vector<std::string> names = Column(Materials::MaterialList, 2);
            for (std::size_t i = 0; i < names.size(); ++i)
                if (names[i] == "Timber") Select(Materials::MaterialList, {static_cast<std::int32_t>(i + 1)});
            Type(Materials::ServiceLifeEdit, "33");
            Press(Materials::OkButton);
        });
    }
    void PlaceMaterialReport() {
        Use(Menus::MaterialReport, [&] { Press(MaterialReportItems::PlaceButton); });
    }
    void PressInPalette(std::int16_t item) { EXPECT_TRUE(host.dialogManager.Press(palette, item)); }
    void EditInPalette() {
        host.dialogManager.SelectRows(palette, PaletteItems::Table, {4});
        host.dialogManager.TypeIntoCell(palette, PaletteItems::Table, 3, "40");
    }

    /// Every stored setting and value by what it belongs to. Report objects are not among them: they show a result, and
    /// say by their date whether it is whole.
    Snapshot TakeSnapshot() {
        Snapshot values;
        for (const host::PropertyDefinition& definition : Model().GetDefinitions())
            if (definition.options.empty()) values["default of " + definition.name] = Describe(definition.defaultValue);
        for (const host::BuildingMaterial& material : Model().GetBuildingMaterials())
            if (const auto* own = Model().FindMaterialValues(material.index))
                for (const auto& [definition, value] : *own)
                    values[material.name + " " + Model().FindDefinition(definition)->name] = Describe(value);
        return values;
    }

    host::DialogId palette;
    std::string shownFloorArea; ///< by the settings when they were opened last
    support::TestFolder folder;
    using DrivenAddOn::host;
    using DrivenAddOn::PaletteItem;
    using DrivenAddOn::Reopen;
    using DrivenAddOn::report;
};

struct Action {
    const char* name;
    std::function<void(Stage&)> run;
};

const Action Actions[] = {
    {"open a project", [](Stage& stage) { stage.Reopen(); }},
    {"open a new project", [](Stage& stage) { stage.host.OpenProject(test::MakeBuilding(), host::ProjectEvent::New); }},
    {"Settings",
     [](Stage& stage) {
         stage.shownFloorArea = "80";
         stage.UseSettings("60");
         EXPECT_EQ(stage.shownFloorArea, "80") << "a failed reading must not empty what was known";
     }},
    {"Building materials", [](Stage& stage) { stage.UseMaterials(); }},
    {"Update results", [](Stage& stage) { stage.PressInPalette(PaletteItems::UpdateButton); }},
    {"Place", [](Stage& stage) { stage.PressInPalette(PaletteItems::PlaceButton); }},
    {"Material CO2 report", [](Stage& stage) { stage.PlaceMaterialReport(); }},
    {"edit in the palette", [](Stage& stage) { stage.EditInPalette(); }},
    {"Generate LCA report", [](Stage& stage) { stage.PressInPalette(PaletteItems::ReportButton); }},
    {"Show palette",
     [](Stage& stage) {
         stage.host.dialogManager.RequestClose(stage.palette);
         EXPECT_EQ(stage.host.registration.ChooseMenu(Menus::Palette, 1), 0);
     }},
};

/// Failures that say nothing, because they are normal: by operation, or by action and operation.
const std::map<std::string, std::string> Normal = {
    {"Building materials: Attributes.ReadBuildingMaterial", "an index without a material is left out"},
    {"UserInput.PickPoint", "the user cancels"},
    {"UserInput.PickSaveFile", "the user cancels"},
};

const std::string* FindNormal(const Action& action, const std::string& operation) {
    for (const std::string& key : {std::string(action.name) + ": " + operation, operation})
        if (const auto found = Normal.find(key); found != Normal.end()) return &found->second;
    return nullptr;
}

/// Without one of these a run's sums are not whole, and the time stamp says so.
bool IsOfTheRun(const std::string& operation) {
    return operation == "Model.ListElements" || operation == "Model.ReadElementHeader" ||
           operation == "Model.ReadElementComponents" || operation == "Properties.ReadElementValues" ||
           operation == "Properties.ReadMaterialValues";
}

/// What an action that nothing refuses asks of the host and leaves in the model, a later change of the settings
/// included.
struct Whole {
    std::vector<std::string> operations;
    Snapshot before, after;
};

Whole RunWhole(const Action& action) {
    Whole whole;
    Stage stage;
    whole.before = stage.TakeSnapshot();
    stage.host.refusals.rule = [&](const std::string& operation, const host::Guid&) {
        whole.operations.push_back(operation);
        return host::NoError;
    };
    action.run(stage);
    stage.host.refusals.rule = nullptr;
    EXPECT_EQ(stage.report, std::vector<std::string>()) << action.name;
    stage.UseSettings("61");
    whole.after = stage.TakeSnapshot();
    return whole;
}

/// Every value is the one from before or the one that the user wanted.
void ExpectNothingLost(const Whole& whole, const Snapshot& values) {
    for (const auto& [what, value] : values) {
        const auto was = whole.before.find(what);
        const auto wanted = whole.after.find(what);
        EXPECT_TRUE((was != whole.before.end() && was->second == value) ||
                    (wanted != whole.after.end() && wanted->second == value))
            << what << " is " << value;
    }
}

/// Runs the action with its n-th operation refused; answers what was said of it.
std::string RunRefused(const Action& action, const Whole& whole, std::size_t n) {
    const std::string& operation = whole.operations[n];
    SCOPED_TRACE(std::string(action.name) + ", operation " + std::to_string(n) + " " + operation);
    Stage stage;
    std::size_t next = 0;
    stage.host.refusals.rule = [&](const std::string&, const host::Guid&) {
        return next++ == n ? host::Errors::General : host::NoError;
    };
    action.run(stage);
    stage.host.refusals.rule = nullptr;
    std::vector<std::string> said = stage.report;
    for (const host::Alert& alert : stage.host.dialogManager.shownAlerts)
        if (alert.type != host::AlertType::Information) said.push_back("alert: " + alert.largeText);
    if (std::string(action.name) == "Show palette" && IsOfTheRun(operation)) {
        EXPECT_NE(stage.PaletteItem(PaletteItems::LastUpdateTime).text.find(" (incomplete)"), std::string::npos);
    }
    // What the user does next stores nothing that the failure has spoiled.
    stage.UseSettings("61");
    ExpectNothingLost(whole, stage.TakeSnapshot());
    const std::string* normal = FindNormal(action, operation);
    EXPECT_EQ(said.size(), normal == nullptr ? 1U : 0U) << testing::PrintToString(said);
    return normal != nullptr ? "normal: " + *normal : said.empty() ? "nothing" : said.front();
}

TEST(RefusalSweep, NothingIsLostAndNothingIsSilent) {
    for (const Action& action : Actions) {
        const Whole whole = RunWhole(action);
        EXPECT_FALSE(whole.operations.empty()) << action.name;
        std::map<std::string, std::string> outcomes; // by operation
        for (std::size_t n = 0; n < whole.operations.size(); ++n)
            outcomes[whole.operations[n]] = RunRefused(action, whole, n);
        for (const auto& [operation, outcome] : outcomes)
            std::printf("%s | %s | %s\n", action.name, operation.c_str(), outcome.c_str());
    }
}

} // namespace
