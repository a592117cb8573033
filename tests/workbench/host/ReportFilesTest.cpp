// Files of the spreadsheet report in awkward places, and texts that report objects cannot hold whole.
#include "src/ReportObjects.h"
#include "support/TestFolder.h"

#include "DrivenAddOn.h"

#include <filesystem>

namespace {

using namespace ResourceIds;

class ReportFilesTest : public test::DrivenAddOn {
protected:
    /// Writes the report; its pictures are made by the painter.
    void SaveAs(const std::string& path, const workbench::PicturesRole::Painter& painter) {
        host.userInput.fileAnswer = [=](const auto&) { return std::optional(path); };
        host.pictures.temporaryFolder = folder.GetPath();
        host.pictures.painter = painter;
        host.dialogManager.alertAnswer = [](const host::Alert&) { return std::int16_t{2}; }; // nothing is opened
        if (Palette() == nullptr) TogglePalette();
        ASSERT_TRUE(host.dialogManager.Press(Palette()->id, PaletteItems::ReportButton));
        EXPECT_EQ(host.dialogManager.shownAlerts.back().largeText, "Saved!");
    }

    support::TestFolder folder;
};

TEST_F(ReportFilesTest, TheFileBehindALinkIsWritten) {
    std::filesystem::create_directory(folder / "shelf");
    std::filesystem::create_symlink("shelf/second.xlsx", folder / "first.xlsx");
    std::filesystem::create_symlink("last.xlsx", folder / "shelf/second.xlsx");
    for (int i = 0; i < 2; ++i) { // into nothing, and over a file
        SaveAs(folder / "first.xlsx", nullptr);
        EXPECT_TRUE(std::filesystem::is_symlink(folder / "first.xlsx"));
        EXPECT_TRUE(std::filesystem::is_symlink(folder / "shelf/second.xlsx"));
        EXPECT_EQ(support::ContentOf(folder / "shelf/last.xlsx").substr(0, 2), "PK");
        folder.Write("shelf/last.xlsx", "old");
    }
}

TEST_F(ReportFilesTest, APictureThatCanBeOpenedAndNotReadIsLeftOut) {
    SaveAs(folder / "report.xlsx", [](const std::string& file, auto&&...) {
        std::filesystem::create_symlink("/proc/self/mem", file);
        return true;
    });
    EXPECT_EQ(support::ContentOf(folder / "report.xlsx").find("xl/media"), std::string::npos);
    EXPECT_EQ(report, std::vector<std::string>{"writing the report: a chart's picture cannot be read; it is left out"});
}

TEST(ReportObjects, TakeNoLongerTextThanTheHosts) {
    ObjectParameters parameters(1);
    parameters[0].name = "date";
    parameters[0].kind = host::ParameterKind::Text;
    for (const std::size_t length : {254U, 255U, 256U, 300U}) {
        SetText(parameters, "date", std::string(length, 'x'));
        EXPECT_EQ(parameters[0].text.size(), std::min<std::size_t>(length, 255)) << length;
    }
}

} // namespace
