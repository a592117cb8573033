// The building materials with their LCA values as the settings dialog edits them: loaded together, sorted by name,
// changed in memory and stored where they were touched.
#pragma once

#include "src/MaterialProperties.h"

#include "host/Model.h"

#include <map>
#include <vector>

class MaterialRecords {
public:
    explicit MaterialRecords(host::Host& host) : host(host), properties(host) {}

    /// Reads all materials anew, sorted by name; of equal names the one read later comes first. Indices that the host
    /// cannot read are left out.
    void Load();
    /// Reads the values of the loaded materials anew; what was set since the load stays set.
    void Reread();

    /// Positions count from 0.
    std::size_t GetCount() const { return records.size(); }
    const host::BuildingMaterial& GetMaterial(std::size_t position) const { return records[position].material; }
    MaterialPhaseValues Get(std::size_t position, const std::string& phase, const std::string& firstUsedPhase) const;
    void Set(std::size_t position, const std::string& phase, const std::string& firstUsedPhase,
             const MaterialPhaseChange& change);

    /// Writes what was set since the load onto the values that the model has now, inside an undoable command. Materials
    /// that refuse are counted in the host's report; where all do, the first code is answered.
    host::ErrorCode StoreEdits();

private:
    struct Record {
        host::BuildingMaterial material;
        MaterialProperties::Values values;
    };
    /// What was set of one material, the last of each.
    struct Edits {
        std::string firstUsedPhase;
        std::map<std::string, double> gwpByPhase;
        MaterialPhaseChange others; ///< unit and service life
    };

    void ReadValues();
    void Apply(const Edits& edited, MaterialProperties::Values& values) const;

    host::Host& host;
    MaterialProperties properties;
    std::vector<Record> records;
    std::map<host::AttributeIndex, Edits> edits;
};
