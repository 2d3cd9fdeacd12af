#include "desktop/import/LineDrawing.h"

#include <BRepAdaptor_Curve.hxx>
#include <BRepBndLib.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <HLRAlgo_Projector.hxx>
#include <HLRBRep_PolyAlgo.hxx>
#include <HLRBRep_PolyHLRToShape.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Vertex.hxx>
#include <gp_Ax2.hxx>

#include <cmath>

namespace desktop::step {

namespace {

/// Of the shape's diagonal: a step that can't be seen in a picture of a thousand pixels.
constexpr double c_deflection = 0.001;
/// In radians: small holes are round, too.
constexpr double c_angle = 0.35;
constexpr int c_stepsOfCurve = 24;

const gp_Ax2& GetIsometricView() {
    static const gp_Ax2 view(gp::Origin(), gp_Dir(1, -1, 1), gp_Dir(1, 1, 0));
    return view;
}

/// 0 for a shape without extent, or with one that is no number.
double FindDiagonal(const TopoDS_Shape& shape) {
    Bnd_Box box;
    BRepBndLib::Add(shape, box, Standard_False);
    if (box.IsVoid() || box.IsOpen())
        return 0;
    const double diagonal = std::sqrt(box.SquareExtent());
    return std::isfinite(diagonal) ? diagonal : 0;
}

/// What the algorithm gives are straight edges in the plane of the picture.
void AddLines(const TopoDS_Shape& projected, std::vector<DrawnLine>& lines) {
    if (projected.IsNull())
        return;
    for (TopExp_Explorer edges(projected, TopAbs_EDGE); edges.More(); edges.Next()) {
        TopoDS_Vertex first;
        TopoDS_Vertex last;
        TopExp::Vertices(TopoDS::Edge(edges.Current()), first, last);
        if (first.IsNull() || last.IsNull())
            continue;
        const gp_Pnt from = BRep_Tool::Pnt(first);
        const gp_Pnt to = BRep_Tool::Pnt(last);
        lines.push_back({from.X(), from.Y(), to.X(), to.Y()});
    }
}

LineDrawing DrawFaces(const TopoDS_Shape& shape, double diagonal) {
    const BRepMesh_IncrementalMesh mesh(shape, diagonal * c_deflection, Standard_False, c_angle);
    const Handle(HLRBRep_PolyAlgo) algorithm = new HLRBRep_PolyAlgo(shape);
    algorithm->Projector(HLRAlgo_Projector(GetIsometricView()));
    algorithm->Update();
    HLRBRep_PolyHLRToShape projection;
    projection.Update(algorithm);
    LineDrawing drawing;
    AddLines(projection.VCompound(), drawing.edges);
    AddLines(projection.OutLineVCompound(), drawing.edges);
    AddLines(projection.Rg1LineVCompound(), drawing.seams);
    AddLines(projection.RgNLineVCompound(), drawing.seams);
    return drawing;
}

bool IsStraight(const BRepAdaptor_Curve& curve) {
    return curve.GetType() == GeomAbs_Line ||
           (curve.GetType() == GeomAbs_BSplineCurve && curve.Degree() == 1);
}

/// Each corner of it is a point of a line.
void AddCurve(const BRepAdaptor_Curve& curve, const HLRAlgo_Projector& projector,
              std::vector<DrawnLine>& lines) {
    const int steps = IsStraight(curve) ? 1 : c_stepsOfCurve;
    const int pieces = curve.NbIntervals(GeomAbs_C1);
    TColStd_Array1OfReal ends(1, pieces + 1);
    curve.Intervals(ends, GeomAbs_C1);
    gp_Pnt2d from;
    projector.Project(curve.Value(ends.First()), from);
    for (int step = 1; step <= pieces * steps; ++step) {
        const int piece = (step - 1) / steps + 1;
        const double share = static_cast<double>((step - 1) % steps + 1) / steps;
        gp_Pnt2d to;
        projector.Project(curve.Value(std::lerp(ends(piece), ends(piece + 1), share)), to);
        lines.push_back({from.X(), from.Y(), to.X(), to.Y()});
        from = to;
    }
}

/// A frame of wires hides nothing.
LineDrawing DrawWires(const TopoDS_Shape& shape) {
    const HLRAlgo_Projector projector(GetIsometricView());
    LineDrawing drawing;
    for (TopExp_Explorer edges(shape, TopAbs_EDGE); edges.More(); edges.Next()) {
        const TopoDS_Edge& edge = TopoDS::Edge(edges.Current());
        if (!BRep_Tool::IsGeometric(edge))
            continue;
        AddCurve(BRepAdaptor_Curve(edge), projector, drawing.edges);
    }
    return drawing;
}

} // namespace

LineDrawing DrawLines(const TopoDS_Shape& shape) {
    const double diagonal = shape.IsNull() ? 0 : FindDiagonal(shape);
    if (!(diagonal > 0))
        return {};
    const bool hasFaces = TopExp_Explorer(shape, TopAbs_FACE).More();
    return hasFaces ? DrawFaces(shape, diagonal) : DrawWires(shape);
}

} // namespace desktop::step
