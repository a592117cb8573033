// The assessment of a real house against the sum that a script draws from the file's own text.
#include "Program.h"

#include "support/TestFolder.h"
#include "workbench/ifc/IfcImport.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <sstream>

namespace {

using namespace workbench::ifc;

constexpr char Model[] = KELVARNIX_SOURCE_DIR "/../shared/ifc/AC20-FZK-Haus.ifc";
constexpr char Figures[] = KELVARNIX_SOURCE_DIR "/../shared/data/materials.csv";
constexpr char Judge[] = "python3 " KELVARNIX_SOURCE_DIR "/tests/workbench/cli/judge_house.py ";

/// Volumes of the elements for which the file states none: rafters, purlins, beams, stair and railings.
std::string ListGeometryVolumes() {
    const ImportResult result = ReadIfcFile(Model, {}, {}, std::string(KELVARNIX_BIN_DIR) + "/kelvarnix-ifc-reader");
    EXPECT_FALSE(result.HasFailed()) << result.GetText();
    std::ostringstream lines;
    lines.precision(17);
    if (result.HasFailed()) return {};
    for (const ImportedElement& element : result.Get().elements)
        if (!element.statedVolumeM3 && !element.components.empty())
            lines << element.globalId << ";" << element.volumeM3 << "\n";
    return lines.str();
}

TEST(RealHouse, EqualsTheSumByHand) {
    for (const char* file : {Model, Figures})
        if (!std::filesystem::exists(file)) GTEST_SKIP() << file << " is not on this machine";
    const support::TestFolder folder;
    const std::string table = folder / "table.csv", json = folder / "result.json";
    ASSERT_EQ(std::system((Judge + std::string("table '") + Figures + "' '" + table + "'").c_str()), 0);
    const clitest::Finished finished = clitest::Shell(
        folder.GetPath(), "kelvarnix assess $SHARED/ifc/AC20-FZK-Haus.ifc --materials table.csv --strict "
                          "--json result.json --set 'PHASES=A1-A3;C3;C4' --set SERVICELIFE=50 "
                          "--set 'ELEMLIVES=Doors=30;Windows=30;Inventory=20;Installations=25' "
                          "--set 'CONTRIBUTION=Inventory_contribution=1;Inventory=5;Installations_contribution=1;"
                          "Installations=10;BuildingProcess_contribution=1;BuildingProcess=8'");
    ASSERT_EQ(finished.code, 0) << finished.output;
    const std::string geometry = folder.Write("geometry.csv", ListGeometryVolumes());
    const std::string command = Judge + std::string("compare '") + Model + "' '" + table + "' '" + geometry + "' '" +
                                json + "' >'" + (folder / "judgement.txt") + "' 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << finished.output;
    std::cout << support::ContentOf(folder / "judgement.txt"); // the sum, for a reader of the log
}

} // namespace
