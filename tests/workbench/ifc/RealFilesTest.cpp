// The two real models, against sums that a plain search through the file's text makes.
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include "IfcText.h"

using namespace workbench::ifc;

namespace {

const std::filesystem::path Folder = std::filesystem::path(KELVARNIX_SOURCE_DIR) / ".." / "shared" / "ifc";

/// A STEP file as its statements by number; knows nothing of any schema.
class Statements {
public:
    explicit Statements(const std::filesystem::path& path) {
        std::ifstream stream(path, std::ios::binary);
        for (std::string line; std::getline(stream, line);) {
            const std::size_t equals = line.find('=');
            if (line.starts_with('#') && equals != std::string::npos) {
                const std::size_t text = line.find_first_not_of(' ', equals + 1);
                byNumber[std::stoi(line.substr(1))] = line.substr(text);
            }
        }
    }

    [[nodiscard]] const std::string& At(int number) const { return byNumber.at(number); }

    [[nodiscard]] std::vector<int> OfKeyword(const std::string& keyword) const {
        std::vector<int> numbers;
        for (const auto& [number, text] : byNumber) {
            if (text.starts_with(keyword + "(")) numbers.push_back(number);
        }
        return numbers;
    }

    /// The numbers that TEXT refers to.
    static std::vector<int> References(const std::string& text) {
        std::vector<int> numbers;
        for (std::size_t at = text.find('#'); at != std::string::npos; at = text.find('#', at + 1))
            numbers.push_back(std::stoi(text.substr(at + 1)));
        return numbers;
    }

