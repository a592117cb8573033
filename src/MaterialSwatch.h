// The two swatches of a building material in a list cell: its cut fill pattern and, to the right, its surface colour.
#pragma once

#include "host/Dialogs.h"
#include "host/Host.h"
#include "host/Model.h"

/// Draws into an owner-drawn cell. What the model does not have is drawn as far as it can be read.
void DrawMaterialSwatch(host::Host& host, const host::BuildingMaterial& material, const host::DialogMessageData& cell);
