// Modal dialog of the project-wide LCA settings: service life, floor and energy quantities, used phases and standards.
// Edits a copy of the project record, which the record takes over only after acceptance.
#pragma once

#include "src/StandardsList.h"

#include "General/DialogBase.h"
#include "General/ResizeAnchoring.h"
#include "General/TeamworkControl.h"
#include "lca/LCAProjectData.h"

class KelvarnixSettingsDialog : public General::CDialogBase {
public:
    explicit KelvarnixSettingsDialog(host::Host& host);

    enum class Answer { Cancelled, Accepted };
    /// Shows the dialog; the record takes over the edited copy when it was accepted. Nothing is stored in the model.
    Answer Run(lca::LCAProjectData& record);
    /// Shows the present reservation; while the dialog is open.
    void RefreshTeamwork() { teamwork.Refresh(GetDialog()); }

protected:
    std::int16_t HandleItemEvent(host::DialogMessage message, std::int16_t item,
                                 const host::DialogMessageData& data) override;

private:
    void Initialise();
    void PlaceTeamworkGroup();
    std::int16_t HandleClick(std::int16_t item, const host::DialogMessageData& data);
    void HandleChange(std::int16_t item);
    void Resize();

    void RefreshQuantityEdits();
    void TakeChoice(lca::FloorQuantity quantity);
    void TakeSolarPanelsChoice();
    void TakeMaxSolarChoice();
    void TakeEnteredQuantity(lca::FloorQuantity quantity);
    /// The box's flag, and the record's field under it.
    void TakeFlag(lca::FloorQuantity quantity);
    void ClearBox(lca::FloorQuantity quantity);

    void LayOutPhaseColumns();
    void FillPhases();
    void TogglePhase(const host::DialogMessageData& click);

    General::ResizeAnchoring anchoring;
    General::TeamworkControl teamwork;
    StandardsList standards;
    lca::LCAProjectData workingCopy;
};
