#include "desktop/preview/DxfDrawing.h"

#include "desktop/preview/DxfTexts.h"

#include <QLineF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace desktop {

namespace {

constexpr int c_deepestBlock = 16;
constexpr int c_mostInserts = 100'000;
/// Bits and values of the format.
constexpr int c_closedFlag = 1;
constexpr int c_meshFlags = 16 | 64;
constexpr int c_frozenFlag = 1;
constexpr double c_lineDistance = 1.66;
constexpr int c_stepsPerPoint = 8;
constexpr int c_mostSteps = 4000;

double ToDegrees(double radians) {
    return radians * 180 / std::numbers::pi;
}

/// Against the clock from one angle to the other, in degrees.
double FindSweep(double from, double to) {
    const double sweep = std::fmod(to - from, 360);
    return sweep > 0 ? sweep : sweep + 360;
}

QRectF MakeBox(QPointF centre, double radiusX, double radiusY) {
    return {centre.x() - radiusX, centre.y() - radiusY, 2 * radiusX, 2 * radiusY};
}

/// The toolkit counts angles the other way round, as its y goes down.
void AddArc(QPainterPath& path, const QRectF& box, double start, double sweep) {
    path.arcMoveTo(box, -start);
    path.arcTo(box, -start, -sweep);
}

/// `bulge` is the tangent of a quarter of the arc's angle.
void AddBulge(QPainterPath& path, QPointF from, QPointF to, double bulge) {
    const QLineF chord(from, to);
    const double angle = 4 * std::atan(bulge);
    const double radius = chord.length() / (2 * std::sin(angle / 2));
    if (!std::isfinite(radius) || std::abs(angle) < 1e-9) {
        path.lineTo(to);
        return;
    }
    const QPointF side(-chord.dy() / chord.length(), chord.dx() / chord.length());
    const QPointF centre = chord.center() + side * (radius * std::cos(angle / 2));
    const double start = ToDegrees(std::atan2(from.y() - centre.y(), from.x() - centre.x()));
    path.arcTo(MakeBox(centre, std::abs(radius), std::abs(radius)), -start, -ToDegrees(angle));
}

DxfText PlaceText(double x, double y, double angle, double height, double widthShare) {
    DxfText text;
    text.place.translate(x, y);
    text.place.rotate(ToDegrees(angle));
    text.place.scale(height * (widthShare > 0 ? widthShare : 1), height);
    return text;
}

} // namespace

DxfBlock DxfDrawing::Flatten() const {
    DxfBlock whole;
    int rest = c_mostInserts;
    AddTo(whole, m_model.IsEmpty() ? m_paper : m_model, QTransform(), 0, rest);
    return whole;
}

void DxfDrawing::AddTo(DxfBlock& whole, const DxfBlock& block, const QTransform& place, int depth,
                       int& rest) const {
    whole.lines.addPath(place.map(block.lines));
    for (DxfText text : block.texts) {
        text.place *= place;
        whole.texts.push_back(text);
    }
    for (const DxfInsert& insert : block.inserts) {
        const auto inserted = m_blocks.find(insert.block);
        if (inserted == m_blocks.end() || depth == c_deepestBlock || rest-- <= 0)
            continue;
        QTransform own = insert.place;
        own.translate(-inserted->second.base.x(), -inserted->second.base.y());
        AddTo(whole, inserted->second, own * place, depth + 1, rest);
    }
}

DxfBlock* DxfDrawing::FindTarget(const std::string& layer, bool isOnPaper) {
    if (m_hiddenLayers.contains(QString::fromStdString(layer)))
        return nullptr;
    if (m_block)
        return m_block;
    return isOnPaper ? &m_paper : &m_model;
}

DxfBlock* DxfDrawing::FindTarget() {
    return FindTarget(attributes.getLayer(), attributes.isInPaperSpace());
}

void DxfDrawing::AddFigure(const QPainterPath& figure) {
    if (DxfBlock* const target = FindTarget())
        target->lines.addPath(FindSide().map(figure));
}

QTransform DxfDrawing::FindSide() const {
    double direction[3] = {0, 0, 1};
    if (extrusion)
        extrusion->getDirection(direction);
    return direction[2] < 0 ? QTransform::fromScale(-1, 1) : QTransform();
}

void DxfDrawing::processCodeValuePair(unsigned int code, const std::string& value) {
    constexpr unsigned int kind = 0, block = 2, layer = 8, paper = 67;
    switch (code) {
    case kind:
        FinishDimension();
        m_isDimension = value == "DIMENSION";
        break;
    case block:
        m_dimensionBlock = value;
        break;
    case layer:
        m_dimensionLayer = value;
        break;
    case paper:
        m_isDimensionOnPaper = value.find('1') != std::string::npos;
        break;
    default:
        break;
    }
}

