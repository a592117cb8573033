// The protocol between the energy evaluation add-on and its export targets: identifiers, commands, parameters,
// settings.
#pragma once

#include "host/Values.h"

namespace host::EnergyExchange {

inline constexpr ModuleId EnergyEvaluation = {0x47732F64U, 0x4A8188E7U};
inline constexpr std::int32_t CommandVersion = 1; ///< of all six

// Commands that the energy evaluation answers; their arguments are parameter lists.

/// Sets the boolean parameter EnabledParameter.
inline constexpr std::uint32_t AskEnabled = CommandCode("IESE");
inline constexpr std::uint32_t Enable = CommandCode("EEDS");
/// TargetParameter, MenuTextParameter and ExportTypeParameter.
inline constexpr std::uint32_t RegisterTarget = CommandCode("LESR");
/// TargetParameter.
inline constexpr std::uint32_t UnregisterTarget = CommandCode("LESU");

inline constexpr char EnabledParameter[] = "isEcoDesignerStarEnabled";
inline constexpr char TargetParameter[] = "mdid";           ///< the caller's ModuleId
inline constexpr char MenuTextParameter[] = "uiStr";        ///< the menu command for exporting there
inline constexpr char ExportTypeParameter[] = "exportType"; ///< PlainExport
inline constexpr std::int32_t PlainExport = 1;

// Commands that an export target answers.

/// A settings command: the target writes into the tree which data it wants, and at which level of detail.
inline constexpr std::uint32_t AskSettings = CommandCode("GRSC");
/// A document command: the data as XML with the root element RootElement.
inline constexpr std::uint32_t SendData = CommandCode("SRDT");

/// What the host returns in the target's place if the caller's block contains no settings.
inline constexpr ErrorCode SettingsMissing{-7003};

inline constexpr char RootElement[] = "root";

// Data sets of the export settings, and the two fields of each set.
inline constexpr char KeyValues[] = "projectKeyValuesData";
inline constexpr char SourceFactors[] = "energySourcesFactor";
inline constexpr char SheetValues[] = "xlsValues";
inline constexpr char IsExported[] = "enableExport";
inline constexpr char LevelOfDetail[] = "levelOfDetail";
inline constexpr char Yearly[] = "Yearly";

} // namespace host::EnergyExchange
