// The databases of the open project, of which one is current, and the front window.
#pragma once

#include "host/Model.h"
#include "workbench/model/Project.h"

namespace workbench {

class DatabasesRole : public host::Databases {
public:
    explicit DatabasesRole(Project*& project) : project(project) {}

    host::ErrorCode ReadCurrentDatabase(host::Database& database) override;
    host::ErrorCode ChangeCurrentDatabase(const host::Database& database) override;
    host::ErrorCode ReadFrontWindow(host::Database& database) override;
    host::ErrorCode ListDatabases(host::DatabaseType type, std::vector<host::Database>& databases) override;

    const host::Database& GetCurrent() const { return current; }
    /// The floor plan becomes current, as in a project that was just opened.
    void Reset();

    /// What the user looks at.
    host::Database frontWindow = FloorPlan();

private:
    static host::Database FloorPlan() { return {host::DatabaseType::FloorPlan, {}, {}}; }

    Project*& project;
    host::Database current = FloorPlan();
};

} // namespace workbench
