// Prints what the import makes of a file, for a person to look at: kelvarnix-ifc-dump FILE
#include <cstdio>

#include "Description.h"
#include "workbench/ifc/IfcImport.h"

int main(int count, char** words) {
    if (count != 2) return 2;
    const workbench::ifc::ImportResult result = workbench::ifc::ReadIfcFile(words[1]);
    if (result.HasFailed()) {
        std::fprintf(stderr, "%s\n", result.GetText().c_str());
        return 3;
    }
    std::fputs(ifctest::Describe(result.Get()).c_str(), stdout);
    return 0;
}
