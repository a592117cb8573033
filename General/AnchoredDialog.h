// A dialog or palette whose items move and grow with it: takes the host's messages apart into one operation each, and
// resizes by a table. A derived class overrides what it reacts to.
#pragma once

#include "General/DialogBase.h"
#include "General/ResizeAnchoring.h"

namespace General {

/// What happens to a dialog's items when it is resized. The tables outlive the dialog.
struct DialogLayout {
    template <std::size_t Count>
    DialogLayout(const ItemAnchor (&anchors)[Count], host::Size minimumSize = {},
                 std::vector<std::int16_t> drawnItems = {})
        : anchors(anchors), anchorCount(Count), minimumSize(minimumSize), drawnItems(std::move(drawnItems)) {}

    const ItemAnchor* anchors;
    std::size_t anchorCount;
    host::Size minimumSize;               ///< besides what the anchors need
    std::vector<std::int16_t> drawnItems; ///< user items: not drawn while items move, drawn anew afterwards
};

class AnchoredDialog : public CDialogBase {
public:
    AnchoredDialog(host::Host& host, std::int16_t resource, const char* guid, DialogLayout layout)
        : CDialogBase(host, resource, guid), layout(std::move(layout)), anchoring(host) {}

protected:
    /// The items' places when it returns are the ones that they are anchored by.
    virtual void OnInitialise() = 0;
    /// Answers the item that closes a modal dialog, or 0.
    virtual std::int16_t OnClick(std::int16_t item, const host::DialogMessageData& data) = 0;
    virtual void OnDoubleClick(std::int16_t /*item*/, const host::DialogMessageData& /*data*/) {}
    virtual void OnChange(std::int16_t /*item*/) {}
    /// A list cell is to be drawn.
    virtual void OnCell(std::int16_t /*item*/, const host::DialogMessageData& /*cell*/) {}
    /// A user item is to be drawn; data has a context.
    virtual void OnDraw(std::int16_t /*item*/, const host::DialogMessageData& /*data*/) {}
    /// The items have moved.
    virtual void OnResize() {}
    virtual void OnCloseRequest() {}
    /// The items can still be read.
    virtual void OnClose() {}

private:
    std::int16_t HandleItemEvent(host::DialogMessage message, std::int16_t item,
                                 const host::DialogMessageData& data) final;
    void Resize();

    DialogLayout layout;
    ResizeAnchoring anchoring;
};

} // namespace General
