// Projects for the store's tests, and a model as text, so that two can be compared whole.
#pragma once

#include "workbench/model/NewProject.h"
#include "workbench/store/ProjectFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace test {

/// A folder of the running test alone; gone afterwards.
class Folder {
public:
    Folder()
        : path(std::filesystem::temp_directory_path() /
               ("kelvarnix-" + std::to_string(getpid()) + "-" +
                testing::UnitTest::GetInstance()->current_test_info()->name())) {
        std::filesystem::create_directories(path);
    }
    ~Folder() { std::filesystem::remove_all(path); }
    std::filesystem::path operator/(const char* name) const { return path / name; }
    std::size_t CountFiles() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path), {}));
    }

    std::filesystem::path path;
};

inline std::string ReadAll(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void WriteAll(const std::filesystem::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

inline std::string Describe(const host::Variant& value) {
    std::ostringstream text;
    text << static_cast<int>(value.type) << ":" << value.integer << ":" << value.real << ":" << value.boolean << ":"
         << value.text << ":" << host::WriteGuid(value.guid);
    return text.str();
}

/// Everything that a project file keeps, in the model's order.
inline std::string Describe(const workbench::Model& model) {
    std::ostringstream text;
    text.precision(17);
    for (const auto& layer : model.GetLayers())
        text << "layer " << layer.index.value << " " << layer.name << "\n";
    for (const auto& pen : model.GetPens())
        text << "pen " << pen.index.value << " " << pen.shade[0] << " " << pen.shade[1] << " " << pen.shade[2] << "\n";
    for (const auto& fill : model.GetFills()) {
        text << "fill " << fill.index.value << " " << fill.name;
        for (const int byte : fill.pattern)
            text << " " << byte;
        text << "\n";
    }
    for (const auto& surface : model.GetSurfaces())
        text << "surface " << surface.index.value << " " << surface.name << " " << surface.shade[1] << "\n";
    for (const auto& one : model.GetBuildingMaterials())
        text << "material " << one.index.value << " " << one.name << " " << one.id << " " << one.densityKgM3 << " "
             << one.cutFill.value << " " << one.cutFillPen << " " << one.cutFillBackgroundPen << " "
             << one.cutSurface.value << "\n";
    for (const auto& element : model.GetElements()) {
        text << "element " << host::WriteGuid(element.guid) << " " << static_cast<int>(element.type) << " "
             << element.layer.value << " " << host::WriteGuid(element.classification) << " " << element.name << " "
             << element.kind << " " << element.openingAreaM2;
        for (const auto& part : model.GetComponents(element))
            text << " [" << part.buildingMaterial.value << " " << part.volumeM3 << " " << part.areaM2 << "]";
        text << "\n";
    }
    for (const auto& group : model.GetGroups())
        text << "group " << host::WriteGuid(group.guid) << " " << group.name << "\n";
    for (const auto& one : model.GetDefinitions()) {
        text << "definition " << host::WriteGuid(one.guid) << host::WriteGuid(one.group) << one.name << one.description
             << static_cast<int>(one.valueType) << static_cast<int>(one.collection) << one.editable
             << Describe(one.defaultValue);
        for (const auto& item : one.availability)
            text << " at " << host::WriteGuid(item);
        for (const auto& option : one.options)
            text << " option " << host::WriteGuid(option.key) << option.text;
        text << "\n";
    }
    for (const auto& system : model.GetSystems())
        text << "system " << host::WriteGuid(system.guid) << system.name << system.version << system.date.year << "-"
             << system.date.month << "-" << system.date.day << "\n";
    for (const auto& item : model.GetItems())
        text << "item " << host::WriteGuid(item.item.guid) << item.item.id << item.item.name
             << host::WriteGuid(item.system) << host::WriteGuid(item.parent) << "\n";
    for (const auto& one : model.GetMaterialClassifications())
        text << "classified " << one.material.value << " " << host::WriteGuid(one.item) << "\n";
    for (const auto& [material, values] : model.GetMaterialValues())
        for (const auto& [definition, value] : values)
            text << "value " << material.value << host::WriteGuid(definition) << Describe(value) << "\n";
    for (std::uint32_t i = 0; i < model.GetElements().size(); ++i)
        if (const auto* values = model.FindElementValues(i))
            for (const auto& [definition, value] : *values)
                text << "element value " << i << host::WriteGuid(definition) << Describe(value) << "\n";
    for (const auto& member : model.members)
        text << "member " << member.userId << member.login << member.fullName << "\n";
    for (const auto& one : model.reservations)
        text << "reservation " << one.lockableSet << one.userId << "\n";
    return text.str();
}

/// A project with at least one row of every kind.
inline std::unique_ptr<workbench::Project> MakeProject(int elements) {
    using namespace workbench;
    std::unique_ptr<Project> project = CreateProject();
    Model& model = project->model;
    model.AddLayer("Außen; \"quoted\" \xF0\x9F\x8F\xA0");
    for (int i = 0; i < 3; ++i) {
        host::BuildingMaterial material;
        material.name = "material " + std::to_string(i);
        material.id = "M" + std::to_string(i);
        material.densityKgM3 = 100.5 * i;
        material.cutFill = {2};
        material.cutFillPen = 3;
        material.cutFillBackgroundPen = -1;
        material.cutSurface = {4};
        model.AddBuildingMaterial(material);
    }
    for (int i = 0; i < elements; ++i) {
        Element element;
        element.guid = host::CreateGuid();
        element.type = i % 7 == 0 ? host::ElementType::Door : host::ElementType::Wall;
        element.layer = {1};
        element.classification = FindElementClassification(model, element.type);
        element.name = "element " + std::to_string(i);
        element.kind = "IfcWall";
        element.openingAreaM2 = i * 0.25;
        const std::vector<host::MaterialComponent> parts = {{{1 + i % 3}, 0.1 * i, 1.0 / (i + 1)}, {{1}, 1e-9, 2}};
        model.AddElement(element, std::span(parts).first(static_cast<std::size_t>(i % 3)));
    }
    const host::PropertyGroup group{host::CreateGuid(), "Group"};
    host::PropertyDefinition definition;
    definition.guid = host::CreateGuid();
    definition.group = group.guid;
    definition.name = "Choice";
    definition.description = "line\nbreak \"x\"";
    definition.valueType = host::ValueType::String;
    definition.collection = host::CollectionType::SingleChoice;
    definition.options = {{host::CreateGuid(), "m3"}, {host::CreateGuid(), "kg"}};
    definition.defaultValue = host::Variant::OfGuid(definition.options[1].key);
    definition.availability = {model.GetItems()[0].item.guid, model.GetItems()[1].item.guid};
    model.Apply({{}, group});
    model.Apply({{}, definition});
    model.Apply({{}, MaterialClassification{{2}, model.GetItems()[0].item.guid}});
    for (const host::Variant& value :
         {host::Variant::OfText("A1-A3=1;C3=2"), host::Variant::OfReal(1.0 / 3), host::Variant::OfBoolean(true),
          host::Variant::OfInteger(-7), host::Variant::OfGuid(definition.options[0].key)}) {
        model.Apply({{}, MaterialValue{{1}, host::CreateGuid(), value}});
        if (elements > 1) model.Apply({{}, ElementValue{model.GetElements()[1].guid, host::CreateGuid(), value}});
    }
    model.members = {{1, "anna", "Anna Größe"}, {2, "ben", ""}};
    model.reservations = {{"BuildingMaterials", 2}};
    return project;
}

inline std::string OpenAndDescribe(const std::filesystem::path& file) {
    const workbench::OpenedProject opened = workbench::OpenProjectFile(file, workbench::KeepChanges::InMemory);
    EXPECT_NE(opened.project, nullptr) << opened.failure;
    return opened.project ? Describe(opened.project->model) : opened.failure;
}

} // namespace test
