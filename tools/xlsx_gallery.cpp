// Writes workbooks that together use every feature of the workbook writer, for people and for other readers to judge.
#include "gallery/Gallery.h"
#include "gallery/TinyPictures.h"

#include "platform/Text.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

namespace {

bool WritePicture(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    return static_cast<bool>(file.flush());
}

/// The picture files, removed at the end: the workbooks carry copies.
class PictureFolder {
public:
    explicit PictureFolder(const std::filesystem::path& parent) : path(parent / "pictures") {
        std::filesystem::create_directories(path);
        isComplete = WritePicture(path / "fields.png", gallery::PngPicture()) &&
                     WritePicture(path / "fields.gif", gallery::GifPicture()) &&
                     WritePicture(path / "fields.jpg", gallery::JpegPicture()) &&
                     WritePicture(path / "fields.jpeg", gallery::JpegPicture()) &&
                     WritePicture(path / "fields.tiff", gallery::TiffPicture());
    }
    ~PictureFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    PictureFolder(const PictureFolder&) = delete;
    PictureFolder& operator=(const PictureFolder&) = delete;

    [[nodiscard]] bool IsComplete() const { return isComplete; }
    [[nodiscard]] std::wstring Prefix() const { return (path / "").wstring(); }

private:
    std::filesystem::path path;
    bool isComplete = false;
};

bool WriteWorkbook(const std::filesystem::path& path, const std::function<void(Xlsx::CWorkbook&)>& fill) {
    Xlsx::CWorkbook workbook("Gallery");
    fill(workbook);
    if (workbook.Save(path.wstring())) return true;
    std::fprintf(stderr, "xlsx_gallery: cannot write '%s'\n", path.string().c_str());
    return false;
}

bool WriteAll(const std::filesystem::path& folder) {
    const PictureFolder pictures(folder);
    if (!pictures.IsComplete()) {
        std::fprintf(stderr, "xlsx_gallery: cannot write pictures into '%s'\n", folder.string().c_str());
        return false;
    }
    using Xlsx::CWorkbook;
    const std::wstring prefix = pictures.Prefix();
    return WriteWorkbook(folder / "gallery.xlsx", [&](CWorkbook& book) { gallery::FillGallery(book, prefix); }) &&
           WriteWorkbook(folder / "charts.xlsx", gallery::FillCharts) &&
           WriteWorkbook(folder / "styles.xlsx", gallery::FillStyles) &&
           WriteWorkbook(folder / "comments.xlsx", gallery::FillComments) &&
           WriteWorkbook(folder / "pictures.xlsx", [&](CWorkbook& book) { gallery::FillPictures(book, prefix); }) &&
           WriteWorkbook(folder / "cells.xlsx", gallery::FillCells);
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2 || arguments[1][0] == '-') {
        std::fprintf(stderr,
                     "usage: xlsx_gallery DIR\nWrites gallery, charts, styles, comments, pictures and cells.xlsx "
                     "into the folder.\n");
        return 2;
    }
    try {
        const std::filesystem::path folder = arguments[1];
        std::filesystem::create_directories(folder);
        return WriteAll(folder) ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "xlsx_gallery: %s\n", error.what());
        return 1;
    }
}
