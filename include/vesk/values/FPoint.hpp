#pragma once

namespace vesk {

// A floating-point point: plain value members.
struct FPoint {
    double x = 0.0;
    double y = 0.0;

    FPoint() = default;
    FPoint(double px, double py) : x(px), y(py) {}

    bool operator==(const FPoint&) const = default;
};

// A floating-point size: plain value members.
struct FSize {
    double width = 0.0;
    double height = 0.0;

    FSize() = default;
    FSize(double w, double h) : width(w), height(h) {}

    bool operator==(const FSize&) const = default;
};

} // namespace vesk
