#include "columns/ColumnInfo.h"

#include "columns/PropertyKeys.h"
#include "host/IfPropertyDescription.h"
#include "host/MeasurementDataBase.h"
#include "host/Numbers.h"
#include "host/ProductProperties.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <sstream>

namespace productTree {

namespace {

using namespace value_type;

enum WidthClass {
    Numbers = 0,
    Texts = 1,
    Structured = 2,
    Choices = 3,
    Narrow = 4,
    PerEmbodiment = 5
};

struct WidthRow {
    const std::wstring* id;
    WidthClass width;
};

// Properties whose width does not follow from their type.
const std::array c_widths = {
    WidthRow{&keys::material, Structured},   WidthRow{&keys::materialDensity, Structured},
    WidthRow{&keys::SPCSection, Structured}, WidthRow{&keys::featureType, Texts},
    WidthRow{&keys::mass, Narrow},           WidthRow{&keys::position, Narrow},
    WidthRow{&keys::accuracyClass, Narrow},  WidthRow{&keys::notSected, Narrow},
    WidthRow{&keys::count, Numbers},
};

bool IsNumeric(unsigned type) {
    return type == Integer || type == Double;
}

WidthClass FindWidthClass(const std::wstring& id, const IfPropertyDescription& description) {
    const auto row = std::ranges::find_if(c_widths, [&](const WidthRow& r) { return *r.id == id; });
    if (row != c_widths.end())
        return row->width;
    if (description.HasList())
        return Choices;
    switch (description.GetType()) {
    case Integer:
    case Double:
        return Numbers;
    case Boolean:
        return Choices;
    default:
        return Texts;
    }
}

// As many decimal digits as any double keeps: behind them stands what binary makes of a fraction.
constexpr int c_shownDigits = 15;

double Rounded(double value, int digits) {
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::scientific, digits - 1);
    double rounded = value;
    std::from_chars(text.data(), end.ptr, rounded);
    return rounded;
}

int CutTowardsZero(double value) {
    constexpr double smallest = std::numeric_limits<int>::min();
    constexpr double largest = std::numeric_limits<int>::max();
    if (std::isnan(value))
        return 0;
    return static_cast<int>(std::clamp(value, smallest, largest));
}

constexpr wchar_t c_keySeparator = L'|';

} // namespace

const std::map<int, double> ColumnInfo::DEFAULT_COLUMN_WIDTH = {
    {Numbers, 75.75},  {Texts, 189.39}, {Structured, 189.39},
    {Choices, 189.39}, {Narrow, 75.75}, {PerEmbodiment, 45.0},
};

struct ColumnInfo::Parts final : Facts {
    Parts() { type = String; }
    // A copy is a column of its own, which nobody holds yet.
    Parts(const Parts& other)
        : Facts(other), header(other.header), width(other.width), list(other.list) {
        count = 0;
    }
    Parts& operator=(const Parts&) = delete;

    std::wstring header;
    double width = 0;
    std::list<SimplePropVal> list;
    /// Made when it is first asked for.
    mutable std::optional<std::list<SimplePropVal>> shownList;
};

void ColumnInfo::Destroy(Facts* facts) noexcept {
    delete static_cast<Parts*>(facts);
}

ColumnInfo::ColumnInfo(const IfPropertyDescription* description) : m_facts(new Parts) {
    Parts& parts = Detach();
    parts.width = DEFAULT_COLUMN_WIDTH.at(Texts);
    if (!description)
        return;
    parts.id = ProductProperties::GetPath(description->GetId());
    parts.type = description->GetType();
    InitByDescription(*description);
}

ColumnInfo::ColumnInfo(const std::wstring& id, const std::wstring& header, double width)
    : m_facts(new Parts) {
    Parts& parts = Detach();
    parts.id = id;
    parts.header = header;
    parts.width = width;
}

const ColumnInfo::Parts& ColumnInfo::GetParts() const {
    return static_cast<const Parts&>(*m_facts);
}

ColumnInfo::Parts& ColumnInfo::Detach() {
    if (m_facts->count > 1)
        m_facts = new Parts(GetParts());
    return static_cast<Parts&>(*m_facts);
}

void ColumnInfo::InitByDescription(const IfPropertyDescription& description) {
    SetRangeByDescription(description);
    SetListByDescription(description);
    SetUnitCoefByDescription(description);
    SetHeaderByDescription(description);
    SetWidthByDescription(description);
    SetIsVarByDescription(description);
}

void ColumnInfo::UpdateByDescription(const IfPropertyDescription& description) {
    Detach().type = description.GetType();
    SetRangeByDescription(description);
    SetListByDescription(description);
    SetUnitCoefByDescription(description);
    SetHeaderByDescription(description);
    SetIsVarByDescription(description);
}

void ColumnInfo::SetRangeByDescription(const IfPropertyDescription& description) {
    Parts& parts = Detach();
    const bool numeric = IsNumeric(parts.type);
    parts.min = numeric ? description.GetMin() : 0;
    parts.max = numeric ? description.GetMax() : 0;
}

void ColumnInfo::SetListByDescription(const IfPropertyDescription& description) {
    Parts& parts = Detach();
    parts.list = description.HasList() ? description.GetList() : std::list<SimplePropVal>();
    parts.shownList.reset();
}

