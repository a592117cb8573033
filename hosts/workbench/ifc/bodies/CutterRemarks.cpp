#include "workbench/ifc/bodies/CutterRemarks.h"

namespace workbench::bodies {

void RemarkOnCutters(Remarks& remarks, const std::vector<geometry::CutterUse>& uses, const std::string& what) {
    using geometry::CutterUse;
    for (const CutterUse use : uses) {
        if (use == CutterUse::NotSolid) remarks.insert(what + " is not closed or has no volume; it is not used.");
        if (use == CutterUse::Deducted)
            remarks.insert(what + " could not be cut out; what it has in common was deducted.");
        if (use == CutterUse::GivenUp) remarks.insert(what + " could not be cut out.");
    }
}

} // namespace workbench::bodies
