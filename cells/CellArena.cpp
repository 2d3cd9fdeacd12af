#include "cells/CellArena.h"

#include "cells/ProductTreeCellImpl.h"

namespace productTree {

namespace {

// Most classes add nothing to the base, a few add a key.
constexpr std::size_t c_usualCellSize = sizeof(ProductTreeCellImpl) + 2 * sizeof(void*);

} // namespace

CellArena::CellArena(std::size_t cellCount) : m_memory(cellCount * c_usualCellSize + 1) {}

CellArena::~CellArena() {
    for (const Node* node = m_last; node; node = node->previous)
        node->cell->~ProductTreeCellImpl();
}

} // namespace productTree
