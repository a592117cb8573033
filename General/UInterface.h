// Small helpers for list boxes, pop-ups and alerts that several windows share. They know nothing of what is shown.
#pragma once

#include "host/Dialogs.h"
#include "host/Host.h"

#include <array>

namespace General {

/// Selects the entry of the dialog's unit pop-up (item 21) with this text; false, and nothing changed, where none has
/// it.
bool SelectPopupByText(host::Host& host, host::DialogId dialog, const std::string& text);

/// Sets place and header of a list column; the header is as wide as the column.
void SetListColumn(host::Host& host, host::DialogId dialog, std::int16_t list, std::int16_t column,
                   const host::ListColumn& place, const std::string& headerText, std::int16_t minimumHeaderWidth);

/// Grows every in-place editor that is bound to a column of the list to the column's width (within the list) and the
/// row's height, each less 2 pixels.
void FitListEditors(host::Host& host, host::DialogId dialog, std::int16_t list);

/// Whether a value that was typed is finite; what is not is told in the host's report, and the field that it was typed
/// into goes back to its old value.
bool IsUsableNumber(host::Host& host, double value);

/// Lays the columns of list item 3 from the last, which ends at the list's width, to the first; each as wide as its
/// header, or as its header's minimum where the header is narrower or cannot be resized.
void LayoutListColumnsFromRight(host::Host& host, host::DialogId dialog);

/// Stands for a button that the alert does not have.
inline constexpr std::int16_t NoButton = -1;

/// Shows an alert whose texts are entries of string list 32557; answers the pressed button's place among `buttons`,
/// counted from 1.
std::int16_t ShowAlert(host::Host& host, host::AlertType type, std::int16_t title, std::int16_t message,
                       const std::array<std::int16_t, 3>& buttons);

} // namespace General
