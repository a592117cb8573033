// Texts of the add-on's resources by name, numbers as the add-on shows them, and alerts made of both.
#pragma once

#include "host/Dialogs.h"
#include "host/Host.h"
#include "host/Resources.h"
#include "resources/ResourceIds.h"

#include <string>

/// Format code of every number that the add-on shows.
inline constexpr std::int16_t NumberFormat = 3;

inline std::string ReadText(host::Host& host, ResourceIds::StringId id) {
    return host.GetResources().ReadString(id.list, id.entry);
}

inline std::string FormatNumber(host::Host& host, double value) {
    return host.GetResources().FormatNumber(value, NumberFormat);
}

/// Shows an alert of one button; a text may stand in any list.
inline void ShowTextAlert(host::Host& host, host::AlertType type, ResourceIds::StringId title,
                          ResourceIds::StringId largeText, const std::string& smallText, ResourceIds::StringId button) {
    host.GetAlerts().Show(
        {type, ReadText(host, title), ReadText(host, largeText), smallText, {ReadText(host, button)}});
}
