#include "desktop/icons/CommandLook.h"

#include "platform/services/ToolStrips.h"

namespace desktop {

QString TextOfCommand(unsigned command) {
    return QString::fromStdWString(platform::GetCommandFace(command).text.Str());
}

QKeySequence KeyOfCommand(unsigned command) {
    const std::string_view key = platform::GetCommandFace(command).key;
    return QKeySequence::fromString(
        QString::fromLatin1(key.data(), static_cast<qsizetype>(key.size())),
        QKeySequence::PortableText);
}

QString TipOfCommand(unsigned command) {
    const SharedText tip = platform::GetCommandFace(command).tip;
    const QString text =
        tip.IsEmpty() ? TextOfCommand(command) : QString::fromStdWString(tip.Str());
    const QString key = KeyOfCommand(command).toString(QKeySequence::NativeText);
    return key.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, key);
}

QString EntryOfCommand(const QString& text, const QKeySequence& key) {
    const QString entry = QString(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
    const QString keyText = key.toString(QKeySequence::NativeText);
    return keyText.isEmpty() ? entry : entry + QLatin1Char('\t') + keyText;
}

} // namespace desktop