void DxfDrawing::FinishDimension() {
    if (m_isDimension && !m_dimensionBlock.empty()) {
        if (DxfBlock* const target = FindTarget(m_dimensionLayer, m_isDimensionOnPaper))
            target->inserts.push_back({m_dimensionBlock, QTransform()});
    }
    m_isDimension = false;
    m_isDimensionOnPaper = false;
    m_dimensionBlock.clear();
}

void DxfDrawing::addLayer(const DL_LayerData& data) {
    // A colour below zero is that of a layer that is off.
    if ((data.flags & c_frozenFlag) != 0 || attributes.getColor() < 0)
        m_hiddenLayers.insert(QString::fromStdString(data.name));
}

void DxfDrawing::addBlock(const DL_BlockData& data) {
    m_block = &m_blocks[data.name];
    m_block->base = {data.bpx, data.bpy};
}

void DxfDrawing::endBlock() {
    m_block = nullptr;
}

void DxfDrawing::addLine(const DL_LineData& data) {
    DxfBlock* const target = FindTarget();
    if (!target)
        return;
    target->lines.moveTo(data.x1, data.y1);
    target->lines.lineTo(data.x2, data.y2);
}

void DxfDrawing::addArc(const DL_ArcData& data) {
    QPainterPath figure;
    AddArc(figure, MakeBox({data.cx, data.cy}, data.radius, data.radius), data.angle1,
           FindSweep(data.angle1, data.angle2));
    AddFigure(figure);
}

void DxfDrawing::addCircle(const DL_CircleData& data) {
    QPainterPath figure;
    figure.addEllipse(QPointF(data.cx, data.cy), data.radius, data.radius);
    AddFigure(figure);
}

void DxfDrawing::addEllipse(const DL_EllipseData& data) {
    DxfBlock* const target = FindTarget();
    if (!target)
        return;
    const double radius = std::hypot(data.mx, data.my);
    const double start = ToDegrees(data.angle1);
    QPainterPath figure;
    AddArc(figure, MakeBox({}, radius, radius * data.ratio), start,
           FindSweep(start, ToDegrees(data.angle2)));
    QTransform place;
    place.translate(data.cx, data.cy);
    place.rotate(ToDegrees(std::atan2(data.my, data.mx)));
    target->lines.addPath(place.map(figure));
}

void DxfDrawing::addTrace(const DL_TraceData& data) {
    AddQuad(data, true);
}

void DxfDrawing::add3dFace(const DL_3dFaceData& data) {
    AddQuad(data, false);
}

void DxfDrawing::addSolid(const DL_SolidData& data) {
    AddQuad(data, true);
}

/// Corners of a trace come in the order of their two long sides.
void DxfDrawing::AddQuad(const DL_TraceData& data, bool isTrace) {
    const int third = isTrace ? 3 : 2;
    QPainterPath figure;
    figure.moveTo(data.x[0], data.y[0]);
    for (const int corner : {1, third, 5 - third})
        figure.lineTo(data.x[corner], data.y[corner]);
    figure.closeSubpath();
    AddFigure(figure);
}

void DxfDrawing::addText(const DL_TextData& data) {
    enum { Aligned = 3, Middle = 4, Fit = 5 };
    const int across = data.hJustification;
    const bool isFitted = across == Aligned || across == Fit;
    const bool isAtPoint = !isFitted && (across != 0 || data.vJustification != 0);
    DxfText text = PlaceText(isAtPoint ? data.apx : data.ipx, isAtPoint ? data.apy : data.ipy,
                             data.angle, data.height, data.xScaleFactor);
    if (isAtPoint) {
        text.alignX = across == Middle ? 0.5 : across * 0.5;
        text.alignY = across == Middle ? 0.5 : std::max(0, data.vJustification - 1) * 0.5;
    }
    text.text = ReadDxfText(data.text);
    AddLineOfText(text);
}

void DxfDrawing::addMTextChunk(const std::string& text) {
    m_chunks += text;
}

void DxfDrawing::addMText(const DL_MTextData& data) {
    const QStringList lines = ReadDxfParagraphs(m_chunks + data.text);
    m_chunks.clear();
    const int corner = std::clamp(data.attachmentPoint, 1, 9) - 1;
    DxfText text = PlaceText(data.ipx, data.ipy, data.angle, data.height, 1);
    text.alignX = corner % 3 * 0.5;
    text.alignY = 1;
    const double height = static_cast<double>(lines.size() - 1) * c_lineDistance + 1;
    text.place.translate(0, corner / 3 * 0.5 * height);
    for (const QString& line : lines) {
        text.text = line;
        AddLineOfText(text);
        text.place.translate(0, -c_lineDistance);
    }
}

void DxfDrawing::AddLineOfText(const DxfText& text) {
    DxfBlock* const target = FindTarget();
    if (!target || text.text.trimmed().isEmpty() || !text.place.isInvertible())
        return;
    target->texts.push_back(text);
}

