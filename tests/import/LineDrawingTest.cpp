// What a part looks like as lines, of shapes written by the test.
#include "desktop/import/StepImport.h"
#include "tests/import/StepFileText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>

namespace {

using desktop::step::DrawnLine;
using desktop::step::LineDrawing;
using desktop::step::StepDocument;

std::string Ref(int number) { return "#" + std::to_string(number); }

/// A product of level squares, as faces or as mere lines.
class Squares final {
public:
    explicit Squares(bool areFaces) : m_areFaces(areFaces) {
        m_shape = m_file.AddPart("plate", "Plate") + 1;
        m_axis = Ref(Axis(0));
    }

    /// Around a point, with half of its side.
    void Add(double x, double y, double z, double half) {
        std::string points;
        std::string first;
        for (const auto& [right, back] : {std::pair{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}) {
            const std::string point = Ref(Point(x + right * half, y + back * half, z));
            first = first.empty() ? point : first;
            points += (points.empty() ? "" : ",") + point;
        }
        if (!m_areFaces) {
            AddItem(m_file.Add("POLYLINE('',(" + points + "," + first + "))"));
            return;
        }
        const int bound =
            m_file.Add("FACE_OUTER_BOUND(''," + Ref(m_file.Add("POLY_LOOP('',(" + points + "))")) + ",.T.)");
        const int plane = m_file.Add("PLANE(''," + Ref(Axis(z)) + ")");
        AddItem(m_file.Add("FACE_SURFACE('',(" + Ref(bound) + ")," + Ref(plane) + ",.T.)"));
    }

    LineDrawing Draw() {
        Finish();
        const tests::TemporaryFile file("squares.step", m_file.Text());
        const auto read = StepDocument::Read(file.GetPath(), {});
        EXPECT_TRUE(std::holds_alternative<std::unique_ptr<StepDocument>>(read));
        const auto drawing = std::get<0>(read)->Draw({});
        const auto* const error = std::get_if<desktop::FileError>(&drawing);
        EXPECT_FALSE(error) << error->reason;
        return error ? LineDrawing() : std::get<LineDrawing>(drawing);
    }

private:
    int Point(double x, double y, double z) {
        return m_file.Add("CARTESIAN_POINT('',(" + std::to_string(x) + "," + std::to_string(y) + "," +
                          std::to_string(z) + "))");
    }
    int Axis(double z) {
        const int up = m_file.Add("DIRECTION('',(0.,0.,1.))");
        const int right = m_file.Add("DIRECTION('',(1.,0.,0.))");
        return m_file.Add("AXIS2_PLACEMENT_3D(''," + Ref(Point(0, 0, z)) + "," + Ref(up) + "," + Ref(right) + ")");
    }
    void AddItem(int item) { m_items += (m_items.empty() ? "" : ",") + Ref(item); }
    void Finish() {
        const int length = m_file.Add("(LENGTH_UNIT()NAMED_UNIT(*)SI_UNIT(.MILLI.,.METRE.))");
        const int angle = m_file.Add("(NAMED_UNIT(*)PLANE_ANGLE_UNIT()SI_UNIT($,.RADIAN.))");
        const int context = m_file.Add("(GEOMETRIC_REPRESENTATION_CONTEXT(3)GLOBAL_UNIT_ASSIGNED_CONTEXT((" +
                                       Ref(length) + "," + Ref(angle) + "))REPRESENTATION_CONTEXT('',''))");
        const int whole = m_areFaces ? m_file.Add("SHELL_BASED_SURFACE_MODEL('',(" +
                                                  Ref(m_file.Add("OPEN_SHELL('',(" + m_items + "))")) + "))")
                                     : m_file.Add("GEOMETRIC_CURVE_SET('',(" + m_items + "))");
        const std::string kind = m_areFaces ? "MANIFOLD_SURFACE" : "GEOMETRICALLY_BOUNDED_WIREFRAME";
        const int representation =
            m_file.Add(kind + "_SHAPE_REPRESENTATION('',(" + m_axis + "," + Ref(whole) + ")," + Ref(context) + ")");
        m_file.Add("SHAPE_DEFINITION_REPRESENTATION(" + Ref(m_shape) + "," + Ref(representation) + ")");
    }

    tests::StepFileText m_file;
    bool m_areFaces;
    int m_shape;
    std::string m_axis;
    std::string m_items;
};

double FindWidth(const LineDrawing& drawing) {
    double left = 1e9;
    double right = -1e9;
    for (const DrawnLine& line : drawing.edges) {
        left = std::min({left, line.fromX, line.toX});
        right = std::max({right, line.fromX, line.toX});
    }
    return right - left;
}

TEST(LineDrawing, LeavesOutWhatLiesBehindAFaceAndNotWhatLiesBehindALine) {
    for (const bool areFaces : {true, false}) {
        Squares one(areFaces);
        one.Add(0, 0, 10, 50);
        const LineDrawing alone = one.Draw();
        EXPECT_EQ(alone.edges.size(), 4U);
        // A square that is seen from a corner is as wide as its diagonal.
        EXPECT_NEAR(FindWidth(alone), 141.4, 0.1);

        Squares two(areFaces);
        two.Add(0, 0, 10, 50);
        two.Add(0, 0, 0, 5);
        EXPECT_EQ(two.Draw().edges.size(), areFaces ? 4U : 8U);
    }
}

TEST(LineDrawing, OfAProductWithoutShapeIsAnError) {
    tests::StepFileText text;
    text.AddPart("plate", "Plate");
    const tests::TemporaryFile file("plate.step", text.Text());
    const auto read = StepDocument::Read(file.GetPath(), {});
    const auto drawing = std::get<0>(read)->Draw({});
    EXPECT_TRUE(std::holds_alternative<desktop::FileError>(drawing));
}

} // namespace
