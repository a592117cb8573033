// The four callbacks of the add-on's life, for whoever brings a host: the module's exports, or a build that the host's
// own library loads. Exports nothing itself, and stays free of what commands and events do, which is the dispatch's.
#pragma once

#include "host/Entry.h"

namespace Entry {

/// Before the first callback; the host outlives the add-on.
void SetHost(host::Host* host);
/// Null before that.
host::Host* GetHost();

host::AddOnType CheckEnvironment(host::Environment& environment);
/// The bitwise OR of all registrations' codes.
host::ErrorCode RegisterInterface();
/// Builds the module-wide object and installs the handlers; a former object is freed first. The OR of the codes of the
/// project events and of the two commands.
host::ErrorCode Initialise();
/// Closes and unregisters what is open and destroys the module-wide object; where the host frees while a call into the
/// add-on still waits, in a dialog for instance, as soon as that call ends. Always success.
host::ErrorCode FreeData();

} // namespace Entry