void ColumnInfo::SetUnitCoefByDescription(const IfPropertyDescription& description) {
    Parts& parts = Detach();
    parts.unitCoefficient = IsNumeric(parts.type) ? description.GetUnitCoefficient() : 0;
    parts.shownList.reset();
}

void ColumnInfo::SetHeaderByDescription(const IfPropertyDescription& description) {
    Parts& parts = Detach();
    const wchar_t* caption = description.GetCaption();
    parts.header = caption ? caption : L"";

    const unsigned long number = description.GetId();
    const std::wstring path = ProductProperties::GetPath(number);
    const bool mayHaveUnit = path == keys::mass || path == keys::materialDensity ||
                             number > ProductProperties::lastSystemId;
    if (!mayHaveUnit)
        return;
    const IfMeasurementDataBaseMng* units = GetMeasurementDataBaseMng();
    if (!units)
        return;
    const std::wstring unit = units->GetUnitName(description.GetUnitCode());
    if (!unit.empty())
        parts.header += L", " + unit;
}

void ColumnInfo::SetWidthByDescription(const IfPropertyDescription& description) {
    Parts& parts = Detach();
    parts.width = DEFAULT_COLUMN_WIDTH.at(FindWidthClass(parts.id, description));
}

void ColumnInfo::SetIsVarByDescription(const IfPropertyDescription& description) {
    Detach().isVariable = description.IsVariable();
}

const std::wstring& ColumnInfo::GetHeader() const {
    return GetParts().header;
}

double ColumnInfo::GetWidth() const {
    return GetParts().width;
}

void ColumnInfo::SetWidth(double width) {
    if (width != GetParts().width)
        Detach().width = width;
}

std::list<SimplePropVal> ColumnInfo::GetListOfVariant() const {
    return GetParts().list;
}

std::list<SimplePropVal> ColumnInfo::GetListWithUnitCoef() const {
    return GetShownList();
}

const std::list<SimplePropVal>& ColumnInfo::GetStoredList() const {
    return GetParts().list;
}

const std::list<SimplePropVal>& ColumnInfo::GetShownList() const {
    if (GetParts().shownList)
        return *GetParts().shownList;
    std::list<SimplePropVal>& shown = GetParts().shownList.emplace();
    for (const SimplePropVal& value : GetParts().list) {
        if (value.GetType() == SimplePropVal::TypeInt)
            shown.emplace_back(ApplyUnitCoefficient(value.to_int()));
        else if (value.GetType() == SimplePropVal::TypeDouble)
            shown.emplace_back(ApplyUnitCoefficient(value.to_double()));
        else
            shown.push_back(value);
    }
    return shown;
}

bool ColumnInfo::IsUnitCoefficientDefined() const {
    return std::abs(m_facts->unitCoefficient) >= Math::doubleRegion;
}

double ColumnInfo::ApplyUnitCoefficient(double value) const {
    return IsUnitCoefficientDefined() ? value * m_facts->unitCoefficient : value;
}

double ColumnInfo::UnapplyUnitCoefficient(double value) const {
    if (!IsUnitCoefficientDefined())
        return value;
    const double coefficient = m_facts->unitCoefficient;
    const auto isShownAs = [&](double stored) {
        return Rounded(stored * coefficient, c_shownDigits) == Rounded(value, c_shownDigits);
    };
    const bool hasRange = m_facts->min != 0 || m_facts->max != 0;
    for (const double end : {m_facts->min, m_facts->max}) {
        if (hasRange && isShownAs(end))
            return end;
    }
    const double quotient = value / coefficient;
    for (int digits = 1; digits <= c_shownDigits; ++digits) {
        const double round = Rounded(quotient, digits);
        if (isShownAs(round))
            return round;
    }
    return quotient;
}

int ColumnInfo::ApplyUnitCoefficient(int value) const {
    return CutTowardsZero(ApplyUnitCoefficient(static_cast<double>(value)));
}

int ColumnInfo::UnapplyUnitCoefficient(int value) const {
    return CutTowardsZero(UnapplyUnitCoefficient(static_cast<double>(value)));
}

bool ColumnInfo::IsValueInMinMaxRange(double value) const {
    if (m_facts->min == 0 && m_facts->max == 0)
        return true;
    return m_facts->min <= value && value <= m_facts->max;
}

std::wstring ColumnInfo::ConvertGroupCountToId(const std::set<UniqueMetaObjectKey>& embodiments) {
    std::wstring id = keys::count;
    for (const UniqueMetaObjectKey& key : embodiments) {
        if (!key.IsEmpty())
            id += c_keySeparator + key.WString();
    }
    return id;
}

std::set<UniqueMetaObjectKey> ColumnInfo::ConvertGroupCountFromId(const std::wstring& id) {
    // Nearly every id that is asked about is an ordinary one: tell those without a stream.
    if (id.find(c_keySeparator) == std::wstring::npos)
        return {};

    std::set<UniqueMetaObjectKey> embodiments;
    std::wistringstream stream(id);
    std::wstring head;
    std::wstring token;
    while (std::getline(stream, token, c_keySeparator)) {
        if (head.empty())
            head = token;
        else
            embodiments.insert(UniqueMetaObjectKey(token));
    }
    return head == keys::count ? embodiments : std::set<UniqueMetaObjectKey>();
}

} // namespace productTree
