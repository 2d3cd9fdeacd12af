// The place where a preview is shown: a picture fitted to it, or one line of text, and a mark that
// turns while a picture is being worked out. It shows what it is given.
#pragma once

#include <QImage>
#include <QString>
#include <QTimer>
#include <QWidget>

namespace desktop {

class PictureView final : public QWidget {
    Q_OBJECT

public:
    explicit PictureView(QWidget* parent = nullptr);

    /// `room` is the size of the screen that the picture was made for: in another one it is shown
    /// larger or smaller by as much.
    void ShowPicture(const QImage& picture, QSize room);
    void ShowText(const QString& text);
    /// Says and shows nothing then, and is not busy.
    void Clear();
    /// The mark waits a moment: most pictures are there before.
    void SetBusy(bool isBusy);
    bool HasPicture() const { return !m_picture.isNull(); }
    const QString& GetText() const { return m_text; }

    QSize sizeHint() const override { return {240, 200}; }
    QSize minimumSizeHint() const override { return {60, 40}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Turn();
    QRect FindPlace() const;
    void PaintMark(QPainter& painter) const;

    QImage m_picture;
    QSize m_room;
    QString m_text;
    QTimer m_turning;
    /// Below zero as long as the mark is not shown.
    int m_angle = 0;
};

} // namespace desktop
