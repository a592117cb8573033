#include "src/EnergyData.h"

#include "lca/Numbers.h"

namespace {

constexpr char ListValue[] = "list_value";

/// Runs the body inside the first child element of this name, where there is one.
template <typename Body>
void Inside(host::DOMReader& reader, const char* name, Body&& body) {
    if (!reader.EnterElement(name)) return;
    body();
    reader.LeaveElement();
}

/// Runs the body inside each item of the list that the reader stands in.
template <typename Body>
void ForEachItem(host::DOMReader& reader, Body&& body) {
    if (!reader.EnterElement(ListValue)) return;
    do
        body();
    while (reader.EnterNextElement());
    reader.LeaveElement();
}

/// Text of a child element; none where there is no such child.
std::optional<std::string> ReadChildText(host::DOMReader& reader, const char* name) {
    std::optional<std::string> text;
    Inside(reader, name, [&] { text = reader.ReadText(); });
    return text;
}

std::optional<double> ReadChildNumber(host::DOMReader& reader, const char* name) {
    const std::optional<std::string> text = ReadChildText(reader, name);
    return text ? lca::ParseDecimal(*text) : std::nullopt;
}

constexpr char NoNumber[] = "a value is missing or is no number";

/// Values of a list's chosen items; a bad one spoils the whole part.
class PartValues {
public:
    void Take(const std::optional<double>& value) {
        if (!value)
            fault = NoNumber;
        else if (values.size() == MostEnergyValues)
            fault = "it has more than " + std::to_string(MostEnergyValues) + " values";
        else
            values.push_back(*value);
    }
    /// The values, or why the part is skipped.
    std::vector<double> Finish(std::string& reason) {
        reason = fault;
        return fault.empty() ? std::move(values) : std::vector<double>();
    }

private:
    std::vector<double> values;
    std::string fault;
};

std::vector<double> ReadElectricityFactors(host::DOMReader& reader, std::string& fault) {
    PartValues factors;
    Inside(reader, "dataArray", [&] {
        ForEachItem(reader, [&] {
            if (ReadChildText(reader, "source") == "Electricity")
                factors.Take(ReadChildNumber(reader, "carbonFootprint"));
        });
    });
    return factors.Finish(fault);
}

std::optional<EnergyData::KeyValues> ReadKeyValues(host::DOMReader& reader, std::string& fault) {
    const std::optional<double> area = ReadChildNumber(reader, "grossFloorArea");
    const std::optional<double> emission = ReadChildNumber(reader, "co2emission");
    if (!area || !emission)
        fault = NoNumber;
    else if (*area < 0.0)
        fault = "the gross floor area is negative";
    return fault.empty() ? std::optional(EnergyData::KeyValues{*area, *emission}) : std::nullopt;
}

bool IsSolarPhotovoltaic(host::DOMReader& reader) {
    bool isSolar = false;
    Inside(reader, "first",
           [&] { isSolar = ReadChildText(reader, "energyCatagoriesToXLSReportDesc") == "SolarPhotovoltaic"; });
    return isSolar;
}

std::vector<double> ReadSolarYields(host::DOMReader& reader, std::string& fault) {
    PartValues yields;
    const auto readItem = [&] {
        if (!IsSolarPhotovoltaic(reader)) return;
        std::optional<double> yield;
        Inside(reader, "second", [&] { yield = ReadChildNumber(reader, "values"); });
        yields.Take(yield);
    };
    Inside(reader, ListValue, [&] { Inside(reader, "xlsQuantities", [&] { ForEachItem(reader, readItem); }); });
    return yields.Finish(fault);
}

} // namespace

EnergyData ReadEnergyData(host::DOMReader& reader) {
    EnergyData data;
    const auto readPart = [&](const char* name, auto& values, auto&& read) {
        std::string fault;
        Inside(reader, name, [&] { values = read(reader, fault); });
        if (!fault.empty()) data.skippedParts.push_back(std::string(name) + " is skipped: " + fault);
    };
    readPart("energySourcesFactor", data.electricityFactors, ReadElectricityFactors);
    readPart("projectKeyValuesData", data.keyValues, ReadKeyValues);
    readPart("multiThermalBlockXLSData", data.solarYields, ReadSolarYields);
    return data;
}