    /// The Nth string of TEXT, from 0.
    static std::string Quoted(const std::string& text, int n) {
        std::size_t at = 0;
        for (; n >= 0; --n) {
            at = text.find('\'', at);
            const std::size_t end = text.find('\'', at + 1);
            if (n == 0) return text.substr(at + 1, end - at - 1);
            at = end + 1;
        }
        return {};
    }

private:
    std::map<int, std::string> byNumber;
};

/// Last number of a statement.
double LastNumber(const std::string& text) {
    std::string number = text.substr(0, text.rfind(')'));
    if (number.ends_with(",$")) number.resize(number.size() - 2);
    return std::stod(number.substr(number.rfind(',') + 1));
}

/// Stated values by object number. A relation refers to its owner history first and to what it relates last.
std::map<int, double> StatedBy(const Statements& file, const std::string& quantity, const std::string& name) {
    std::map<int, double> values;
    const std::string start = quantity + "('" + name + "'";
    for (const int relation : file.OfKeyword("IFCRELDEFINESBYPROPERTIES")) {
        const std::vector<int> references = Statements::References(file.At(relation));
        const std::string& set = file.At(references.back());
        if (!set.starts_with("IFCELEMENTQUANTITY")) continue;
        for (const int member : Statements::References(set)) {
            const std::string& text = file.At(member);
            if (!text.starts_with(start)) continue;
            for (std::size_t i = 1; i + 1 < references.size(); ++i)
                values[references[i]] = LastNumber(text);
        }
    }
    return values;
}

class RealFiles : public testing::Test {
protected:
    void Need(const char* name) {
        path = Folder / name;
        if (!std::filesystem::exists(path)) GTEST_SKIP() << name << " is not on this machine";
    }
    std::filesystem::path path;
};

TEST_F(RealFiles, HouseAgreesWithItsStatedQuantities) {
    Need("AC20-FZK-Haus.ifc");
    if (IsSkipped()) return;
    const Statements file(path);
    const ImportResult result = ReadIfcFile(path, {}, {}, ifctest::Reader());
    ASSERT_FALSE(result.HasFailed()) << result.GetText();
    const ImportedBuilding& building = result.Get();

    const std::map<int, double> volumes = StatedBy(file, "IFCQUANTITYVOLUME", "NetVolume");
    std::size_t statedElements = 0;
    double statedSum = 0.0;
    for (const char* keyword : {"IFCWALLSTANDARDCASE", "IFCSLAB", "IFCBEAM", "IFCMEMBER", "IFCSTAIR", "IFCRAILING"}) {
        for (const int number : file.OfKeyword(keyword)) {
            const std::string globalId = Statements::Quoted(file.At(number), 0);
            const ImportedElement element = ifctest::Element(building, globalId);
            const auto stated = volumes.find(number);
            if (stated == volumes.end() || stated->second <= 0.0) {
                EXPECT_EQ(element.volumeSource, QuantitySource::Geometry) << keyword << " " << globalId;
                EXPECT_GT(element.volumeM3, 0.0) << keyword << " " << globalId;
                continue;
            }
            ++statedElements;
            statedSum += stated->second;
            EXPECT_EQ(element.volumeSource, QuantitySource::StatedNet) << globalId;
            EXPECT_DOUBLE_EQ(element.volumeM3, stated->second) << globalId;
        }
    }
    EXPECT_GE(statedElements, 17U) << "13 walls and 4 slabs";
    double importedSum = 0.0;
    for (const ImportedElement& element : building.elements) {
        double parts = 0.0;
        for (const ImportedComponent& component : element.components)
            parts += component.volumeM3;
        if (!element.components.empty()) {
            EXPECT_NEAR(parts, element.volumeM3, 1e-9) << element.globalId;
        }
        if (element.volumeSource == QuantitySource::StatedNet) importedSum += element.volumeM3;
    }
    EXPECT_NEAR(importedSum, statedSum, 1e-9 * statedSum);
    EXPECT_TRUE(building.correctedVolumes.empty());
    EXPECT_TRUE(building.withoutQuantity.empty());
    EXPECT_TRUE(building.withoutMaterial.empty());
    EXPECT_EQ(std::count_if(building.elements.begin(), building.elements.end(),
                            [](const ImportedElement& e) { return e.kind == ElementKind::Window; }),
              static_cast<std::ptrdiff_t>(file.OfKeyword("IFCWINDOW").size()));
    EXPECT_EQ(std::count_if(building.elements.begin(), building.elements.end(),
                            [](const ImportedElement& e) { return e.kind == ElementKind::Door; }),
              static_cast<std::ptrdiff_t>(file.OfKeyword("IFCDOOR").size()));
    EXPECT_EQ(building.leftOut.at("IfcVirtualElement"), 3);
    EXPECT_NE(std::find(building.layers.begin(), building.layers.end(), "Außenwände"), building.layers.end());
}

TEST_F(RealFiles, HouseVolumesPerMaterialAreTheStatedOnes) {
    Need("AC20-FZK-Haus.ifc");
    if (IsSkipped()) return;
    const Statements file(path);
    const std::map<int, double> volumes = StatedBy(file, "IFCQUANTITYVOLUME", "NetVolume");
    std::map<std::string, double> expected; // all sets of the file have one layer, so a set's name is its one material
    for (const int relation : file.OfKeyword("IFCRELASSOCIATESMATERIAL")) {
        const std::vector<int> references = Statements::References(file.At(relation));
        std::string material = file.At(references.back());
        while (!material.starts_with("IFCMATERIAL(")) {
            ASSERT_FALSE(Statements::References(material).empty()) << material;
            material = file.At(Statements::References(material).front());
        }
        for (std::size_t i = 1; i + 1 < references.size(); ++i) {
            const auto stated = volumes.find(references[i]);
            if (stated != volumes.end()) expected[Statements::Quoted(material, 0)] += stated->second;
        }
    }
    ASSERT_FALSE(expected.empty());
    const ImportResult result = ReadIfcFile(path, {}, {}, ifctest::Reader());
    ASSERT_FALSE(result.HasFailed()) << result.GetText();
    std::map<std::string, double> imported;
    for (const ImportedElement& element : result.Get().elements) {
        for (const ImportedComponent& component : element.components) {
            if (element.volumeSource == QuantitySource::StatedNet)
                imported[result.Get().materials.at(component.material).name] += component.volumeM3;
        }
    }
    for (const auto& [name, volume] : expected) {
        if (volume > 0.0) {
            EXPECT_NEAR(imported[name], volume, 1e-9 * volume) << name;
        }
    }
}

TEST_F(RealFiles, TinyHouseInMillimetresComesFromGeometry) {
    Need("IfcOpenHouse_IFC4.ifc");
    if (IsSkipped()) return;
    const ImportResult result = ReadIfcFile(path, {}, {}, ifctest::Reader());
    ASSERT_FALSE(result.HasFailed()) << result.GetText();
    const ImportedBuilding& building = result.Get();
    EXPECT_DOUBLE_EQ(building.metresPerLengthUnit, 0.001);
    EXPECT_EQ(ifctest::Ids(building.sumsOfParts), "1C6JH2QOP0lwj7ou2leSLH") << "the roof of two slabs";
    // By hand from the profiles: the north wall is 10 m x 3 m x 0.36 m, without openings.
    EXPECT_NEAR(ifctest::Element(building, "3xUPAVO39FGgNkCUQqf4JV").volumeM3, 10.8, 1e-6);
    // Both roof slabs are alike.
    EXPECT_NEAR(ifctest::Element(building, "2KoBar2pfAWBou8q$ldGHy").volumeM3,
                ifctest::Element(building, "3lPsczHcDCwepFiJhZqz9q").volumeM3, 1e-6);
    EXPECT_EQ(building.leftOut.at("IfcMember (part of a door or window)"), 20);
}

TEST_F(RealFiles, CutHousesAreRefused) {
    Need("AC20-FZK-Haus.ifc");
    if (IsSkipped()) return;
    std::ifstream stream(path, std::ios::binary);
    const std::string whole((std::istreambuf_iterator<char>(stream)), {});
    for (int part = 1; part < 20; ++part) {
        const ImportResult result =
            ifctest::Read(std::string_view(whole).substr(0, whole.size() * static_cast<std::size_t>(part) / 20));
        EXPECT_EQ(result.GetError(), ImportError::Damaged) << part;
        EXPECT_NE(result.GetText().find("is cut off in line "), std::string::npos) << result.GetText();
    }
}

} // namespace
