#include "columns/headers/PlainHeaders.h"

namespace productTree {

void StringHeaderImpl::InitEditor() {
    m_model->InitTextHeader(m_column, nullptr);
}

void IntHeaderImpl::InitEditor() {
    m_model->InitIntHeader(m_column);
}

void DoubleHeaderImpl::InitEditor() {
    m_model->InitDoubleHeader(m_column);
}

void BoolHeaderImpl::InitEditor() {
    m_model->InitBoolHeader(m_column);
}

void ListHeaderImpl::InitEditor() {
    m_model->InitListHeader(m_column);
}

void NameHeaderImpl::InitEditor() {
    m_model->InitNameHeader(m_column);
}

void DesignationHeaderImpl::InitEditor() {
    m_model->InitDesignationHeader(m_column);
}

} // namespace productTree
