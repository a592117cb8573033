#include "src/MaterialRecords.h"

#include "General/HostReport.h"

#include <algorithm>

void MaterialRecords::Load() {
    records.clear();
    edits.clear();
    General::ReportHostError(host, "reading the property definitions", properties.Load());
    std::int32_t highestIndex = 0;
    General::ReportHostError(host, "counting the building materials",
                             host.GetAttributes().CountBuildingMaterials(highestIndex));
    for (std::int32_t index = 1; index <= highestIndex; ++index) {
        Record record;
        if (host.GetAttributes().ReadBuildingMaterial({index}, record.material) != host::NoError) continue;
        records.push_back(std::move(record));
    }
    std::reverse(records.begin(), records.end()); // so that equal names end in the reverse of their order
    std::stable_sort(records.begin(), records.end(),
                     [](const Record& a, const Record& b) { return a.material.name < b.material.name; });
    ReadValues();
}

void MaterialRecords::Reread() {
    General::ReportHostError(host, "reading the property definitions", properties.Load());
    ReadValues();
}

void MaterialRecords::ReadValues() {
    General::CountedFailures unread;
    for (Record& record : records) {
        unread.Note(properties.Read(record.material.index, record.values));
        const auto edited = edits.find(record.material.index);
        if (edited != edits.end()) Apply(edited->second, record.values);
    }
    unread.Report(host, "building materials", "materials that are shown without their values");
}

MaterialPhaseValues MaterialRecords::Get(std::size_t position, const std::string& phase,
                                         const std::string& firstUsedPhase) const {
    return properties.Get(records[position].values, phase, firstUsedPhase);
}

void MaterialRecords::Set(std::size_t position, const std::string& phase, const std::string& firstUsedPhase,
                          const MaterialPhaseChange& change) {
    properties.Set(records[position].values, phase, firstUsedPhase, change);
    Edits& edited = edits[records[position].material.index];
    edited.firstUsedPhase = firstUsedPhase;
    if (change.gwp) edited.gwpByPhase[phase] = *change.gwp;
    if (change.unit) edited.others.unit = change.unit;
    if (change.serviceLifeYears) edited.others.serviceLifeYears = change.serviceLifeYears;
}

void MaterialRecords::Apply(const Edits& edited, MaterialProperties::Values& values) const {
    for (const auto& [phase, gwp] : edited.gwpByPhase)
        properties.Set(values, phase, edited.firstUsedPhase, {gwp, {}, {}});
    properties.Set(values, {}, edited.firstUsedPhase, edited.others);
}

host::ErrorCode MaterialRecords::StoreEdits() {
    General::CountedFailures refused;
    for (const auto& [material, edited] : edits) {
        MaterialProperties::Values present;
        if (refused.Note(properties.Read(material, present))) continue;
        MaterialProperties::Values changed = present;
        Apply(edited, changed);
        refused.Note(properties.StoreChanged(material, std::move(present), changed));
    }
    if (refused.GetCount() == edits.size()) return refused.GetFirst();
    refused.Report(host, "building materials", "materials that did not take their values");
    return host::NoError;
}
