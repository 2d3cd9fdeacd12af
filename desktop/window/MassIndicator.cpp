#include "desktop/window/MassIndicator.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QSocketNotifier>
#include <QToolButton>

#include <algorithm>

namespace desktop {

namespace {

constexpr int c_progressSteps = 1000;
constexpr int c_progressWidth = 180;

QString ResultText(const step::Measures& measures) {
    const std::size_t parts = measures.volumes.size();
    if (parts == 0)
        return MassIndicator::tr("Nothing to measure");
    return parts == 1 ? MassIndicator::tr("1 part measured")
                      : MassIndicator::tr("%1 parts measured").arg(parts);
}

} // namespace

MassIndicator::MassIndicator(QWidget* parent)
    : QWidget(parent), m_label(new QLabel), m_progress(new QProgressBar), m_cancel(new QToolButton),
      m_missing(new QToolButton) {
    m_label->setTextFormat(Qt::PlainText);
    m_progress->setRange(0, c_progressSteps);
    m_progress->setFixedWidth(c_progressWidth);
    m_progress->setMaximumHeight(fontMetrics().height() + 2);
    m_cancel->setText(tr("Cancel"));
    connect(m_cancel, &QToolButton::clicked, this, &MassIndicator::OnCancel);
    m_missing->setText(tr("Parts without mass"));
    m_missing->setToolTip(tr("Selects the parts for which the mass has no value"));
    m_missing->setObjectName(QStringLiteral("partsWithoutMass"));
    m_missing->setAutoRaise(true);
    m_missing->hide();
    connect(m_missing, &QToolButton::clicked, this, &MassIndicator::MissingWanted);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* widget : {static_cast<QWidget*>(m_label), static_cast<QWidget*>(m_progress),
                            static_cast<QWidget*>(m_cancel), static_cast<QWidget*>(m_missing)})
        layout->addWidget(widget);
    ShowWork(false);
}

MassIndicator::~MassIndicator() = default;

void MassIndicator::Start(step::StepDocument& document) {
    Stop();
    m_label->setText(tr("Measuring parts"));
    ShowWork(true);
    m_measuring = document.StartMeasuring(step::MeasuredParts::All, {});
    Advance();
}

void MassIndicator::Stop() {
    StopListening();
    m_measuring.reset();
    m_label->clear();
    ShowWork(false);
}

void MassIndicator::OfferMissing(bool isOffered) {
    m_missing->setVisible(isOffered && !IsWorking());
}

void MassIndicator::OnCancel() {
    Stop();
    m_label->setText(tr("Measuring cancelled"));
}

void MassIndicator::Advance() {
    StopListening();
    const bool goesOn = m_measuring->Advance();
    m_progress->setValue(
        static_cast<int>(std::clamp(m_measuring->GetShareDone(), 0.0, 1.0) * c_progressSteps));
    if (goesOn) {
        Listen();
        return;
    }
    const step::Measures measures = m_measuring->GetMeasures();
    Stop();
    m_label->setText(ResultText(measures));
    if (!measures.volumes.empty())
        emit Measured(measures);
}

void MassIndicator::Listen() {
    m_news = new QSocketNotifier(m_measuring->GetDescriptor(), QSocketNotifier::Read, this);
    connect(m_news, &QSocketNotifier::activated, this, &MassIndicator::Advance);
}

void MassIndicator::StopListening() {
    if (!m_news)
        return;
    // It may be what is calling.
    m_news->setEnabled(false);
    m_news->deleteLater();
    m_news = nullptr;
}

void MassIndicator::ShowWork(bool isWorking) {
    m_progress->setVisible(isWorking);
    m_cancel->setVisible(isWorking);
}

} // namespace desktop
