// The lines and texts of a DXF file, as they are read: what stands on the sheet, and the blocks
// that stand there by their name, each as often as it likes. What is hidden is left out.
#pragma once

#include <QList>
#include <QPainterPath>
#include <QSet>
#include <QString>
#include <QTransform>

#include <dl_creationadapter.h>

#include <map>
#include <string>

namespace desktop {

struct DxfText {
    QString text;
    /// From the text's own place, with a height of 1 on a base line, to the drawing.
    QTransform place;
    /// Shares of the text's width and height that lie before its point.
    double alignX = 0;
    double alignY = 0;
};

struct DxfInsert {
    std::string block;
    QTransform place;
};

struct DxfBlock {
    /// What comes to stand where the block is inserted.
    QPointF base;
    QPainterPath lines;
    QList<DxfText> texts;
    QList<DxfInsert> inserts;

    bool IsEmpty() const { return lines.isEmpty() && texts.isEmpty() && inserts.isEmpty(); }
};

class DxfDrawing final : public DL_CreationAdapter {
public:
    /// The sheet with everything in it at its place. Blocks in blocks end where they are too deep
    /// or too many.
    DxfBlock Flatten() const;

    void processCodeValuePair(unsigned int code, const std::string& value) override;
    void addLayer(const DL_LayerData& data) override;
    void addBlock(const DL_BlockData& data) override;
    void endBlock() override;
    void addLine(const DL_LineData& data) override;
    void addArc(const DL_ArcData& data) override;
    void addCircle(const DL_CircleData& data) override;
    void addEllipse(const DL_EllipseData& data) override;
    void addPolyline(const DL_PolylineData& data) override;
    void addVertex(const DL_VertexData& data) override;
    void endEntity() override { FinishPending(); }
    void endSequence() override { FinishPending(); }
    void addSpline(const DL_SplineData& data) override;
    void addControlPoint(const DL_ControlPointData& data) override;
    void addFitPoint(const DL_FitPointData& data) override;
    void addKnot(const DL_KnotData& data) override;
    void addTrace(const DL_TraceData& data) override;
    void add3dFace(const DL_3dFaceData& data) override;
    void addSolid(const DL_SolidData& data) override;
    void addText(const DL_TextData& data) override;
    void addAttribute(const DL_AttributeData& data) override { addText(data); }
    void addMTextChunk(const std::string& text) override;
    void addMText(const DL_MTextData& data) override;
    void addInsert(const DL_InsertData& data) override;

private:
    struct Vertex {
        QPointF point;
        double bulge = 0;
        double weight = 1;
    };
    /// What is being put together from several calls.
    enum class Pending { None, Polyline, Spline };

    /// Where the present entity goes; null for one that is hidden.
    DxfBlock* FindTarget(const std::string& layer, bool isOnPaper);
    DxfBlock* FindTarget();
    /// A figure that may look at the sheet from behind.
    void AddFigure(const QPainterPath& figure);
    QTransform FindSide() const;
    void AddLineOfText(const DxfText& text);
    void AddQuad(const DL_TraceData& data, bool isTrace);
    void Begin(Pending pending, bool isClosed);
    void FinishPending();
    QPainterPath MakePolyline() const;
    QPointF FindSplinePoint(double parameter, qsizetype knot) const;
    QPainterPath MakeSpline() const;
    void FinishDimension();
    void AddTo(DxfBlock& whole, const DxfBlock& block, const QTransform& place, int depth,
               int& rest) const;

    QSet<QString> m_hiddenLayers;
    std::map<std::string, DxfBlock> m_blocks;
    DxfBlock m_model;
    DxfBlock m_paper;
    DxfBlock* m_block = nullptr;

    Pending m_pending = Pending::None;
    DxfBlock* m_pendingTarget = nullptr;
    QTransform m_pendingSide;
    bool m_isClosed = false;
    int m_degree = 0;
    QList<Vertex> m_vertices;
    QList<QPointF> m_fitPoints;
    QList<double> m_knots;
    std::string m_chunks;

    /// A dimension is drawn by a block of its own, which the reader does not tell of.
    bool m_isDimension = false;
    bool m_isDimensionOnPaper = false;
    std::string m_dimensionBlock;
    std::string m_dimensionLayer;
};

} // namespace desktop
