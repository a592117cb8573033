// Makes other databases current for a while; the former one is current again at the end, on all paths.
#pragma once

#include "General/HostReport.h"
#include "host/Model.h"

class DatabaseScope {
public:
    explicit DatabaseScope(host::Host& host) : host(host), databases(host.GetDatabases()) {
        const host::ErrorCode error = databases.ReadCurrentDatabase(former);
        General::ReportHostError(host, "reading the current database", error);
        isKnown = !error;
        current = former;
    }
    ~DatabaseScope() {
        if (isKnown) General::ReportHostError(host, "going back to the former database", Change(former));
    }
    DatabaseScope(const DatabaseScope&) = delete;
    DatabaseScope& operator=(const DatabaseScope&) = delete;

    host::ErrorCode Change(const host::Database& database) {
        if (isKnown && database.type == current.type && database.id == current.id) return host::NoError;
        const host::ErrorCode error = databases.ChangeCurrentDatabase(database);
        if (error == host::NoError) current = database;
        return error;
    }

private:
    host::Host& host;
    host::Databases& databases;
    host::Database former;
    host::Database current;
    bool isKnown = false;
};
