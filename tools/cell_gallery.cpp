// Paints the owner-drawn cells of the dialogs into a picture, to be looked at: swatches of building materials, and bars
// of the material report for positive, negative and mixed values.
//   cell_gallery FILE.png
#include "lca/PropertyKeys.h"
#include "resources/ResourceIds.h"
#include "workbench/host/Module.h"
#include "workbench/images/PaintedContext.h"
#include "workbench/model/NewProject.h"

#include <cstdio>

namespace {

using namespace ResourceIds;
using namespace workbench;

constexpr int Materials = 6;
constexpr int RowHeightPixels = 22;
constexpr int BarLeft = 80, BarSpacing = 180;

const std::vector<std::vector<double>> BarValues = {
    {10, 25, 60, 100, 0, 5}, {-10, -25, -60, -100, -1, -5}, {40, -25, 60, 100, 0, -50}};

/// A wall with a cubic metre of each material.
std::unique_ptr<Project> MakeProject() {
    std::unique_ptr<Project> project = CreateProject();
    Model& model = project->model;
    model.AddLayer("Layer");
    std::vector<host::MaterialComponent> components;
    for (int i = 1; i <= Materials; ++i) {
        host::BuildingMaterial material;
        material.name = "Material " + std::to_string(i);
        material.cutFill = {i};
        material.cutFillPen = static_cast<std::int16_t>(i);
        material.cutFillBackgroundPen = static_cast<std::int16_t>(i % 2 == 0 ? 8 : -1);
        material.cutSurface = {i};
        components.push_back({model.AddBuildingMaterial(material), 1.0, 1.0});
    }
    Element wall;
    wall.guid = host::CreateGuid();
    wall.type = host::ElementType::Wall;
    wall.layer = {1};
    wall.classification = FindElementClassification(model, wall.type);
    model.AddElement(wall, components);
    return project;
}

void DrawColumn(WorkbenchHost& host, PaintedContext& picture, std::int16_t menu, std::int16_t list, std::int16_t column,
                int left) {
    host.dialogManager.modalUser = [&](host::DialogId dialog) {
        const auto rows = static_cast<std::int32_t>(host.openDialogs.FindItem(dialog, list)->list.rows.size());
        for (std::int32_t row = 1; row <= rows; ++row) {
            picture.SetOrigin(left, (row - 1) * RowHeightPixels);
            host.dialogManager.DrawCell(dialog, list, row, column, picture);
        }
    };
    std::ignore = host.registration.ChooseMenu(menu, 1);
}

/// Types a value a material, as a user does.
void EnterValues(WorkbenchHost& host, const std::vector<double>& values) {
    using namespace BuildingMaterialsItems;
    host.dialogManager.modalUser = [&](host::DialogId dialog) {
        for (int i = 0; i < Materials; ++i) {
            host.dialogManager.SelectRows(dialog, MaterialList, {i + 1});
            host.dialogManager.SelectRows(dialog, PhaseList, {1});
            host.dialogManager.TypeIntoCell(dialog, PhaseList, 2, std::to_string(values[static_cast<std::size_t>(i)]));
        }
        host.dialogManager.Press(dialog, OkButton);
    };
    std::ignore = host.registration.ChooseMenu(Menus::BuildingMaterials, 1);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "cell_gallery: name the picture to write\n");
        return 2;
    }
    WorkbenchHost host;
    Module module(host);
    Outcome started = module.Load(GetModulePath(AddOnFile));
    if (!started.HasFailed()) started = module.Start();
    if (started.HasFailed()) {
        std::fprintf(stderr, "cell_gallery: %s\n", started.GetText().c_str());
        return 3;
    }
    host.OpenProject(MakeProject(), host::ProjectEvent::New);
    PaintedContext picture(BarLeft + 3 * BarSpacing, (Materials + 3) * RowHeightPixels, 2);
    DrawColumn(host, picture, Menus::BuildingMaterials, BuildingMaterialsItems::MaterialList, 1, 5);
    int left = BarLeft;
    for (const std::vector<double>& values : BarValues) {
        EnterValues(host, values);
        DrawColumn(host, picture, Menus::MaterialReport, MaterialReportItems::Table, 4, left);
        left += BarSpacing;
    }
    if (!picture.WritePicture(argv[1]).HasFailed()) return 0;
    std::fprintf(stderr, "cell_gallery: %s cannot be written\n", argv[1]);
    return 5;
}
