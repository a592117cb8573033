// Modal dialog of the project-wide LCA settings. Works on its own copy of the project record.
#pragma once

#include "General/DialogBase.h"
#include "lca/LCAProjectData.h"

class KelvarnixSettingsDialog : public General::CDialogBase {
public:
    explicit KelvarnixSettingsDialog(host::Host& host);

    lca::LCAProjectData workingCopy;

protected:
    std::int16_t HandleItemEvent(host::DialogMessage message, std::int16_t item,
                                 const host::DialogMessageData& data) override;
};
