// The cells of one row, in one piece of memory. A hundred thousand rows of sixteen cells are made
// anew at each full build: cells that are allocated one by one would cost more than everything else
// in it. A build that replaces rows makes the new cells in the memory of the old ones.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <utility>

namespace productTree {

class ProductTreeCellImpl;

class alignas(std::max_align_t) CellArena final {
    struct Token {};

public:
    /// Of each cell; the cells stand one behind the other.
    static constexpr std::size_t c_alignment = alignof(std::max_align_t);

    /// Room for at most that many cells.
    static std::shared_ptr<CellArena> Create(std::size_t cellCount);
    /// For Create alone.
    CellArena(Token, std::size_t cellCount);
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

    /// The cell's life is that of the arena, which each pointer to one of its cells keeps. Without
    /// an arena, or behind the last cell of a closed one, the cell stands by itself.
    template <class Cell, class... Args>
    static std::shared_ptr<ProductTreeCellImpl> Make(const std::shared_ptr<CellArena>& arena,
                                                     Args&&... args) {
        static_assert(alignof(Cell) <= c_alignment);
        if (!arena || arena->m_count == arena->m_limit)
            return std::make_shared<Cell>(std::forward<Args>(args)...);
        ProductTreeCellImpl* const cell =
            new (arena->Take(sizeof(Cell))) Cell(std::forward<Args>(args)...);
        arena->GetList()[arena->m_count++] = cell;
        return {arena, cell};
    }

    /// The row has all its cells.
    void Close() { m_limit = m_count; }
    /// In the order in which they were made.
    std::span<ProductTreeCellImpl* const> GetCells() const { return {GetList(), m_count}; }
    /// Has the memory of the cells fetched while something else is done.
    void FetchAhead() const;

private:
    template <class T>
    class PieceAllocator;
    struct Overflow;

    /// Behind the arena itself: the list of its cells, then the cells.
    ProductTreeCellImpl** GetList() const {
        return reinterpret_cast<ProductTreeCellImpl**>(const_cast<CellArena*>(this + 1));
    }
    static constexpr std::size_t RoundUp(std::size_t size) {
        return (size + c_alignment - 1) / c_alignment * c_alignment;
    }
    static std::size_t GetListSize(std::size_t cellCount);
    /// What stands behind an arena.
    static std::size_t MeasureRoom(std::size_t cellCount);
    void* Take(std::size_t size) {
        const std::size_t rounded = RoundUp(size);
        if (rounded > static_cast<std::size_t>(m_end - m_free))
            return TakeBeside(rounded);
        return std::exchange(m_free, m_free + rounded);
    }
    void* TakeBeside(std::size_t size);

    char* m_free;
    char* m_end;
    std::size_t m_count = 0;
    std::size_t m_limit;
    /// What did not fit.
    Overflow* m_overflow = nullptr;
};

} // namespace productTree
