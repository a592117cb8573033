// What an energy evaluation's export says: reads the document and leaves it to others what becomes of the values.
#pragma once

#include "host/Xml.h"

#include <optional>
#include <string>
#include <vector>

/// A part of the document that lacks an element or has a value that cannot be (no finite number, a negative area)
/// counts as not there at all, and says why.
struct EnergyData {
    struct KeyValues {
        double grossFloorAreaM2 = 0.0;
        double emissionKgCO2ePerYear = 0.0;
    };

    std::vector<double> electricityFactors; ///< kg CO2eq per kWh, in the order of the sources
    std::optional<KeyValues> keyValues;
    std::vector<double> solarYields; ///< kWh a year, in the order of the energy categories

    std::vector<std::string> skippedParts; ///< a line each: the part and the reason; parts that are missing have none
};

/// A building has a handful of energy sources and categories; a list of more values is taken as damaged.
inline constexpr std::size_t MostEnergyValues = 1000;

/// The reader stands in the document's root element, and does so again afterwards.
EnergyData ReadEnergyData(host::DOMReader& reader);
