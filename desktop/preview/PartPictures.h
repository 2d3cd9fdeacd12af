// Parts of a STEP file as small drawings, for the tips of their rows. One process reads the file
// once and draws one part after the other, while nothing else is being worked out; it goes when
// nobody has wanted a drawing for a while. What can't be drawn has no picture, and nothing is said
// of it.
#pragma once

#include "desktop/preview/PreviewRequest.h"

#include <QCache>
#include <QImage>
#include <QList>
#include <QObject>
#include <QTimer>

#include <functional>

namespace desktop {

class PreviewProcess;

class PartPictures final : public QObject {
    Q_OBJECT

public:
    explicit PartPictures(QObject* parent = nullptr);
    ~PartPictures() override;

    /// Nothing is worked out as long as that holds.
    void SetObstacle(std::function<bool()> obstacle) { m_obstacle = std::move(obstacle); }
    /// In the colour of texts in tips; null for one that is not drawn, or not yet.
    QImage Find(const QString& file, const StepPart& part) const;
    /// These are drawn next, in their order, in place of those that were wanted before.
    void Want(const QString& file, const QList<StepPart>& parts);
    /// Nothing is wanted any more.
    void Stop();

signals:
    /// There is one picture more.
    void Drawn();

private:
    struct Wanted {
        QString key;
        PreviewRequest request;
    };

    static Wanted MakeWanted(const QString& file, const StepPart& part);
    void GoOn();
    void Take(const PreviewAnswer& answer);
    void EndProcess();

    std::function<bool()> m_obstacle;
    /// Of the file that the process has read, as it was then.
    QString m_mark;
    /// Parts of that file that have ended the process.
    int m_crashes = 0;
    QList<Wanted> m_wanted;
    /// What the process draws now.
    QString m_drawn;
    PreviewProcess* m_process = nullptr;
    /// Looks whether the obstacle is still there.
    QTimer m_turn;
    QTimer m_rest;
    /// Null for what can't be drawn.
    QCache<QString, QImage> m_known;
};

} // namespace desktop
