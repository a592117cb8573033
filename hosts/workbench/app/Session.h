// The add-on at work: the workbench's host with the module loaded and a project open. Presses what a person presses and
// reads what a person sees.
#pragma once

#include "workbench/app/ProgressObserver.h"
#include "workbench/host/Module.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// One row of the palette's table; empty where the palette shows "-".
struct TableRow {
    std::string label;
    std::optional<double> serviceLifeYears;
    std::optional<double> percentage;
    std::optional<double> gwp;
    std::optional<double> gwpPerArea;
    std::optional<double> gwpPerAreaPerYear;
    std::vector<std::string> cells; ///< the texts of the shown columns: label, service life, contribution, three GWPs
};

struct PaletteContent {
    std::vector<std::string> headers; ///< of the shown columns
    std::vector<std::string> units;
    std::vector<TableRow> categories;
    TableRow total;
    std::string lastUpdate;
    bool isIncomplete = false; ///< the run could not read everything in the model
};

/// One row of the material report's table.
struct MaterialSumRow {
    enum class Kind { Layer, Material, Total };

    Kind kind = Kind::Layer;
    std::string layer; ///< also of a material's row
    std::string material;
    std::optional<double> gwp;      ///< kg CO2eq
    std::vector<std::string> cells; ///< layer, name and GWP as the dialog shows them
};

struct MaterialReportContent {
    std::vector<std::string> headers;
    std::vector<MaterialSumRow> rows; ///< the last is the total
};

/// Where and with which settings the material report is placed.
struct MaterialReportPlacing {
    host::Point point;     ///< metres, in the floor plan
    std::string favourite; ///< empty: default settings
};

/// As whom a session acts.
struct Actor {
    std::int16_t userId = 0;  ///< 0: nobody
    std::string howToReserve; ///< "with ...": by what this program's user reserves settings; empty: not said
};

class Session {
public:
    explicit Session(Actor actor);
    ~Session();

    /// Loads and starts the add-on, and the energy evaluation where it is there; then opens the project as a host does.
    Outcome Start(std::unique_ptr<Project> project, host::ProjectEvent event);
    /// Why the project answered this code to a write.
    Failure DescribeWriteRefusal(host::ErrorCode code) const;
    /// Presses the button that reserves, requests or releases a set of settings, in the dialog that guards it.
    Outcome PressTeamworkButton(const std::string& setName);
    /// What that dialog says of the set, in one line.
    std::string ReadTeamworkStatus(const std::string& setName);
    /// Chooses "Show palette" and presses "Update results"; the observer hears how far the calculation is.
    Outcome UpdateResults(const ProgressObserver& observer);
    Result<PaletteContent> ReadPalette();
    /// Opens the material report from the palette, after UpdateResults, and reads its table; places the report object
    /// when told where. A usage failure is about the name of the favourite.
    Result<MaterialReportContent> ReadMaterialReport(const MaterialReportPlacing* placing = nullptr);

    /// Presses "Place" in the palette and clicks at the point.
    Outcome PlaceResultReport(const host::Point& point);
    /// Presses "Generate LCA report..." and answers the save dialog with the path; the file is not opened.
    Outcome GenerateReport(const std::string& path);
    /// Writes the palette's charts as PNG and JPEG into the folder, which is made where it is missing.
    Outcome WriteCharts(const std::string& folder);

    WorkbenchHost& GetHost() { return *host; }
    Project& GetProject() const { return *host->GetProject(); }
    /// Alerts that were shown and lines of the add-on's report, as sentences.
    const std::vector<std::string>& GetMessages() const { return messages; }

private:
    void UseModal(std::int16_t menu, const std::function<void(host::DialogId)>& use);
    Result<MaterialReportContent> UseMaterialReport(host::DialogId dialog, const MaterialReportPlacing* placing);

    Actor actor;
    std::unique_ptr<WorkbenchHost> host;
    std::unique_ptr<Module> module;
    std::unique_ptr<Module> energyModule; ///< the energy evaluation, which need not be there
    std::vector<std::string> messages;
};

} // namespace workbench
