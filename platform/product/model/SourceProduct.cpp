#include "platform/product/model/SourceProduct.h"

#include "platform/product/model/DocumentNames.h"
#include "platform/product/model/PropertyNumbers.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

SharedText NameOf(const SourceProduct& product) {
    return product.name.IsEmpty() ? product.id : product.name;
}

/// An id that only repeats the name is none.
VariantMarking MarkingOf(const SourceProduct& product) {
    VariantMarking marking;
    if (!(product.id == NameOf(product)))
        marking.SetBase(product.id);
    return marking;
}

PropValue MaterialOf(const SourceProduct& product) {
    return product.material.IsEmpty() ? PropValue() : PropValue(SimplePropVal(product.material));
}

PropValue DensityOf(const SourceProduct& product) {
    return product.density ? PropValue(SimplePropVal(*product.density)) : PropValue();
}

PropValue GetValue(const ObjectRecord& object, unsigned long number) {
    const auto found =
        std::ranges::find(object.properties, number, &PropertyValues::value_type::first);
    return found == object.properties.end() ? PropValue() : found->second;
}

void SetValue(ObjectRecord& object, unsigned long number, PropValue value) {
    const auto found =
        std::ranges::find(object.properties, number, &PropertyValues::value_type::first);
    if (value.IsEmpty() && found != object.properties.end())
        object.properties.erase(found);
    else if (found != object.properties.end())
        found->second = std::move(value);
    else if (!value.IsEmpty())
        object.properties.emplace_back(number, std::move(value));
}

/// What still has the value of the last reading gets that of this one.
template <class Value>
bool FollowValue(Value& value, const Value& last, const Value& now) {
    if (!(value == last) || last == now)
        return false;
    value = now;
    return true;
}

bool FollowProperty(ObjectRecord& object, unsigned long number, const PropValue& last,
                    const PropValue& now) {
    PropValue value = GetValue(object, number);
    const bool isFollowed = FollowValue(value, last, now);
    if (isFollowed)
        SetValue(object, number, std::move(value));
    return isFollowed;
}

/// A mass that is that of volume and density stays so.
bool FollowDensity(ObjectRecord& object, const SourceProduct& last, const SourceProduct& now) {
    const PropValue mass = GetValue(object, number::mass);
    const bool isOfDensity = object.volume && last.density && !mass.IsEmpty() &&
                             mass.to_double() == *object.volume * *last.density;
    if (!FollowProperty(object, number::density, DensityOf(last), DensityOf(now)))
        return false;
    if (object.volume && (isOfDensity || mass.IsEmpty()))
        SetValue(object, number::mass,
                 now.density ? PropValue(SimplePropVal(*object.volume * *now.density))
                             : PropValue());
    return true;
}

} // namespace

SharedText TitleOf(const ObjectRecord& object) {
    return object.name.IsEmpty() ? object.marking.Make(VariantMarkingData::MakeAll, false, false)
                                 : object.name;
}

SharedText FileNameOf(const SourceFile& source) {
    return FileNameOf(source.path);
}

DocumentRecord MakeSourceDocument(const SourceFile& source, const ObjectRecord& object) {
    DocumentRecord document;
    document.file = source.path;
    document.name = NameOf(*object.source);
    document.marking = MarkingOf(*object.source);
    document.isSource = object.name == document.name && object.marking == document.marking;
    document.sourceLocked = true;
    return document;
}

void TakeOver(ObjectRecord& object, SourceProduct product) {
    object.name = NameOf(product);
    object.marking = MarkingOf(product);
    SetValue(object, number::material, MaterialOf(product));
    SetValue(object, number::density, DensityOf(product));
    object.source = std::move(product);
}

bool Follow(ObjectRecord& object, const SourceProduct& now) {
    if (!object.source)
        return false;
    const SourceProduct last = std::exchange(object.source, now).value();
    bool isFollowed = FollowValue(object.name, NameOf(last), NameOf(now));
    isFollowed |= FollowValue(object.marking, MarkingOf(last), MarkingOf(now));
    isFollowed |= FollowProperty(object, number::material, MaterialOf(last), MaterialOf(now));
    isFollowed |= FollowDensity(object, last, now);
    return isFollowed;
}

} // namespace platform
