#include "src/BuildingMaterialsLCASettingsDialog.h"

#include "src/MaterialSwatch.h"
#include "src/Texts.h"

#include "General/UInterface.h"
#include "host/Commands.h"

#include <algorithm>

namespace {

using namespace ResourceIds;
using namespace ResourceIds::BuildingMaterialsItems;

constexpr std::int16_t SwatchColumn = 1, NameColumn = 2, IdColumn = 3;
constexpr std::int16_t PhaseColumn = 1, ValueColumn = 2;
constexpr std::int16_t MinimumHeaderWidth = 20;
constexpr char NoValue[] = "-";

constexpr General::AnchorFactors Corner{1, 1, 0, 0}, Bottom{0, 1, 0, 0}, Right{1, 0, 0, 0};

constexpr General::ItemAnchor Anchors[] = {
    {OkButton, Corner},          {CancelButton, Corner},          {TeamworkButton, Corner},
    {TeamworkSeparator, Corner}, {TeamworkIcon, Bottom},          {TeamworkStatusText, Bottom},
    {TeamworkLabel, Bottom},     {BottomSeparator, {0, 1, 1, 0}}, {MiddleSeparator, {1, 0, 0, 1}},
    {PhaseList, {1, 0, 0, 1}},   {MaterialList, {0, 0, 1, 1}},    {FilterEdit, {0, 0, 1, 0}},
    {ClearFilterButton, Right},  {EditableCountText, Right},      {PhasesLabel, Right},
    {ServiceLifeLabel, Right},   {ServiceLifeEdit, Right},        {ServiceLifeUnit, Right},
    {UnitTypeLabel, Right},      {UnitTypePopup, Right},
};

host::ListColumn Column(int begin, int end) {
    return {static_cast<std::int16_t>(begin), static_cast<std::int16_t>(end), host::TextAlignment::Left,
            host::Truncation::AtEnd};
}

} // namespace

BuildingMaterialsLCASettingsDialog::BuildingMaterialsLCASettingsDialog(host::Host& host)
    : ReservedDialog(host, BuildingMaterialsDialog, "{E5880DFD-3C2D-46B4-B5BD-2BE2EF126327}", Anchors,
                     host::BuildingMaterialsSet, {TeamworkIcon, TeamworkStatusText, TeamworkButton}),
      records(host) {}

BuildingMaterialsLCASettingsDialog::Answer BuildingMaterialsLCASettingsDialog::Run(lca::LCAProjectData& record) {
    if (IsOpen()) return Answer::Cancelled;
    workingCopy = record;
    projectRecord = &record;
    const std::int16_t closedBy = RunModal();
    projectRecord = nullptr;
    return closedBy == OkButton ? Answer::Accepted : Answer::Cancelled;
}

host::ErrorCode BuildingMaterialsLCASettingsDialog::ApplyResults() {
    return GetHost().GetUndoableCommands().Call({}, [&] { return records.StoreEdits(); });
}

void BuildingMaterialsLCASettingsDialog::OnInitialise() {
    records.Load();
    host::ListLayout& layout = GetHost().GetListLayout();
    layout.SetColumnCount(GetDialog(), MaterialList, IdColumn);
    layout.SetOwnerDrawn(GetDialog(), MaterialList, SwatchColumn, true);
    FillMaterials();
    SetUpPhaseColumns();
    FillPhases(Fill::Rows);
    ShowTeamwork({TeamworkButton, TeamworkIcon, TeamworkStatusText, TeamworkLabel, TeamworkSeparator});
    GetHost().GetDialogItems().Show(GetDialog(), PhaseValueEdit, false);
}

/// The user's own edits stay.
void BuildingMaterialsLCASettingsDialog::OnReserved() {
    records.Reread();
    FillPhases(Fill::Texts);
    BindValueEditor();
}

std::int16_t BuildingMaterialsLCASettingsDialog::OnClick(std::int16_t item, const host::DialogMessageData& data) {
    if (item == ClearFilterButton) {
        GetHost().GetDialogItems().SetText(GetDialog(), FilterEdit, {});
        RefillMaterials();
    }
    return ReservedDialog::OnClick(item, data);
}

void BuildingMaterialsLCASettingsDialog::OnChange(std::int16_t item) {
    switch (item) {
    case FilterEdit:
        RefillMaterials();
        break;
    case MaterialList:
        TakeMaterialSelection();
        break;
    case PhaseList:
        BindValueEditor();
        break;
    case PhaseValueEdit:
    case ServiceLifeEdit:
    case UnitTypePopup:
        ApplyEdit(item);
        break;
    default:
        break;
    }
}

