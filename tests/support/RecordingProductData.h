// A product in memory that notes the questions it is asked and can throw at the n-th of them, as a
// host may at any time.
#pragma once

#include "platform/product/MemoryProduct.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace support {

struct HostError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class RecordingProductData final : public platform::MemoryProduct {
public:
    using Base = platform::MemoryProduct;
    using Key = UniqueMetaObjectKey;
    using Base::Base;

    /// Throws HostError at the call of that number from now on; 0: never.
    void ThrowAt(std::size_t call) {
        m_throwAt = call;
        m_count = 0;
    }
    std::size_t GetCallCount() const { return m_count; }
    /// Names of the calls since the last time, in order.
    std::vector<std::string> TakeCalls() { return std::exchange(m_calls, {}); }

    // clang-format off
    std::uint64_t GetChangeStamp() const override { return Note("GetChangeStamp"), Base::GetChangeStamp(); }
    bool IsReadOnly() const override { return Note("IsReadOnly"), Base::IsReadOnly(); }
    bool IsReadOnly(const PropertyRef& ref) const override { return Note("IsReadOnly"), Base::IsReadOnly(ref); }
    void BeginRebuild() override { Note("BeginRebuild"), Base::BeginRebuild(); }
    void PrepareData() override { Note("PrepareData"), Base::PrepareData(); }
    void BeginRead() override { Note("BeginRead"), Base::BeginRead(); }
    void EndRead() override { Note("EndRead"), Base::EndRead(); }
    IfProductDataAggregator& GetAggregator() const override { return Note("GetAggregator"), Base::GetAggregator(); }
    Key GetRootKey() const override { return Note("GetRootKey"), Base::GetRootKey(); }
    std::vector<Key> GetTopKeys() const override { return Note("GetTopKeys"), Base::GetTopKeys(); }
    bool IsShownInTree(const Key& key) const override { return Note("IsShownInTree"), Base::IsShownInTree(key); }
    bool AreSectionRowsShown() const override { return Note("AreSectionRowsShown"), Base::AreSectionRowsShown(); }
    SpcDescription* GetSpcDescription() const override { return Note("GetSpcDescription"), Base::GetSpcDescription(); }
    bool UsesSectionIcons() const override { return Note("UsesSectionIcons"), Base::UsesSectionIcons(); }
    std::string GetColumnSetKey() const override { return Note("GetColumnSetKey"), Base::GetColumnSetKey(); }
    std::vector<unsigned long> GetVisiblePropertyIds() const override { return Note("GetVisiblePropertyIds"), Base::GetVisiblePropertyIds(); }
    std::vector<const IfPropertyDescription*> GetPropertyDescriptions() const override { return Note("GetPropertyDescriptions"), Base::GetPropertyDescriptions(); }
    PropValue GetValue(const PropertyRef& ref) const override { return Note("GetValue"), Base::GetValue(ref); }
    std::set<int> GetLockedMarkingParts(const Key& key) const override { return Note("GetLockedMarkingParts"), Base::GetLockedMarkingParts(key); }
    bool IsHypertext(const PropertyRef& ref) const override { return Note("IsHypertext"), Base::IsHypertext(ref); }
    int GetIconType(const Key& key) const override { return Note("GetIconType"), Base::GetIconType(key); }
    bool IsActual(const Key& key) const override { return Note("IsActual"), Base::IsActual(key); }
    bool IsExcludedFromCount(const Key& key) const override { return Note("IsExcludedFromCount"), Base::IsExcludedFromCount(key); }
    bool IsAggrIntoProductShown() const override { return Note("IsAggrIntoProductShown"), Base::IsAggrIntoProductShown(); }
    bool IsEmbodimentMode() const override { return Note("IsEmbodimentMode"), Base::IsEmbodimentMode(); }
    // clang-format on

private:
    void Note(const char* call) const {
        m_calls.emplace_back(call);
        if (++m_count == m_throwAt)
            throw HostError(call);
    }

    std::size_t m_throwAt = 0;
    mutable std::size_t m_count = 0;
    mutable std::vector<std::string> m_calls;
};

} // namespace support
