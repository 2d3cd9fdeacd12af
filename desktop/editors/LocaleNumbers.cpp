#include "desktop/editors/LocaleNumbers.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

/// From here on, and below the other, digits before the power of ten say more than zeros do.
constexpr double c_large = 1e15;
constexpr double c_small = 1e-5;

/// Of a number that has no room for more.
constexpr int c_fewestDigits = 3;
constexpr int c_mostDigits = 15;

void LeaveOutGroups(QLocale& locale) {
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
}

/// The user's own, unless that can't read what it writes: some set marks around signs.
QLocale NumberLocale() {
    QLocale locale;
    LeaveOutGroups(locale);
    bool isRead = false;
    static_cast<void>(locale.toDouble(locale.toString(-c_small / 10), &isRead));
    if (isRead)
        return locale;
    QLocale plain = QLocale::c();
    LeaveOutGroups(plain);
    return plain;
}

template <class Number>
std::optional<Number> Checked(Number number, bool isNumber) {
    return isNumber ? std::optional(number) : std::nullopt;
}

} // namespace

QString FormatNumber(double exact) {
    // Behind these digits stands what binary makes of a decimal fraction.
    const double rounded = QString::number(exact, 'g', c_mostDigits).toDouble();
    const double number = std::isfinite(rounded) ? rounded : exact;
    const double size = std::abs(number);
    const bool isPlain = size == 0 || (size >= c_small && size < c_large);
    return NumberLocale().toString(number, isPlain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

QString FormatNumber(int number) {
    return NumberLocale().toString(number);
}

QString FormatNumber(double number, const std::function<bool(const QString&)>& fits) {
    const double size = std::abs(number);
    const int whole = size >= 1 ? static_cast<int>(std::log10(size)) + 1 : 0;
    QString text = FormatNumber(number);
    for (int digits = c_mostDigits; digits >= std::max(whole, c_fewestDigits) && !fits(text);
         --digits)
        text = NumberLocale().toString(number, 'g', digits);
    return text;
}

std::optional<double> ParseDouble(const QString& text) {
    bool isNumber = false;
    const double number = NumberLocale().toDouble(text.trimmed(), &isNumber);
    return Checked(number, isNumber && std::isfinite(number));
}

std::optional<int> ParseInt(const QString& text) {
    bool isNumber = false;
    const int number = NumberLocale().toInt(text.trimmed(), &isNumber);
    return Checked(number, isNumber);
}

} // namespace desktop
