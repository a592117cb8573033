#include "Geometry.h"

namespace workbench::ifc {
namespace {

/// A plate's area is that of one of its sides; closed bodies have both.
MeshQuantities QuantitiesOf(const geometry::Body& body) {
    MeshQuantities quantities;
    quantities.closedVolumeM3 = GetVolumeM3(body);
    quantities.closedSurfaceM2 = GetSurfaceM2(body) - body.sheetAreaM2;
    if (body.sheetVolumeM3 > 0.0) {
        quantities.closedSurfaceM2 += 2.0 * body.sheetAreaM2;
    } else {
        quantities.openSurfaceM2 = body.sheetAreaM2;
    }
    quantities.method = bodies::DescribeMethod(body);
    return quantities;
}

std::string Joined(const bodies::Remarks& remarks) {
    std::string text;
    for (const std::string& remark : remarks)
        text += (text.empty() ? "" : " ") + remark;
    return text;
}

} // namespace

BodyGeometry Geometry::Compute(const entities::Entity& entity, const GeometryTask& task) {
    BodyGeometry geometry;
    if (task.statedVolumeM3) geometry.check = CheckByUncut(*task.statedVolumeM3, elements.ReadUncutVolumeM3(entity));
    if (geometry.check == VolumeCheck::Passed && !task.isBodyWanted) return geometry;
    const bodies::ElementBody read = elements.Read(entity);
    MeshQuantities quantities = QuantitiesOf(read.body);
    for (const std::string& opening : read.uncutOpenings)
        quantities.method += "; could not be cut out: " + opening;
    if (quantities.closedSurfaceM2 > 0.0 || quantities.openSurfaceM2 > 0.0) geometry.meshes = quantities;
    geometry.trouble = Joined(read.remarks);
    return geometry;
}

} // namespace workbench::ifc
