#include "src/ReportObjects.h"

#include "src/DatabaseScope.h"
#include "src/Texts.h"

#include "General/HostReport.h"
#include "host/Commands.h"
#include "host/UserInput.h"
#include "platform/Text.h"

#include <algorithm>

namespace {

using namespace ResourceIds;

constexpr char UpdateFlag[] = "addon_update";
constexpr char UpdateTask[] = "updating the report objects";

constexpr host::DatabaseType ListedDatabases[] = {
    host::DatabaseType::Worksheet,         host::DatabaseType::Section, host::DatabaseType::Elevation,
    host::DatabaseType::InteriorElevation, host::DatabaseType::Detail,  host::DatabaseType::Layout,
    host::DatabaseType::MasterLayout};

host::ObjectParameter* FindParameter(ObjectParameters& parameters, const std::string& name, host::ParameterKind kind,
                                     bool isArray) {
    for (host::ObjectParameter& parameter : parameters)
        if (parameter.name == name && parameter.kind == kind && parameter.isArray == isArray) return &parameter;
    return nullptr;
}

/// Sets the rows for so many values and answers how many of them fill whole rows.
std::size_t SetRows(host::ObjectParameter& parameter, std::size_t valueCount) {
    parameter.columns = std::max(parameter.columns, 1);
    parameter.rows = static_cast<std::int32_t>(valueCount) / parameter.columns;
    return static_cast<std::size_t>(parameter.rows) * static_cast<std::size_t>(parameter.columns);
}

/// A favourite that the host does not have gives way to the part's defaults.
host::ErrorCode ReadNewObject(host::Host& host, host::ObjectSource& source, ObjectParameters& parameters) {
    host::Libraries& libraries = host.GetLibraries();
    if (!source.favourite.empty() && libraries.ReadParameters(source, parameters) == host::NoError)
        return host::NoError;
    source.favourite.clear();
    return libraries.ReadParameters(source, parameters);
}

bool IsKeptUpToDate(ObjectParameters& parameters) {
    const host::ObjectParameter* flag = FindParameter(parameters, UpdateFlag, host::ParameterKind::Real, false);
    return flag != nullptr && flag->real == 1.0;
}

/// An object that may be locked, on a hidden layer or somebody else's.
host::ErrorCode UpdateObject(host::Host& host, const host::Guid& object, host::LibraryPartIndex part,
                             const ParameterFiller& fill) {
    host::PlacedObjects& placed = host.GetPlacedObjects();
    host::LibraryPartIndex objectPart;
    if (const host::ErrorCode error = placed.ReadLibraryPart(object, objectPart)) return error;
    if (!(objectPart == part)) return host::NoError;
    ObjectParameters parameters;
    if (const host::ErrorCode error = placed.ReadParameters(object, parameters)) return error;
    if (!IsKeptUpToDate(parameters)) return host::NoError;
    fill(parameters);
    return placed.WriteParameters(object, parameters);
}

/// The objects of the current database; those that are left as they were are counted.
host::ErrorCode UpdateObjects(host::Host& host, host::LibraryPartIndex part, const ParameterFiller& fill,
                              General::CountedFailures& left) {
    std::vector<host::Guid> objects;
    if (const host::ErrorCode error =
            host.GetModel().ListElements(host::ElementType::Object, host::ElementScope::CurrentDatabase, objects))
        return error;
    for (const host::Guid& object : objects)
        left.Note(UpdateObject(host, object, part, fill));
    return host::NoError;
}

/// Floor plan, worksheets, sections, elevations, interior elevations, details, layouts, master layouts.
std::vector<host::Database> CollectObjectDatabases(host::Host& host, General::CountedFailures& left) {
    std::vector<host::Database> databases = {{host::DatabaseType::FloorPlan, {}, {}}};
    for (const host::DatabaseType type : ListedDatabases) {
        std::vector<host::Database> listed;
        if (!left.Note(host.GetDatabases().ListDatabases(type, listed)))
            databases.insert(databases.end(), listed.begin(), listed.end());
    }
    return databases;
}

} // namespace

