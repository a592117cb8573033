// Modal dialog of the building materials' life-cycle data: materials on the left, the values of the selected ones by
// life-cycle phase on the right. An edit goes into all selected materials; the model is written only after acceptance.
#pragma once

#include "src/MaterialRecords.h"

#include "General/ReservedDialog.h"
#include "lca/LCAProjectData.h"

class BuildingMaterialsLCASettingsDialog : public General::ReservedDialog {
public:
    explicit BuildingMaterialsLCASettingsDialog(host::Host& host);

    enum class Answer { Cancelled, Accepted };
    /// Shows the dialog for the phases that the record uses, whose list it sorts.
    Answer Run(lca::LCAProjectData& record);
    /// Stores what an accepted run changed, as one undoable command without a name.
    host::ErrorCode ApplyResults();

protected:
    void OnInitialise() override;
    std::int16_t OnClick(std::int16_t item, const host::DialogMessageData& data) override;
    void OnChange(std::int16_t item) override;
    void OnCell(std::int16_t item, const host::DialogMessageData& cell) override;
    void OnResize() override { LayOutMaterialColumns(); }
    void OnReserved() override;

private:
    /// Whether a fill replaces the rows or only rewrites their texts.
    enum class Fill { Rows, Texts };

    void LayOutMaterialColumns();
    void SetUpPhaseColumns();
    void FillMaterials();
    void RefillMaterials();
    void FillPhases(Fill fill);
    void ShowFirstSelected(std::size_t position);
    void TakeMaterialSelection();
    void BindValueEditor();
    void ApplyEdit(std::int16_t item);

    /// Of a row of the material list; none where the row stands for no material.
    std::optional<std::size_t> FindPosition(std::int32_t row) const;
    std::optional<std::size_t> FindFirstSelected() const;
    /// The phase of the selected row of the phase list; null while none is selected.
    const std::string* FindSelectedPhase() const;
    const std::string& GetFirstUsedPhase() const;

    MaterialRecords records;
    lca::LCAProjectData workingCopy;
    lca::LCAProjectData* projectRecord = nullptr; ///< of the running dialog
};
