#include "platform/product/answers/ItemProperties.h"

#include "host/NumberTexts.h"
#include "host/ProductProperties.h"
#include "platform/product/answers/UserWords.h"
#include "platform/product/model/ListValues.h"
#include "platform/product/model/ProductTexts.h"
#include "platform/product/model/ValueFitting.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace platform {

namespace {

using Kind = ItemPropertiesRequest::Kind;

constexpr int c_limitDigits = 6;

Kind KindOf(const PropertyRecord& record, const PropValue& value) {
    if (value.GetSimpleValue().GetType() == SimplePropVal::TypeDateTime)
        return Kind::Moment;
    if (!record.list.empty())
        return Kind::List;
    switch (record.type) {
    case value_type::Integer:
        return Kind::Int;
    case value_type::Double:
        return Kind::Double;
    case value_type::Boolean:
        return Kind::Bool;
    default:
        return Kind::Text;
    }
}

ItemPropertiesRequest::Value ToShown(const PropertyRecord& record, Kind kind,
                                     const PropValue& value) {
    if (value.IsEmpty())
        return {};
    const SimplePropVal::Type type = value.GetSimpleValue().GetType();
    const bool isNumber = type == SimplePropVal::TypeInt || type == SimplePropVal::TypeDouble;
    if (kind == Kind::List) {
        const std::optional<std::size_t> place = FindListPlace(record, value.GetSimpleValue());
        return place ? ItemPropertiesRequest::Value(*place) : ItemPropertiesRequest::Value();
    }
    if (kind == Kind::Bool && type == SimplePropVal::TypeBool)
        return value.to_bool();
    if (kind == Kind::Int && isNumber)
        return static_cast<int>(value.to_double() * CoefficientOf(record));
    if (kind == Kind::Double && isNumber)
        return Rounded(value.to_double() * CoefficientOf(record));
    return record.number == ProductProperties::markingId ? MarkingText(value) : value.to_wstring();
}

} // namespace

ItemProperties::ItemProperties(const EditRules& rules, const PropertyDescriptions& descriptions,
                               const PartEntry& part, UniqueMetaObjectKey embodiment)
    : m_rules(rules), m_part(part), m_embodiment(std::move(embodiment)),
      m_sections(ListSections(rules.model)) {
    m_request.title =
        GetText(ProductText::ItemPropertiesTitle, {NameOf(ShownValues(rules.index), part)});
    for (const IfPropertyDescription* const description : descriptions.GetAll()) {
        const PropertyRecord* const record = descriptions.FindRecord(description->GetId());
        m_records.push_back(record);
        m_request.lines.push_back(MakeLine(*record));
        m_first.push_back(m_request.lines.back().value);
    }
}

ItemProperties::Line ItemProperties::MakeLine(const PropertyRecord& record) const {
    const PropValue value = GetValue(record);
    Line line;
    line.caption = CaptionOf(record);
    line.kind = KindOf(record, value);
    line.value = ToShown(record, line.kind, value);
    for (const SimplePropVal& item : record.list)
        line.list.push_back(item.to_wstring());
    if (record.number == number::section)
        PutSections(line);
    line.canChange = CanChange(record);
    line.source = MakeSource(record);
    return line;
}

void ItemProperties::PutSections(Line& line) const {
    line.kind = Kind::List;
    for (const StyleSection& entry : m_sections)
        line.list.push_back(entry.section.name);
    const SPCSection& section = m_part.object->record->section;
    line.value = {};
    if (const std::optional<std::size_t> place = FindSection(m_sections, section))
        line.value = *place;
    else if (!section.name.IsEmpty())
        line.value = section.name;
}

bool ItemProperties::IsCount(const PropertyRecord& record) const {
    return record.number == number::count && m_rules.counts.IsCounted(m_embodiment);
}

PropValue ItemProperties::GetValue(const PropertyRecord& record) const {
    return IsCount(record) ? m_rules.counts.Get(m_part, m_embodiment)
                           : ShownValues(m_rules.index).Get(m_part, record.number);
}

bool ItemProperties::CanChange(const PropertyRecord& record) const {
    // There is no count of the product itself.
    if (record.number == number::count && m_part.isRoot)
        return false;
    return m_rules.CanChange(m_part, record.number);
}