void BuildingMaterialsLCASettingsDialog::LayOutMaterialColumns() {
    const int width = GetHost().GetListLayout().ReadCellSpace(GetDialog(), MaterialList).width;
    const auto set = [&](std::int16_t column, const host::ListColumn& place, const std::string& header) {
        General::SetListColumn(GetHost(), GetDialog(), MaterialList, column, place, header, MinimumHeaderWidth);
    };
    set(SwatchColumn, Column(5, 55), {});
    set(NameColumn, Column(56, width - 80), ReadText(GetHost(), BuildingMaterials::NameHeader));
    set(IdColumn, Column(width - 79, width), ReadText(GetHost(), BuildingMaterials::IdHeader));
}

void BuildingMaterialsLCASettingsDialog::SetUpPhaseColumns() {
    host::ListLayout& layout = GetHost().GetListLayout();
    layout.SetColumnCount(GetDialog(), PhaseList, ValueColumn);
    const int width = layout.ReadCellSpace(GetDialog(), PhaseList).width;
    General::SetListColumn(GetHost(), GetDialog(), PhaseList, PhaseColumn, Column(0, width - 260),
                           ReadText(GetHost(), BuildingMaterials::PhaseHeader), MinimumHeaderWidth);
    General::SetListColumn(GetHost(), GetDialog(), PhaseList, ValueColumn, Column(width - 261, width),
                           ReadText(GetHost(), BuildingMaterials::ValueHeader), MinimumHeaderWidth);
}

void BuildingMaterialsLCASettingsDialog::FillMaterials() {
    LayOutMaterialColumns();
    host::DialogItems& items = GetHost().GetDialogItems();
    for (const std::int16_t item : {PhaseList, ServiceLifeEdit, UnitTypePopup})
        items.Enable(GetDialog(), item, false);
    items.SetText(GetDialog(), EditableCountText, ReadText(GetHost(), BuildingMaterials::EditableCount));
    host::Resources& resources = GetHost().GetResources();
    const std::string filter = resources.ToLowerCase(items.ReadText(GetDialog(), FilterEdit));
    host::ListRows& rows = GetHost().GetListRows();
    GetHost().GetDialogItems().EnableDrawing(GetDialog(), MaterialList, false);
    rows.DeleteAll(GetDialog(), MaterialList);
    for (std::size_t i = 0; i < records.GetCount(); ++i) {
        const host::BuildingMaterial& material = records.GetMaterial(i);
        if (!filter.empty() && resources.ToLowerCase(material.name).find(filter) == std::string::npos) continue;
        const std::int32_t row = rows.Insert(GetDialog(), MaterialList, 0);
        rows.SetUserData(GetDialog(), MaterialList, row, static_cast<std::int32_t>(i));
        GetHost().GetListCells().SetText(GetDialog(), MaterialList, row, NameColumn, material.name);
        GetHost().GetListCells().SetText(GetDialog(), MaterialList, row, IdColumn, material.id);
    }
    GetHost().GetDialogItems().EnableDrawing(GetDialog(), MaterialList, true);
}

void BuildingMaterialsLCASettingsDialog::RefillMaterials() {
    FillMaterials();
    FillPhases(Fill::Texts);
    BindValueEditor();
}

void BuildingMaterialsLCASettingsDialog::OnCell(std::int16_t item, const host::DialogMessageData& cell) {
    if (item != MaterialList || cell.column != SwatchColumn) return;
    if (const std::optional<std::size_t> position = FindPosition(cell.row))
        DrawMaterialSwatch(GetHost(), records.GetMaterial(*position), cell);
}

void BuildingMaterialsLCASettingsDialog::FillPhases(Fill fill) {
    if (projectRecord == nullptr) return;
    std::sort(projectRecord->usedPhases.begin(), projectRecord->usedPhases.end());
    workingCopy.usedPhases = projectRecord->usedPhases;
    host::ListRows& rows = GetHost().GetListRows();
    host::ListCells& cells = GetHost().GetListCells();
    const std::int32_t selectedPhase = GetHost().GetListSelection().ReadFirst(GetDialog(), PhaseList);
    const std::optional<std::size_t> selected = FindFirstSelected();
    GetHost().GetDialogItems().EnableDrawing(GetDialog(), PhaseList, false);
    if (fill == Fill::Rows) rows.DeleteAll(GetDialog(), PhaseList);
    std::int32_t row = 0;
    for (const std::string& phase : workingCopy.usedPhases) {
        ++row;
        if (fill == Fill::Rows) rows.Insert(GetDialog(), PhaseList, 0);
        cells.SetText(GetDialog(), PhaseList, row, PhaseColumn, phase);
        std::string text = NoValue;
        if (selected) {
            text = FormatNumber(GetHost(), records.Get(*selected, phase, GetFirstUsedPhase()).gwp);
        }
        cells.SetText(GetDialog(), PhaseList, row, ValueColumn, text);
    }
    if (selected) ShowFirstSelected(*selected);
    if (fill == Fill::Rows && selectedPhase > 0)
        GetHost().GetListSelection().Select(GetDialog(), PhaseList, selectedPhase);
    GetHost().GetDialogItems().EnableDrawing(GetDialog(), PhaseList, true);
}

