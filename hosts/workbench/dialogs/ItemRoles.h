// The add-on's access to items, list layouts and list rows, on the dialogs' state.
#pragma once

#include "workbench/dialogs/DialogState.h"

namespace workbench {

class DialogItemsRole : public host::DialogItems {
public:
    explicit DialogItemsRole(OpenDialogs& dialogs) : dialogs(dialogs) {}

    host::Rectangle ReadRectangle(host::DialogId dialog, std::int16_t item) override;
    void SetRectangle(host::DialogId dialog, std::int16_t item, const host::Rectangle& rectangle) override;
    void SetText(host::DialogId dialog, std::int16_t item, const std::string& text) override;
    void Show(host::DialogId dialog, std::int16_t item, bool visible) override;
    void Enable(host::DialogId dialog, std::int16_t item, bool enabled) override;
    void SetIcon(host::DialogId dialog, std::int16_t item, std::int16_t icon) override;
    void SetBackground(host::DialogId dialog, std::int16_t item, const host::Colour& colour) override;
    void Redraw(host::DialogId dialog, std::int16_t item) override;
    std::vector<std::string> ListPopUpTexts(host::DialogId dialog, std::int16_t item) override;
    void SelectPopUpEntry(host::DialogId dialog, std::int16_t item, std::int16_t entry) override;

private:
    OpenDialogs& dialogs;
};

class ListLayoutRole : public host::ListLayout {
public:
    explicit ListLayoutRole(OpenDialogs& dialogs) : dialogs(dialogs) {}

    void SetColumnCount(host::DialogId dialog, std::int16_t item, std::int16_t count) override;
    std::int16_t CountColumns(host::DialogId dialog, std::int16_t item) override;
    void SetColumn(host::DialogId dialog, std::int16_t item, std::int16_t column,
                   const host::ListColumn& properties) override;
    host::ListColumn ReadColumn(host::DialogId dialog, std::int16_t item, std::int16_t column) override;
    void SetHeader(host::DialogId dialog, std::int16_t item, std::int16_t column,
                   const host::ListHeader& header) override;
    host::ListHeader ReadHeader(host::DialogId dialog, std::int16_t item, std::int16_t column) override;
    void SetOwnerDrawn(host::DialogId dialog, std::int16_t item, std::int16_t column, bool ownerDrawn) override;
    host::Size ReadCellSpace(host::DialogId dialog, std::int16_t item) override;
    void BindEditor(host::DialogId dialog, std::int16_t item, std::int16_t column, std::int16_t editor) override;
    std::int16_t ReadBoundEditor(host::DialogId dialog, std::int16_t item, std::int16_t column) override;

private:
    OpenDialogs& dialogs;
};

class ListRowsRole : public host::ListRows {
public:
    explicit ListRowsRole(OpenDialogs& dialogs) : dialogs(dialogs) {}

    std::int32_t Count(host::DialogId dialog, std::int16_t item) override;
    std::int32_t Insert(host::DialogId dialog, std::int16_t item, std::int32_t row) override;
    void DeleteAll(host::DialogId dialog, std::int16_t item) override;
    void SetText(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                 const std::string& text) override;
    void SetIcon(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                 host::StandardIcon icon) override;
    void SetStatus(host::DialogId dialog, std::int16_t item, std::int32_t row, host::RowStatus status) override;
    void SetStyle(host::DialogId dialog, std::int16_t item, std::int32_t row, host::TextStyle style) override;
    std::int32_t ReadSelected(host::DialogId dialog, std::int16_t item) override;
    void Select(host::DialogId dialog, std::int16_t item, std::int32_t row) override;
    void EnableDrawing(host::DialogId dialog, std::int16_t item, bool enabled) override;

private:
    CellState* FindCell(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column);

    OpenDialogs& dialogs;
};

} // namespace workbench
