// Modal dialog of the project-wide LCA settings: service life, floor and energy quantities, used phases and standards.
// Edits a copy of the project record; after acceptance the changes go onto what the model then holds.
#pragma once

#include "src/StandardsList.h"

#include "General/ReservedDialog.h"
#include "lca/RecordChanges.h"

class KelvarnixSettingsDialog : public General::ReservedDialog {
public:
    explicit KelvarnixSettingsDialog(host::Host& host);

    enum class Answer { Cancelled, Accepted };
    /// Shows the dialog for this record, which stays as it is; nothing is stored in the model.
    Answer Run(const lca::LCAProjectData& record);
    /// The record with what the user changed in the accepted dialog, and nothing else.
    lca::LCAProjectData ApplyTo(const lca::LCAProjectData& record) const {
        return lca::ApplyChanges(shown, workingCopy, record);
    }

protected:
    void OnInitialise() override;
    std::int16_t OnClick(std::int16_t item, const host::DialogMessageData& data) override;
    void OnChange(std::int16_t item) override;
    void OnResize() override;
    /// Takes from the model what the user has not changed.
    void OnReserved() override;

private:
    void PlaceTeamworkGroup();
    /// Fills every item but those of Teamwork from the working copy.
    void ShowValues();
    /// The same for a working copy without changes of the user.
    void TakeAsShown();

    void RefreshQuantityEdits();
    void TakeChoice(lca::FloorQuantity quantity);
    void TakeSolarPanelsChoice();
    void TakeMaxSolarChoice();
    void TakeEnteredQuantity(lca::FloorQuantity quantity);
    /// The box's flag, and the record's field under it.
    void TakeFlag(lca::FloorQuantity quantity);

    void LayOutPhaseColumns();
    void FillPhases();
    void TogglePhase(const host::DialogMessageData& click);

    StandardsList standards;
    lca::LCAProjectData shown; ///< the model's state that was shown last, without the user's changes
    lca::LCAProjectData workingCopy;
};