void BuildingMaterialsLCASettingsDialog::ShowFirstSelected(std::size_t position) {
    // Neither depends on the phase, so that they show where the project uses none, too.
    const MaterialPhaseValues values = records.Get(position, {}, GetFirstUsedPhase());
    GetHost().GetItemValues().SetInteger(GetDialog(), ServiceLifeEdit, values.serviceLifeYears);
    General::SelectPopupByText(GetHost(), GetDialog(), values.unit);
}

void BuildingMaterialsLCASettingsDialog::TakeMaterialSelection() {
    const std::size_t count = GetHost().GetListSelection().ListRows(GetDialog(), MaterialList).size();
    host::DialogItems& items = GetHost().GetDialogItems();
    items.SetText(GetDialog(), EditableCountText,
                  ReadText(GetHost(), BuildingMaterials::EditableCount) + std::to_string(count));
    FillPhases(Fill::Texts);
    BindValueEditor();
    for (const std::int16_t item : {PhaseList, ServiceLifeEdit, UnitTypePopup})
        items.Enable(GetDialog(), item, true);
}

void BuildingMaterialsLCASettingsDialog::BindValueEditor() {
    host::ListLayout& layout = GetHost().GetListLayout();
    const std::optional<std::size_t> selected = FindFirstSelected();
    const std::string* phase = FindSelectedPhase();
    if (!selected || phase == nullptr) {
        layout.BindEditor(GetDialog(), PhaseList, ValueColumn, 0);
        return;
    }
    GetHost().GetItemValues().SetReal(GetDialog(), PhaseValueEdit,
                                      records.Get(*selected, *phase, GetFirstUsedPhase()).gwp);
    layout.BindEditor(GetDialog(), PhaseList, ValueColumn, PhaseValueEdit);
    General::FitListEditors(GetHost(), GetDialog(), PhaseList);
}

void BuildingMaterialsLCASettingsDialog::ApplyEdit(std::int16_t item) {
    host::ItemValues& values = GetHost().GetItemValues();
    const std::string* phase = FindSelectedPhase();
    MaterialPhaseChange change;
    if (item == PhaseValueEdit) {
        if (phase == nullptr) return;
        const double gwp = values.ReadReal(GetDialog(), PhaseValueEdit);
        if (!General::IsUsableNumber(GetHost(), gwp)) return BindValueEditor();
        change.gwp = gwp;
    } else if (item == ServiceLifeEdit) {
        change.serviceLifeYears = values.ReadInteger(GetDialog(), ServiceLifeEdit);
    } else {
        const std::vector<std::string> units = values.ListPopUpTexts(GetDialog(), UnitTypePopup);
        const std::int16_t entry = values.ReadPopUpEntry(GetDialog(), UnitTypePopup);
        if (entry < 1 || static_cast<std::size_t>(entry) > units.size()) return;
        change.unit = units[static_cast<std::size_t>(entry - 1)];
    }
    const std::string phaseName = phase == nullptr ? std::string() : *phase;
    for (const std::int32_t row : GetHost().GetListSelection().ListRows(GetDialog(), MaterialList))
        if (const std::optional<std::size_t> position = FindPosition(row))
            records.Set(*position, phaseName, GetFirstUsedPhase(), change);
    FillPhases(Fill::Texts);
}

std::optional<std::size_t> BuildingMaterialsLCASettingsDialog::FindPosition(std::int32_t row) const {
    const std::optional<std::int32_t> data = GetHost().GetListRows().ReadUserData(GetDialog(), MaterialList, row);
    if (!data || *data < 0 || static_cast<std::size_t>(*data) >= records.GetCount()) return std::nullopt;
    return static_cast<std::size_t>(*data);
}

std::optional<std::size_t> BuildingMaterialsLCASettingsDialog::FindFirstSelected() const {
    return FindPosition(GetHost().GetListSelection().ReadFirst(GetDialog(), MaterialList));
}

const std::string* BuildingMaterialsLCASettingsDialog::FindSelectedPhase() const {
    const std::int32_t row = GetHost().GetListSelection().ReadFirst(GetDialog(), PhaseList);
    if (row < 1 || static_cast<std::size_t>(row) > workingCopy.usedPhases.size()) return nullptr;
    return &workingCopy.usedPhases[static_cast<std::size_t>(row - 1)];
}

const std::string& BuildingMaterialsLCASettingsDialog::GetFirstUsedPhase() const {
    static const std::string None;
    return workingCopy.usedPhases.empty() ? None : workingCopy.usedPhases.front();
}
