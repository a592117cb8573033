#include "workbench/host/SmallRoles.h"

#include "resources/ResourceData.h"
#include "text/Utf8.h"
#include "workbench/text/Letters.h"

#include <charconv>
#include <ctime>
#include <filesystem>

namespace workbench {

namespace {

host::Shade ToShade(const Shade& shade) {
    return {shade[0], shade[1], shade[2]};
}

/// Attributes are counted from 1; BadIndex outside the list.
template <typename Attribute, typename Take>
host::ErrorCode ReadAt(const std::vector<Attribute>& list, std::int32_t index, Take&& take) {
    if (index < 1 || static_cast<std::size_t>(index) > list.size()) return host::Errors::BadIndex;
    take(list[static_cast<std::size_t>(index - 1)]);
    return host::NoError;
}

} // namespace

std::string ResourcesRole::ReadString(std::int16_t stringList, std::int16_t entry) {
    return std::string(::Resources::String(stringList, entry));
}

host::ModuleId ResourcesRole::ReadModuleId(std::int16_t number) {
    if (number != ResourceIds::ModuleIdResource) return {};
    const ::Resources::ModuleId id = ::Resources::OwnModuleId();
    return {id.developerId, id.localId};
}

std::string ResourcesRole::FormatNumber(double value, std::int16_t) {
    char buffer[400];
    const std::to_chars_result result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 2);
    std::string text(buffer, result.ptr);
    return text == "-0.00" ? "0.00" : text;
}

std::string ResourcesRole::FormatCurrentTime(std::uint32_t) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char buffer[32];
    const std::size_t length = std::strftime(buffer, sizeof buffer, "%Y-%m-%d %H:%M:%S", &local);
    return std::string(buffer, length);
}

std::string ResourcesRole::ToLowerCase(const std::string& text) {
    return workbench::ToLowerCase(text);
}

host::ErrorCode ModelRole::ListElements(host::ElementType type, host::ElementScope scope,
                                        std::vector<host::Guid>& elements) {
    if (project == nullptr) return host::Errors::NoProject;
    elements.clear();
    const bool isOf3D = scope == host::ElementScope::FloorPlanIn3D;
    if (isOf3D || databases.GetCurrent().type == host::DatabaseType::FloorPlan) {
        if (type == host::ElementType::All) elements.reserve(project->model.GetElements().size());
        for (const Element& element : project->model.GetElements())
            if (type == host::ElementType::All || element.type == type) elements.push_back(element.guid);
    }
    if (isOf3D || (type != host::ElementType::All && type != host::ElementType::Object)) return host::NoError;
    for (const PlacedObject& object : project->model.GetPlacedObjects())
        if (object.database == databases.GetCurrent().id) elements.push_back(object.guid);
    return host::NoError;
}

host::ErrorCode ModelRole::ReadElementHeader(const host::Guid& element, host::ElementHeader& header) {
    if (project == nullptr) return host::Errors::NoProject;
    const std::uint32_t position = project->model.FindElement(element);
    if (position == ElementIndex::NotFound) return host::Errors::BadId;
    const Element& found = project->model.GetElements()[position];
    header = {found.guid, found.type, found.layer};
    return host::NoError;
}

host::ErrorCode ModelRole::ReadElementComponents(const host::ElementHeader& header,
                                                 std::vector<host::MaterialComponent>& components) {
    if (project == nullptr) return host::Errors::NoProject;
    const std::uint32_t position = project->model.FindElement(header.guid);
    if (position == ElementIndex::NotFound) return host::Errors::BadId;
    const auto found = project->model.GetComponents(project->model.GetElements()[position]);
    components.assign(found.begin(), found.end());
    return host::NoError;
}

host::ErrorCode ModelRole::ReadProjectName(std::string& name) {
    if (project == nullptr) return host::Errors::NoProject;
    name = project->name;
    return host::NoError;
}

