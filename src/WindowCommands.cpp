#include "src/WindowCommands.h"

#include "src/AddOnContext.h"
#include "src/LCAProjectDataStore.h"

#include "General/HostReport.h"

void RunBuildingMaterialsSettings(host::Host& host, AddOnContext& context) {
    using Dialog = BuildingMaterialsLCASettingsDialog;
    if (context.buildingMaterialsDialog.Run(context.projectData) != Dialog::Answer::Accepted) return;
    General::ReportHostError(host, "storing the building materials", context.buildingMaterialsDialog.ApplyResults());
    if (context.mainPalette.IsOpen()) context.mainPalette.RebuildTable(MainPalette::Rebuild::TextsOnly);
}

void RunProjectSettings(host::Host& host, AddOnContext& context) {
    // What other members of a Teamwork project have changed becomes visible here.
    General::ReportHostError(host, "loading the project settings", LoadProjectData(host, context.projectData));
    if (context.settingsDialog.Run(context.projectData) != KelvarnixSettingsDialog::Answer::Accepted) return;
    const auto change = [&](lca::LCAProjectData& record) { record = context.settingsDialog.ApplyTo(record); };
    General::ReportHostError(host, "storing the project settings",
                             ChangeProjectData(host, context.projectData, change));
    if (!context.mainPalette.IsOpen()) return;
    context.mainPalette.CollectElementGWP();
    context.mainPalette.RebuildTable(MainPalette::Rebuild::TextsOnly);
}

void RunMaterialReport(AddOnContext& context) {
    if (context.materialReportDialog.Run(context.materialSums) == MaterialCO2ReportDialog::Answer::Place)
        context.materialReportDialog.PlaceReport(context.lastCalculationText);
}
