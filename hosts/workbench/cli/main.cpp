// kelvarnix: the workbench on the command line.
#include "workbench/app/Text.h"
#include "workbench/cli/Commands.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>

namespace workbench::cli {

Outcome WriteOutput(const std::string& path, const std::string& text) {
    if (path.empty() || path == "-") {
        if (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0)
            return Outcome::Done();
        return Failure::Output("standard output cannot be written; check where it goes");
    }
    return WriteFile(path, text);
}

void PrintNote(const std::string& sentence) {
    std::fprintf(stderr, "note: %s\n", sentence.c_str());
}

void PrintWarning(const std::string& sentence) {
    std::fprintf(stderr, "warning: %s\n", sentence.c_str());
}

namespace {

struct Arguments {
    AssessOptions assess;
    EnergyOptions energy;
    MaterialReportOptions materialReport;
    QuantitiesOptions quantities;
    TeamworkOptions teamwork;
    std::vector<std::string> members;
    std::string database;
    std::string png;
    ModelFile model;     ///< of "info" and "materials"
    std::string project; ///< of the other commands
    std::string output;
    std::string json;
    bool isVerbose = false;
};

void AddModel(CLI::App& command, ModelFile& model) {
    command.add_option("MODEL", model.path, "The building: an .ifc, .ifczip or .kvp file")->required();
    command.add_option("--code-page", model.codePage,
                       "Code page of the texts of an .ifc file that does not keep to the format, such as CP932");
}

void AddAssess(CLI::App& app, Arguments& arguments) {
    AssessOptions& options = arguments.assess;
    CLI::App* command = app.add_subcommand("assess", "Assess a building and print its category table");
    AddModel(*command, options.model);
    command->add_option("--materials", options.materials, "Material table (CSV): GWP of materials, doors and windows");
    command->add_option("--set", options.sets, "KEY=VALUE: a setting of the project record")->allow_extra_args(false);
    command->add_option("--settings", options.settings, "Settings file: lines KEY = VALUE, # comments");
    command->add_option("--element", options.elements, "GUID:KEY=VALUE: INCLUDE, GWPPERCENTAGE or GWP of an element")
        ->allow_extra_args(false);
    command->add_option("--save", options.save, "Save the project to this .kvp file");
    command->add_option("--json", options.json, "Write the results as JSON to this file, - for standard output");
    command->add_option("--place-report", options.placeReport,
                        "X,Y: place the result report there (metres), on the floor plan unless --window is given");
    command->add_option("--window", options.window,
                        "Name of the section, elevation or layout in which the report is placed, or \"3D\"");
    command->add_option("--energy", options.energy, "Take the results of an energy evaluation from this XML document");
    command->add_option("--report", options.report, "Write the spreadsheet report to this .xlsx file");
    command->add_option("--charts", options.charts, "Write pictures of the two charts into this folder");
    command->add_option("--as", options.as, "LOGIN: the member of a shared project who changes it");
    command->add_flag("--strict", options.isStrict, "Exit 4 when a material or quantity is missing or cannot be read");
    command->add_option("--refuse", options.refuse)->group({}); // for trying what becomes of a refusing host
    command->add_flag("--quiet", options.isQuiet, "No table, no warnings");
    command->add_flag("--verbose", options.isVerbose, "Warn of every finding instead of telling them by kind");
}

void AddEnergy(CLI::App& app, EnergyOptions& options) {
    CLI::App* command = app.add_subcommand("energy", "Send an energy evaluation's results to the project");
    AddModel(*command, options.model);
    command->add_option("--export", options.data, "Send this XML document; without it the export targets are listed");
    command->add_option("--target", options.target, "Menu text of the export, such as \"Export to Kelvarnix\"");
    command->add_option("--save", options.save, "Save to this .kvp file instead of changing the model's own");
    command->add_option("--request", options.request,
                        "Write the export settings that the target asked for to this .json or .xml file, - for "
                        "standard output");
    command->add_option("--as", options.as, "LOGIN: the member of a shared project who changes it");
}

void AddMaterialReport(CLI::App& app, MaterialReportOptions& options) {
    CLI::App* command = app.add_subcommand("report-materials", "Embodied carbon by layer and building material");
    AddModel(*command, options.model);
    command->add_option("--place", options.place, "X,Y: place the report object there on the floor plan (metres)");
    command->add_option("--favorite", options.favorite, "Settings of this favourite for the placed object");
    command->add_option("--save", options.save, "Save the project to this .kvp file");
    command->add_option("--json", options.json, "Write the table as JSON to this file, - for standard output");
    command->add_option("--as", options.as, "LOGIN: the member of a shared project who looks at it");
}

void AddTeamwork(CLI::App& app, Arguments& arguments) {
    CLI::App* share = app.add_subcommand("share", "Makes a project shared, or adds members to a shared one");
    share->add_option("PROJECT", arguments.project, "A .kvp file")->required();
    share->add_option("--member", arguments.members, "LOGIN;FULL NAME of a member")
        ->required()
        ->allow_extra_args(false);
    CLI::App* teamwork = app.add_subcommand("teamwork", "Who holds the settings of a shared project");
    teamwork->add_option("PROJECT", arguments.teamwork.project, "A .kvp file")->required();
    teamwork->add_option("--as", arguments.teamwork.as, "LOGIN: the member who acts");
    teamwork
        ->add_option("--button", arguments.teamwork.sets,
                     "BuildingMaterials or ClassificationsAndProperties: reserve, request or release it, as its button "
                     "says")
        ->allow_extra_args(false);
}

void AddDrawing(CLI::App& app, Arguments& arguments) {
    CLI::App* command = app.add_subcommand("drawing", "A picture of a database with its placed objects");
    command->add_option("MODEL", arguments.project, "The project: a .kvp file")->required();
    command->add_option("--database", arguments.database, "Its name, such as \"Layout 1\"; without it the floor plan");
    command->add_option("--png", arguments.png, "Write the picture to this file")->required();
}

void AddOverviews(CLI::App& app, Arguments& arguments) {
    CLI::App* info = app.add_subcommand("info", "Elements, materials and what is missing");
    AddModel(*info, arguments.model);
    info->add_flag("--verbose", arguments.isVerbose, "List every finding instead of telling them by kind");
    CLI::App* materials = app.add_subcommand("materials", "A material table of this model to fill in");
    AddModel(*materials, arguments.model);
    materials->add_option("--out", arguments.output, "Write the table to this file");
    CLI::App* record = app.add_subcommand("record", "Every stored setting of a project and what it is read as");
    record->add_option("PROJECT", arguments.project, "A .kvp file")->required();
    record->add_option("--json", arguments.json, "Write JSON to this file, - for standard output");
}

void AddQuantities(CLI::App& app, QuantitiesOptions& options) {
    CLI::App* command = app.add_subcommand("quantities", "Volumes, areas and masses, and where they come from");
    AddModel(*command, options.model);
    command->add_flag("--compute", options.model.everyBody, "Compute every body, to compare it with the stated volume");
    command->add_option("--out", options.output, "Write the table to this .csv or .json file");
    command->add_option("--by", options.by, "Sums by type, storey, layer, material: any of them, with commas");
    command->add_option("--only", options.only, "doubtful: only elements about which something is doubtful");
}

Outcome RunCommand(const CLI::App& app, const Arguments& arguments) {
    if (app.got_subcommand("assess")) return RunAssess(arguments.assess);
    if (app.got_subcommand("energy")) return RunEnergy(arguments.energy);
    if (app.got_subcommand("report-materials")) return RunMaterialReport(arguments.materialReport);
    if (app.got_subcommand("drawing")) return RunDrawing(arguments.project, arguments.database, arguments.png);
    if (app.got_subcommand("share")) return RunShare(arguments.project, arguments.members);
    if (app.got_subcommand("teamwork")) return RunTeamwork(arguments.teamwork);
    if (app.got_subcommand("info")) return RunInfo(arguments.model, arguments.isVerbose);
    if (app.got_subcommand("quantities")) return RunQuantities(arguments.quantities);
    if (app.got_subcommand("materials")) return RunMaterials(arguments.model, arguments.output);
    return RunRecord(arguments.project, arguments.json);
}

int Run(int argc, char** argv) {
    CLI::App app("Kelvarnix: global-warming potential of a building over its life cycle");
    app.footer(
        "Exit codes: 0 done, 2 usage, 3 input missing or unreadable, 4 findings under --strict, 5 output cannot be "
        "written.");
    app.require_subcommand(1);
    Arguments arguments;
    AddAssess(app, arguments);
    AddEnergy(app, arguments.energy);
    AddMaterialReport(app, arguments.materialReport);
    AddTeamwork(app, arguments);
    AddDrawing(app, arguments);
    AddOverviews(app, arguments);
    AddQuantities(app, arguments.quantities);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);
        std::fprintf(stderr, "kelvarnix: %s; see kelvarnix --help\n", error.what());
        return static_cast<int>(ExitCode::Usage);
    }
    const Outcome outcome = RunCommand(app, arguments);
    if (outcome.HasFailed()) std::fprintf(stderr, "kelvarnix: %s\n", outcome.GetText().c_str());
    return static_cast<int>(outcome.GetCode());
}

} // namespace

} // namespace workbench::cli

int main(int argc, char** argv) {
    try {
        return workbench::cli::Run(argc, argv);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "kelvarnix: the program cannot go on (%s); free memory and try again\n", failure.what());
    }
    return static_cast<int>(workbench::ExitCode::Input);
}
