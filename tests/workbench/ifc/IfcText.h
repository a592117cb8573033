// Small IFC files written by hand, and reading them through the child program.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "workbench/ifc/IfcImport.h"

namespace ifctest {

/// A project in metres, entities 1 to 9: #4 units, #5 project, #6 context, #7 axes at the origin, #9 placement there.
[[nodiscard]] std::string MetricProject();

/// A whole file of the header, DATA with BODY, and the end.
[[nodiscard]] std::string File(std::string_view schema, std::string_view body);

/// Shape of a box, width x depth x height in file units, centred on the axes; entities FIRST to FIRST+6. FIRST+3 is the
/// product's shape.
[[nodiscard]] std::string Box(int first, double width, double depth, double height);

/// Quantity set with one volume or area (KIND "VOLUME", "AREA", "LENGTH") for OBJECT; entities FIRST to FIRST+2.
[[nodiscard]] std::string Quantity(int first, int object, std::string_view kind, std::string_view name,
                                   std::string_view value);

/// A file in a folder of its own that goes with the object.
class TemporaryFile {
public:
    TemporaryFile(std::string_view name, std::string_view content);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();
    [[nodiscard]] const std::filesystem::path& Path() const { return path; }

private:
    std::filesystem::path path;
};

[[nodiscard]] std::filesystem::path Reader();

/// Reads TEXT with the real child program.
[[nodiscard]] workbench::ifc::ImportResult Read(std::string_view text,
                                                const workbench::ifc::ImportSettings& limits = {});

/// Reads TEXT, fails the test where that fails, and gives the building, empty then.
[[nodiscard]] workbench::ifc::ImportedBuilding Building(std::string_view text);

/// The element of that GlobalId; fails the test where there is none and gives an empty one.
[[nodiscard]] workbench::ifc::ImportedElement Element(const workbench::ifc::ImportedBuilding& building,
                                                      std::string_view globalId);

/// "Brick 1.5 m3 10 m2; Wood 0.5 m3 10 m2" in the element's order.
[[nodiscard]] std::string Components(const workbench::ifc::ImportedBuilding& building, std::string_view globalId);

/// GlobalIds of findings, blank-separated.
[[nodiscard]] std::string Ids(const std::vector<workbench::ifc::ImportFinding>& findings);

} // namespace ifctest
