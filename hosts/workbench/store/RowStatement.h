// Statements that write rows of a project file.
#pragma once

#include "workbench/store/ListBytes.h"

#include <optional>

namespace workbench {

/// A statement that is run with one value after the other for its parameters, as often as needed.
class RowStatement {
public:
    RowStatement(SQLite::Database& database, const char* query) : statement(database, query) {}

    template <typename... Values>
    void Run(const Values&... values) {
        statement.reset();
        int parameter = 0;
        (Bind(++parameter, values), ...);
        statement.exec();
    }

private:
    void Bind(int parameter, const host::Guid& guid) { BindGuid(statement, parameter, guid); }
    void Bind(int parameter, const std::string& text) { statement.bind(parameter, text); }
    void Bind(int parameter, double value) { statement.bind(parameter, value); }
    void Bind(int parameter, std::int32_t value) { statement.bind(parameter, value); }
    void Bind(int parameter, std::int64_t value) { statement.bind(parameter, value); }
    void Bind(int parameter, const std::vector<float>& list) {
        const std::string bytes = ToBytes(list);
        statement.bind(parameter, bytes.data(), static_cast<int>(bytes.size()));
    }
    template <typename Value>
    void Bind(int parameter, const std::optional<Value>& value) {
        if (value)
            Bind(parameter, *value);
        else
            statement.bind(parameter);
    }
    /// Takes two parameters.
    void Bind(int& parameter, const host::Variant& value) {
        BindVariant(statement, parameter, value);
        ++parameter;
    }

    SQLite::Statement statement;
};

} // namespace workbench
