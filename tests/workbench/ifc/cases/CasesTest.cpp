// Every file of samples/ifc-cases, the large ones too, through the child program, against the figures in expected.txt
// that were worked out by hand. A table says what differs.
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <unistd.h>

#include "workbench/ifc/IfcImport.h"

using namespace workbench::ifc;
namespace fs = std::filesystem;

namespace {

struct Row {
    std::string file, element, quantity, value, tolerance, how;
};

std::vector<Row> ReadRows(const fs::path& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line); // the titles
    std::vector<Row> rows;
    while (std::getline(stream, line)) {
        std::istringstream cells(line);
        Row row;
        for (std::string Row::*cell :
             {&Row::file, &Row::element, &Row::quantity, &Row::value, &Row::tolerance, &Row::how})
            std::getline(cells, row.*cell, ';');
        rows.push_back(row);
    }
    return rows;
}

std::string Number(double value) {
    std::ostringstream text;
    text.precision(10);
    text << value;
    return text.str();
}

template <class Source>
std::string NameOf(std::initializer_list<const char*> names, Source source) {
    return names.begin()[static_cast<std::size_t>(source)];
}

std::string NameOf(QuantitySource source) {
    return NameOf({"none", "net", "gross", "geometry", "shell", "layers"}, source);
}

/// The lists of findings that name the element.
std::string ListsWith(const ImportedBuilding& building, const std::string& id) {
    const std::pair<const char*, const std::vector<ImportFinding>*> lists[] = {
        {"sum of parts", &building.sumsOfParts},
        {"without quantity", &building.withoutQuantity},
        {"without volume", &building.withoutVolume},
        {"without material", &building.withoutMaterial},
        {"shares unknown", &building.sharesUnknown}};
    std::string text;
    const auto add = [&](const ImportFinding& finding, const char* title) {
        if (finding.globalId == id) text += (text.empty() ? "" : ", ") + std::string(title);
    };
    for (const auto& [title, findings] : lists)
        for (const ImportFinding& finding : *findings)
            add(finding, title);
    for (const VolumeCorrection& correction : building.correctedVolumes)
        add(correction.element, "corrected");
    return text.empty() ? "none" : text;
}

std::string OfMaterial(const ImportedBuilding& building, const ImportedElement& element, const Row& row) {
    std::string text = "none";
    for (const ImportedComponent& component : element.components) {
        const std::string& name = building.materials.at(component.material).name;
        if (row.quantity == "volume of " + name) text = Number(component.volumeM3);
        if (row.quantity == "area of " + name) text = Number(component.areaM2);
    }
    return text;
}

std::string OfElement(const ImportedBuilding& building, const ImportedElement& element, const Row& row) {
    if (row.quantity == "volume") return Number(element.volumeM3);
    if (row.quantity == "area") return Number(element.areaM2);
    if (row.quantity == "volume source") return NameOf(element.volumeSource);
    if (row.quantity == "area source") return NameOf(element.areaSource);
    if (row.quantity == "name") return element.name;
    if (row.quantity == "type") return element.ifcType;
    if (row.quantity == "storey") return element.storey ? building.storeys.at(*element.storey).name : "none";
    if (row.quantity == "layer") return building.layers.at(element.layer);
    if (row.quantity == "width") return Number(element.overallWidthM.value_or(0.0));
    if (row.quantity == "height") return Number(element.overallHeightM.value_or(0.0));
    return OfMaterial(building, element, row);
}

std::string DensityOf(const ImportedBuilding& building, const std::string& material) {
    for (const ImportedMaterial& entry : building.materials)
        if (entry.name == material) return entry.densityKgPerM3 ? Number(*entry.densityKgPerM3) : "none";
    return "no such material";
}

std::string CountLeftOut(const ImportedBuilding& building) {
    std::string text;
    for (const auto& [type, count] : building.leftOut)
        text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + type;
    return text.empty() ? "none" : text;
}

/// The expected words where a warning has them, else all warnings.
std::string FindWarning(const ImportedBuilding& building, const std::string& words) {
    std::string all;
    for (const std::string& warning : building.warnings) {
        if (warning.find(words) != std::string::npos) return words;
        all += warning + " ";
    }
    return all;
}

std::string OfBuilding(const ImportedBuilding& building, const Row& row) {
    if (row.quantity == "elements") return std::to_string(building.elements.size());
    if (row.quantity == "schema") return building.schema;
    if (row.quantity == "floor area") return Number(building.grossFloorAreaM2.value_or(0.0));
    if (row.quantity == "floor area source")
        return NameOf({"none", "building", "spaces gross", "spaces net", "spaces mixed", "storeys gross", "storeys net",
                       "spaces other"},
                      building.grossFloorAreaSource);
    if (row.quantity == "left out") return CountLeftOut(building);
    if (row.quantity == "warning") return FindWarning(building, row.value);
    if (row.quantity.starts_with("density of ")) return DensityOf(building, row.quantity.substr(11));
    return "no such quantity";
}

std::string Find(const ImportedBuilding& building, const Row& row) {
    if (row.element.empty()) return OfBuilding(building, row);
    if (row.quantity == "lists") return ListsWith(building, row.element);
    for (const ImportedElement& element : building.elements)
        if (element.globalId == row.element) return OfElement(building, element, row);
    return "no such element";
}

bool IsNear(const std::string& found, const Row& row) {
    char* end = nullptr;
    const double number = std::strtod(found.c_str(), &end);
    const double wanted = std::stod(row.value);
    return end != found.c_str() && *end == '\0' && std::abs(number - wanted) <= std::stod(row.tolerance) * wanted;
}

bool Fits(const std::string& found, const Row& row) {
    return row.tolerance.empty() ? found == row.value : IsNear(found, row);
}

/// A folder with all cases that goes with the object.
class MadeCases {
public:
    MadeCases() : folder(fs::temp_directory_path() / ("kelvarnix-ifc-cases-" + std::to_string(getpid()))) {
        const std::string command = "'" KELVARNIX_PYTHON "' -B '" KELVARNIX_SOURCE_DIR
                                    "/samples/ifc-cases/make_cases.py' '" +
                                    folder.string() + "'";
        isMade = std::system(command.c_str()) == 0;
    }
    MadeCases(const MadeCases&) = delete;
    MadeCases& operator=(const MadeCases&) = delete;
    ~MadeCases() {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }
    [[nodiscard]] bool IsMade() const { return isMade; }
    [[nodiscard]] fs::path Path(const std::string& name) const { return folder / name; }

private:
    fs::path folder;
    bool isMade = false;
};

TEST(IfcCases, AreAsWorkedOutByHand) {
    const MadeCases cases;
    ASSERT_TRUE(cases.IsMade());
    std::map<std::string, std::vector<Row>> byFile;
    for (const Row& row : ReadRows(cases.Path("expected.txt")))
        byFile[row.file].push_back(row);
    EXPECT_GE(byFile.size(), 60U);
    std::ostringstream table;
    for (const auto& [file, rows] : byFile) {
        const ImportResult result =
            ReadIfcFile(cases.Path(file + ".ifc"), {}, {}, fs::path(KELVARNIX_BIN_DIR) / "kelvarnix-ifc-reader");
        for (const Row& row : rows) {
            const std::string found = result.HasFailed() ? result.GetText() : Find(result.Get(), row);
            if (Fits(found, row)) continue;
            table << file << " | " << row.element << ' ' << row.quantity << " | " << found << " instead of "
                  << row.value << " = " << row.how << '\n';
        }
    }
    EXPECT_EQ(table.str(), "");
}

} // namespace
