// The palette's charts as they are drawn, and the result report object that carries table and charts on drawings.
#include "support/TestFolder.h"
#include "workbench/model/ReportLibrary.h"

#include "DrivenAddOn.h"

#include <cstdlib>
#include <filesystem>

namespace {

using namespace ResourceIds;
using namespace ResourceIds::PaletteItems;
using lca::PropertyKey;
using Kind = workbench::DrawingCall::Kind;
using Texts = std::vector<std::string>;

constexpr host::Colour Blue{0, 0, 255}, Grey{192, 192, 192}, White{255, 255, 255};

class ResultReportTest : public test::DrivenAddOn {
protected:
    void SetUp() override {
        DrivenAddOn::SetUp();
        SetDoorGWP(500); // x 2: 1000; inventory 5 % x 2: 50, installations 10 % x 2: 100, construction 10 %: 50
        SetDefault(PropertyKey::ReferenceFloorArea, host::Variant::OfReal(100));
        SetDefault(PropertyKey::GWPStandards, host::Variant::OfText("Low=0.1;Same=0.24;High=0.48"));
        Reopen();
        TogglePalette();
        dialog = Palette()->id;
    }
    const std::vector<workbench::DrawingCall>& Drawing(std::int16_t item) { return Item(item).drawing; }
    /// The texts or colours of the calls of a kind.
    Texts DrawnTexts(std::int16_t item, Kind kind) {
        Texts texts;
        for (const workbench::DrawingCall& call : Drawing(item))
            if (call.kind == kind) texts.push_back(call.text);
        return texts;
    }
    const host::ObjectParameter& Parameter(const workbench::PlacedObject& object, const std::string& name) {
        for (const host::ObjectParameter& parameter : object.parameters)
            if (parameter.name == name) return parameter;
        throw std::runtime_error(name);
    }
    const workbench::PlacedObject& Placed(std::size_t i = 0) { return Model().GetPlacedObjects().at(i); }
};

Texts Split(const host::ObjectParameter& parameter) {
    Texts texts(1);
    for (const char16_t unit : parameter.textArray)
        if (unit == 0)
            texts.emplace_back();
        else
            texts.back() += static_cast<char>(unit);
    texts.pop_back();
    return texts;
}

TEST_F(ResultReportTest, ThePieShowsTheSharesInTheCategoriesColours) {
    const std::vector<workbench::DrawingCall>& calls = Drawing(PieChart);
    ASSERT_EQ(calls.size(), 1U + 14U);
    EXPECT_EQ(calls[0].kind, Kind::FillRectangle);
    EXPECT_EQ(calls[0].colour, White);
    EXPECT_EQ((std::array{calls[0].right, calls[0].bottom}), (std::array{350.0, 230.0}));
    // 1000, 50, 100 and 50 of 1200
    EXPECT_EQ(DrawnTexts(PieChart, Kind::Text), (Texts{"0%", "0%", "83%", "0%", "4%", "8%", "4%"}));
    EXPECT_EQ(calls[5].kind, Kind::Sector); // doors
    EXPECT_EQ(calls[5].colour, (host::Colour{127, 127, 127}));
    EXPECT_NEAR(calls[5].sweep, (1000.0 / 1200 * 2 + 0.01) * 3.14159265358979, 1e-9);
    EXPECT_EQ(calls[5].right - calls[5].left, 2 * 92);
}

TEST_F(ResultReportTest, TheBarsCompareTheActualImpact) {
    // 1200 / 100 m2 / 50 a = 0.24: equal to a threshold, and in front of it
    EXPECT_EQ(DrawnTexts(BarChart, Kind::SlantedText), (Texts{"High", "Actual impact", "Same", "Low"}));
    EXPECT_EQ(DrawnTexts(BarChart, Kind::Text), (Texts{"0.48", "0.24", "0.24", "0.10"}));
    std::vector<host::Colour> colours;
    std::vector<double> heights;
    for (const workbench::DrawingCall& call : Drawing(BarChart))
        if (call.kind == Kind::FillRectangle) {
            colours.push_back(call.colour);
            heights.push_back(call.bottom - call.top);
        }
    EXPECT_EQ(colours, (std::vector{White, Grey, Blue, Grey, Grey}));
    EXPECT_NEAR(heights.at(2), 38, 1e-9); // half of 230 / 3, whole pixels
    host.dialogManager.Resize(dialog, {1000, 700});
    EXPECT_EQ(Drawing(BarChart)[0].right, 520 + 75);
    EXPECT_EQ(Drawing(PieChart)[0].bottom, 230 + 150);
}

TEST_F(ResultReportTest, NothingIsDrawnOverTheBackgroundWithoutValues) {
    SetDoorGWP(0);
    SetDefault(PropertyKey::GWPStandards, host::Variant::OfText(""));
    Press(UpdateButton);
    EXPECT_EQ(Drawing(PieChart).size(), 1U);
    EXPECT_EQ(Drawing(BarChart).size(), 1U); // no standard to compare with
    host.userInput.pointAnswer = [](const std::string&) { return std::optional(host::Point{}); };
    ASSERT_TRUE(Press(PlaceButton));
    EXPECT_EQ(Parameter(Placed(), "arr_pie_values").rows, 0);
    EXPECT_EQ(Split(Parameter(Placed(), "arr_bar_texts")), Texts{"Actual impact"});
}

TEST_F(ResultReportTest, PlacesTheReportAndKeepsItUpToDate) {
    std::string prompt;
    host.userInput.pointAnswer = [&](const std::string& text) {
        prompt = text;
        return std::optional(host::Point{3, 4});
    };
    ASSERT_TRUE(Press(PlaceButton));
    EXPECT_EQ(prompt, "Click to place the Main Palette GDL Object.");
    EXPECT_EQ(LastStep(), "Place Main Palette Object");
    ASSERT_EQ(Model().GetPlacedObjects().size(), 1U);
    EXPECT_EQ(Placed().libraryPart, workbench::ResultReportPart);
    EXPECT_EQ(Placed().position.y, 4);
    EXPECT_EQ(Split(Parameter(Placed(), "arr_palette_names")), (Texts{"LCA Elements", "GWP", "Threshold"}));
    const host::ObjectParameter& table = Parameter(Placed(), "arr_table_text");
    EXPECT_EQ(table.rows, 10);
    EXPECT_EQ(table.columns, 7);
    const Texts cells = Split(table);
    ASSERT_EQ(cells.size(), 70U);
    EXPECT_EQ(cells[0], "Col.");
    EXPECT_EQ(Texts(cells.begin() + 28, cells.begin() + 35),
              (Texts{"", "Doors", "25.00", "-", "1000.00", "10.00", "0.20"}));
    EXPECT_EQ(cells[64], "TOTAL");
    const host::ObjectParameter& colours = Parameter(Placed(), "arr_type_color");
    EXPECT_EQ(colours.rows, 7);
    EXPECT_EQ(colours.realArray[6], 127);
    EXPECT_EQ(Parameter(Placed(), "arr_pie_colors").realArray.back(), 21);
    EXPECT_NEAR(Parameter(Placed(), "arr_pie_values").realArray[2], 1000 / 12.0, 1e-9);
    EXPECT_EQ(Split(Parameter(Placed(), "arr_bar_texts")), (Texts{"High", "Actual impact", "Same", "Low"}));
    EXPECT_NEAR(Parameter(Placed(), "arr_bar_values").realArray[1], 0.24, 1e-12);
    ASSERT_TRUE(Press(PlaceButton));
    workbench::PlacedObject kept = Placed(1);
    kept.parameters.back().real = 0; // not to be updated
    ASSERT_FALSE(host.commands.Call("keep", [&] {
        host.GetProject()->Record({Placed(1), kept});
        return host::NoError;
    }));
    SetDoorGWP(1000);
    const std::size_t steps = CountSteps();
    Press(UpdateButton);
    EXPECT_EQ(LastStep(), "Update all Result Report object");
    EXPECT_EQ(CountSteps(), steps + 1);
    EXPECT_EQ(Split(Parameter(Placed(0), "arr_table_text"))[32], "2000.00");
    EXPECT_EQ(Split(Parameter(Placed(0), "arr_bar_texts"))[0], "Actual impact"); // drawn before the objects are filled
    EXPECT_NEAR(Parameter(Placed(0), "arr_bar_values").realArray[0], 0.48, 1e-12);
    EXPECT_EQ(Split(Parameter(Placed(1), "arr_table_text"))[32], "1000.00");
}

TEST_F(ResultReportTest, ColumnsAreThePartsAndAMissingPartIsTold) {
    workbench::LibraryPart& part = Model().libraryParts.at(1);
    part.parameters.at(1).columns = 1; // arr_table_text
    part.parameters.erase(part.parameters.begin() + 3);
    host.userInput.pointAnswer = [](const std::string&) { return std::optional(host::Point{}); };
    ASSERT_TRUE(Press(PlaceButton));
    EXPECT_EQ(Parameter(Placed(), "arr_table_text").rows, 70);
    EXPECT_EQ(Parameter(Placed(), "arr_bar_values").rows, 4);
    Model().libraryParts.pop_back();
    ASSERT_TRUE(Press(PlaceButton));
    EXPECT_EQ(Model().GetPlacedObjects().size(), 1U);
    ASSERT_EQ(host.dialogManager.shownAlerts.size(), 1U);
    EXPECT_EQ(
        host.dialogManager.shownAlerts[0].largeText,
        "Error! Unable to place the LCA Result Report GDL Object.\nThe \"LCA Result Report.gsm\" file is missing in "
        "the loaded libraries. Please add this file to the Libraries.");
    Press(UpdateButton); // nothing matches, nobody is told
    EXPECT_EQ(host.dialogManager.shownAlerts.size(), 1U);
    EXPECT_EQ(report, Texts());
}

class SpreadsheetTest : public ResultReportTest {
protected:
    /// Answers the save dialog, and lends a painter that writes a picture's beginning.
    void SaveAs(const std::string& path) {
        host.userInput.fileAnswer = [this, path](const host::SaveFileQuestion& question) {
            asked = question;
            return path.empty() ? std::nullopt : std::optional(path);
        };
        host.pictures.temporaryFolder = folder.Path();
        host.pictures.painter = [this](const std::string& file, int width, int height, double scale, const auto& draw) {
            workbench::RecordedContext context;
            draw(context);
            pictures.push_back(file.substr(file.rfind('/') + 1) + " " + std::to_string(width) + "x" +
                               std::to_string(height) + " x" + std::to_string(static_cast<int>(scale)) + " " +
                               std::to_string(context.calls.size()));
            std::ofstream(file, std::ios::binary) << "\xFF\xD8\xFF";
            return true;
        };
        host.dialogManager.alertAnswer = [](const host::Alert&) { return std::int16_t{2}; }; // nothing is opened
        host.dialogManager.shownAlerts.clear();
        ASSERT_TRUE(Press(ReportButton));
    }
    /// The one alert: title, text and buttons.
    std::string Told() {
        std::string told;
        for (const host::Alert& alert : host.dialogManager.shownAlerts) {
            told += alert.title + "|" + alert.largeText;
            for (const std::string& button : alert.buttons)
                told += "|" + button;
        }
        return told;
    }

