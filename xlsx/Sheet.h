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
    [[nodiscard]] unsigned Id() const { return id; }
    [[nodiscard]] const std::string& Title() const { return title; }
    [[nodiscard]] CDrawing& Drawing() { return drawing; }
    [[nodiscard]] const CDrawing& Drawing() const { return drawing; }
    /// "sheet1.xml".
    [[nodiscard]] std::string FileName() const { return "sheet" + std::to_string(id) + ".xml"; }

protected:
    CSheet(unsigned id, std::string title, CDrawing& drawing) : id(id), title(std::move(title)), drawing(drawing) {}
    ~CSheet() = default;

private:
    unsigned id;
    std::string title;
    CDrawing& drawing;
};

} // namespace Xlsx
