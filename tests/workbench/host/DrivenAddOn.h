// The loaded add-on on the workbench, with a small building open, and the hands of a user.
#pragma once

#include "resources/ResourceData.h"
#include "workbench/host/Module.h"

#include <gtest/gtest.h>

#include "TestBuilding.h"

namespace test {

class DrivenAddOn : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(module.Load(KELVARNIX_BIN_DIR "/Kelvarnix.apx").GetText(), "");
        ASSERT_EQ(module.Start().GetText(), "");
        host.dialogManager.reportSink = [this](const std::string& line) { report.push_back(line); };
        host.OpenProject(MakeBuilding(), host::ProjectEvent::New);
    }
    workbench::Model& Model() { return host.GetProject()->model; }
    std::size_t CountSteps() { return host.GetProject()->ListUndoNames().size(); }

    void TogglePalette() { ASSERT_EQ(host.registration.ChooseMenu(ResourceIds::Menus::Palette, 1), host::NoError); }
    workbench::DialogState* Palette() { return host.openDialogs.FindByResource(ResourceIds::PaletteDialog); }
    workbench::ItemState& PaletteItem(std::int16_t item) { return *host.openDialogs.FindItem(Palette()->id, item); }
    std::string Cell(int row, int column) {
        return host.listCells.ReadText(Palette()->id, ResourceIds::PaletteItems::Table, row,
                                       static_cast<std::int16_t>(column));
    }

    /// Opens the dialog of a menu command and works in it; the test fails when it does not open.
    void InDialog(std::int16_t menu, const std::function<void()>& work) {
        bool isOpened = false;
        host.dialogManager.modalUser = [&](host::DialogId opened) {
            isOpened = true;
            dialog = opened;
            work();
        };
        EXPECT_EQ(host.registration.ChooseMenu(menu, 1), host::NoError);
        host.dialogManager.modalUser = nullptr;
        EXPECT_TRUE(isOpened);
    }
    workbench::ItemState& Item(std::int16_t item) { return *host.openDialogs.FindItem(dialog, item); }
    /// The texts of a column of a list in the open dialog, from the top.
    std::vector<std::string> Column(std::int16_t list, std::int16_t column) {
        std::vector<std::string> texts;
        for (const workbench::RowState& row : Item(list).list.rows)
            texts.push_back(row.cells.at(static_cast<std::size_t>(column - 1)).text);
        return texts;
    }
    bool Press(std::int16_t item) { return host.dialogManager.Press(dialog, item); }
    bool Type(std::int16_t item, const std::string& text) { return host.dialogManager.Type(dialog, item, text); }
    bool TypeIntoCell(std::int16_t list, std::int16_t column, const std::string& text) {
        return host.dialogManager.TypeIntoCell(dialog, list, column, text);
    }
    bool Select(std::int16_t list, const std::vector<std::int32_t>& rows) {
        return host.dialogManager.SelectRows(dialog, list, rows);
    }
    bool Toggle(std::int16_t item) { return host.dialogManager.Toggle(dialog, item); }

    /// A material's own value as stored; none where it has no own one.
    std::optional<host::Variant> StoredValue(host::AttributeIndex material, lca::PropertyKey key) {
        const auto* values = Model().FindMaterialValues(material);
        if (values == nullptr) return std::nullopt;
        const auto found = values->find(FindByKey(Model(), key).guid);
        return found == values->end() ? std::nullopt : std::optional(found->second);
    }
    std::string StoredGWP(host::AttributeIndex material) {
        return StoredValue(material, lca::PropertyKey::GWPPerUnit).value_or(host::Variant::OfText("-")).text;
    }
    void StoreGWP(host::AttributeIndex material, const std::string& text) {
        StoreValue(material, ValueOf(Model(), lca::PropertyKey::GWPPerUnit, host::Variant::OfText(text)));
    }
    void StoreValue(host::AttributeIndex material, const host::PropertyValue& value) {
        const host::Guid item = Model().FindDefinition(value.definition)->availability.at(0);
        const auto store = [&] {
            // A second time is refused and changes nothing.
            static_cast<void>(host.classifications.ClassifyMaterial(material, item));
            return host.properties.WriteMaterialValues(material, {value});
        };
        ASSERT_EQ(host.commands.Call("material", store), host::NoError);
    }
    /// Sets a project default as the host's property manager would.
    void SetDefault(lca::PropertyKey key, host::Variant value) {
        host::PropertyDefinition definition = FindByKey(Model(), key);
        definition.defaultValue = std::move(value);
        ASSERT_EQ(host.commands.Call("d", [&] { return host.properties.ChangeDefinition(definition); }), host::NoError);
    }
    host::Variant Default(lca::PropertyKey key) { return FindByKey(Model(), key).defaultValue; }
    /// Reads the settings anew, as opening the project does.
    void Reopen() { EXPECT_FALSE(host.registration.RaiseEvent(host::ProjectEvent::Open)); }
    workbench::WorkbenchHost host;
    workbench::Module module{host};
    host::DialogId dialog; ///< in which the user works
    std::vector<std::string> report;
};

} // namespace test
