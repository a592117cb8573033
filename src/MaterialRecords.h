// The building materials with their LCA values as the settings dialog edits them: loaded together, sorted by name,
// changed in memory and stored where they were touched.
#pragma once

#include "src/MaterialProperties.h"

#include "host/Model.h"

#include <set>
#include <vector>

class MaterialRecords {
public:
    explicit MaterialRecords(host::Host& host) : host(host), properties(host) {}

    /// Reads all materials anew, sorted by name; of equal names the one read later comes first. Indices that the host
    /// cannot read are left out.
    void Load();

    /// Positions count from 0.
    std::size_t GetCount() const { return records.size(); }
    const host::BuildingMaterial& GetMaterial(std::size_t position) const { return records[position].material; }
    MaterialPhaseValues Get(std::size_t position, const std::string& phase, const std::string& firstUsedPhase) const;
    void Set(std::size_t position, const std::string& phase, const std::string& firstUsedPhase,
             const MaterialPhaseChange& change);

    /// Writes the values of every material that was set since the load, inside an undoable command.
    host::ErrorCode StoreChanged();

private:
    struct Record {
        host::BuildingMaterial material;
        MaterialProperties::Values values;
    };

    host::Host& host;
    MaterialProperties properties;
    std::vector<Record> records;
    std::set<host::AttributeIndex> changed;
};
