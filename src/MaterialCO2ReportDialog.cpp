#include "src/MaterialCO2ReportDialog.h"

#include "src/Texts.h"

MaterialCO2ReportDialog::MaterialCO2ReportDialog(host::Host& host)
    : CDialogBase(host, ResourceIds::MaterialReportDialog, "{97D8CF2D-F0AA-4F5B-B1AC-865794D0E69F}") {}

std::int16_t MaterialCO2ReportDialog::HandleItemEvent(host::DialogMessage, std::int16_t,
                                                      const host::DialogMessageData&) {
    return 0;
}