SharedText ItemProperties::MakeSource(const PropertyRecord& record) const {
    const ShownValues shown(m_rules.index);
    const ValueHolder holder = shown.FindHolder(m_part, record.number);
    if (const LinkRecord* const link = shown.FindLink(holder)) {
        const PartEntry* const target = m_rules.index.Find(link->target);
        const PropertyRecord* const property = m_rules.properties.Get(link->targetProperty).record;
        return target && property
                   ? GetText(ProductText::ValueLinked, {property->caption, NameOf(shown, *target)})
                   : GetText(ProductText::ValueLinkLost);
    }
    if (GetValue(record).IsEmpty())
        return {};
    if (IsCount(record))
        return GetText(m_rules.counts.FindTyped(m_part, m_embodiment) ? ProductText::ValueTypedCount
                                                                      : ProductText::ValueCounted);
    return GetText(holder.part == &m_part ? ProductText::ValueOwn : ProductText::ValueOfObject);
}

void ItemProperties::Take(const std::vector<ItemPropertyInput>& inputs) {
    for (const ItemPropertyInput& input : inputs) {
        if (input.line < m_request.lines.size() && m_request.lines[input.line].canChange)
            m_request.lines[input.line].value = input.value;
    }
}

std::optional<PropValue> ItemProperties::ToStored(std::size_t place) const {
    const Line& line = m_request.lines[place];
    const PropertyRecord& record = *m_records[place];
    const bool isNumber = line.kind == Kind::Int || line.kind == Kind::Double;
    if (const auto* const text = std::get_if<SharedText>(&line.value)) {
        // A text would be taken for a stored number.
        if (isNumber && !text->IsEmpty())
            return std::nullopt;
        return PropValue(SimplePropVal(*text));
    }
    if (const auto* const number = std::get_if<double>(&line.value))
        return PropValue(SimplePropVal(Rounded(*number / CoefficientOf(record))));
    if (const auto* const number = std::get_if<int>(&line.value))
        return PropValue(SimplePropVal(std::trunc(Rounded(*number / CoefficientOf(record)))));
    if (const auto* const truth = std::get_if<bool>(&line.value))
        return PropValue(SimplePropVal(*truth));
    const auto* const choice = std::get_if<std::size_t>(&line.value);
    if (choice && *choice >= line.list.size())
        return std::nullopt;
    if (choice && record.number == number::section)
        return spc_section::ToPropValue(m_sections[*choice].section);
    return choice ? PropValue(GetListValue(record, *choice)) : PropValue();
}

std::shared_ptr<const ProductChange> ItemProperties::MakeChange(std::size_t line) const {
    const std::optional<PropValue> value = ToStored(line);
    if (!value)
        return nullptr;
    const PropertyRecord& record = *m_records[line];
    if (IsCount(record))
        return std::make_shared<CountChange>(m_part.key, m_embodiment, *value);
    return std::make_shared<ValueChange>(m_part.key, record.number, *value);
}

std::optional<std::vector<std::shared_ptr<const ProductChange>>> ItemProperties::MakeChanges() {
    std::vector<std::shared_ptr<const ProductChange>> changes;
    bool isRefused = false;
    for (std::size_t i = 0; i < m_request.lines.size(); ++i) {
        Line& line = m_request.lines[i];
        line.refusal = {};
        if (line.value == m_first[i])
            continue;
        const std::shared_ptr<const ProductChange> change = MakeChange(i);
        ValuePlan plan(m_rules.index);
        if (change && change->Plan(m_rules, plan)) {
            changes.push_back(change);
            continue;
        }
        line.refusal = MakeRefusal(i, change ? plan.GetRefusal() : ProductText::RefusedNumber);
        isRefused = true;
    }
    return isRefused ? std::nullopt : std::optional(std::move(changes));
}

void ItemProperties::RefuseAll() {
    for (std::size_t i = 0; i < m_request.lines.size(); ++i) {
        if (!(m_request.lines[i].value == m_first[i]))
            m_request.lines[i].refusal = GetText(ProductText::RefusedValue);
    }
}

SharedText ItemProperties::MakeRefusal(std::size_t place, std::optional<ProductText> reason) const {
    const PropertyRecord& record = *m_records[place];
    const Line& line = m_request.lines[place];
    if (reason)
        return GetText(*reason);
    const bool isNumber = line.kind == Kind::Int || line.kind == Kind::Double;
    const bool hasLimits = isNumber && (record.min != 0 || record.max != 0) && !record.isVariable;
    if (!hasLimits)
        return GetText(ProductText::RefusedValue);
    const double last = line.kind == Kind::Int ? std::numeric_limits<int>::max()
                                               : std::numeric_limits<double>::max();
    const auto text = [&](double limit) {
        return orvex::sys::ToString(limit * CoefficientOf(record), true, c_limitDigits);
    };
    if (record.max >= last)
        return GetText(ProductText::RefusedBelow, {text(record.min)});
    if (record.min <= -last)
        return GetText(ProductText::RefusedAbove, {text(record.max)});
    return GetText(ProductText::RefusedRange, {text(record.min), text(record.max)});
}

} // namespace platform
