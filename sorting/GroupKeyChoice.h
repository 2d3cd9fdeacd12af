// The key that stands for a group: that of the first part used in the current style, else of the
// first used in any style, else of the first part.
#pragma once

#include "host/data/IfProductDataAggregator.h"

namespace productTree {

class GroupKeyChoice {
public:
    GroupKeyChoice(const IfProductDataAggregator& aggregator, meta_data::SP::StyleId style)
        : m_aggregator(aggregator), m_style(style) {}

    // `asked` is whose use counts; billets are used where their owner is.
    void Add(const UniqueMetaObjectKey& key, const UniqueMetaObjectKey& asked) {
        // The first that is used in the style is taken, whatever comes behind it.
        if (m_used != UniqueMetaObjectKey::null)
            return;
        if (meta_data::SP::IsSPUsed(m_aggregator, asked, m_style))
            TakeFirst(m_used, key);
        else if (meta_data::SP::IsSPUsed(m_aggregator, asked, meta_data::SP::AllStyleId()))
            TakeFirst(m_usedElsewhere, key);
        else
            TakeFirst(m_notUsed, key);
    }

    const UniqueMetaObjectKey& Get() const {
        if (m_used != UniqueMetaObjectKey::null)
            return m_used;
        return m_usedElsewhere != UniqueMetaObjectKey::null ? m_usedElsewhere : m_notUsed;
    }

private:
    static void TakeFirst(UniqueMetaObjectKey& chosen, const UniqueMetaObjectKey& key) {
        if (chosen == UniqueMetaObjectKey::null)
            chosen = key;
    }

    const IfProductDataAggregator& m_aggregator;
    meta_data::SP::StyleId m_style;
    UniqueMetaObjectKey m_used;
    UniqueMetaObjectKey m_usedElsewhere;
    UniqueMetaObjectKey m_notUsed;
};

} // namespace productTree
