// Numbers of the resources by name: string lists and their entries, dialogs and their items, icons, the module id.
// Code reads by these names; the texts and rectangles themselves stand in the resource source only.
#pragma once

#include "resources/DialogIds.h"
#include "resources/TextIds.h"

namespace ResourceIds {

inline constexpr short ModuleIdResource = 32500;

namespace Icons {
inline constexpr short ReservedByOther = 32690;
inline constexpr short FreeForReservation = 32691;
inline constexpr short Editable = 32692;
inline constexpr short SettingsReservedByOther = 32693;
inline constexpr short SettingsFreeForReservation = 32694;
inline constexpr short SettingsEditable = 32695;
inline constexpr short UpdateResults = 32696;
} // namespace Icons

} // namespace ResourceIds
