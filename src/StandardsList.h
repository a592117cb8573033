// The list of LCA standards in the project settings dialog: name and threshold of each, edited in place.
#pragma once

#include "host/Dialogs.h"
#include "host/Host.h"
#include "lca/LCAProjectData.h"

#include <vector>

class StandardsList {
public:
    explicit StandardsList(host::Host& host) : host(host) {}

    /// Shows these standards, which outlive the dialog, and nothing selected.
    void SetUp(host::DialogId dialog, std::vector<lca::Standard>& standards);
    void LayOutColumns();
    /// After the selection changed: the selected standard can be edited in place and removed.
    void TakeSelection();
    /// After an in-place edit.
    void TakeName();
    void TakeValue();
    void Add();
    void RemoveSelected();

private:
    enum class Fill { Rows, Texts };

    void FillRows(Fill fill);
    /// Null while no row is selected.
    lca::Standard* FindSelected();

    host::Host& host;
    host::DialogId dialog;
    std::vector<lca::Standard>* standards = nullptr;
};
