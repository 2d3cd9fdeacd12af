// The embodiments of a product in memory. Each stands for itself alone, so that it has one key.
#pragma once

#include "host/data/EmbodimentsModel.h"
#include "platform/product/model/ProductModel.h"

namespace platform {

class ModelEmbodiments final : public EmbodimentsModel {
public:
    explicit ModelEmbodiments(const ProductModel& model) : m_model(model) {}

    std::size_t GetCount() const override;
    std::set<UniqueMetaObjectKey> GetRawKeys(std::size_t index) const override;
    VariantMarking GetEmbodimentMarking(std::size_t index) const override;

private:
    const EmbodimentRecord* Find(std::size_t index) const;

    const ProductModel& m_model;
};

} // namespace platform
