// The add-on at work: the workbench's host with the module loaded and a project open. Presses what a person presses and
// reads what a person sees.
#pragma once

#include "workbench/cli/Outcome.h"
#include "workbench/host/Module.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace workbench::cli {

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
};

class Session {
public:
    Session();
    ~Session();

    /// Loads and starts the add-on, then opens the project as a host does.
    Outcome Start(std::unique_ptr<Project> project, host::ProjectEvent event);
    /// Chooses "Show palette" and presses "Update results".
    Outcome UpdateResults();
    Outcome ReadPalette(PaletteContent& content);

    WorkbenchHost& GetHost() { return *host; }
    Project& GetProject() { return *host->GetProject(); }
    /// Alerts that were shown and lines of the add-on's report, as sentences.
    const std::vector<std::string>& GetMessages() const { return messages; }

private:
    std::unique_ptr<WorkbenchHost> host;
    std::unique_ptr<Module> module;
    std::vector<std::string> messages;
};

} // namespace workbench::cli
