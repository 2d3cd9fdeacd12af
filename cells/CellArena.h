// Room for all cells of one row in one piece. A hundred thousand rows of sixteen cells are made
// anew at each full build: cells that are allocated one by one would cost more than everything else
// in it.
#pragma once

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <new>
#include <utility>

namespace productTree {

class ProductTreeCellImpl;

class CellArena : public std::enable_shared_from_this<CellArena> {
public:
    /// Room for that many cells of the usual size; it grows where that was too little.
    explicit CellArena(std::size_t cellCount);
    CellArena(const CellArena&) = delete;
    CellArena& operator=(const CellArena&) = delete;
    /// Destroys the cells.
    ~CellArena();

    /// The cell's life is that of the arena, which each pointer to one of its cells keeps.
    template <class Cell, class... Args>
    std::shared_ptr<ProductTreeCellImpl> Make(Args&&... args) {
        Node* node = new (m_memory.allocate(sizeof(Node), alignof(Node))) Node{nullptr, m_last};
        void* place = m_memory.allocate(sizeof(Cell), alignof(Cell));
        node->cell = new (place) Cell(std::forward<Args>(args)...);
        m_last = node;
        return {shared_from_this(), node->cell};
    }

private:
    struct Node {
        ProductTreeCellImpl* cell;
        Node* previous;
    };

    std::pmr::monotonic_buffer_resource m_memory;
    Node* m_last = nullptr;
};

} // namespace productTree
