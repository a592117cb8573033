// What worksheets and chartsheets have in common.
#pragma once

#include "xlsx/Drawing.h"

#include <string>
#include <utility>

namespace Xlsx {

class CSheet {
public:
    CSheet(const CSheet&) = delete;
    CSheet& operator=(const CSheet&) = delete;

    /// Shared by both kinds of sheets, in creation order, from 1; also the number in the part's name.
    [[nodiscard]] unsigned GetId() const { return id; }
    [[nodiscard]] const std::string& GetTitle() const { return title; }
    [[nodiscard]] CDrawing& GetDrawing() { return drawing; }
    [[nodiscard]] const CDrawing& GetDrawing() const { return drawing; }
    /// "sheet1.xml".
    [[nodiscard]] std::string GetFileName() const { return "sheet" + std::to_string(id) + ".xml"; }

protected:
    CSheet(unsigned id, std::string title, CDrawing& drawing) : id(id), title(std::move(title)), drawing(drawing) {}
    ~CSheet() = default;

private:
    unsigned id;
    std::string title;
    CDrawing& drawing;
};

} // namespace Xlsx