const ReportObjectKind MaterialReportObject = {
    "{E87C2E41-A5DA-4D30-9833-5BA5C29D91DE}-{1C081D52-65D7-480D-A6BB-B72F3D8A7B0B}",
    Alerts::MaterialReportObjectMissing, Palette::PlaceMaterialReportPrompt, Palette::PlaceMaterialReportCommand,
    Palette::UpdateMaterialReportsCommand};

const ReportObjectKind ResultReportObject = {
    "{BFD2234E-6658-4AC6-9F8E-667246531455}-{3380CEB5-E9DA-4725-AC37-2CCA427100AA}", Alerts::ResultReportObjectMissing,
    Palette::PlaceResultReportPrompt, Palette::PlaceResultReportCommand, Palette::UpdateResultReportsCommand};

void SetTextArray(ObjectParameters& parameters, const std::string& name, const std::vector<std::string>& texts) {
    host::ObjectParameter* parameter = FindParameter(parameters, name, host::ParameterKind::Text, true);
    if (parameter == nullptr) return;
    parameter->textArray.clear();
    const std::size_t count = SetRows(*parameter, texts.size());
    for (std::size_t i = 0; i < count; ++i)
        // A zero inside a text would end it early and shift all that follow.
        parameter->textArray.append(platform::Utf16FromUtf8(texts[i].substr(0, texts[i].find('\0')))).push_back(u'\0');
}

void SetRealArray(ObjectParameters& parameters, const std::string& name, const std::vector<double>& values) {
    host::ObjectParameter* parameter = FindParameter(parameters, name, host::ParameterKind::Real, true);
    if (parameter == nullptr) return;
    const std::size_t count = SetRows(*parameter, values.size());
    parameter->realArray.assign(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(count));
}

void SetText(ObjectParameters& parameters, const std::string& name, const std::string& text) {
    host::ObjectParameter* parameter = FindParameter(parameters, name, host::ParameterKind::Text, false);
    if (parameter != nullptr) parameter->text = platform::Utf16FromUtf8(text).substr(0, host::ParameterTextLimit);
}

void PlaceReportObject(host::Host& host, const ReportObjectKind& kind, const std::string& favourite,
                       const ParameterFiller& fill) {
    host::ObjectSource source{{}, favourite};
    if (host.GetLibraries().FindObject(kind.identifier, source.libraryPart) != host::NoError) {
        ShowTextAlert(host, host::AlertType::Error, Alerts::ErrorTitle, kind.missingPart,
                      ReadText(host, Alerts::SmallText), Alerts::Ok);
        return;
    }
    ObjectParameters parameters;
    if (const host::ErrorCode error = ReadNewObject(host, source, parameters))
        return General::ReportHostError(host, "reading the report object", error);
    const std::optional<host::Point> point = host.GetUserInput().PickPoint(ReadText(host, kind.prompt));
    if (!point) return;
    const host::ErrorCode error = host.GetUndoableCommands().Call(ReadText(host, kind.placeUndoName), [&] {
        fill(parameters);
        host::Guid created;
        return host.GetPlacedObjects().Create(source, *point, parameters, created);
    });
    General::ReportHostError(host, "placing the report object", error);
}

void UpdateReportObjects(host::Host& host, const ReportObjectKind& kind, const ParameterFiller& fill) {
    host::LibraryPartIndex part;
    const host::ErrorCode notFound = host.GetLibraries().FindObject(kind.identifier, part);
    // Without the part nothing can be placed that would have to follow.
    if (notFound == host::Errors::BadId) return;
    if (notFound) return General::ReportHostError(host, UpdateTask, notFound);
    General::CountedFailures left;
    const host::ErrorCode error = host.GetUndoableCommands().Call(ReadText(host, kind.updateUndoName), [&] {
        DatabaseScope scope(host);
        for (const host::Database& database : CollectObjectDatabases(host, left)) {
            const host::ErrorCode notOpened = scope.Change(database);
            left.Note(notOpened ? notOpened : UpdateObjects(host, part, fill, left));
        }
        return host::NoError; // what was written stays, whatever refused
    });
    General::ReportHostError(host, UpdateTask, error);
    left.Report(host, UpdateTask, "objects or databases that were left as they were");
}
