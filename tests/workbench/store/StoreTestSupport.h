// Projects for the store's tests.
#pragma once

#include "../ModelText.h"
#include "workbench/model/NewProject.h"
#include "workbench/store/ProjectFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

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
    model.requests = {{"BuildingMaterials", 1}};
    model.favourites = {
        {"Größe 2 \"x\"", true, model.libraryParts[0].identifier, 0.5, 2, 3, model.libraryParts[0].parameters},
        {"Door", false, "", 0, 1, 1, {}}};
    PlacedObject object{host::CreateGuid(),
                        model.databases[1].guid,
                        model.libraryParts[1].identifier,
                        {1.5, -2},
                        0.1,
                        1,
                        1,
                        model.libraryParts[1].parameters};
    object.parameters[0].textArray = u"LCA \u00e9\0\xd83c\xdfe0\0"; // an accent and a house
    object.parameters[2].realArray = {1.0 / 3, -0.0, 1e300};
    model.Apply({{}, object});
    return project;
}

inline std::string OpenAndDescribe(const std::filesystem::path& file) {
    const workbench::OpenedProject opened = workbench::OpenProjectFile(file, workbench::KeepChanges::InMemory);
    EXPECT_NE(opened.project, nullptr) << opened.failure;
    return opened.project ? Describe(opened.project->model) : opened.failure;
}

} // namespace test
