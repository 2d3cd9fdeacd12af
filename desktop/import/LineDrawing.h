// A shape as lines on a plane: what an eye sees of it that looks down on one of its corners, with
// what lies behind left out. Plain numbers; who draws them says how large and in what colours.
#pragma once

#include <vector>

class TopoDS_Shape;

namespace desktop::step {

/// In mm of the shape, with y upwards.
struct DrawnLine {
    double fromX = 0;
    double fromY = 0;
    double toX = 0;
    double toY = 0;
};

struct LineDrawing {
    /// Where a surface turns away or meets another at an angle.
    std::vector<DrawnLine> edges;
    /// Where one surface goes on smoothly in another.
    std::vector<DrawnLine> seams;

    bool IsEmpty() const { return edges.empty() && seams.empty(); }
};

/// Empty for a shape in which nothing can be seen. A damaged shape may end the process.
LineDrawing DrawLines(const TopoDS_Shape& shape);

} // namespace desktop::step
