// A document as it looks, in its place below the list of documents: the picture fitted to the pane,
// buttons for its pages, or one line of why there is none. It asks for the pictures by itself, also
// when it has grown or its colours have changed.
#pragma once

#include "desktop/StepPart.h"

#include <QSize>
#include <QString>
#include <QTimer>
#include <QWidget>

class QLabel;
class QToolButton;

namespace desktop {

class PictureView;
class PreviewService;

class PreviewPane final : public QWidget {
    Q_OBJECT

public:
    explicit PreviewPane(QWidget* parent = nullptr);

    /// From its first page on; of the file that a part came from, the part. A pane that is hidden
    /// waits until it is shown.
    void ShowFile(const QString& absolutePath, const StepPart& part = {});
    /// Shows nothing then.
    void Clear();
    bool IsBusy() const;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QSize FindPixels() const;
    void Ask();
    void GoToPage(int page);
    void OnReady(const QImage& picture, int page, int pageCount);
    void OnFailed(const QString& oneLine);
    void ShowPages(int page, int pageCount);

    PreviewService* m_service;
    PictureView* m_view;
    QWidget* m_pages;
    QToolButton* m_back;
    QLabel* m_pageText;
    QToolButton* m_next;
    /// Someone who drags a border is not followed pixel by pixel.
    QTimer m_growth;
    /// Empty: nothing is shown.
    QString m_path;
    StepPart m_part;
    int m_page = 0;
    int m_pageCount = 0;
    /// For which size the picture was asked for last.
    QSize m_asked;
    bool m_isOwed = false;
};

} // namespace desktop
