// Dispatch: what each menu command, project event, reservation change and command of another add-on does. All of it
// acts on the module-wide object, and each handler does nothing while that does not exist.
#pragma once

#include "host/Host.h"
#include "host/Registration.h"

#include <memory>

class AddOnContext;

/// The module-wide object; empty before initialisation and after freeing.
std::unique_ptr<AddOnContext>& GetContext();
/// 1 without action while the module-wide object is missing, else 0.
host::ErrorCode HandleMenuCommand(const host::MenuCommand& command);
host::ErrorCode HandleProjectEvent(host::ProjectEvent event, std::int32_t parameter);
/// Opens the palette. 1 while the module-wide object is missing, else 0.
host::ErrorCode HandlePaletteRequest(const host::Guid& palette);
/// Has the host tell of reservations of the two sets that guard the add-on's data. Sets may be others in each project,
/// so they are looked up again; where the host knows none, there is nothing to be told of.
void WatchReservations(host::Host& host);
/// Always 0.
host::ErrorCode HandleReservationChange(const host::Guid& lockableSet, std::int16_t ownerId);

/// The energy evaluation asks which data it should send.
host::ErrorCode HandleExportSettings(host::ObjectState& settings, bool silent);
/// It sends them. 1 while the module-wide object is missing.
host::ErrorCode HandleExportData(const std::string& document, bool silent);
