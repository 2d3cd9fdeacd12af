// The part of the status line that measures the parts of a STEP document: what it is doing, how far
// it is, and a button that stops it.
#pragma once

#include "desktop/import/StepImport.h"

#include <QWidget>

#include <memory>

class QLabel;
class QProgressBar;
class QSocketNotifier;
class QToolButton;

namespace desktop {

class MassIndicator final : public QWidget {
    Q_OBJECT

public:
    explicit MassIndicator(QWidget* parent = nullptr);
    ~MassIndicator() override;

    /// Measures in the background, until Stop or until all is done. The document must stay.
    void Start(step::StepDocument& document);
    /// Says nothing then.
    void Stop();
    /// The mass that is shown lacks those of some parts, and a button leads to these.
    void OfferMissing(bool isOffered);
    bool IsWorking() const { return m_measuring != nullptr; }

signals:
    /// Never for measures that were cancelled or are none.
    void Measured(const desktop::step::Measures& measures);
    void MissingWanted();

private:
    void OnCancel();
    void Advance();
    void Listen();
    void StopListening();
    void ShowWork(bool isWorking);

    std::unique_ptr<step::Measuring> m_measuring;
    /// Of the descriptor that the measuring has at the moment.
    QSocketNotifier* m_news = nullptr;
    QLabel* m_label;
    QProgressBar* m_progress;
    QToolButton* m_cancel;
    QToolButton* m_missing;
};

} // namespace desktop
