// Heads that know nothing of the meaning of their column: one for the name, one for the
// designation, one for each type of value.
#pragma once

#include "columns/headers/ProductTreeHeaderImpl.h"

namespace productTree {

class StringHeaderImpl : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;
    void InitEditor() override;
};

class IntHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;
    void InitEditor() override;
};

class DoubleHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;
    void InitEditor() override;
};

class BoolHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;
    void InitEditor() override;
};

class ListHeaderImpl : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;
    void InitEditor() override;
};

class NameHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;
    void InitEditor() override;
};

class DesignationHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;
    void InitEditor() override;
};

} // namespace productTree
