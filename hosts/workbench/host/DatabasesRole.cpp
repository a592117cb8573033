#include "workbench/host/DatabasesRole.h"

namespace workbench {

host::ErrorCode DatabasesRole::ReadCurrentDatabase(host::Database& database) {
    database = current;
    return host::NoError;
}

host::ErrorCode DatabasesRole::ChangeCurrentDatabase(const host::Database& database) {
    const bool isSingle =
        database.type == host::DatabaseType::FloorPlan || database.type == host::DatabaseType::Model3D;
    if (isSingle && database.id.IsNull()) {
        current = {database.type, {}, {}};
        return host::NoError;
    }
    if (project == nullptr) return host::Errors::NoProject;
    for (const DatabaseRow& row : project->model.databases) {
        if (row.type != database.type || row.guid != database.id) continue;
        current = {row.type, row.guid, row.name};
        return host::NoError;
    }
    return host::Errors::BadDatabase;
}

host::ErrorCode DatabasesRole::ReadFrontWindow(host::Database& database) {
    database = frontWindow;
    return host::NoError;
}

host::ErrorCode DatabasesRole::ListDatabases(host::DatabaseType type, std::vector<host::Database>& databases) {
    if (project == nullptr) return host::Errors::NoProject;
    databases.clear();
    for (const DatabaseRow& row : project->model.databases)
        if (row.type == type) databases.push_back({row.type, row.guid, row.name});
    return host::NoError;
}

void DatabasesRole::Reset() {
    current = FloorPlan();
    frontWindow = FloorPlan();
}

} // namespace workbench