host::ErrorCode AttributesRole::CountBuildingMaterials(std::int32_t& highestIndex) {
    if (project == nullptr) return host::Errors::NoProject;
    highestIndex = static_cast<std::int32_t>(project->model.GetBuildingMaterials().size());
    return host::NoError;
}

host::ErrorCode AttributesRole::ReadBuildingMaterial(host::AttributeIndex index, host::BuildingMaterial& material) {
    if (project == nullptr) return host::Errors::NoProject;
    const host::BuildingMaterial* found = project->model.FindBuildingMaterial(index);
    if (found == nullptr) return host::Errors::BadIndex;
    material = *found;
    return host::NoError;
}

host::ErrorCode AttributesRole::ReadLayerName(host::AttributeIndex index, std::string& name) {
    if (project == nullptr) return host::Errors::NoProject;
    const Layer* found = project->model.FindLayer(index);
    if (found == nullptr) return host::Errors::BadIndex;
    name = found->name;
    return host::NoError;
}

host::ErrorCode AttributesRole::ReadPenColour(std::int16_t pen, host::Shade& colour) {
    if (project == nullptr) return host::Errors::NoProject;
    return ReadAt(project->model.GetPens(), pen, [&](const Pen& found) { colour = ToShade(found.shade); });
}

host::ErrorCode AttributesRole::ReadFillPattern(host::AttributeIndex index, host::FillPattern& pattern) {
    if (project == nullptr) return host::Errors::NoProject;
    return ReadAt(project->model.GetFills(), index.value, [&](const Fill& found) { pattern = found.pattern; });
}

host::ErrorCode AttributesRole::ReadSurfaceColour(host::AttributeIndex index, host::Shade& colour) {
    if (project == nullptr) return host::Errors::NoProject;
    return ReadAt(project->model.GetSurfaces(), index.value,
                  [&](const Surface& found) { colour = ToShade(found.shade); });
}

double TextMeasuringRole::MeasureWidth(const std::string& text) {
    return painter == nullptr ? PlainLetterWidth * static_cast<double>(utf8::CountCharacters(text))
                              : painter->MeasureWidth(text);
}

host::ErrorCode PicturesRole::ReadSpecialFolder(std::int16_t number, std::string& path) {
    if (number != host::TemporaryFolder) return host::Errors::BadParameters;
    std::error_code error;
    path = temporaryFolder.empty() ? std::filesystem::temp_directory_path(error).string() : temporaryFolder;
    return error ? host::Errors::General : host::NoError;
}

host::ErrorCode PicturesRole::WriteJpeg(const std::string& path, int width, int height, double scale,
                                        const std::function<void(host::NativeContext&)>& draw) {
    const bool isWritten = painter && painter(path, width, height, scale, draw);
    return isWritten ? host::NoError : host::Errors::General;
}

host::ErrorCode UndoableCommandsRole::Call(const std::string& undoName,
                                           const std::function<host::ErrorCode()>& command) {
    return project == nullptr ? host::Errors::NoProject : project->CallUndoable(undoName, command);
}

host::ErrorCode ProgressRole::Open(const std::string& title) {
    if (state.isOpen) return host::Errors::RefusedCommand;
    state = {};
    state.isOpen = true;
    state.title = title;
    Tell();
    return host::NoError;
}

host::ErrorCode ProgressRole::StartPhase(const std::string& text, std::int32_t maximum) {
    if (!state.isOpen) return host::Errors::RefusedCommand;
    state.phase = text;
    state.maximum = maximum;
    Tell();
    return host::NoError;
}

host::ErrorCode ProgressRole::SetValue(std::int32_t value) {
    if (!state.isOpen) return host::Errors::RefusedCommand;
    state.value = value;
    ++state.updates;
    Tell();
    return host::NoError;
}

host::ErrorCode ProgressRole::Close() {
    if (!state.isOpen) return host::Errors::RefusedCommand;
    state.isOpen = false;
    Tell();
    return host::NoError;
}

} // namespace workbench
