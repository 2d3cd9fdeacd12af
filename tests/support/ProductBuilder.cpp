#include "tests/support/ProductBuilder.h"

#include "host/ProductProperties.h"

#include <algorithm>

namespace support {

using platform::OccurrenceRecord;
using platform::PartRecord;

UniqueMetaObjectKey Key(std::string_view key) { return UniqueMetaObjectKey(std::string(key)); }

Product::Product() { m_model.root.key = Key("root"); }

std::shared_ptr<platform::MemoryProduct> Product::Make() const {
    return std::make_shared<platform::MemoryProduct>(m_model);
}

Product& Product::Root(const std::wstring& name, const std::wstring& designation) {
    m_model.root.name = name;
    m_model.root.marking.SetBase(designation);
    return *this;
}

Product& Product::Object(std::string_view key, const std::wstring& name, const std::wstring& designation) {
    platform::ObjectRecord& object = m_model.objects.emplace_back();
    object.key = Key(key);
    object.name = name;
    object.section.numbers[0] = 20;
    object.part.used = meta_data::SPUsed({1});
    m_currentUses = 0;
    return designation.empty() ? *this : Designation(designation);
}

Product& Product::Name(const std::wstring& name) { return Set(CurrentObject().name, name); }

Product& Product::Designation(const std::wstring& base) {
    CurrentObject().marking.SetBase(base);
    return *this;
}

Product& Product::Marking(const VariantMarking& marking) { return Set(CurrentObject().marking, marking); }
Product& Product::LockedMarkingParts(std::initializer_list<int> parts) {
    return Set(CurrentObject().lockedMarkingParts, parts);
}

Product& Product::Section(int number, const std::wstring& name) { return SectionNumbers({number}, name); }

Product& Product::SectionNumbers(std::initializer_list<std::int32_t> numbers, const std::wstring& name) {
    SPCSection section;
    std::copy_n(numbers.begin(), std::min(numbers.size(), section.numbers.size()), section.numbers.begin());
    section.name = name;
    CurrentObject().section = section;
    return *this;
}

Product& Product::Material(const std::wstring& material) {
    return ObjectValue(L"material", SimplePropVal(SharedText(material)));
}

Product& Product::Mass(double kilograms) { return ObjectValue(L"mass", SimplePropVal(kilograms)); }

Product& Product::ObjectValue(const std::wstring& path, SimplePropVal value) {
    CurrentObject().properties.emplace_back(ProductProperties::GetPropId(path), PropValue(std::move(value)));
    return *this;
}

Product& Product::ReadOnlyValue(const std::wstring& path) {
    CurrentObject().readOnlyProperties.insert(ProductProperties::GetPropId(path));
    return *this;
}

Product& Product::Volume(double volume) { return Set(CurrentObject().volume, volume); }
Product& Product::Document(const std::string& file, const std::wstring& designation, const std::wstring& name,
                           const std::wstring& format) {
    platform::DocumentRecord& document = CurrentObject().documents.emplace_back();
    document.file = file;
    document.marking.SetBase(designation);
    document.name = name;
    document.format = format;
    return *this;
}

Product& Product::KeepsPosition() { return Set(CurrentObject().keepsOwnPosition, true); }
Product& Product::NameLinkedToSection() { return Set(CurrentObject().isNameLinkedToSection, true); }
Product& Product::Icon(int type) { return Set(CurrentObject().iconType, type); }
Product& Product::NotActual() { return Set(CurrentObject().isActual, false); }
Product& Product::ExcludedFromCount() { return Set(CurrentObject().isExcludedFromCount, true); }
Product& Product::AggrIntoProduct(bool on) { return Set(CurrentObject().aggrIntoProduct, on); }

Product& Product::PartOf(std::string_view parent) {
    CurrentObject().parents.push_back(Key(parent));
    return *this;
}

Product& Product::OwnedBy(std::string_view owner) {
    CurrentObject().owners.push_back(Key(owner));
    return *this;
}

Product& Product::BilletOf(std::string_view owner, platform::BilletKind kind) {
    CurrentObject().billet = kind;
    CurrentObject().billetOwner = Key(owner);
    return *this;
}

OccurrenceRecord& Product::AddUse(UniqueMetaObjectKey key) {
    const platform::ObjectRecord& object = CurrentObject();
    OccurrenceRecord use;
    use.key = std::move(key);
    use.kind = object.kind;
    use.part.used = object.part.used;
    return CurrentObject().occurrences.emplace_back(std::move(use));
}

Product& Product::Uses(int count) {
    for (int i = 0; i < count; ++i) {
        const std::size_t number = CurrentObject().occurrences.size() + 1;
        AddUse(Key(CurrentObject().key.String() + '#' + std::to_string(number)));
    }
    m_currentUses = static_cast<std::size_t>(count);
    return *this;
}

Product& Product::Use(std::string_view key) {
    AddUse(Key(key));
    m_currentUses = 1;
    return *this;
}

template <class Change>
Product& Product::ChangeUses(Change change) {
    std::vector<OccurrenceRecord>& uses = CurrentObject().occurrences;
    std::for_each(uses.end() - static_cast<std::ptrdiff_t>(m_currentUses), uses.end(), change);
    return *this;
}

template <class Change>
Product& Product::ChangeParts(Change change) {
    if (m_currentUses != 0)
        return ChangeUses(change);
    change(static_cast<PartRecord&>(CurrentObject()));
    return *this;
}

template <class Field, class Given>
Product& Product::SetParts(Field PartRecord::*field, Given value) {
    return ChangeParts([&](PartRecord& part) { part.*field = value; });
}

Product& Product::In(Keys embodiments) {
    return ChangeUses([&](OccurrenceRecord& use) {
        for (const std::string_view key : embodiments)
            use.embodiments.push_back(Key(key));
    });
}

Product& Product::NotShown() {
    return ChangeUses([](OccurrenceRecord& use) { use.isShown = false; });
}

Product& Product::Value(const std::wstring& path, SimplePropVal value) {
    return ChangeParts(
        [&](PartRecord& part) { part.properties.emplace_back(ProductProperties::GetPropId(path), PropValue(value)); });
}

Product& Product::Link(const std::wstring& path, std::string_view target, const std::wstring& targetPath) {
    return ChangeParts([&](PartRecord& part) {
        part.links.push_back(
            {ProductProperties::GetPropId(path), Key(target), ProductProperties::GetPropId(targetPath)});
    });
}

Product& Product::Kind(int kind) { return SetParts(&PartRecord::kind, kind); }
Product& Product::Phantom() { return SetParts(&PartRecord::isPhantom, true); }
Product& Product::NoHandler() { return SetParts(&PartRecord::hasHandler, false); }

Product& Product::NotInProduct() {
    return ChangeParts([](PartRecord& part) { part.part.attributes.inProduct = false; });
}

Product& Product::CalculatedInProduct(bool inProduct) { return SetParts(&PartRecord::calculatedInProduct, inProduct); }

Product& Product::Separate() {
    return ChangeParts([](PartRecord& part) { part.part.attributes.separate = true; });
}

Product& Product::HiddenA() {
    return ChangeParts([](PartRecord& part) { part.part.attributes.hiddenA = true; });
}

Product& Product::HiddenB() {
    return ChangeParts([](PartRecord& part) { part.part.attributes.hiddenB = true; });
}

Product& Product::UsedIn(std::vector<meta_data::SP::StyleId> styles) {
    return ChangeParts([&styles](PartRecord& part) { part.part.used = meta_data::SPUsed(styles); });
}

Product& Product::InGroupOf(std::string_view groupKey) { return SetParts(&PartRecord::groupKey, Key(groupKey)); }
Product& Product::CountMark() { return SetParts(&PartRecord::isCountMark, true); }

Product& Product::Count(std::string_view embodiment, const std::wstring& count) {
    return ChangeParts([&](PartRecord& part) { part.counts.push_back({Key(embodiment), SharedText(count)}); });
}

Product& Product::Embodiment(std::string_view key, const std::wstring& number) {
    platform::EmbodimentRecord embodiment;
    embodiment.key = Key(key);
    embodiment.marking = m_model.root.marking;
    if (!number.empty()) {
        embodiment.marking.SetEmbodimentNumDelim(L'-');
        embodiment.marking.SetEmbodimentNum(number);
    }
    m_model.embodiments.push_back(std::move(embodiment));
    return *this;
}

Product& Product::CurrentEmbodiments(Keys keys) {
    m_model.currentEmbodiments.clear();
    for (const std::string_view key : keys)
        m_model.currentEmbodiments.push_back(Key(key));
    return *this;
}

Product& Product::ActiveEmbodiment(std::string_view key) { return Set(m_model.activeEmbodiment, Key(key)); }
Product& Product::EmbodimentMode(bool on) { return Set(m_model.embodimentMode, on); }
Product& Product::NoSectionRows() { return Set(m_model.areSectionRowsShown, false); }
Product& Product::NoSectionIcons() { return Set(m_model.usesSectionIcons, false); }
Product& Product::ReadOnly() { return Set(m_model.isReadOnly, true); }
Product& Product::Simplified() { return Set(m_model.isSimplified, true); }
Product& Product::MassOfParts() { return Set(m_model.root.sumsPartMasses, true); }

Product& Product::RootValue(const std::wstring& path, SimplePropVal value) {
    m_model.root.properties.emplace_back(ProductProperties::GetPropId(path), PropValue(std::move(value)));
    return *this;
}

Product& Product::Style(platform::StyleRecord style) { return Set(m_model.style, std::move(style)); }

Product& Product::StyleSections(const std::vector<std::pair<int, std::wstring>>& sections) {
    platform::StyleRecord style;
    for (const auto& [number, name] : sections) {
        platform::StyleSectionRecord& section = style.sections.emplace_back();
        section.number = number;
        section.name = name;
    }
    return Style(std::move(style));
}

Product& Product::Columns(std::initializer_list<std::wstring> paths) {
    m_model.visibleProperties.clear();
    for (const std::wstring& path : paths)
        m_model.visibleProperties.push_back(ProductProperties::GetPropId(path));
    return *this;
}

Product& Product::ColumnSet(const std::string& key) { return Set(m_model.columnSetKey, key); }

Product& Product::Property(platform::PropertyRecord record) {
    m_model.properties.push_back(std::move(record));
    return *this;
}

Product& Product::UserProperty(unsigned long number, const std::wstring& caption, unsigned type, double min,
                               double max) {
    platform::PropertyRecord record;
    record.number = number;
    record.caption = caption;
    record.type = type;
    record.min = min;
    record.max = max;
    return Property(std::move(record));
}

Product& Product::LastPropertyReadOnly() { return Set(m_model.properties.back().isReadOnly, true); }
Product& Product::LastPropertyVariable() { return Set(m_model.properties.back().isVariable, true); }

Product& Product::LastPropertyUnit(const std::wstring& code, double coefficient) {
    m_model.properties.back().unitCode = code;
    m_model.properties.back().unitCoefficient = coefficient;
    return *this;
}

Product& Product::LastPropertyList(std::vector<SimplePropVal> list) {
    return Set(m_model.properties.back().list, std::move(list));
}

} // namespace support