    /// A part of a report as another program unpacks it.
    std::string PartOf(const std::string& file, const std::string& part) {
        const std::string unpacked = folder / "part";
        const std::string command = "unzip -p '" + file + "' '" + part + "' >'" + unpacked + "'";
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
        return support::ContentOf(unpacked);
    }

    support::TestFolder folder;
    host::SaveFileQuestion asked;
    Texts pictures;
};

TEST_F(SpreadsheetTest, AsksWritesAndTells) {
    const std::string file = folder / "Größe 1.xlsx";
    host.GetProject()->name = "Haus & Hof";
    SaveAs(file);
    EXPECT_EQ(asked.title + "|" + asked.proposedName + "|" + asked.typeManager + "|" + asked.extension,
              "LCA Design report|LCA report.xlsx|MyManager|xlsx");
    EXPECT_EQ(Told(), "LCA Design report|Saved!|Open Now|Close");
    EXPECT_EQ(support::ContentOf(file).substr(0, 2), "PK");
    EXPECT_EQ(pictures, (Texts{"LCAPieChart.jpg 350x230 x2 15", "LCABarChart.jpg 520x230 x2 13"}));
    EXPECT_EQ(report, Texts());
    const std::string pages = PartOf(file, "xl/worksheets/sheet1.xml");
    EXPECT_NE(pages.find("&amp;20Haus &amp;&amp; Hof&amp;R&amp;20Last update from Archicad: " +
                         PaletteItem(LastUpdateTime).text + "</oddHeader>"),
              std::string::npos)
        << pages.substr(pages.size() - std::min<std::size_t>(pages.size(), 400));
}

/// Pictures, headings and legend follow what there is to draw, not what the palette looks like.
TEST_F(SpreadsheetTest, ChartsOfAnyPaletteAndOfNothing) {
    const auto headings = [&](const std::string& name) {
        SaveAs(folder / name);
        const std::string texts = PartOf(folder / name, "xl/sharedStrings.xml");
        Texts found;
        for (const char* text : {"GWP", "Threshold"})
            if (texts.find(std::string(">") + text + "<") != std::string::npos) found.push_back(text);
        // Each category's name stands in the table, too; its colour only in the legend.
        if (PartOf(folder / name, "xl/styles.xml").find("FF7F7F7F") != std::string::npos) found.push_back("legend");
        EXPECT_NE(support::ContentOf(folder / name).find("xl/media/LCAPieChart.jpg"), std::string::npos);
        EXPECT_NE(support::ContentOf(folder / name).find("xl/media/LCABarChart.jpg"), std::string::npos);
        return found;
    };
    host.dialogManager.Resize(dialog, {200, 200}); // the smallest palette
    EXPECT_EQ(headings("whole.xlsx"), (Texts{"GWP", "Threshold", "legend"}));
    EXPECT_EQ(pictures, (Texts{"LCAPieChart.jpg 350x230 x2 15", "LCABarChart.jpg 520x230 x2 13"}));
    SetDefault(PropertyKey::GWPStandards, host::Variant::OfText(""));
    Press(UpdateButton);
    EXPECT_EQ(headings("without standards.xlsx"), (Texts{"GWP", "legend"}));
    SetDefault(PropertyKey::GWPStandards, host::Variant::OfText("Low=0.1"));
    SetDoorGWP(0);
    Press(UpdateButton);
    EXPECT_EQ(headings("without total.xlsx"), Texts{"Threshold"});
}

TEST_F(SpreadsheetTest, WritesTheFileBehindALink) {
    std::filesystem::create_directory(folder / "shelf");
    std::filesystem::create_symlink("shelf/second.xlsx", folder / "first.xlsx");
    std::filesystem::create_symlink("last.xlsx", folder / "shelf/second.xlsx");
    for (int i = 0; i < 2; ++i) { // into nothing, and over a file
        SaveAs(folder / "first.xlsx");
        EXPECT_EQ(Told(), "LCA Design report|Saved!|Open Now|Close");
        EXPECT_TRUE(std::filesystem::is_symlink(folder / "first.xlsx"));
        EXPECT_TRUE(std::filesystem::is_symlink(folder / "shelf/second.xlsx"));
        EXPECT_EQ(support::ContentOf(folder / "shelf/last.xlsx").substr(0, 2), "PK");
        folder.Write("shelf/last.xlsx", "old");
    }
}

TEST_F(SpreadsheetTest, SaysWhatWentWrong) {
    SaveAs("");
    EXPECT_EQ(Told(), "");
    EXPECT_TRUE(pictures.empty());
    for (const char* name : {".xlsx", "a.xls", "12345"}) {
        SaveAs(folder / name);
        const bool isShort = std::string(name).size() <= 5;
        EXPECT_EQ(Told(), isShort ? "Warning|The file could not be saved. \nPlease enter the file name.|OK"
                                  : "LCA Design report|Saved!|Open Now|Close");
        EXPECT_EQ(support::ContentOf(folder / name) == "(none)", isShort) << name;
    }
    SaveAs(folder / "none/report.xlsx");
    EXPECT_EQ(Told(), "LCA Design report|The Save faild!|OK");
}

TEST_F(SpreadsheetTest, IsWrittenWithoutPicturesThatCannotBeDrawn) {
    SaveAs(folder / "with.xlsx");
    host.pictures.painter = nullptr;
    host.userInput.fileAnswer = [&](const auto&) { return std::optional(folder / "without.xlsx"); };
    ASSERT_TRUE(Press(ReportButton));
    EXPECT_EQ(host.dialogManager.shownAlerts.back().largeText, "Saved!");
    EXPECT_NE(support::ContentOf(folder / "with.xlsx").find("xl/media/"), std::string::npos);
    EXPECT_EQ(support::ContentOf(folder / "without.xlsx").find("xl/media"), std::string::npos);
    ASSERT_EQ(report.size(), 2U);
    EXPECT_NE(report[0].find(folder / "LCAPieChart.jpg"), std::string::npos) << report[0];
}

/// A file that can be opened and not read, one that is no picture, none at all.
TEST_F(SpreadsheetTest, IsWrittenWithoutPicturesThatCannotBeRead) {
    for (const char* content : {"/proc/self/mem", "\xFF\xD8", "GIF89a", ""}) {
        SaveAs(folder / "with.xlsx");
        report.clear();
        host.pictures.painter = [&](const std::string& file, auto&&...) {
            std::filesystem::remove(file);
            if (*content == '/')
                std::filesystem::create_symlink(content, file);
            else
                std::ofstream(file, std::ios::binary) << content;
            return true;
        };
        ASSERT_TRUE(Press(ReportButton));
        EXPECT_EQ(host.dialogManager.shownAlerts.back().largeText, "Saved!") << content;
        EXPECT_EQ(support::ContentOf(folder / "with.xlsx").find("xl/media"), std::string::npos);
        EXPECT_EQ(report, Texts{"writing the report: a chart's picture cannot be read; it is left out"});
        for (const char* picture : {"LCAPieChart.jpg", "LCABarChart.jpg"})
            std::filesystem::remove(folder / picture);
    }
}

TEST_F(SpreadsheetTest, TenThousandLayersFit) {
    constexpr int Layers = 10000;
    for (int i = 0; i < Layers; ++i)
        test::AddElement(Model(), 1000 + i, host::ElementType::Wall, Model().AddLayer("Layer " + std::to_string(i)),
                         {{test::Concrete, 1, 1}});
    Press(UpdateButton);
    SaveAs(folder / "many.xlsx");
    EXPECT_EQ(Told(), "LCA Design report|Saved!|Open Now|Close");
    EXPECT_GT(support::ContentOf(folder / "many.xlsx").size(), 100000U);
}

/// A host that paints later or never: what the objects carry does not wait for it.
TEST_F(ResultReportTest, ObjectsAreFilledWithoutAnyPainting) {
    host.userInput.pointAnswer = [](const std::string&) { return std::optional(host::Point{}); };
    ASSERT_TRUE(Press(PlaceButton));
    host.openDialogs.isPainting = false;
    SetDoorGWP(1000);
    Press(UpdateButton);
    EXPECT_EQ(Parameter(Placed(), "arr_pie_values").realArray.size(), 7U);
    EXPECT_NEAR(Parameter(Placed(), "arr_bar_values").realArray[0], 0.48, 1e-12);
    EXPECT_EQ(Split(Parameter(Placed(), "arr_bar_texts")), (Texts{"Actual impact", "High", "Same", "Low"}));
}

TEST_F(ResultReportTest, AnObjectThatRefusesDoesNotHoldBackTheOthers) {
    host.userInput.pointAnswer = [](const std::string&) { return std::optional(host::Point{}); };
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(Press(PlaceButton));
    SetDoorGWP(1000);
    const host::Guid locked = Placed(0).guid;
    host.refusals.rule = [&](const std::string& operation, const host::Guid& subject) {
        return operation == "PlacedObjects.WriteParameters" && subject == locked ? host::Errors::LockedLayer
                                                                                 : host::NoError;
    };
    const std::size_t steps = CountSteps();
    Press(UpdateButton);
    EXPECT_EQ(CountSteps(), steps + 1);
    for (const workbench::PlacedObject& object : Model().GetPlacedObjects())
        EXPECT_EQ(Split(Parameter(object, "arr_table_text"))[32], object.guid == locked ? "1000.00" : "2000.00");
    ASSERT_EQ(report.size(), 1U);
    EXPECT_NE(report[0].find("objects or databases that were left as they were: 1"), std::string::npos) << report[0];
}

} // namespace
