// The remaining roles of the workbench's host, each a few lines on the open project.
#pragma once

#include "host/Commands.h"
#include "host/Drawing.h"
#include "host/Model.h"
#include "host/Resources.h"
#include "workbench/host/DatabasesRole.h"

namespace workbench {

class ResourcesRole : public host::Resources {
public:
    std::string ReadString(std::int16_t stringList, std::int16_t entry) override;
    host::ModuleId ReadModuleId(std::int16_t number) override;
    /// Code 3: two decimals, a point, no grouping; every other code the same.
    std::string FormatNumber(double value, std::int16_t formatCode) override;
    std::string FormatCurrentTime(std::uint32_t flags) override;
    std::string ToLowerCase(const std::string& text) override;
};

class ModelRole : public host::Model {
public:
    ModelRole(Project*& project, const DatabasesRole& databases) : project(project), databases(databases) {}

    host::ErrorCode ListElements(host::ElementType type, host::ElementScope scope,
                                 std::vector<host::Guid>& elements) override;
    host::ErrorCode ReadElementHeader(const host::Guid& element, host::ElementHeader& header) override;
    host::ErrorCode ReadElementComponents(const host::ElementHeader& element,
                                          std::vector<host::MaterialComponent>& components) override;

private:
    Project*& project;
    const DatabasesRole& databases;
};

class AttributesRole : public host::Attributes {
public:
    explicit AttributesRole(Project*& project) : project(project) {}

    host::ErrorCode CountBuildingMaterials(std::int32_t& highestIndex) override;
    host::ErrorCode ReadBuildingMaterial(host::AttributeIndex index, host::BuildingMaterial& material) override;
    host::ErrorCode ReadLayerName(host::AttributeIndex index, std::string& name) override;
    host::ErrorCode ReadPenColour(std::int16_t pen, host::Shade& colour) override;
    host::ErrorCode ReadFillPattern(host::AttributeIndex index, host::FillPattern& pattern) override;
    host::ErrorCode ReadSurfaceColour(host::AttributeIndex index, host::Shade& colour) override;

private:
    Project*& project;
};

/// Every letter counts alike until a painter with a real font takes over.
class TextMeasuringRole : public host::TextMeasuring {
public:
    double MeasureWidth(const std::string& text) override;
    double ReadCapitalHeight() override {
        return painter == nullptr ? PlainCapitalHeight : painter->ReadCapitalHeight();
    }

    static constexpr double PlainLetterWidth = 6.0; ///< pixels
    static constexpr double PlainCapitalHeight = 8.0;
    host::TextMeasuring* painter = nullptr; ///< of whoever paints; outlives its use here
};

/// The workbench itself paints nothing; who has a painter lends it.
class PicturesRole : public host::Pictures {
public:
    host::ErrorCode ReadSpecialFolder(std::int16_t number, std::string& path) override;
    host::ErrorCode WriteJpeg(const std::string& path, int width, int height, double scale,
                              const std::function<void(host::NativeContext&)>& draw) override;

    using Painter = std::function<bool(const std::string& path, int width, int height, double scale,
                                       const std::function<void(host::NativeContext&)>& draw)>;
    Painter painter;             ///< answers whether the picture is written
    std::string temporaryFolder; ///< empty: the system's
};

class UndoableCommandsRole : public host::UndoableCommands {
public:
    explicit UndoableCommandsRole(Project*& project) : project(project) {}

    host::ErrorCode Call(const std::string& undoName, const std::function<host::ErrorCode()>& command) override;

private:
    Project*& project;
};

class ProgressRole : public host::ProgressWindow {
public:
    host::ErrorCode Open(const std::string& title) override;
    host::ErrorCode StartPhase(const std::string& text, std::int32_t maximum) override;
    host::ErrorCode SetValue(std::int32_t value) override;
    host::ErrorCode Close() override;

    struct State {
        bool isOpen = false;
        std::string title;
        std::string phase;
        std::int32_t maximum = 0;
        std::int32_t value = 0;
        int updates = 0; ///< how often the value was set
    };
    State state;
    /// Told after each change; may be empty.
    std::function<void(const State&)> observer;

private:
    void Tell() const {
        if (observer) observer(state);
    }
};

} // namespace workbench
