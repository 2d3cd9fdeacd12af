#include "columns/ColumnInfo.h"

#include "columns/PropertyKeys.h"
#include "host/IfPropertyDescription.h"
#include "host/MeasurementDataBase.h"
#include "host/Numbers.h"
#include "host/ProductProperties.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <sstream>

namespace productTree {

namespace {

enum ColumnType : unsigned { Integer = 0, Double = 1, String = 2, Boolean = 3 };

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

struct ColumnInfo::Parts {
    Parts() = default;
    // A copy is a column of its own, which nobody holds yet.
    Parts(const Parts& other)
        : m_id(other.m_id), m_type(other.m_type), m_header(other.m_header), m_width(other.m_width),
          m_min(other.m_min), m_max(other.m_max), m_unitCoefficient(other.m_unitCoefficient),
          m_list(other.m_list), m_isVariable(other.m_isVariable) {}
    Parts& operator=(const Parts&) = delete;

    unsigned m_count = 0;
    SharedText m_id;
    unsigned m_type = String;
    std::wstring m_header;
    double m_width = 0;
    double m_min = 0;
    double m_max = 0;
    double m_unitCoefficient = 0;
    std::list<SimplePropVal> m_list;
    bool m_isVariable = false;
    /// Made when it is first asked for.
    std::optional<std::list<SimplePropVal>> m_shownList;
};

void intrusive_ptr_add_ref(ColumnInfo::Parts* parts) noexcept {
    ++parts->m_count;
}

void intrusive_ptr_release(ColumnInfo::Parts* parts) noexcept {
    if (--parts->m_count == 0)
        delete parts;
}

ColumnInfo::ColumnInfo(const IfPropertyDescription* description) : m_parts(new Parts) {
    m_parts->m_width = DEFAULT_COLUMN_WIDTH.at(Texts);
    if (!description)
        return;
    m_parts->m_id = ProductProperties::GetPath(description->GetId());
    m_parts->m_type = description->GetType();
    InitByDescription(*description);
}

ColumnInfo::ColumnInfo(const std::wstring& id, const std::wstring& header, double width)
    : m_parts(new Parts) {
    m_parts->m_id = id;
    m_parts->m_header = header;
    m_parts->m_width = width;
}

ColumnInfo::ColumnInfo(const ColumnInfo& other) noexcept = default;

ColumnInfo& ColumnInfo::operator=(const ColumnInfo& other) noexcept = default;

ColumnInfo::~ColumnInfo() = default;

ColumnInfo::Parts& ColumnInfo::Detach() {
    if (m_parts->m_count > 1)
        m_parts = new Parts(*m_parts);
    return *m_parts;
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
    SetRangeByDescription(description);
    SetListByDescription(description);
    SetUnitCoefByDescription(description);
    SetHeaderByDescription(description);
    SetIsVarByDescription(description);
}

void ColumnInfo::SetRangeByDescription(const IfPropertyDescription& description) {
    Parts& parts = Detach();
    const bool numeric = IsNumeric(parts.m_type);
    parts.m_min = numeric ? description.GetMin() : 0;
    parts.m_max = numeric ? description.GetMax() : 0;
}

void ColumnInfo::SetListByDescription(const IfPropertyDescription& description) {
    Parts& parts = Detach();
    parts.m_list = description.HasList() ? description.GetList() : std::list<SimplePropVal>();
    parts.m_shownList.reset();
}

void ColumnInfo::SetUnitCoefByDescription(const IfPropertyDescription& description) {
    Parts& parts = Detach();
    parts.m_unitCoefficient = IsNumeric(parts.m_type) ? description.GetUnitCoefficient() : 0;
    parts.m_shownList.reset();
}

void ColumnInfo::SetHeaderByDescription(const IfPropertyDescription& description) {
    Parts& parts = Detach();
    const wchar_t* caption = description.GetCaption();
    parts.m_header = caption ? caption : L"";

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
        parts.m_header += L", " + unit;
}

void ColumnInfo::SetWidthByDescription(const IfPropertyDescription& description) {
    Parts& parts = Detach();
    parts.m_width = DEFAULT_COLUMN_WIDTH.at(FindWidthClass(parts.m_id, description));
}

void ColumnInfo::SetIsVarByDescription(const IfPropertyDescription& description) {
    Detach().m_isVariable = description.IsVariable();
}

const std::wstring& ColumnInfo::GetId() const {
    return m_parts->m_id;
}

const SharedText& ColumnInfo::GetSharedId() const {
    return m_parts->m_id;
}

const std::wstring& ColumnInfo::GetHeader() const {
    return m_parts->m_header;
}

unsigned ColumnInfo::GetType() const {
    return m_parts->m_type;
}

double ColumnInfo::GetWidth() const {
    return m_parts->m_width;
}

void ColumnInfo::SetWidth(double width) {
    if (width != m_parts->m_width)
        Detach().m_width = width;
}

double ColumnInfo::GetMin() const {
    return m_parts->m_min;
}

double ColumnInfo::GetMax() const {
    return m_parts->m_max;
}

bool ColumnInfo::IsVariable() const {
    return m_parts->m_isVariable;
}

std::list<SimplePropVal> ColumnInfo::GetListOfVariant() const {
    return m_parts->m_list;
}

std::list<SimplePropVal> ColumnInfo::GetListWithUnitCoef() const {
    return GetShownList();
}

const std::list<SimplePropVal>& ColumnInfo::GetStoredList() const {
    return m_parts->m_list;
}

const std::list<SimplePropVal>& ColumnInfo::GetShownList() const {
    if (m_parts->m_shownList)
        return *m_parts->m_shownList;
    std::list<SimplePropVal>& shown = m_parts->m_shownList.emplace();
    for (const SimplePropVal& value : m_parts->m_list) {
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
    return std::abs(m_parts->m_unitCoefficient) >= Math::doubleRegion;
}

double ColumnInfo::ApplyUnitCoefficient(double value) const {
    return IsUnitCoefficientDefined() ? value * m_parts->m_unitCoefficient : value;
}

double ColumnInfo::UnapplyUnitCoefficient(double value) const {
    return IsUnitCoefficientDefined() ? value / m_parts->m_unitCoefficient : value;
}

int ColumnInfo::ApplyUnitCoefficient(int value) const {
    return CutTowardsZero(ApplyUnitCoefficient(static_cast<double>(value)));
}

int ColumnInfo::UnapplyUnitCoefficient(int value) const {
    return CutTowardsZero(UnapplyUnitCoefficient(static_cast<double>(value)));
}

bool ColumnInfo::IsValueInMinMaxRange(double value) const {
    if (m_parts->m_min == 0 && m_parts->m_max == 0)
        return true;
    return m_parts->m_min <= value && value <= m_parts->m_max;
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
