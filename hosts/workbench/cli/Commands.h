// The commands of the program. Each prints its result on standard output and notes on standard error.
#pragma once

#include "workbench/app/OpenedModel.h"
#include "workbench/result/Result.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <vector>

namespace workbench {
struct MaterialReportContent;
}

namespace workbench::cli {

struct AssessOptions {
    ModelFile model;
    std::string materials; ///< path of a material table; empty: none
    std::vector<std::string> sets;
    std::string settings; ///< path of a settings file; empty: none
    std::vector<std::string> elements;
    std::string save;        ///< path of a project file; empty: not saved
    std::string json;        ///< path, or "-" for standard output; empty: none
    std::string placeReport; ///< "X,Y" in metres: places the result report; empty: not placed
    std::string report;      ///< path of the spreadsheet report; empty: none
    std::string charts;      ///< folder for pictures of the two charts; empty: none
    std::string energy;      ///< path of an energy evaluation's results; empty: none
    std::string window;      ///< name of the database whose window is in front; empty: the floor plan's
    std::string as;          ///< login of the member as whom the program acts; empty: nobody
    std::string refuse;      ///< name of an operation that the host refuses from the calculation on; empty: none
    bool isStrict = false;
    bool isVerbose = false; ///< every finding, not the groups
    bool isQuiet = false;
};

Outcome RunAssess(const AssessOptions& options);

struct MaterialReportOptions {
    ModelFile model;
    std::string place;    ///< "X,Y" in metres; empty: not placed
    std::string favorite; ///< settings for placing; empty: the default ones
    std::string save;     ///< path of a project file; empty: not saved
    std::string json;     ///< path, or "-" for standard output; empty: none
    std::string as;       ///< login of the member as whom the program acts; empty: nobody
};

Outcome RunMaterialReport(const MaterialReportOptions& options);
/// An entry {layer, material, gwp} for every material of every layer.
nlohmann::ordered_json DescribeMaterials(const MaterialReportContent& content);

/// Makes a project shared or adds members, each "login;Full Name".
Outcome RunShare(const std::string& project, const std::vector<std::string>& members);

struct TeamworkOptions {
    std::string project;
    std::string as;                ///< login; empty: only looks
    std::vector<std::string> sets; ///< whose button is pressed: reserves, requests or releases
};

Outcome RunTeamwork(const TeamworkOptions& options);

struct EnergyOptions {
    ModelFile model;
    std::string data;    ///< path of the results to send; empty: only lists the targets
    std::string target;  ///< menu text; empty: the only one
    std::string save;    ///< path of a project file; empty: the changes go into the model's own
    std::string request; ///< where to write the settings that the target asks for, "-" for standard output; empty: not
    std::string as;      ///< login of the member as whom the program acts; empty: nobody
};

Outcome RunEnergy(const EnergyOptions& options);

/// database  its name; empty: the floor plan
Outcome RunDrawing(const std::string& model, const std::string& database, const std::string& png);
/// isVerbose  every finding, not the groups
Outcome RunInfo(const ModelFile& model, bool isVerbose);

struct QuantitiesOptions {
    ModelFile model;
    std::string output; ///< path of a .csv or .json file; empty: the table goes to standard output
    std::string by;     ///< what to sum by, separated by commas; empty: each part of each element
    std::string only;   ///< "doubtful"; empty: all elements
};

Outcome RunQuantities(const QuantitiesOptions& options);

/// output empty: standard output
Outcome RunMaterials(const ModelFile& model, const std::string& output);
Outcome RunRecord(const std::string& project, const std::string& json);

/// To a file, or to standard output for "-" or an empty path.
Outcome WriteOutput(const std::string& path, const std::string& text);
void PrintNote(const std::string& sentence);
void PrintWarning(const std::string& sentence);

} // namespace workbench::cli
