// Modal dialog of the embodied carbon by layer and building material.
#pragma once

#include "General/DialogBase.h"

class MaterialCO2ReportDialog : public General::CDialogBase {
public:
    explicit MaterialCO2ReportDialog(host::Host& host);

protected:
    std::int16_t HandleItemEvent(host::DialogMessage message, std::int16_t item,
                                 const host::DialogMessageData& data) override;
};
