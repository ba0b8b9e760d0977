#pragma once

namespace vesk {

// A point in three dimensions: plain value members.
struct Point3D {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    Point3D() = default;
    Point3D(double px, double py, double pz) : x(px), y(py), z(pz) {}
};

} // namespace vesk
