#include "desktop/icons/MenuLetters.h"

#include <QAction>
#include <QKeySequence>
#include <QSet>
#include <QString>

namespace desktop {

namespace {

/// Beginnings of words first; -1 for none. What stands behind a tabulator is no part of the text.
qsizetype FindFreeLetter(const QString& text, const QSet<QChar>& taken) {
    const qsizetype end = text.indexOf(QLatin1Char('\t'));
    const qsizetype length = end < 0 ? text.size() : end;
    for (const bool onlyBeginnings : {true, false}) {
        for (qsizetype i = 0; i < length; ++i) {
            const bool isBeginning = i == 0 || text[i - 1] == QLatin1Char(' ');
            if (text[i].isLetter() && (isBeginning || !onlyBeginnings) &&
                !taken.contains(text[i].toUpper()))
                return i;
        }
    }
    return -1;
}

} // namespace

void MarkLetters(const QList<QAction*>& actions) {
    QSet<QChar> taken;
    for (const QAction* const action : actions) {
        const QString mark = QKeySequence::mnemonic(action->text()).toString();
        if (!mark.isEmpty())
            taken.insert(mark.back());
    }
    for (QAction* const action : actions) {
        QString text = action->text();
        if (!QKeySequence::mnemonic(text).isEmpty())
            continue;
        const qsizetype letter = FindFreeLetter(text, taken);
        if (letter < 0)
            continue;
        taken.insert(text[letter].toUpper());
        action->setText(text.insert(letter, QLatin1Char('&')));
    }
}

} // namespace desktop
