// Previews of documents for the window: at most one is being worked out, of what was asked for
// last, and those of late are kept in memory. Nothing here waits.
#pragma once

#include "desktop/preview/PreviewRequest.h"

#include <QCache>
#include <QObject>
#include <QTimer>

#include <chrono>

namespace desktop {

class PreviewProcess;

class PreviewService final : public QObject {
    Q_OBJECT

public:
    /// Where this program is, which works previews out. Before that is known all previews fail.
    static void SetProgram(const QString& path);
    static QString GetProgram();
    /// What a file is now: another text as soon as it is touched; empty for none.
    static QString MarkFile(const QString& path);
    /// By which an answer is known, as long as the file is as it is now; empty where there is none.
    static QString MakeKey(const PreviewRequest& request);

    explicit PreviewService(QObject* parent = nullptr);
    ~PreviewService() override;

    /// The usual limit is 30 s.
    void SetTimeLimit(std::chrono::milliseconds limit) { m_limit = limit; }
    /// Drops what is under way. Answers by one of the signals, at once where the answer is known.
    /// The picture is no larger than `pixels`, which are those of the screen; `page` counts from 0.
    /// What has no colours of its own is drawn in the palette's text colour on nothing.
    void Show(const QString& absolutePath, QSize pixels, int page, const StepPart& part = {});
    /// What is under way does not answer any more.
    void Cancel();
    bool IsBusy() const { return m_start.isActive() || m_process != nullptr; }

signals:
    void Ready(const QImage& picture, int page, int pageCount);
    void Failed(const QString& oneLine);
    /// Another signal follows, if nobody cancels.
    void Busy();

private:
    void Start();
    void Take(const PreviewAnswer& answer);
    void Tell(const PreviewAnswer& answer);

    std::chrono::milliseconds m_limit;
    PreviewRequest m_request;
    /// What the cache knows the request by.
    QString m_key;
    /// Someone who goes through a list does not start a process a row.
    QTimer m_start;
    PreviewProcess* m_process = nullptr;
    QCache<QString, PreviewAnswer> m_known;
};

} // namespace desktop
