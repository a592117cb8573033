// The add-on's access to items, their values, and lists, on the dialogs' state.
#pragma once

#include "workbench/dialogs/DialogState.h"

namespace workbench {

class DialogItemsRole : public host::DialogItems {
public:
    explicit DialogItemsRole(OpenDialogs& dialogs) : dialogs(dialogs) {}

    host::Rectangle ReadRectangle(host::DialogId dialog, std::int16_t item) override;
    void SetRectangle(host::DialogId dialog, std::int16_t item, const host::Rectangle& rectangle) override;
    std::string ReadText(host::DialogId dialog, std::int16_t item) override;
    void SetText(host::DialogId dialog, std::int16_t item, const std::string& text) override;
    void Show(host::DialogId dialog, std::int16_t item, bool visible) override;
    void Enable(host::DialogId dialog, std::int16_t item, bool enabled) override;
    void SetIcon(host::DialogId dialog, std::int16_t item, std::int16_t icon) override;
    void SetBackground(host::DialogId dialog, std::int16_t item, const host::Colour& colour) override;
    void Redraw(host::DialogId dialog, std::int16_t item) override;
    void EnableDrawing(host::DialogId dialog, std::int16_t item, bool enabled) override;

private:
    OpenDialogs& dialogs;
};

/// An edit's value is its text; numbers are read with decimal point or comma.
class ItemValuesRole : public host::ItemValues {
public:
    explicit ItemValuesRole(OpenDialogs& dialogs) : dialogs(dialogs) {}

    double ReadReal(host::DialogId dialog, std::int16_t item) override;
    void SetReal(host::DialogId dialog, std::int16_t item, double value) override;
    std::int32_t ReadInteger(host::DialogId dialog, std::int16_t item) override;
    void SetInteger(host::DialogId dialog, std::int16_t item, std::int32_t value) override;
    bool IsChecked(host::DialogId dialog, std::int16_t item) override;
    void SetChecked(host::DialogId dialog, std::int16_t item, bool checked) override;
    std::vector<std::string> ListPopUpTexts(host::DialogId dialog, std::int16_t item) override;
    void SetPopUpTexts(host::DialogId dialog, std::int16_t item, const std::vector<std::string>& texts) override;
    std::int16_t ReadPopUpEntry(host::DialogId dialog, std::int16_t item) override;
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

    std::int32_t Insert(host::DialogId dialog, std::int16_t item, std::int32_t row) override;
    std::int32_t InsertSeparator(host::DialogId dialog, std::int16_t item, std::int32_t row) override;
    void Delete(host::DialogId dialog, std::int16_t item, std::int32_t row) override;
    void DeleteAll(host::DialogId dialog, std::int16_t item) override;
    std::optional<std::int32_t> ReadUserData(host::DialogId dialog, std::int16_t item, std::int32_t row) override;
    void SetUserData(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int32_t value) override;
    void SetStatus(host::DialogId dialog, std::int16_t item, std::int32_t row, host::RowStatus status) override;
    void SetStyle(host::DialogId dialog, std::int16_t item, std::int32_t row, host::TextStyle style) override;

private:
    OpenDialogs& dialogs;
};

class ListCellsRole : public host::ListCells {
public:
    explicit ListCellsRole(OpenDialogs& dialogs) : dialogs(dialogs) {}

    std::string ReadText(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column) override;
    void SetText(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                 const std::string& text) override;
    host::StandardIcon ReadIcon(host::DialogId dialog, std::int16_t item, std::int32_t row,
                                std::int16_t column) override;
    void SetIcon(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                 host::StandardIcon icon) override;
    void SetStyle(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                  host::TextStyle style) override;

private:
    OpenDialogs& dialogs;
};

class ListSelectionRole : public host::ListSelection {
public:
    explicit ListSelectionRole(OpenDialogs& dialogs) : dialogs(dialogs) {}

    std::int32_t ReadFirst(host::DialogId dialog, std::int16_t item) override;
    std::vector<std::int32_t> ListRows(host::DialogId dialog, std::int16_t item) override;
    void Select(host::DialogId dialog, std::int16_t item, std::int32_t row) override;

private:
    OpenDialogs& dialogs;
};

} // namespace workbench
