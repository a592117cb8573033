#include "workbench/model/ReportLibrary.h"

namespace workbench {

namespace {

using host::ObjectParameter;
using host::ParameterKind;

ObjectParameter Array(const char* name, ParameterKind kind, std::int32_t columns) {
    ObjectParameter parameter;
    parameter.name = name;
    parameter.kind = kind;
    parameter.isArray = true;
    parameter.rows = 1;
    parameter.columns = columns;
    const auto count = static_cast<std::size_t>(columns);
    if (kind == ParameterKind::Real)
        parameter.realArray.assign(count, 0.0);
    else
        parameter.textArray.assign(count, u'\0');
    return parameter;
}

ObjectParameter Single(const char* name, ParameterKind kind, double real) {
    ObjectParameter parameter;
    parameter.name = name;
    parameter.kind = kind;
    parameter.real = real;
    return parameter;
}

constexpr auto Text = ParameterKind::Text;
constexpr auto Real = ParameterKind::Real;

} // namespace

void AddReportLibrary(Model& model) {
    model.libraryParts.push_back(
        {MaterialReportPart,
         "Kelvarnix Material CO2 Report.gsm",
         {Array("column_names", Text, 3), Array("arr_texts", Text, 3), Array("barchart_data", Real, 1),
          Single("date", Text, 0), Single("addon_update", Real, 1)}});
    model.libraryParts.push_back(
        {ResultReportPart,
         "LCA Result Report.gsm",
         {Array("arr_palette_names", Text, 1), Array("arr_table_text", Text, 7), Array("arr_type_color", Real, 3),
          Array("arr_pie_values", Real, 1), Array("arr_pie_colors", Real, 1), Array("arr_bar_values", Real, 1),
          Array("arr_bar_texts", Text, 1), Single("date", Text, 0), Single("addon_update", Real, 1)}});
}

void AddDefaultDatabases(Model& model) {
    model.databases.push_back({host::DatabaseType::Section, host::CreateGuid(), "Section A"});
    model.databases.push_back({host::DatabaseType::Elevation, host::CreateGuid(), "North elevation"});
    model.databases.push_back({host::DatabaseType::Layout, host::CreateGuid(), "Layout 1"});
}

} // namespace workbench
