// Room for all cells of one row in one piece. A hundred thousand rows of sixteen cells are made
// anew at each full build: cells that are allocated one by one would cost more than everything else
// in it. A build that replaces rows makes the new cells in the memory of the old ones.
#pragma once

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <new>
#include <utility>
#include <vector>

namespace productTree {

class ProductTreeCellImpl;

class CellArena : public std::enable_shared_from_this<CellArena> {
public:
    /// A cell is a line of the processor's cache: a refresh reads each once.
    static constexpr std::size_t c_alignment = 64;

    /// Room for that many cells of the usual size; it grows where that was too little.
    explicit CellArena(std::size_t cellCount);
    CellArena(const CellArena&) = delete;
    CellArena& operator=(const CellArena&) = delete;
    /// Destroys the cells.
    ~CellArena();

    /// For as long as one lives, the memory of arenas that go is kept for those that come.
    class KeptMemory {
    public:
        KeptMemory();
        KeptMemory(const KeptMemory&) = delete;
        KeptMemory& operator=(const KeptMemory&) = delete;
        ~KeptMemory();
    };

    /// The cell's life is that of the arena, which each pointer to one of its cells keeps.
    template <class Cell, class... Args>
    std::shared_ptr<ProductTreeCellImpl> Make(Args&&... args) {
        m_cells.reserve(m_cells.size() + 1);
        void* place = m_memory.allocate(sizeof(Cell), c_alignment);
        m_cells.push_back(new (place) Cell(std::forward<Args>(args)...));
        return {shared_from_this(), m_cells.back()};
    }

    /// Has the memory of the cells fetched while something else is done.
    void FetchAhead() const;

private:
    std::size_t m_pieceSize;
    void* m_piece;
    std::pmr::monotonic_buffer_resource m_memory;
    std::pmr::vector<ProductTreeCellImpl*> m_cells;
};

} // namespace productTree
