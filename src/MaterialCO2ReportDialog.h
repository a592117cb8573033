// Modal dialog of the embodied carbon by layer and building material: a table with a bar per row, and a choice of the
// element settings with which the report object is placed.
#pragma once

#include "src/MaterialReport.h"

#include "General/AnchoredDialog.h"
#include "lca/ReportBar.h"

class MaterialCO2ReportDialog : public General::AnchoredDialog {
public:
    explicit MaterialCO2ReportDialog(host::Host& host);

    enum class Answer { Cancelled, Place };
    /// Shows the sums; refused, as if cancelled, while the dialog is already open.
    Answer Run(const lca::MaterialSumTable& sums);
    /// Places the report object with the settings chosen in the last run, as the user clicks.
    void PlaceReport(const std::string& date);

protected:
    void OnInitialise() override;
    std::int16_t OnClick(std::int16_t item, const host::DialogMessageData& data) override;
    void OnCell(std::int16_t item, const host::DialogMessageData& cell) override;
    void OnResize() override { LayOutTable(); }
    /// Takes the chosen favourite.
    void OnClose() override;

private:
    void LayOutTable();
    void FillTable();
    void FillFavourites();

    std::vector<MaterialReportRow> rows; ///< the last is the total, which stands below a separator
    lca::BarScale barScale;              ///< over all rows but the total
    std::string favourite;               ///< empty for the default settings
};
