#include "src/PaletteEditors.h"

#include "src/PaletteTable.h"
#include "src/TeamworkRights.h"

#include "General/UInterface.h"
#include "resources/ResourceIds.h"

namespace {

using namespace ResourceIds;
using lca::ElementCategory;

constexpr std::int16_t ServiceLifeColumn = 3, PercentageColumn = 5, GwpColumn = 6, GwpPerAreaPerYearColumn = 8;

bool IsPercentage(const lca::LCAProjectData& record, ElementCategory category) {
    return lca::ValueOr(record.contributionEnabled, category, false);
}

} // namespace

void PaletteEditors::Refresh(host::DialogId dialog, const lca::LCAProjectData& record) {
    palette = dialog;
    const std::optional<ElementCategory> category = FindSelected();
    const bool isPercentage = category && IsPercentage(record, *category);
    const bool hasMode = category && lca::GetRow(*category).isShare;
    if (category) {
        host::ItemValues& values = host.GetItemValues();
        const double fixedGWP = lca::ValueOr(record.contributionGWP, *category, 0.0);
        const std::optional<double> areaYears = record.GetAreaYears();
        values.SetInteger(palette, PaletteItems::ServiceLifeEdit, lca::ValueOr(record.elementLives, *category, 0));
        values.SetReal(palette, PaletteItems::PercentageEdit, lca::ValueOr(record.contributionShare, *category, 0.0));
        values.SetReal(palette, PaletteItems::FixedGwpEdit, fixedGWP);
        values.SetReal(palette, PaletteItems::GwpPerAreaPerYearEdit, areaYears ? fixedGWP / *areaYears : 0.0);
    }
    Bind(ServiceLifeColumn, PaletteItems::ServiceLifeEdit,
         category && lca::GetRow(*category).hasServiceLife && (!hasMode || isPercentage));
    Bind(PercentageColumn, PaletteItems::PercentageEdit, hasMode && isPercentage);
    Bind(GwpColumn, PaletteItems::FixedGwpEdit, hasMode && !isPercentage);
    Bind(GwpPerAreaPerYearColumn, PaletteItems::GwpPerAreaPerYearEdit, hasMode && !isPercentage);
    General::FitListEditors(host, palette, PaletteItems::Table);
    EnableForSelection(record);
}

void PaletteEditors::EnableForSelection(const lca::LCAProjectData& record) {
    const bool isAllowed = CanChangeProperties(host);
    const std::optional<ElementCategory> category = FindSelected();
    const bool isPercentage = category && IsPercentage(record, *category);
    host::DialogItems& items = host.GetDialogItems();
    items.Enable(palette, PaletteItems::ServiceLifeEdit, isAllowed);
    items.Enable(palette, PaletteItems::PercentageEdit, isAllowed && isPercentage);
    items.Enable(palette, PaletteItems::FixedGwpEdit, isAllowed && !isPercentage);
    items.Enable(palette, PaletteItems::GwpPerAreaPerYearEdit, isAllowed && !isPercentage && record.GetAreaYears());
}

std::optional<PaletteEditors::RecordChange> PaletteEditors::ReadEdit(std::int16_t editor) const {
    const std::optional<ElementCategory> selected = FindSelected();
    if (!selected) return std::nullopt;
    const ElementCategory category = *selected;
    host::ItemValues& values = host.GetItemValues();
    if (editor == PaletteItems::ServiceLifeEdit) {
        const std::int32_t life = values.ReadInteger(palette, editor);
        return [=](lca::LCAProjectData& record) { record.elementLives[category] = life; };
    }
    const double value = values.ReadReal(palette, editor);
    switch (editor) {
    case PaletteItems::PercentageEdit:
        return [=](lca::LCAProjectData& record) { record.contributionShare[category] = value; };
    case PaletteItems::FixedGwpEdit:
        return [=](lca::LCAProjectData& record) { record.contributionGWP[category] = value; };
    case PaletteItems::GwpPerAreaPerYearEdit:
        return [=](lca::LCAProjectData& record) {
            // Where another member took the area away meanwhile the value has no meaning.
            if (const std::optional<double> areaYears = record.GetAreaYears())
                record.contributionGWP[category] = value * *areaYears;
        };
    default:
        return std::nullopt;
    }
}

void PaletteEditors::ShowCounterpart(std::int16_t editor, const lca::Results& results) const {
    const std::optional<ElementCategory> category = FindSelected();
    if (!category) return;
    const lca::CategoryResult& row = results.Get(*category);
    host::ItemValues& values = host.GetItemValues();
    if (editor == PaletteItems::FixedGwpEdit)
        values.SetReal(palette, PaletteItems::GwpPerAreaPerYearEdit, row.gwpPerAreaPerYear.value_or(0.0));
    else if (editor == PaletteItems::GwpPerAreaPerYearEdit)
        values.SetReal(palette, PaletteItems::FixedGwpEdit, row.gwp);
}

std::optional<ElementCategory> PaletteEditors::FindSelected() const {
    return PaletteTable::FindCategory(host.GetListSelection().ReadFirst(palette, PaletteItems::Table));
}

void PaletteEditors::Bind(std::int16_t column, std::int16_t editor, bool isBound) {
    host.GetListLayout().BindEditor(palette, PaletteItems::Table, column, isBound ? editor : std::int16_t{0});
}
