// The host's numbering of properties.
#pragma once

#include <string>

namespace ProductProperties {

/// The numbers of the two properties that every row shows beside the columns.
inline constexpr unsigned long markingId = 4;
inline constexpr unsigned long nameId = 5;
/// The number of the property "count".
inline constexpr unsigned long countId = 6;
/// The largest number of a property of the system; numbers above it are the user's own properties.
inline constexpr unsigned long lastSystemId = 999;

/// The path of a property, which is the column id. Every number above 999 has one; an unknown
/// system number gives an empty path.
std::wstring GetPath(unsigned long number);

/// The number of a path; 0 for a path that names no property.
unsigned long GetPropId(const std::wstring& path);

/// The kinds of objects, values of the property "featureType".
enum class SystemFeatureTypeEnum {
    Unknown,
    Assembly,
    Detail,
    Standard,
    LibComponent,
    Billet,
    StCompBillet,
    Feature,
    ExtView,
    InsFrg,
    MacroDraft,
    Sheet,
    Orvex
};

namespace ft {

/// The kind that a word of the property stands for; Unknown for any other word.
SystemFeatureTypeEnum GetFtType(const std::wstring& word);

} // namespace ft

} // namespace ProductProperties

/// The kind as a person reads it. Null for Unknown.
const wchar_t* GetFeatureTypeStr(ProductProperties::SystemFeatureTypeEnum type);
