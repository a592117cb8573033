#include "IfcText.h"

#include <atomic>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

using namespace workbench::ifc;

namespace ifctest {

std::string MetricProject() {
    return "#1=IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.);\n#2=IFCSIUNIT(*,.AREAUNIT.,$,.SQUARE_METRE.);\n"
           "#3=IFCSIUNIT(*,.VOLUMEUNIT.,$,.CUBIC_METRE.);\n#4=IFCUNITASSIGNMENT((#1,#2,#3));\n"
           "#5=IFCPROJECT('project',$,'House',$,$,$,$,(#6),#4);\n"
           "#6=IFCGEOMETRICREPRESENTATIONCONTEXT($,'Model',3,1.E-5,#7,$);\n#7=IFCAXIS2PLACEMENT3D(#8,$,$);\n"
           "#8=IFCCARTESIANPOINT((0.,0.,0.));\n#9=IFCLOCALPLACEMENT($,#7);\n";
}

std::string File(std::string_view schema, std::string_view body) {
    return "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\nFILE_SCHEMA(("
           "'" +
           std::string(schema) + "'));\nENDSEC;\nDATA;\n" + std::string(body) + "ENDSEC;\nEND-ISO-10303-21;\n";
}

std::string Box(int first, double width, double depth, double height) {
    std::ostringstream text;
    text << std::showpoint << '#' << first << "=IFCRECTANGLEPROFILEDEF(.AREA.,$,#" << first + 4 << ',' << width << ','
         << depth << ");\n#" << first + 1 << "=IFCEXTRUDEDAREASOLID(#" << first << ",#7,#" << first + 6 << ',' << height
         << ");\n#" << first + 2 << "=IFCSHAPEREPRESENTATION(#6,'Body','SweptSolid',(#" << first + 1 << "));\n#"
         << first + 3 << "=IFCPRODUCTDEFINITIONSHAPE($,$,(#" << first + 2 << "));\n#" << first + 4
         << "=IFCAXIS2PLACEMENT2D(#" << first + 5 << ",$);\n#" << first + 5 << "=IFCCARTESIANPOINT((0.,0.));\n#"
         << first + 6 << "=IFCDIRECTION((0.,0.,1.));\n";
    return text.str();
}

std::string Quantity(int first, int object, std::string_view kind, std::string_view name, std::string_view value) {
    std::ostringstream text;
    text << '#' << first << "=IFCQUANTITY" << kind << "('" << name << "',$,$," << value << ",$);\n#" << first + 1
         << "=IFCELEMENTQUANTITY('q',$,'BaseQuantities',$,$,(#" << first << "));\n#" << first + 2
         << "=IFCRELDEFINESBYPROPERTIES('r',$,$,$,(#" << object << "),#" << first + 1 << ");\n";
    return text.str();
}

TemporaryFile::TemporaryFile(std::string_view name, std::string_view content) {
    static std::atomic<int> count = 0;
    const auto folder = std::filesystem::temp_directory_path() /
                        ("kelvarnix-ifc-test-" + std::to_string(getpid()) + "-" + std::to_string(count++));
    std::filesystem::create_directories(folder);
    path = folder / name;
    std::ofstream stream(path, std::ios::binary);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
}

TemporaryFile::~TemporaryFile() {
    std::error_code ignored;
    std::filesystem::remove_all(path.parent_path(), ignored);
}

std::filesystem::path Reader() {
    return std::filesystem::path(KELVARNIX_BIN_DIR) / "kelvarnix-ifc-reader";
}

ImportResult Read(std::string_view text, const ImportSettings& limits) {
    const TemporaryFile file("model.ifc", text);
    return ReadIfcFile(file.Path(), limits, {}, Reader());
}

ImportedBuilding Building(std::string_view text) {
    ImportResult result = Read(text, {});
    EXPECT_FALSE(result.HasFailed()) << result.GetText();
    return result.HasFailed() ? ImportedBuilding() : result.Take();
}

ImportedElement Element(const ImportedBuilding& building, std::string_view globalId) {
    for (const ImportedElement& element : building.elements) {
        if (element.globalId == globalId) return element;
    }
    ADD_FAILURE() << "no element " << globalId;
    return {};
}

std::string Components(const ImportedBuilding& building, std::string_view globalId) {
    std::ostringstream text;
    for (const ImportedComponent& component : Element(building, globalId).components) {
        text << (text.tellp() > 0 ? "; " : "") << building.materials.at(component.material).name << " "
             << component.volumeM3 << " m3 " << component.areaM2 << " m2";
    }
    return text.str();
}

std::string Ids(const std::vector<ImportFinding>& findings) {
    std::string text;
    for (const ImportFinding& finding : findings)
        text += (text.empty() ? "" : " ") + finding.globalId;
    return text;
}

} // namespace ifctest
