// The session at the reports: the material report, the report on a drawing, the spreadsheet and the charts.
#include "workbench/app/Session.h"

#include "lca/Numbers.h"
#include "resources/ResourceData.h"
#include "workbench/images/PaintedContext.h"

#include <cstdlib>
#include <filesystem>

namespace workbench {

namespace {

using namespace ResourceIds;

/// A folder of its own for the chart pictures, gone afterwards.
class PictureFolder {
public:
    PictureFolder() {
        const char* root = std::getenv("TMPDIR");
        path = std::string(root != nullptr && *root != '\0' ? root : "/tmp") + "/kelvarnix-charts-XXXXXX";
        isMade = mkdtemp(path.data()) != nullptr;
    }
    ~PictureFolder() {
        std::error_code ignored;
        if (isMade) std::filesystem::remove_all(path, ignored);
    }
    PictureFolder(const PictureFolder&) = delete;
    PictureFolder& operator=(const PictureFolder&) = delete;

    /// Where it could not be made no picture can be written there, which then names it.
    const std::string& GetPath() const { return path; }

private:
    std::string path;
    bool isMade = false;
};

bool PaintPicture(const std::string& path, int width, int height, double scale,
                  const std::function<void(host::NativeContext&)>& draw) {
    PaintedContext context(width, height, scale);
    draw(context);
    return !context.WritePicture(path).HasFailed();
}

constexpr char CannotPlace[] = "the report cannot be placed in the window that is open; open the floor plan";

constexpr double ChartScale = 2.0; ///< pixels of a picture a pixel of the palette, so that it prints sharply

constexpr std::int16_t LayerColumn = 1, NameColumn = 2, GwpColumn = 3;

MaterialReportContent ReadReportRows(const ListState& list) {
    MaterialReportContent content;
    for (const std::int16_t column : {LayerColumn, NameColumn, GwpColumn})
        content.headers.push_back(list.columns[static_cast<std::size_t>(column - 1)].header.text);
    std::string layer;
    for (const RowState& state : list.rows) {
        if (state.isSeparator) continue;
        MaterialSumRow row;
        for (const std::int16_t column : {LayerColumn, NameColumn, GwpColumn})
            row.cells.push_back(state.cells[static_cast<std::size_t>(column - 1)].text);
        // Layers are set off from their materials by the style of the number.
        if (!state.userData)
            row.kind = MaterialSumRow::Kind::Total;
        else if (state.cells[GwpColumn - 1].style == host::TextStyle::Plain)
            row.kind = MaterialSumRow::Kind::Material;
        if (row.kind == MaterialSumRow::Kind::Layer) layer = row.cells[0];
        if (row.kind != MaterialSumRow::Kind::Total) row.layer = layer;
        row.material = row.cells[1];
        row.gwp = lca::ParseDecimal(row.cells[2]);
        content.rows.push_back(std::move(row));
    }
    return content;
}

/// Entry of the pop-up that stands for the settings; 0 where there is none of this name.
std::int16_t FindFavourite(const ItemState& popUp, const std::string& favourite) {
    if (favourite.empty()) return 1;
    const std::string text = std::string(Resources::String(MaterialReport::FavoritePrefix)) + favourite;
    for (std::size_t i = 1; i < popUp.popUpTexts.size(); ++i)
        if (popUp.popUpTexts[i] == text) return static_cast<std::int16_t>(i + 1);
    return 0;
}

} // namespace

Result<MaterialReportContent> Session::ReadMaterialReport(const MaterialReportPlacing* placing) {
    Result<MaterialReportContent> content =
        Failure::Input("the add-on did not open its material report; build it anew");
    const DialogState* palette = host->openDialogs.FindByResource(PaletteDialog);
    host->dialogManager.modalUser = [&](host::DialogId dialog) { content = UseMaterialReport(dialog, placing); };
    if (placing != nullptr) host->userInput.pointAnswer = [placing](const std::string&) { return placing->point; };
    if (palette != nullptr) host->dialogManager.Press(palette->id, PaletteItems::MaterialReportButton);
    host->dialogManager.modalUser = nullptr;
    host->userInput.pointAnswer = nullptr;
    return content;
}

Outcome Session::PlaceResultReport(const host::Point& point) {
    const DialogState* palette = host->openDialogs.FindByResource(PaletteDialog);
    const std::size_t formerMessages = messages.size();
    host->userInput.pointAnswer = [&](const std::string&) { return std::optional(point); };
    const bool isPressed = palette != nullptr && host->dialogManager.Press(palette->id, PaletteItems::PlaceButton);
    host->userInput.pointAnswer = nullptr;
    if (!isPressed) return Failure::Input(CannotPlace);
    if (messages.size() > formerMessages) return Failure::Input(messages.back());
    return Outcome::Done();
}

Outcome Session::GenerateReport(const std::string& path) {
    const DialogState* palette = host->openDialogs.FindByResource(PaletteDialog);
    if (palette == nullptr) return Failure::Input("the add-on did not open its palette; build it anew");
    const PictureFolder pictures;
    static PaintedFont font;
    host->pictures.temporaryFolder = pictures.GetPath();
    host->pictures.painter = PaintPicture;
    host->textMeasuring.painter = &font;
    host->userInput.fileAnswer = [&](const host::SaveFileQuestion&) { return std::optional(path); };
    const std::size_t formerMessages = messages.size();
    host->dialogManager.Press(palette->id, PaletteItems::ReportButton);
    host->userInput.fileAnswer = nullptr;
    host->textMeasuring.painter = nullptr;
    host->pictures.painter = nullptr;
    const std::vector<host::Alert>& alerts = host->dialogManager.shownAlerts;
    if (!alerts.empty() && alerts.back().type == host::AlertType::Information) return Outcome::Done();
    const std::string reason = messages.size() > formerMessages ? messages.back() : "no report";
    return Failure::Output(path + ": the report cannot be written (" + reason +
                           "); check the folder, its rights and the disk, and close the file elsewhere");
}

Outcome Session::WriteCharts(const std::string& folder) {
    std::error_code ignored; // a folder that cannot be made shows when a picture is written
    std::filesystem::create_directories(folder, ignored);
    const DialogState* palette = host->openDialogs.FindByResource(PaletteDialog);
    if (palette == nullptr) return Failure::Input("the add-on did not open its palette; build it anew");
    static PaintedFont font;
    host->textMeasuring.painter = &font;
    Outcome outcome = Outcome::Done();
    for (const auto& [item, picture] : {std::pair{PaletteItems::PieChart, Report::PieChartFile},
                                        std::pair{PaletteItems::BarChart, Report::BarChartFile}}) {
        const host::Rectangle place = host->openDialogs.FindItem(palette->id, item)->rectangle;
        PaintedContext context(place.width, place.height, ChartScale);
        host->dialogManager.DrawUserItem(palette->id, item, context);
        std::filesystem::path file = std::filesystem::path(folder) / std::string(Resources::String(picture));
        for (const char* extension : {".jpg", ".png"})
            if (!outcome.HasFailed()) outcome = context.WritePicture(file.replace_extension(extension).string());
    }
    host->textMeasuring.painter = nullptr;
    return outcome;
}

Result<MaterialReportContent> Session::UseMaterialReport(host::DialogId dialog, const MaterialReportPlacing* placing) {
    using namespace MaterialReportItems;
    DialogManager& user = host->dialogManager;
    MaterialReportContent content = ReadReportRows(host->openDialogs.FindItem(dialog, Table)->list);
    if (placing == nullptr) {
        user.Press(dialog, CloseButton);
        return content;
    }
    const std::int16_t entry = FindFavourite(*host->openDialogs.FindItem(dialog, FavoritePopup), placing->favourite);
    if (entry == 0) return Failure::Usage("the project has no favourite of the material report of this name");
    user.Choose(dialog, FavoritePopup, entry);
    if (!user.Press(dialog, PlaceButton)) return Failure::Input(CannotPlace);
    return content;
}

} // namespace workbench
