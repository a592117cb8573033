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

/// Values of a list's chosen items; a bad one spoils the whole part.
class PartValues {
public:
    void Take(const std::optional<double>& value) {
        if (!value || values.size() == MostEnergyValues)
            isWhole = false;
        else
            values.push_back(*value);
    }
    std::vector<double> Finish() { return isWhole ? std::move(values) : std::vector<double>(); }

private:
    std::vector<double> values;
    bool isWhole = true;
};

std::vector<double> ReadElectricityFactors(host::DOMReader& reader) {
    PartValues factors;
    Inside(reader, "dataArray", [&] {
        ForEachItem(reader, [&] {
            if (ReadChildText(reader, "source") == "Electricity")
                factors.Take(ReadChildNumber(reader, "carbonFootprint"));
        });
    });
    return factors.Finish();
}

std::optional<EnergyData::KeyValues> ReadKeyValues(host::DOMReader& reader) {
    const std::optional<double> area = ReadChildNumber(reader, "grossFloorArea");
    const std::optional<double> emission = ReadChildNumber(reader, "co2emission");
    if (!area || !emission) return std::nullopt;
    return EnergyData::KeyValues{*area, *emission};
}

bool IsSolarPhotovoltaic(host::DOMReader& reader) {
    bool isSolar = false;
    Inside(reader, "first",
           [&] { isSolar = ReadChildText(reader, "energyCatagoriesToXLSReportDesc") == "SolarPhotovoltaic"; });
    return isSolar;
}

std::vector<double> ReadSolarYields(host::DOMReader& reader) {
    PartValues yields;
    const auto readItem = [&] {
        if (!IsSolarPhotovoltaic(reader)) return;
        std::optional<double> yield;
        Inside(reader, "second", [&] { yield = ReadChildNumber(reader, "values"); });
        yields.Take(yield);
    };
    Inside(reader, ListValue, [&] { Inside(reader, "xlsQuantities", [&] { ForEachItem(reader, readItem); }); });
    return yields.Finish();
}

} // namespace

EnergyData ReadEnergyData(host::DOMReader& reader) {
    EnergyData data;
    Inside(reader, "energySourcesFactor", [&] { data.electricityFactors = ReadElectricityFactors(reader); });
    Inside(reader, "projectKeyValuesData", [&] { data.keyValues = ReadKeyValues(reader); });
    Inside(reader, "multiThermalBlockXLSData", [&] { data.solarYields = ReadSolarYields(reader); });
    return data;
}
