// The numbers of the properties that a product in memory itself knows something about; name and
// designation stand in ProductProperties.
#pragma once

namespace platform::number {

inline constexpr unsigned long position = 1;
inline constexpr unsigned long section = 2;
inline constexpr unsigned long format = 3;
inline constexpr unsigned long count = 6;
inline constexpr unsigned long material = 8;
inline constexpr unsigned long density = 9;
inline constexpr unsigned long mass = 10;
inline constexpr unsigned long roughSign = 29;
inline constexpr unsigned long roughValue = 30;
inline constexpr unsigned long notSected = 45;

} // namespace platform::number
