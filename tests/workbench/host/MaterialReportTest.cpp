// The material report: its table and bars, and the report objects that carry it on drawings.
#include "workbench/dialogs/RecordedContext.h"
#include "workbench/model/ReportLibrary.h"

#include "DrivenAddOn.h"

namespace {

using namespace ResourceIds;
using namespace ResourceIds::MaterialReportItems;
using Texts = std::vector<std::string>;

constexpr std::int16_t Menu = Menus::MaterialReport;

/// The strings of a text array.
Texts Split(const host::ObjectParameter& parameter) {
    Texts texts;
    std::string text;
    for (const char16_t unit : parameter.textArray) {
        if (unit != 0) {
            text += unit < 128 ? static_cast<char>(unit) : '?';
            continue;
        }
        texts.push_back(text);
        text.clear();
    }
    return texts;
}

class MaterialReportTest : public test::DrivenAddOn {
protected:
    void SetUp() override {
        DrivenAddOn::SetUp();
        StoreGWP(test::Concrete, "100"); // 2 m3 outside
        StoreGWP(test::Plaster, "-5");   // 0.1 m3 outside
        StoreGWP(test::Timber, "-50");   // 2 m3 inside
    }
    /// Puts an object of the report on a database, with other texts than the report's.
    host::Guid PutObject(const host::Guid& database, double addOnUpdate,
                         const char* part = workbench::MaterialReportPart) {
        workbench::PlacedObject object;
        object.guid = host::CreateGuid();
        object.database = database;
        object.libraryPart = part;
        object.parameters = Model().libraryParts.front().parameters;
        object.parameters.back().real = addOnUpdate;
        EXPECT_FALSE(host.commands.Call("put", [&] {
            host.GetProject()->Record({{}, object});
            return host::NoError;
        }));
        return object.guid;
    }
    const host::ObjectParameter& Parameter(const host::Guid& object, const std::string& name) {
        static const host::ObjectParameter none;
        for (const workbench::PlacedObject& one : Model().GetPlacedObjects())
            for (const host::ObjectParameter& parameter : one.parameters)
                if (one.guid == object && parameter.name == name) return parameter;
        return none;
    }
    void Place(std::int16_t favourite = 1) {
        InDialog(Menu, [&] {
            EXPECT_TRUE(host.dialogManager.Choose(dialog, FavoritePopup, favourite));
            EXPECT_TRUE(Press(PlaceButton));
        });
    }
};

TEST_F(MaterialReportTest, ListsLayersWithTheirMaterialsAndTheTotal) {
    InDialog(Menu, [&] {
        EXPECT_EQ(Column(Table, 1), (Texts{"Outside", "", "", "Inside", "", "", "Total: "}));
        EXPECT_EQ(Column(Table, 2), (Texts{"", "Concrete", "Plaster", "", "Timber", "", ""}));
        EXPECT_EQ(Column(Table, 3), (Texts{"199.500", "200.000", "-0.500", "-100.000", "-100.000", "", "99.500"}));
        std::vector<host::TextStyle> styles;
        for (const workbench::RowState& row : Item(Table).list.rows)
            if (!row.isSeparator) styles.push_back(row.cells[2].style);
        constexpr auto Bold = host::TextStyle::Bold, Plain = host::TextStyle::Plain;
        EXPECT_EQ(styles, (std::vector{Bold, Plain, Plain, Bold, Plain, Bold}));
        EXPECT_TRUE(Item(Table).list.rows[5].isSeparator);
        EXPECT_EQ(Item(Table).list.rows[6].cells[0].style, Bold);
        EXPECT_EQ(host.listLayout.ReadHeader(dialog, Table, 3).text, "GWP (kg CO2-eq)");
        EXPECT_EQ(host.listLayout.ReadColumn(dialog, Table, 3).alignment, host::TextAlignment::Right);
        const int width = host.listLayout.ReadCellSpace(dialog, Table).width;
        EXPECT_EQ(host.listLayout.ReadColumn(dialog, Table, 4).end, width);
        host.dialogManager.Resize(dialog, {700, 730});
        EXPECT_EQ(Item(Table).rectangle, (host::Rectangle{10, 10, 680, 680}));
        EXPECT_EQ(Item(PlaceButton).rectangle, (host::Rectangle{520, 700, 80, 22}));
        EXPECT_EQ(host.listLayout.ReadColumn(dialog, Table, 4).end, width + 100);
        EXPECT_TRUE(Press(CloseButton));
    });
    EXPECT_TRUE(Model().GetPlacedObjects().empty());
}

TEST_F(MaterialReportTest, DrawsBarsOnACommonScale) {
    InDialog(Menu, [&] {
        const host::ListColumn place = host.listLayout.ReadColumn(dialog, Table, 4);
        const double w = place.end - place.begin; // 160: 6 + 100 / 300 x 156 = 58 is the zero line
        ASSERT_EQ(w, 160);
        const auto draw = [&](std::int32_t row) {
            workbench::RecordedContext context;
            host.dialogManager.DrawCell(dialog, Table, row, 4, context);
            return context.calls;
        };
        const auto layer = draw(1); // 199.5 of 300, 150 pixels long: 99.75
        ASSERT_EQ(layer.size(), 2U);
        EXPECT_NEAR(layer[0].left, 58, 1e-9);
        EXPECT_NEAR(layer[0].right, 58 + 99.75, 1e-9);
        EXPECT_EQ(layer[0].top, 2);
        EXPECT_EQ(layer[0].bottom, 18);
        EXPECT_EQ(layer[0].colour, (host::Colour{115, 115, 115}));
        EXPECT_NEAR(layer[1].right - layer[1].left, 1, 1e-9); // the zero line
        EXPECT_EQ(layer[1].bottom, 20);
        const auto largest = draw(2); // 100 pixels, shortened by 10
        EXPECT_NEAR(largest[0].right, 58 + 90, 1e-9);
        EXPECT_EQ(largest[0].colour, (host::Colour{209, 209, 209}));
        const auto negative = draw(5); // -100: 50 pixels to the left
        EXPECT_NEAR(negative[0].left, 8, 1e-9);
        EXPECT_NEAR(negative[0].right, 58, 1e-9);
        EXPECT_TRUE(draw(6).empty()); // the separator
        EXPECT_TRUE(draw(7).empty()); // the total
    });
}

TEST_F(MaterialReportTest, PlacesWithTheDefaultsOrAFavourite) {
    workbench::FavouriteRow favourite{"Wide", true, workbench::MaterialReportPart,          0.5,
                                      2,      3,    Model().libraryParts.front().parameters};
    favourite.parameters.back().real = 0;
    favourite.libraryPart.replace(40, 8, "00000000"); // another revision is offered too
    Model().favourites = {
        {"Door", false, "", 0, 1, 1, {}}, {"Result", true, workbench::ResultReportPart, 0, 1, 1, {}}, favourite};
    favourite.name = "Of this revision";
    favourite.libraryPart = workbench::MaterialReportPart;
    Model().favourites.push_back(favourite);
    std::string prompt;
    host.userInput.pointAnswer = [&](const std::string& text) {
        prompt = text;
        return std::optional(host::Point{12.5, -3});
    };
    InDialog(Menu, [&] {
        EXPECT_EQ(Item(FavoritePopup).popUpTexts,
                  (Texts{"Default Element Settings", "Favorite: Wide", "Favorite: Of this revision"}));
    });
    const std::size_t steps = CountSteps();
    Place();
    EXPECT_EQ(prompt, "Click to place the CO2 Material report.");
    EXPECT_EQ(LastStep(), "Place CO2 Material report");
    EXPECT_EQ(CountSteps(), steps + 1);
    ASSERT_EQ(Model().GetPlacedObjects().size(), 1U);
    const workbench::PlacedObject object = Model().GetPlacedObjects()[0];
    EXPECT_EQ(object.position.x, 12.5);
    EXPECT_EQ(object.position.y, -3);
    EXPECT_EQ(object.libraryPart, workbench::MaterialReportPart);
    EXPECT_EQ(Split(Parameter(object.guid, "column_names")), (Texts{"Layer", "Name", "GWP (kg CO2-eq)"}));
    const host::ObjectParameter& texts = Parameter(object.guid, "arr_texts");
    EXPECT_EQ(texts.rows, 6);
    EXPECT_EQ(texts.columns, 3);
    EXPECT_EQ(Split(texts), (Texts{"Outside", "", "199.500", "", "Concrete", "200.000", "", "Plaster", "-0.500",
                                   "Inside", "", "-100.000", "", "Timber", "-100.000", "Total: ", "", "99.500"}));
    const host::ObjectParameter& numbers = Parameter(object.guid, "barchart_data");
    EXPECT_EQ(numbers.rows, 6);
    EXPECT_EQ(numbers.realArray, (std::vector<double>{199.5, 200, -0.5, -100, -100, 99.5}));
    EXPECT_EQ(Parameter(object.guid, "date").text.substr(0, 2), u"20");
    Place(3);
    ASSERT_EQ(Model().GetPlacedObjects().size(), 2U);
    EXPECT_EQ(object.xRatio, 1);
    const workbench::PlacedObject& settings = Model().GetPlacedObjects()[1]; // which only the host knows
    EXPECT_EQ(settings.xRatio, 2);
    EXPECT_EQ(settings.yRatio, 3);
    EXPECT_EQ(settings.angle, 0.5);
    Place(2);
    EXPECT_EQ(Model().GetPlacedObjects().size(), 3U);
    ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
    EXPECT_EQ(Parameter(Model().GetPlacedObjects()[1].guid, "addon_update").real, 0);
    ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
    ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
    EXPECT_TRUE(Model().GetPlacedObjects().empty());
    InDialog(Menu, [&] { // the favourite goes while the dialog is open: the part's defaults stand in
        host.dialogManager.Choose(dialog, FavoritePopup, 3);
        Model().favourites.clear();
        Press(PlaceButton);
    });
    ASSERT_EQ(Model().GetPlacedObjects().size(), 1U);
    EXPECT_EQ(Model().GetPlacedObjects()[0].xRatio, 1);
    EXPECT_EQ(Parameter(Model().GetPlacedObjects()[0].guid, "arr_texts").rows, 6);
    EXPECT_EQ(report, Texts());
}

TEST_F(MaterialReportTest, PlacesNothingWithoutPointPartOrPlan) {
    const std::size_t steps = CountSteps();
    Place(); // the click is cancelled
    EXPECT_EQ(CountSteps(), steps);
    EXPECT_TRUE(host.dialogManager.shownAlerts.empty());
    host.databases.frontWindow.type = host::DatabaseType::Model3D;
    InDialog(Menu, [&] { EXPECT_FALSE(Press(PlaceButton)); });
    host.databases.frontWindow.type = host::DatabaseType::FloorPlan;
    Model().libraryParts.erase(Model().libraryParts.begin());
    bool isAsked = false;
    host.userInput.pointAnswer = [&](const std::string&) {
        isAsked = true;
        return std::optional(host::Point{});
    };
    Place();
    EXPECT_FALSE(isAsked);
    EXPECT_EQ(CountSteps(), steps);
    ASSERT_EQ(host.dialogManager.shownAlerts.size(), 1U);
    const host::Alert& alert = host.dialogManager.shownAlerts[0];
    EXPECT_EQ(alert.title, "Error - Kelvarnix");
    EXPECT_EQ(alert.largeText, "Error! Unable to place the Material CO2 Report.\nThe \"Kelvarnix Material CO2 "
                               "Report.gsm\" file is missing in the loaded libraries. Please add this file to the "
                               "Libraries.");
    EXPECT_EQ(alert.smallText, " ");
    EXPECT_EQ(alert.buttons, Texts{"OK"});
}

TEST_F(MaterialReportTest, SkipsParametersThatThePartLacks) {
    std::vector<host::ObjectParameter>& parameters = Model().libraryParts[0].parameters;
    parameters.erase(parameters.begin() + 1); // arr_texts
    parameters[1].columns = 4;                // barchart_data keeps its columns: 6 values make one row
    parameters[2].isArray = true;             // date
    host.userInput.pointAnswer = [](const std::string&) { return std::optional(host::Point{}); };
    Place();
    ASSERT_EQ(Model().GetPlacedObjects().size(), 1U);
    const host::Guid object = Model().GetPlacedObjects()[0].guid;
    EXPECT_EQ(Split(Parameter(object, "column_names")).size(), 3U);
    EXPECT_EQ(Parameter(object, "barchart_data").rows, 1);
    EXPECT_EQ(Parameter(object, "barchart_data").realArray, (std::vector<double>{199.5, 200, -0.5, -100}));
    EXPECT_EQ(Parameter(object, "date").text, u"");
}

TEST_F(MaterialReportTest, ACancelledRunLeavesTheFormerDate) {
    host.userInput.pointAnswer = [](const std::string&) { return std::optional(host::Point{}); };
    Place();
    host.refusals.rule = [](const std::string& operation, const host::Guid&) {
        return operation == "ProgressWindow.SetValue" ? host::Errors::Cancelled : host::NoError;
    };
    Place();
    ASSERT_EQ(Model().GetPlacedObjects().size(), 2U);
    const std::u16string date = Parameter(Model().GetPlacedObjects().back().guid, "date").text;
    EXPECT_EQ(date.find(u"incomplete"), std::u16string::npos);
}

TEST_F(MaterialReportTest, UpdateResultsRewritesObjectsInAllDatabases) {
    using host::DatabaseType;
    std::vector<host::Guid> updated = {PutObject({}, 1)};
    std::uint8_t number = 90;
    for (const DatabaseType type :
         {DatabaseType::Worksheet, DatabaseType::Section, DatabaseType::Elevation, DatabaseType::InteriorElevation,
          DatabaseType::Detail, DatabaseType::Layout, DatabaseType::MasterLayout}) {
        Model().databases.push_back({type, test::GuidOf(++number), "D"});
        updated.push_back(PutObject(test::GuidOf(number), 1));
    }
    const host::Guid layout = Model().databases[2].guid;
    const std::vector<host::Guid> left = {PutObject({}, 0), PutObject(layout, 2),
                                          PutObject({}, 1, workbench::ResultReportPart),
                                          PutObject(test::GuidOf(99), 1)}; // in a database that does not exist
    const auto rowsOf = [&](const std::vector<host::Guid>& objects) {
        int rows = 0;
        for (const host::Guid& object : objects)
            rows += Parameter(object, "arr_texts").rows;
        return rows;
    };
    ASSERT_FALSE(host.databases.ChangeCurrentDatabase({DatabaseType::Layout, layout, {}}));
    TogglePalette();
    const std::size_t steps = CountSteps();
    ASSERT_TRUE(host.dialogManager.Press(Palette()->id, PaletteItems::UpdateButton));
    EXPECT_EQ(rowsOf(updated), 8 * 6);
    EXPECT_EQ(rowsOf(left), 4);
    // The object of the other report has got a new date in a step of its own.
    EXPECT_EQ(CountSteps(), steps + 2);
    EXPECT_EQ(LastStep(), "Update all Result Report object");
    EXPECT_EQ(host.databases.GetCurrent().id, layout);
    ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
    EXPECT_EQ(LastStep(), "Update all CO2 Material report object");
    EXPECT_EQ(rowsOf(updated), 8 * 6);
    ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
    EXPECT_EQ(rowsOf(updated), 8);
    EXPECT_EQ(report, Texts());
    // One that cannot be opened or listed keeps back no other.
    for (const std::string refused :
         {"Databases.ChangeCurrentDatabase", "Databases.ListDatabases", "Model.ListElements"}) {
        bool isUpdating = false;
        int asked = 0;
        host.refusals.rule = [&](const std::string& operation, const host::Guid&) {
            isUpdating = isUpdating || operation == "Libraries.FindObject";
            return isUpdating && operation == refused && asked++ == 0 ? host::Errors::General : host::NoError;
        };
        ASSERT_TRUE(host.dialogManager.Press(Palette()->id, PaletteItems::UpdateButton));
        host.refusals.rule = nullptr;
        EXPECT_EQ(rowsOf(updated), 7 * 6 + 1) << refused;
        EXPECT_EQ(report.size(), 1U) << refused;
        report.clear();
        ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
        ASSERT_EQ(host.GetProject()->Undo(), host::NoError);
    }
}

TEST_F(MaterialReportTest, ASecondOpeningIsRefused) {
    TogglePalette();
    int opened = 0;
    host.dialogManager.modalUser = [&](host::DialogId) {
        if (++opened < 3) host.dialogManager.Press(Palette()->id, PaletteItems::MaterialReportButton);
        if (opened < 3) {
            EXPECT_FALSE(host.registration.ChooseMenu(Menu, 1));
        }
    };
    host.dialogManager.Press(Palette()->id, PaletteItems::MaterialReportButton);
    EXPECT_EQ(opened, 1);
    host.dialogManager.Press(Palette()->id, PaletteItems::MaterialReportButton);
    EXPECT_EQ(opened, 2); // and can be opened again after it was closed
}

TEST_F(MaterialReportTest, AnEmptyBuildingHasATotalOnly) {
    host.OpenProject(workbench::CreateProject(), host::ProjectEvent::New);
    InDialog(Menu, [&] {
        EXPECT_EQ(Column(Table, 1), (Texts{"", "Total: "}));
        EXPECT_EQ(Column(Table, 3), (Texts{"", "0.000"}));
    });
}

} // namespace
