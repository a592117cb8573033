#include "src/MaterialRecords.h"

#include "General/CallbackGuard.h"

#include <algorithm>

void MaterialRecords::Load() {
    records.clear();
    changed.clear();
    General::ReportHostError(host, "reading the property definitions", properties.Load());
    std::int32_t highestIndex = 0;
    General::ReportHostError(host, "counting the building materials",
                             host.GetAttributes().CountBuildingMaterials(highestIndex));
    for (std::int32_t index = 1; index <= highestIndex; ++index) {
        Record record;
        if (host.GetAttributes().ReadBuildingMaterial({index}, record.material) != host::NoError) continue;
        record.values = properties.Read({index});
        records.push_back(std::move(record));
    }
    std::reverse(records.begin(), records.end()); // so that equal names end in the reverse of their order
    std::stable_sort(records.begin(), records.end(),
                     [](const Record& a, const Record& b) { return a.material.name < b.material.name; });
}

MaterialPhaseValues MaterialRecords::Get(std::size_t position, const std::string& phase,
                                         const std::string& firstUsedPhase) const {
    return properties.Get(records[position].values, phase, firstUsedPhase);
}

void MaterialRecords::Set(std::size_t position, const std::string& phase, const std::string& firstUsedPhase,
                          const MaterialPhaseChange& change) {
    properties.Set(records[position].values, phase, firstUsedPhase, change);
    changed.insert(records[position].material.index);
}

host::ErrorCode MaterialRecords::StoreChanged() {
    for (const Record& record : records) {
        if (changed.count(record.material.index) == 0) continue;
        if (const host::ErrorCode error = properties.Store(record.material.index, record.values)) return error;
    }
    return host::NoError;
}
