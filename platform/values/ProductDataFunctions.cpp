#include "host/data/IfProductDataAggregator.h"

#include <algorithm>

const PartAttributes PartHandler::c_defaultAttrs;
const PartAttributes GroupPartHandler::c_defaultAttrs;

SPCSection FindSpcSection(const IfProductDataAggregator& aggregator, const UniqueMetaObjectKey& key,
                          const IfDocumentType* /*documentType*/) {
    // An object has one section, whatever the type of the document that shows it.
    return aggregator.GetSection(key);
}

namespace meta_data {

bool SPUsed::IsSPUsed(SP::StyleId style) const {
    if (style == SP::AllStyleId())
        return !m_styles.empty();
    return std::find(m_styles.begin(), m_styles.end(), style) != m_styles.end();
}

namespace SP {

StyleId AllStyleId() {
    return 0;
}

bool IsSPUsed(const IfProductDataAggregator& aggregator, const UniqueMetaObjectKey& key,
              StyleId style) {
    return aggregator.IsUsedInStyle(key, style);
}

bool IsManualBillet(const IfProductDataAggregator& aggregator, const UniqueMetaObjectKey& key) {
    return aggregator.IsManualBillet(key);
}

bool IsAssociativeBillet(const IfMetaProductData& metaData, const UniqueMetaObjectKey& key) {
    return metaData.IsAssociativeBillet(key);
}

} // namespace SP
} // namespace meta_data
