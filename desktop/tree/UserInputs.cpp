#include "desktop/tree/UserInputs.h"

namespace desktop {

using platform::CellInput;

namespace {

SharedText ToText(const QString& text) {
    return SharedText(text.toStdWString());
}

std::optional<wchar_t> ToDelim(const QString& text) {
    return text.isEmpty() ? std::nullopt : std::optional(text.toStdWString().front());
}

} // namespace

platform::MarkingParts ToParts(const QStringList& texts) {
    platform::MarkingParts parts;
    for (std::size_t i = 0; i < parts.size(); ++i)
        parts[i] = ToText(texts.value(static_cast<int>(i)));
    return parts;
}

CellInput ToInput(EditKind kind, const QVariant& value) {
    if (kind == EditKind::Text || kind == EditKind::Moment)
        return ToText(value.toString());
    if (!value.isValid())
        return kind == EditKind::List ? CellInput(platform::ListIndex{}) : CellInput();
    switch (kind) {
    case EditKind::Int:
    case EditKind::Double:
        // A text is none that the panel takes for a number; it is the one to say so.
        if (value.typeId() == QMetaType::QString)
            return ToText(value.toString());
        return kind == EditKind::Int ? CellInput(value.toInt()) : CellInput(value.toDouble());
    case EditKind::Bool:
        return value.toBool();
    case EditKind::List:
        return platform::ListIndex{value.toInt()};
    default:
        return {};
    }
}

HeaderMarkingParts ToHeaderParts(const QStringList& texts) {
    HeaderMarkingParts parts;
    parts.base = texts.value(0).toStdWString();
    parts.embodimentNumDelim = ToDelim(texts.value(1));
    parts.embodimentNum = texts.value(2).toStdWString();
    parts.additionalNumDelim = ToDelim(texts.value(3));
    parts.additionalNum = texts.value(4).toStdWString();
    parts.codeDelim = ToDelim(texts.value(5));
    parts.code = texts.value(6).toStdWString();
    return parts;
}

} // namespace desktop
