// The module-wide object: owns every window, the project record and the material sums for the whole run.
#pragma once

#include "src/BuildingMaterialsLCASettingsDialog.h"
#include "src/KelvarnixSettingsDialog.h"
#include "src/MainPalette.h"
#include "src/MaterialCO2ReportDialog.h"

#include "lca/LCAProjectData.h"
#include "lca/MaterialSumTable.h"

#include <memory>

class AddOnContext {
public:
    /// Builds the members in their order; when one throws, those already built are destroyed and the exception passes
    /// on.
    explicit AddOnContext(host::Host& host)
        : mainPalette(host), buildingMaterialsDialog(host), settingsDialog(host), materialReportDialog(host) {
        mainPalette.SetOwner(*this);
    }

    /// Closes what is open and gives the palette back to the host.
    void ReleaseWindows() {
        mainPalette.Release();
        buildingMaterialsDialog.Release();
        settingsDialog.Release();
        materialReportDialog.Release();
    }

    MainPalette mainPalette;
    BuildingMaterialsLCASettingsDialog buildingMaterialsDialog;
    KelvarnixSettingsDialog settingsDialog;
    MaterialCO2ReportDialog materialReportDialog;
    lca::LCAProjectData projectData;     ///< the current project's settings
    lca::MaterialSumTable materialSums;  ///< by layer and building material, filled by the GWP calculation
    std::string lastCalculationText;     ///< when that was; empty until the first one
    std::unique_ptr<AddOnContext> older; ///< of a freed object: one that was freed before it
};