void DxfDrawing::addInsert(const DL_InsertData& data) {
    DxfBlock* const target = FindTarget();
    if (!target)
        return;
    const QTransform side = FindSide();
    const int columns = std::clamp(data.cols, 1, c_mostInserts);
    const int rows = std::clamp(data.rows, 1, c_mostInserts / columns);
    for (int column = 0; column < columns; ++column) {
        for (int row = 0; row < rows; ++row) {
            QTransform place;
            place.translate(data.ipx, data.ipy);
            place.rotate(data.angle);
            place.translate(column * data.colSp, row * data.rowSp);
            place.scale(data.sx, data.sy);
            target->inserts.push_back({data.name, place * side});
        }
    }
}

void DxfDrawing::Begin(Pending pending, bool isClosed) {
    FinishPending();
    m_pending = pending;
    m_pendingTarget = FindTarget();
    m_pendingSide = FindSide();
    m_isClosed = isClosed;
}

void DxfDrawing::addPolyline(const DL_PolylineData& data) {
    const bool isMesh = (data.flags & c_meshFlags) != 0;
    Begin(isMesh ? Pending::None : Pending::Polyline, (data.flags & c_closedFlag) != 0);
}

void DxfDrawing::addVertex(const DL_VertexData& data) {
    m_vertices.push_back({{data.x, data.y}, data.bulge, 1});
}

void DxfDrawing::addSpline(const DL_SplineData& data) {
    Begin(Pending::Spline, (data.flags & c_closedFlag) != 0);
    m_degree = static_cast<int>(std::min(data.degree, 10U));
}

void DxfDrawing::addControlPoint(const DL_ControlPointData& data) {
    m_vertices.push_back({{data.x, data.y}, 0, data.w > 0 ? data.w : 1});
}

void DxfDrawing::addFitPoint(const DL_FitPointData& data) {
    m_fitPoints.push_back({data.x, data.y});
}

void DxfDrawing::addKnot(const DL_KnotData& data) {
    m_knots.push_back(data.k);
}

void DxfDrawing::FinishPending() {
    if (m_pending == Pending::Polyline && m_pendingTarget)
        m_pendingTarget->lines.addPath(m_pendingSide.map(MakePolyline()));
    if (m_pending == Pending::Spline && m_pendingTarget)
        m_pendingTarget->lines.addPath(MakeSpline());
    m_pending = Pending::None;
    m_vertices.clear();
    m_fitPoints.clear();
    m_knots.clear();
}

QPainterPath DxfDrawing::MakePolyline() const {
    QPainterPath path;
    if (m_vertices.isEmpty())
        return path;
    path.moveTo(m_vertices.front().point);
    const qsizetype sides = m_vertices.size() - (m_isClosed ? 0 : 1);
    for (qsizetype i = 0; i < sides; ++i)
        AddBulge(path, m_vertices[i].point, m_vertices[(i + 1) % m_vertices.size()].point,
                 m_vertices[i].bulge);
    return path;
}

/// A point of the curve in the span that ends behind `knot`.
QPointF DxfDrawing::FindSplinePoint(double parameter, qsizetype knot) const {
    QList<Vertex> points = m_vertices.mid(knot - m_degree, m_degree + 1);
    for (Vertex& vertex : points)
        vertex.point *= vertex.weight;
    for (int level = 1; level <= m_degree; ++level) {
        for (int i = m_degree; i >= level; --i) {
            const double low = m_knots[knot - m_degree + i];
            const double width = m_knots[knot + 1 + i - level] - low;
            const double share = width > 0 ? (parameter - low) / width : 0;
            points[i].point = points[i - 1].point * (1 - share) + points[i].point * share;
            points[i].weight = points[i - 1].weight * (1 - share) + points[i].weight * share;
        }
    }
    return points[m_degree].point / points[m_degree].weight;
}

QPainterPath DxfDrawing::MakeSpline() const {
    QPainterPath path;
    const qsizetype count = m_vertices.size();
    const bool isCurve = m_degree > 0 && count > m_degree && m_knots.size() >= count + m_degree + 1;
    if (!isCurve) {
        QPolygonF points(m_fitPoints);
        for (qsizetype i = 0; m_fitPoints.isEmpty() && i < count; ++i)
            points.push_back(m_vertices[i].point);
        path.addPolygon(points);
        return path;
    }
    const double begin = m_knots[m_degree];
    const double end = m_knots[count];
    const int steps = static_cast<int>(std::min<qsizetype>(count * c_stepsPerPoint, c_mostSteps));
    qsizetype knot = m_degree;
    for (int i = 0; i <= steps; ++i) {
        const double parameter = begin + (end - begin) * i / steps;
        while (knot + 1 < count && m_knots[knot + 1] <= parameter)
            ++knot;
        const QPointF point = FindSplinePoint(parameter, knot);
        if (i == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    return path;
}

} // namespace desktop
