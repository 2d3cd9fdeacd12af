// The host's data base of measurement units.
#pragma once

#include <string>

class IfMeasurementDataBaseMng {
public:
    virtual ~IfMeasurementDataBaseMng() = default;

    /// The short name of a unit as it stands behind a caption; empty for an unknown code.
    virtual std::wstring GetUnitName(const std::wstring& unitCode) const = 0;
};

/// Null when the host runs without the data base.
const IfMeasurementDataBaseMng* GetMeasurementDataBaseMng();
