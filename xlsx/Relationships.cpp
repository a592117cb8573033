#include "xlsx/Relationships.h"

#include "xlsx/Names.h"

namespace Xlsx {

std::string RelationshipId(std::size_t number) {
    return "rId" + std::to_string(number);
}

bool WriteRelationships(Package& package, const std::string& path, const std::vector<Relationship>& relationships) {
    return package.WritePart(path, [&](XmlWriter& xml) {
        xml.Declaration();
        xml.Start("Relationships", {{"xmlns", Names::PackageRelationships}});
        for (const Relationship& each : relationships) {
            xml.Leaf("Relationship", {{"Id", each.id}, {"Type", each.type}, {"Target", each.target}});
        }
        xml.End();
    });
}

} // namespace Xlsx
