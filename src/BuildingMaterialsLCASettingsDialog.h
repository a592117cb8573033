// Modal dialog of the building materials' life-cycle data. Works on its own copy of the project record.
#pragma once

#include "General/DialogBase.h"
#include "lca/LCAProjectData.h"

class BuildingMaterialsLCASettingsDialog : public General::CDialogBase {
public:
    explicit BuildingMaterialsLCASettingsDialog(host::Host& host);

    lca::LCAProjectData workingCopy;

protected:
    std::int16_t HandleItemEvent(host::DialogMessage message, std::int16_t item,
                                 const host::DialogMessageData& data) override;
};
