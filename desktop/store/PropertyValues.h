// Values of properties as JSON. A value stands as it is where JSON and the property's type leave no
// doubt of its kind; else as an object {"type", "value"}, which also holds a value's format text,
// and a structured value under "tree".
#pragma once

#include "desktop/store/JsonDocument.h"
#include "desktop/store/PropertyNames.h"
#include "platform/product/validation/ModelPath.h"

namespace desktop::store {

/// No type: the property takes any. Throws ReadFault.
PropValue DecodeValue(const JsonValue& json, const platform::ModelPath& path,
                      std::optional<ValueType> type);
/// The same for a property that stores numbers for the elements of its list: older files have the
/// texts of the elements, as people do who write a file by hand.
PropValue DecodeNumbered(const JsonValue& json, const platform::ModelPath& path,
                         const platform::PropertyRecord& property);
SimplePropVal DecodeLiteral(const JsonValue& json, const platform::ModelPath& path,
                            std::optional<ValueType> type);

JsonValue EncodeValue(const PropValue& value, std::optional<ValueType> type);
JsonValue EncodeLiteral(const SimplePropVal& value, std::optional<ValueType> type);

/// A double, as a whole number where it is one.
JsonValue EncodeNumber(double value);

} // namespace desktop::store
