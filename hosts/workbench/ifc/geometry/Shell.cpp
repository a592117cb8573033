#include "workbench/ifc/geometry/Shell.h"

namespace workbench::geometry {

Vector3 GetDoubledArea(const std::vector<Vector3>& points, const PointLoop& loop) {
    Vector3 doubled;
    for (std::size_t i = 2; i < loop.size(); ++i)
        doubled += Cross(points[loop[i - 1]] - points[loop[0]], points[loop[i]] - points[loop[0]]);
    return doubled;
}

Vector3 GetDoubledArea(const std::vector<Vector3>& points, const Face& face) {
    Vector3 doubled;
    for (const PointLoop& loop : face.loops)
        doubled += GetDoubledArea(points, loop);
    return doubled;
}

double GetSurfaceM2(const Shell& shell) {
    double surface = 0.0;
    for (const Face& face : shell.faces)
        surface += Length(GetDoubledArea(shell.points, face)) / 2.0;
    return surface;
}

double GetSignedVolumeM3(const Shell& shell) {
    if (shell.faces.empty() || shell.faces.front().loops.empty()) return 0.0;
    const Vector3 origin = shell.points[shell.faces.front().loops.front().front()];
    double sixfold = 0.0;
    for (const Face& face : shell.faces)
        for (const PointLoop& loop : face.loops)
            sixfold += Dot(shell.points[loop.front()] - origin, GetDoubledArea(shell.points, loop));
    return sixfold / 6.0;
}

double GetDownwardAreaM2(const Shell& shell) {
    double area = 0.0;
    for (const Face& face : shell.faces)
        area += std::max(0.0, -GetDoubledArea(shell.points, face).z) / 2.0;
    return area;
}

Box GetBox(const Shell& shell) {
    Box box;
    for (const Face& face : shell.faces)
        for (const PointLoop& loop : face.loops)
            for (const Index point : loop)
                box.Include(shell.points[point]);
    return box;
}

void TurnFace(Face& face) {
    for (PointLoop& loop : face.loops)
        std::reverse(loop.begin(), loop.end());
}

void TurnFaces(Shell& shell) {
    for (Face& face : shell.faces)
        TurnFace(face);
}

Shell Transformed(Shell shell, const Transform& transform) {
    for (Vector3& point : shell.points)
        point = transform.Apply(point);
    if (transform.GetDeterminant() < 0.0) TurnFaces(shell);
    return shell;
}

void Append(Shell& shell, const Shell& other) {
    const auto shift = static_cast<Index>(shell.points.size());
    shell.points.insert(shell.points.end(), other.points.begin(), other.points.end());
    const std::size_t first = shell.faces.size();
    shell.faces.insert(shell.faces.end(), other.faces.begin(), other.faces.end());
    for (std::size_t i = first; i < shell.faces.size(); ++i)
        for (PointLoop& loop : shell.faces[i].loops)
            for (Index& point : loop)
                point += shift;
}

} // namespace workbench::geometry
