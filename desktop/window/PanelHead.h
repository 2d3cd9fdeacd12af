// The heads of the panel's columns: flat, with room around the captions, and captions cut at their
// end when the column is narrow.
#pragma once

#include <QHeaderView>

namespace desktop {

class PanelHead final : public QHeaderView {
    Q_OBJECT

public:
    explicit PanelHead(QWidget* parent = nullptr);

protected:
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;
    QSize sectionSizeFromContents(int column) const override;
};

} // namespace desktop
