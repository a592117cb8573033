// What is placed on one sheet: charts and pictures, each with its anchor.
#pragma once

#include "xlsx/Anchor.h"
#include "xlsx/Chart.h"
#include "xlsx/Media.h"

#include <string>
#include <vector>

namespace Xlsx {

/// One sheet's drawing, created with the sheet. Nothing is written of one that is empty.
class CDrawing {
public:
    /// number  in creation order, from 1
    explicit CDrawing(unsigned number) : number(number) {}

    /// chart  outlives the drawing
    void PlaceChart(const CChart& chart, const Anchor& anchor) { objects.push_back({anchor, &chart, {}}); }
    /// mediaName  of the file under "/xl/media/"
    void PlacePicture(const std::string& mediaName, const Anchor& anchor) {
        objects.push_back({anchor, nullptr, mediaName});
    }

    [[nodiscard]] bool IsEmpty() const { return objects.empty(); }
    /// "/xl/drawings/drawing1.xml".
    [[nodiscard]] std::string GetPath() const;
    /// As a sheet refers to it.
    [[nodiscard]] std::string GetTarget() const;

    /// The part and its relationships; nothing, and true, when it is empty.
    [[nodiscard]] bool Write(Package& package) const;

private:
    struct Placed {
        Anchor anchor;
        const CChart* chart; // null: a picture
        std::string mediaName;
    };
    [[nodiscard]] std::string GetFileName() const;
    void WriteObjects(XmlWriter& xml) const;

    unsigned number;
    std::vector<Placed> objects;
};

} // namespace Xlsx
