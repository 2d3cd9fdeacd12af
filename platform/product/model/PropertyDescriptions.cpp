#include "platform/product/model/PropertyDescriptions.h"

#include "host/ProductProperties.h"
#include "platform/product/model/ListValues.h"
#include "platform/product/model/PropertyNumbers.h"
#include "platform/product/model/SystemProperties.h"

namespace platform {

class PropertyDescriptions::Description final : public IfPropertyDescription {
public:
    explicit Description(const PropertyRecord& record) : m_record(record) {}

    const PropertyRecord& GetRecord() const { return m_record; }

    unsigned long GetId() const override { return m_record.number; }
    unsigned GetType() const override { return m_record.type; }
    const wchar_t* GetCaption() const override { return m_record.caption.c_str(); }
    double GetMin() const override { return m_record.min; }
    double GetMax() const override { return m_record.max; }
    bool HasList() const override { return !m_record.list.empty(); }
    std::list<SimplePropVal> GetList() const override {
        return {m_record.list.begin(), m_record.list.end()};
    }
    double GetUnitCoefficient() const override { return m_record.unitCoefficient; }
    std::wstring GetUnitCode() const override { return m_record.unitCode; }
    bool IsVariable() const override { return m_record.isVariable; }

private:
    PropertyRecord m_record;
};

namespace {

/// What is stored of "not cut in sections" means the system's list, and a roughness sign needs one.
PropertyRecord WithList(PropertyRecord own, const PropertyRecord& system) {
    if (own.number == number::notSected || own.list.empty())
        own.list = system.list;
    return own;
}

} // namespace

PropertyDescriptions::PropertyDescriptions(const std::vector<PropertyRecord>& own) {
    for (const PropertyRecord& record : GetSystemProperties())
        Add(record);
    for (const PropertyRecord& record : own)
        Add(record);
}

PropertyDescriptions::~PropertyDescriptions() = default;

std::vector<const IfPropertyDescription*> PropertyDescriptions::GetAll() const {
    std::vector<const IfPropertyDescription*> all;
    all.reserve(m_descriptions.size());
    for (const auto& description : m_descriptions)
        all.push_back(description.get());
    return all;
}

const IfPropertyDescription* PropertyDescriptions::Find(const std::wstring& columnId) const {
    const auto found = m_places.find(ProductProperties::GetPropId(columnId));
    return found == m_places.end() ? nullptr : m_descriptions[found->second].get();
}

const PropertyRecord* PropertyDescriptions::FindRecord(unsigned long number) const {
    const auto found = m_places.find(number);
    return found == m_places.end() ? nullptr : &m_descriptions[found->second]->GetRecord();
}

void PropertyDescriptions::Add(const PropertyRecord& record) {
    const auto [place, isNew] = m_places.try_emplace(record.number, m_descriptions.size());
    if (isNew)
        m_descriptions.emplace_back();
    const PropertyRecord* const system = isNew ? nullptr : FindRecord(record.number);
    const bool keepsList = system && HasListNumbers(record.number);
    m_descriptions[place->second] =
        std::make_unique<Description>(keepsList ? WithList(record, *system) : record);
}

} // namespace platform
