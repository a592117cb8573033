// What the energy evaluation add-on and its export targets agreed on: identifiers, commands, parameters and settings.
#pragma once

#include "host/Values.h"

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
inline constexpr char TargetParameter[] = "mdid";           ///< the caller's ModuleId
inline constexpr char MenuTextParameter[] = "uiStr";        ///< what the user chooses to export there
inline constexpr char ExportTypeParameter[] = "exportType"; ///< PlainExport
inline constexpr std::int32_t PlainExport = 1;

// Answered by an export target.

/// A settings command: the target writes into the tree which data it wants, and how detailed.
inline constexpr std::uint32_t AskSettings = CommandCode("GRSC");
/// A document command: the data as XML with the root element RootElement.
inline constexpr std::uint32_t SendData = CommandCode("SRDT");

/// What the host answers in the target's place when the caller's block has no settings in it.
inline constexpr ErrorCode SettingsMissing{-7003};

inline constexpr char RootElement[] = "root";

// Data sets of the export settings, and the two fields of each.
inline constexpr char KeyValues[] = "projectKeyValuesData";
inline constexpr char SourceFactors[] = "energySourcesFactor";
inline constexpr char SheetValues[] = "xlsValues";
inline constexpr char IsExported[] = "enableExport";
inline constexpr char LevelOfDetail[] = "levelOfDetail";
inline constexpr char Yearly[] = "Yearly";

} // namespace host::EnergyExchange
