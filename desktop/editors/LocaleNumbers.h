// Numbers as the user writes them: in his locale, which is known nowhere behind the window.
#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace desktop {

/// As few digits as tell the number from all others, without separators of groups.
QString FormatNumber(double number);
QString FormatNumber(int number);
/// With fewer digits behind the point where all of them don't fit, of three digits or more.
QString FormatNumber(double number, const std::function<bool(const QString& text)>& fits);

/// No value when the text is no such number. Blanks around it don't count.
std::optional<double> ParseDouble(const QString& text);
std::optional<int> ParseInt(const QString& text);

} // namespace desktop
