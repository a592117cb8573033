// What the energy evaluation add-on and its export targets agreed on: identifiers, commands, parameters and blocks.
#pragma once

#include "host/AddOnCommands.h"
#include "host/ObjectState.h"

namespace host::EnergyExchange {

inline constexpr ModuleId EnergyEvaluation = {0x47732F64U, 0x4A8188E7U};
inline constexpr std::int32_t CommandVersion = 1; ///< of all six

// Answered by the energy evaluation, with parameter lists.

/// Sets the boolean parameter EnabledParameter.
inline constexpr std::uint32_t AskEnabled = CommandCode("IESE");
inline constexpr std::uint32_t Enable = CommandCode("EEDS");
/// TargetParameter, MenuTextParameter and ExportTypeParameter.
inline constexpr std::uint32_t RegisterTarget = CommandCode("LESR");
/// TargetParameter.
inline constexpr std::uint32_t UnregisterTarget = CommandCode("LESU");

inline constexpr char EnabledParameter[] = "isEcoDesignerStarEnabled";
inline constexpr char TargetParameter[] = "mdid";           ///< points to the caller's ModuleId
inline constexpr char MenuTextParameter[] = "uiStr";        ///< what the user chooses to export there
inline constexpr char ExportTypeParameter[] = "exportType"; ///< PlainExport
inline constexpr std::int32_t PlainExport = 1;

// Answered by an export target, with blocks.

/// With a SettingsBlock: the target writes into the settings tree which data it wants, and how detailed.
inline constexpr std::uint32_t AskSettings = CommandCode("GRSC");
/// With a DataBlock: the data.
inline constexpr std::uint32_t SendData = CommandCode("SRDT");

struct SettingsBlock {
    ObjectState* settings = nullptr; ///< the caller's; the answer replaces what it holds
};

/// The block is there but its settings are not.
inline constexpr ErrorCode SettingsMissing{-7003};

struct DataBlock {
    const std::string* document = nullptr; ///< XML in the encoding that it declares; root element RootElement
};

inline constexpr char RootElement[] = "root";

// Data sets of the export settings, and the two fields of each.
inline constexpr char KeyValues[] = "projectKeyValuesData";
inline constexpr char SourceFactors[] = "energySourcesFactor";
inline constexpr char SheetValues[] = "xlsValues";
inline constexpr char IsExported[] = "enableExport";
inline constexpr char LevelOfDetail[] = "levelOfDetail";
inline constexpr char Yearly[] = "Yearly";

} // namespace host::EnergyExchange
