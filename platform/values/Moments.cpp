#include "platform/values/Moments.h"

#include <charconv>
#include <chrono>

namespace platform {

namespace {

constexpr std::string_view c_pattern = "0000-00-00T00:00:00Z";
constexpr std::size_t c_dateLength = 10;

bool FollowsPattern(std::string_view text) {
    if (text.size() != c_pattern.size() && text.size() != c_dateLength)
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (c_pattern[i] == '0' ? !isDigit : text[i] != c_pattern[i])
            return false;
    }
    return true;
}

/// The number at that place of the pattern; 0 behind the end of a date.
int NumberAt(std::string_view text, std::size_t place, std::size_t length) {
    int number = 0;
    if (place < text.size())
        std::from_chars(text.data() + place, text.data() + place + length, number);
    return number;
}

} // namespace

std::optional<DateTime> ParseMoment(std::string_view text) {
    using namespace std::chrono;
    if (!FollowsPattern(text))
        return std::nullopt;
    const year_month_day date(year(NumberAt(text, 0, 4)),
                              month(static_cast<unsigned>(NumberAt(text, 5, 2))),
                              day(static_cast<unsigned>(NumberAt(text, 8, 2))));
    const hours hour(NumberAt(text, 11, 2));
    const minutes minute(NumberAt(text, 14, 2));
    const seconds second(NumberAt(text, 17, 2));
    if (!date.ok() || date.year() < year(1) || hour.count() > 23 || minute.count() > 59 ||
        second.count() > 59)
        return std::nullopt;
    const sys_seconds time = sys_days(date) + hour + minute + second;
    return DateTime{time.time_since_epoch().count()};
}

} // namespace platform
