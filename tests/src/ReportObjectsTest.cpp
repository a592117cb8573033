// In which order databases are walked for placed report objects, and that one which cannot be opened stops nothing.
#include "src/ReportObjects.h"

#include <gtest/gtest.h>

#include "support/NullHost.h"

namespace {

using host::DatabaseType;

constexpr host::LibraryPartIndex Report{3}, Other{4};

host::Guid MakeGuid(int number) {
    host::Guid guid;
    guid.bytes[15] = static_cast<std::uint8_t>(number);
    return guid;
}

/// Two databases of each listed kind, with identifiers 10 x kind and 10 x kind + 1; the second section cannot be
/// opened.
class Databases : public test::NullDatabases {
public:
    host::ErrorCode ReadCurrentDatabase(host::Database& database) override {
        database = current;
        return 0;
    }
    host::ErrorCode ChangeCurrentDatabase(const host::Database& database) override {
        if (database.type == DatabaseType::Section && database.id == MakeGuid(21)) return host::Errors::BadDatabase;
        current = database;
        return 0;
    }
    host::ErrorCode ListDatabases(DatabaseType type, std::vector<host::Database>& list) override {
        if (type == DatabaseType::Detail) return host::Errors::General; // a kind that cannot be listed
        for (const int second : {0, 1})
            list.push_back({type, MakeGuid(10 * static_cast<int>(type) + second), {}});
        return 0;
    }

    host::Database current{DatabaseType::Layout, MakeGuid(51), {}};
};

class Model : public test::NullModel {
public:
    host::ErrorCode ListElements(host::ElementType type, host::ElementScope, std::vector<host::Guid>& list) override {
        if (type == host::ElementType::Object) list = {MakeGuid(1), MakeGuid(2), MakeGuid(3), MakeGuid(4)};
        return 0;
    }
};

class Libraries : public test::NullLibraries {
public:
    host::ErrorCode FindObject(const std::string&, host::LibraryPartIndex& part) override {
        part = Report;
        return isLoaded ? 0 : host::Errors::BadId;
    }
    bool isLoaded = true;
};

/// Object 1 is a report to be kept up to date, 2 one to be left, 3 another part's, 4 cannot be read.
class Objects : public test::NullPlacedObjects {
public:
    explicit Objects(const Databases& databases) : databases(databases) {}

    host::ErrorCode ReadLibraryPart(const host::Guid& object, host::LibraryPartIndex& part) override {
        part = object == MakeGuid(3) ? Other : Report;
        return object == MakeGuid(4) ? host::Errors::BadId : 0;
    }
    host::ErrorCode ReadParameters(const host::Guid& object, std::vector<host::ObjectParameter>& list) override {
        host::ObjectParameter flag;
        flag.name = "addon_update";
        flag.real = object == MakeGuid(2) ? 0 : 1;
        list = {flag};
        return 0;
    }
    host::ErrorCode WriteParameters(const host::Guid& object, const std::vector<host::ObjectParameter>& list) override {
        EXPECT_EQ(object, MakeGuid(1));
        EXPECT_EQ(list.at(0).real, 7);
        written.append(std::to_string(static_cast<int>(databases.current.type))).append(" ");
        return 0;
    }

    const Databases& databases;
    std::string written; ///< kinds of the databases in which an object was written
};

TEST(ReportObjects, AllDatabasesAreWalkedInOrder) {
    Databases databases;
    Model model;
    Libraries libraries;
    Objects objects(databases);
    test::NullHost host;
    host.databases = &databases;
    host.model = &model;
    host.libraries = &libraries;
    host.placedObjects = &objects;
    const auto fill = [](ObjectParameters& parameters) { parameters.at(0).real = 7; };
    UpdateReportObjects(host, ResultReportObject, fill);
    // Floor plan, worksheets, sections, elevations, interior elevations, layouts, master layouts.
    EXPECT_EQ(objects.written, "1 12 12 2 10 10 11 11 5 5 9 9 ");
    EXPECT_EQ(databases.current.id, MakeGuid(51)) << "the former database is current again";
    libraries.isLoaded = false;
    objects.written.clear();
    UpdateReportObjects(host, ResultReportObject, fill);
    EXPECT_EQ(objects.written, "");
}

} // namespace
