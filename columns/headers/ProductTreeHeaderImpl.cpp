#include "columns/headers/ProductTreeHeaderImpl.h"

#include <utility>

namespace productTree {

ProductTreeHeaderImpl::ProductTreeHeaderImpl(const ColumnInfo& column, IfProductTreeData* data,
                                             boost::intrusive_ptr<ITreeTableModel> model)
    : m_column(column), m_data(data), m_model(std::move(model)) {}

ProductTreeHeaderImpl::~ProductTreeHeaderImpl() = default;

} // namespace productTree
