#include "General/UInterface.h"

#include "General/HostReport.h"
#include "host/Resources.h"
#include "resources/ResourceIds.h"

#include <algorithm>
#include <cmath>

namespace General {

namespace {

constexpr std::int16_t UnitPopupItem = ResourceIds::BuildingMaterialsItems::UnitTypePopup;
constexpr std::int16_t ReportListItem = ResourceIds::MaterialReportItems::Table;
constexpr std::int16_t EditorMargin = 2;

} // namespace

bool SelectPopupByText(host::Host& host, host::DialogId dialog, const std::string& text) {
    const std::vector<std::string> texts = host.GetItemValues().ListPopUpTexts(dialog, UnitPopupItem);
    const auto found = std::find(texts.begin(), texts.end(), text);
    if (found == texts.end()) return false;
    host.GetItemValues().SelectPopUpEntry(dialog, UnitPopupItem, static_cast<std::int16_t>(found - texts.begin() + 1));
    return true;
}

void SetListColumn(host::Host& host, host::DialogId dialog, std::int16_t list, std::int16_t column,
                   const host::ListColumn& place, const std::string& headerText, std::int16_t minimumHeaderWidth) {
    const auto width = static_cast<std::int16_t>(place.end - place.begin);
    host.GetListLayout().SetHeader(dialog, list, column, {headerText, width, minimumHeaderWidth});
    host.GetListLayout().SetColumn(dialog, list, column, place);
}

void FitListEditors(host::Host& host, host::DialogId dialog, std::int16_t list) {
    host::ListLayout& layout = host.GetListLayout();
    const host::Size space = layout.ReadCellSpace(dialog, list);
    for (std::int16_t column = 1; column <= layout.CountColumns(dialog, list); ++column) {
        const std::int16_t editor = layout.ReadBoundEditor(dialog, list, column);
        if (editor == 0) continue;
        const host::ListColumn place = layout.ReadColumn(dialog, list, column);
        const int width = std::min(place.end, space.width) - place.begin;
        host::Rectangle rectangle = host.GetDialogItems().ReadRectangle(dialog, editor);
        rectangle.width = static_cast<std::int16_t>(std::max(width - EditorMargin, 0));
        rectangle.height = static_cast<std::int16_t>(std::max(space.height - EditorMargin, 0));
        host.GetDialogItems().SetRectangle(dialog, editor, rectangle);
    }
}

void LayoutListColumnsFromRight(host::Host& host, host::DialogId dialog) {
    host::ListLayout& layout = host.GetListLayout();
    std::int16_t end = layout.ReadCellSpace(dialog, ReportListItem).width;
    for (std::int16_t column = layout.CountColumns(dialog, ReportListItem); column >= 1; --column) {
        const host::ListHeader header = layout.ReadHeader(dialog, ReportListItem, column);
        const bool usesMinimum = !header.resizable || header.width < header.minimumWidth;
        host::ListColumn place = layout.ReadColumn(dialog, ReportListItem, column);
        place.end = end;
        place.begin = static_cast<std::int16_t>(end - (usesMinimum ? header.minimumWidth : header.width));
        layout.SetColumn(dialog, ReportListItem, column, place);
        end = place.begin;
    }
}

bool IsUsableNumber(host::Host& host, double value) {
    const bool isFinite = std::isfinite(value);
    if (!isFinite) ReportFailure(&host, "typed value", "it is too large to be a number, the former one stays");
    return isFinite;
}

std::int16_t ShowAlert(host::Host& host, host::AlertType type, std::int16_t title, std::int16_t message,
                       const std::array<std::int16_t, 3>& buttons) {
    host::Resources& resources = host.GetResources();
    host::Alert alert{type,
                      resources.ReadString(ResourceIds::Report::List, title),
                      resources.ReadString(ResourceIds::Report::List, message),
                      {},
                      {}};
    std::vector<std::int16_t> places = {0}; // of the buttons that the alert has, among those asked for
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (buttons[i] == NoButton) continue;
        alert.buttons.push_back(resources.ReadString(ResourceIds::Report::List, buttons[i]));
        places.push_back(static_cast<std::int16_t>(i + 1));
    }
    const auto pressed = static_cast<std::size_t>(host.GetAlerts().Show(alert));
    return pressed < places.size() ? places[pressed] : std::int16_t{0};
}

} // namespace General
