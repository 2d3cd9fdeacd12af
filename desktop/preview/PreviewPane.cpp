#include "desktop/preview/PreviewPane.h"

#include "desktop/preview/PictureView.h"
#include "desktop/preview/PreviewService.h"

#include <QDir>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>

namespace desktop {

namespace {

/// A picture that is stretched by less is still sharp enough.
constexpr double c_muchLarger = 1.25;
constexpr std::chrono::milliseconds c_growthTime{150};

/// As a tip that the toolkit doesn't take for markup.
QString ToTip(const QString& path) {
    const QString shown = QDir::toNativeSeparators(path);
    return Qt::mightBeRichText(shown) ? QStringLiteral("<span>%1</span>").arg(shown.toHtmlEscaped())
                                      : shown;
}

QToolButton* MakeButton(Qt::ArrowType arrow, const QString& tip) {
    auto* const button = new QToolButton;
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setAutoRepeat(true);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

} // namespace

PreviewPane::PreviewPane(QWidget* parent)
    : QWidget(parent), m_service(new PreviewService(this)), m_view(new PictureView),
      m_pages(new QWidget), m_back(MakeButton(Qt::LeftArrow, tr("Previous page"))),
      m_pageText(new QLabel), m_next(MakeButton(Qt::RightArrow, tr("Next page"))) {
    m_view->setAccessibleName(tr("Preview"));
    auto* const pages = new QHBoxLayout(m_pages);
    pages->setContentsMargins(0, 0, 0, 0);
    pages->addStretch();
    pages->addWidget(m_back);
    pages->addWidget(m_pageText);
    pages->addWidget(m_next);
    pages->addStretch();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_pages);
    m_pages->hide();
    m_growth.setSingleShot(true);
    m_growth.setInterval(c_growthTime);
    connect(&m_growth, &QTimer::timeout, this, &PreviewPane::Ask);
    connect(m_back, &QToolButton::clicked, this, [this] { GoToPage(m_page - 1); });
    connect(m_next, &QToolButton::clicked, this, [this] { GoToPage(m_page + 1); });
    connect(m_service, &PreviewService::Ready, this, &PreviewPane::OnReady);
    connect(m_service, &PreviewService::Failed, this, &PreviewPane::OnFailed);
    connect(m_service, &PreviewService::Busy, this, [this] { m_view->SetBusy(true); });
}

void PreviewPane::ShowFile(const QString& absolutePath, const StepPart& part) {
    // The picture of something else must not be taken for this.
    if (absolutePath != m_path || part != m_part)
        Clear();
    m_part = part;
    m_path = absolutePath;
    setToolTip(ToTip(absolutePath));
    Ask();
}

void PreviewPane::Clear() {
    m_service->Cancel();
    m_growth.stop();
    m_view->Clear();
    m_path.clear();
    m_part = {};
    m_isOwed = false;
    setToolTip({});
    ShowPages(0, 0);
}

bool PreviewPane::IsBusy() const {
    return m_service->IsBusy();
}

QSize PreviewPane::FindPixels() const {
    return (QSizeF(m_view->size()) * devicePixelRatioF()).toSize();
}

void PreviewPane::Ask() {
    m_growth.stop();
    m_isOwed = !m_path.isEmpty() && !isVisible();
    if (m_path.isEmpty() || m_isOwed)
        return;
    m_asked = FindPixels();
    m_service->Show(m_path, m_asked, m_page, m_part);
}

void PreviewPane::GoToPage(int page) {
    if (page < 0 || page >= m_pageCount)
        return;
    ShowPages(page, m_pageCount);
    Ask();
}

void PreviewPane::OnReady(const QImage& picture, int page, int pageCount) {
    m_view->ShowPicture(picture, m_asked);
    ShowPages(page, pageCount);
}

void PreviewPane::OnFailed(const QString& oneLine) {
    m_view->ShowText(oneLine);
    ShowPages(0, 0);
}

void PreviewPane::ShowPages(int page, int pageCount) {
    m_page = page;
    m_pageCount = pageCount;
    m_pages->setVisible(pageCount > 1);
    m_pageText->setText(tr("%1 of %2").arg(page + 1).arg(pageCount));
    m_back->setEnabled(page > 0);
    m_next->setEnabled(page + 1 < pageCount);
}

bool PreviewPane::event(QEvent* event) {
    // Lines and letters are drawn in the colours of the palette.
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange)
        m_growth.start();
    // The user comes back from a program that may have changed the file; a known picture costs
    // nothing.
    if (event->type() == QEvent::WindowActivate && m_view->HasPicture() && !m_service->IsBusy())
        m_growth.start();
    return QWidget::event(event);
}

void PreviewPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const QSize pixels = FindPixels();
    if (pixels.width() > m_asked.width() * c_muchLarger ||
        pixels.height() > m_asked.height() * c_muchLarger)
        m_growth.start();
}

void PreviewPane::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (m_isOwed)
        m_growth.start();
}

void PreviewPane::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!m_service->IsBusy())
        return;
    m_service->Cancel();
    m_view->SetBusy(false);
    m_isOwed = true;
}

void PreviewPane::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_PageDown)
        GoToPage(m_page + 1);
    else if (event->key() == Qt::Key_PageUp)
        GoToPage(m_page - 1);
    else
        QWidget::keyPressEvent(event);
}

} // namespace desktop
