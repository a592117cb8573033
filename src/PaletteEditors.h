// In-place editing in the palette's table: which editors stand over the selected row, what they show, and what a typed
// value changes in the record.
#pragma once

#include "host/Dialogs.h"
#include "host/Host.h"
#include "lca/LCAProjectData.h"
#include "lca/ResultTable.h"

#include <functional>
#include <optional>

class PaletteEditors {
public:
    explicit PaletteEditors(host::Host& host) : host(host) {}

    /// Places and fills the editors of the selected row.
    void Refresh(host::DialogId palette, const lca::LCAProjectData& record);
    /// Enables them as the selected row, the record and the right to change settings want it, and leaves alone what
    /// they show.
    void EnableForSelection(const lca::LCAProjectData& record);
    using RecordChange = std::function<void(lca::LCAProjectData&)>;
    /// What a changed editor's value does to the record; none where no row can be edited with it.
    std::optional<RecordChange> ReadEdit(std::int16_t editor) const;
    /// Of the two editors of a fixed GWP, shows in the other one what the edited one has come to.
    void ShowCounterpart(std::int16_t editor, const lca::Results& results) const;

private:
    std::optional<lca::ElementCategory> FindSelected() const;
    void Bind(std::int16_t column, std::int16_t editor, bool isBound);

    host::Host& host;
    host::DialogId palette;
};
