// The results palette: runs the calculation, keeps its results and shows them in the category table. The arithmetic of
// the table is lca/ResultTable's, the list itself PaletteTable's.
#pragma once

#include "src/Assessment.h"
#include "src/GWPRun.h"
#include "src/PaletteEditors.h"
#include "src/PaletteTable.h"
#include "src/ResultCharts.h"
#include "src/ResultReport.h"

#include "General/AnchoredDialog.h"
#include "resources/ResourceIds.h"

#include <limits>
#include <string>
#include <vector>

class AddOnContext;

class MainPalette : public General::AnchoredDialog {
public:
    explicit MainPalette(host::Host& host);

    /// The object that owns the palette, the record and the material sums; set once before the palette is used.
    void SetOwner(AddOnContext& context) { owner = &context; }

    /// Shows the palette and calculates; the menu item then reads "Hide Palette".
    void Open();
    void Close();

    /// The full recalculation, which also rewrites the placed report objects.
    void UpdateResults();
    /// The part of it that sums the elements; the record is loaded and the material sums are filled, whether the
    /// palette is open or not.
    RunOutcome CollectElementGWP();
    /// Another project is open: the former one's sums are dropped, and an open palette calculates anew.
    void TakeNewProject();

    /// Which rows of the list a rebuild replaces.
    enum class Rebuild { AllRows, TextsOnly };
    /// Recomputes table, totals and charts from the present inputs and base sums, renews the time stamp and fills the
    /// editors.
    void RebuildTable(Rebuild mode);

    /// Moves and fills the in-place editors for the selected row.
    void RefreshEditors();
    /// Placing is not possible while the front window shows the 3D model.
    void OnActiveWindowChanged();
    /// In a Teamwork project, shows on "Settings..." who holds the classifications and properties.
    void UpdateSettingsButtonIcon();

protected:
    void OnInitialise() override;
    std::int16_t OnClick(std::int16_t item, const host::DialogMessageData& data) override;
    void OnDoubleClick(std::int16_t item, const host::DialogMessageData& data) override;
    void OnChange(std::int16_t item) override;
    void OnCell(std::int16_t item, const host::DialogMessageData& cell) override;
    void OnDraw(std::int16_t item, const host::DialogMessageData& data) override;
    void OnResize() override;
    void OnCloseRequest() override { Close(); }
    void OnClose() override;

private:
    void TogglePercentageMode(std::int32_t row);
    void PickCategoryColour(std::int32_t row);
    void TakeEdit(std::int16_t editor);
    /// Answers whether the model has taken it; a refusal is told in the host's report.
    bool SaveChange(const PaletteEditors::RecordChange& change);
    void RebuildRows(Rebuild mode);
    std::string MakeTimeStamp() const;
    void PlaceResultReport();
    std::string ReadLabel(std::int16_t item) const;
    ResultReport BuildResultReport() const;
    void UpdatePlacedReports();
    void SetMenuText(ResourceIds::StringId text);
    void WarnOfServiceLives();

    AddOnContext* owner = nullptr;
    PaletteTable table;
    PaletteEditors editors;
    Assessment assessment; ///< its time is shown after "Last update from Archicad:"
    std::vector<std::string> tableText;
    std::vector<double> typeColors;
    ResultCharts charts;
    std::int16_t settingsIcon = 0; ///< that the button shows; 0 is that of its resource
    /// Of the table, whose paints go from top to bottom; any row begins the first one.
    std::int32_t lastPaintedRow = std::numeric_limits<std::int32_t>::max();
};
