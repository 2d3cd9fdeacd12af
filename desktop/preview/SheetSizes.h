// How large the sheets of PDF files are, which the program finds out in a process of its own. It
// answers for all files that are asked about shortly one after the other.
#pragma once

#include <QSizeF>
#include <QString>
#include <QTimer>

#include <memory>
#include <optional>

namespace desktop {

class PreviewProcess;

class SheetSizes final {
public:
    SheetSizes();
    ~SheetSizes();

    /// Of the first page, in millimetres; no value for what is no PDF, can't be read, is locked or
    /// takes too long. Waits for it, 3 s at most.
    std::optional<QSizeF> Find(const QString& path);

private:
    void End();

    std::unique_ptr<PreviewProcess> m_process;
    /// Since the last question.
    QTimer m_rest;
    /// Who has waited for one of many files does not wait for each of them.
    bool m_isGivenUp = false;
};

} // namespace desktop
