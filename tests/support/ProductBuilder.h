// Products in a few lines of a test:
//
//     Product().Root(L"Gearbox", L"AB.100")
//         .Object("bolt", L"Bolt M8").Section(25).Uses(4)
//         .Object("case", L"Case", L"AB.101").Uses().Separate()
//
// What follows Object speaks of that object, until Use or Uses; from there on what is said of a
// part (its attributes, its embodiments, its handler) is said of the uses just added. Nothing is
// checked: a test may write a product that makes no sense.
#pragma once

#include "platform/product/answers/MemoryProduct.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace support {

UniqueMetaObjectKey Key(std::string_view key);

class Product {
public:
    using Keys = std::initializer_list<std::string_view>;

    /// An empty product: its root has the key "root", no name and no designation.
    Product();

    platform::ProductModel Model() const { return m_model; }
    operator platform::ProductModel() const { return m_model; }
    std::shared_ptr<platform::MemoryProduct> Make() const;

    Product& Root(const std::wstring& name, const std::wstring& designation = {});

    /// A part of section 20 that stands in the specification of style 1.
    Product& Object(std::string_view key, const std::wstring& name = {}, const std::wstring& designation = {});
    Product& Name(const std::wstring& name);
    Product& Designation(const std::wstring& base);
    Product& Marking(const VariantMarking& marking);
    Product& LockedMarkingParts(std::initializer_list<int> parts);
    Product& Section(int number, const std::wstring& name = {});
    /// All six numbers of the section, the rest of them 0.
    Product& SectionNumbers(std::initializer_list<std::int32_t> numbers, const std::wstring& name = {});
    Product& Material(const std::wstring& material);
    Product& Mass(double kilograms);
    /// The property can't be changed for the object.
    Product& ReadOnlyValue(const std::wstring& path);
    /// In cubic metres.
    Product& Volume(double volume);
    /// A document of the object.
    Product& Document(const std::string& file, const std::wstring& designation = {}, const std::wstring& name = {},
                      const std::wstring& format = {});
    Product& KeepsPosition();
    Product& NameLinkedToSection();
    Product& Icon(int type);
    Product& NotActual();
    Product& ExcludedFromCount();
    Product& AggrIntoProduct(bool on);
    Product& PartOf(std::string_view parent);
    Product& OwnedBy(std::string_view owner);
    Product& BilletOf(std::string_view owner, platform::BilletKind kind = platform::BilletKind::Manual);

    /// Uses of the object, of its kind and standing in the same specifications. Their keys are that
    /// of the object, '#' and the number of the use, from 1 on.
    Product& Uses(int count = 1);
    Product& Use(std::string_view key);
    /// The embodiments that hold the use.
    Product& In(Keys embodiments);
    /// The last word: the use has no row.
    Product& NotShown();

    // Of the object, or of the uses just added.
    /// `path` as ProductProperties has it. Of uses: a value in place of the object's.
    Product& Value(const std::wstring& path, SimplePropVal value);
    /// A link to the target's property.
    Product& Link(const std::wstring& path, std::string_view target, const std::wstring& targetPath);
    Product& Kind(int kind);
    Product& Phantom();
    Product& NoHandler();
    Product& NotInProduct();
    Product& CalculatedInProduct(bool inProduct);
    Product& Separate();
    Product& HiddenA();
    Product& HiddenB();
    Product& UsedIn(std::vector<meta_data::SP::StyleId> styles);
    Product& NotUsed() { return UsedIn({}); }
    Product& InGroupOf(std::string_view groupKey);
    Product& CountMark();
    /// A count that was typed; empty: that there is none.
    Product& Count(std::string_view embodiment, const std::wstring& count);

    Product& Embodiment(std::string_view key, const std::wstring& number = {});
    Product& CurrentEmbodiments(Keys keys);
    Product& ActiveEmbodiment(std::string_view key);
    Product& EmbodimentMode(bool on = true);

    Product& NoSectionRows();
    Product& NoSectionIcons();
    Product& ReadOnly();
    Product& Simplified();
    /// The root's mass is the sum of its parts'.
    Product& MassOfParts();
    Product& RootValue(const std::wstring& path, SimplePropVal value);
    Product& Style(platform::StyleRecord style);
    /// A style of these sections without blocks.
    Product& StyleSections(const std::vector<std::pair<int, std::wstring>>& sections);

    /// A property of the user's own.
    Product& UserProperty(unsigned long number, const std::wstring& caption, unsigned type, double min = 0,
                          double max = 0);
    Product& LastPropertyReadOnly();
    Product& LastPropertyVariable();
    Product& LastPropertyUnit(const std::wstring& code, double coefficient);
    Product& LastPropertyList(std::vector<SimplePropVal> list);

    /// The shown columns, by path.
    Product& Columns(std::initializer_list<std::wstring> paths);
    Product& ColumnSet(const std::string& key);
    Product& Property(platform::PropertyRecord record);

private:
    platform::ObjectRecord& CurrentObject() { return m_model.objects.back(); }
    Product& ObjectValue(const std::wstring& path, SimplePropVal value);
    template <class Field, class Given>
    Product& Set(Field& field, Given&& value) {
        field = std::forward<Given>(value);
        return *this;
    }
    platform::OccurrenceRecord& AddUse(UniqueMetaObjectKey key);
    template <class Change>
    Product& ChangeParts(Change change);
    template <class Field, class Given>
    Product& SetParts(Field platform::PartRecord::*field, Given value);
    template <class Change>
    Product& ChangeUses(Change change);

    platform::ProductModel m_model;
    /// How many of the last object's uses are spoken of; 0: the object itself.
    std::size_t m_currentUses = 0;
};

} // namespace support
