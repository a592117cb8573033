// What a menu command or a button of the palette does with a modal dialog: what is loaded before, and what happens with
// an accepted dialog.
#pragma once

#include "host/Host.h"

class AddOnContext;

void RunBuildingMaterialsSettings(host::Host& host, AddOnContext& context);
void RunProjectSettings(host::Host& host, AddOnContext& context);
/// Of the present material sums.
void RunMaterialReport(AddOnContext& context);
