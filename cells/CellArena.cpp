#include "cells/CellArena.h"

#include "cells/ProductTreeCellImpl.h"

namespace productTree {

namespace {

// Most classes add nothing to the base, or fit into what alignment leaves of it. Each cell is
// listed for its destruction.
constexpr std::size_t c_usualCellSize = CellArena::c_alignment + sizeof(void*);
static_assert(sizeof(void*) != 8 || sizeof(ProductTreeCellImpl) <= CellArena::c_alignment);

// One cell of each row remembers more than the others; the list of cells ends anywhere.
constexpr std::size_t c_spare = 2 * CellArena::c_alignment;

void* Allocate(std::size_t size) {
    return ::operator new(size, std::align_val_t(CellArena::c_alignment));
}

void Free(void* piece) noexcept {
    ::operator delete(piece, std::align_val_t(CellArena::c_alignment));
}

// Hands out again what was given back, as long as it is asked for in the same size: another size
// comes with other columns, and what is kept of the old one is of no use any more.
class KeptPieces {
public:
    void StartKeeping() noexcept { m_isKeeping = true; }

    void StopKeeping() noexcept {
        m_isKeeping = false;
        Drop();
    }

    void* Take(std::size_t size) {
        if (size != m_size) {
            Drop();
            m_size = size;
        }
        return m_first ? std::exchange(m_first, m_first->next) : Allocate(size);
    }

    void GiveBack(void* piece, std::size_t size) noexcept {
        if (m_isKeeping && size == m_size)
            m_first = new (piece) Piece{m_first};
        else
            Free(piece);
    }

private:
    struct Piece {
        Piece* next;
    };

    void Drop() noexcept {
        while (m_first)
            Free(std::exchange(m_first, m_first->next));
    }

    bool m_isKeeping = false;
    std::size_t m_size = 0;
    Piece* m_first = nullptr;
};

KeptPieces& GetKeptPieces() {
    static KeptPieces pieces;
    return pieces;
}

} // namespace

CellArena::CellArena(std::size_t cellCount)
    : m_pieceSize(cellCount * c_usualCellSize + c_spare),
      m_piece(GetKeptPieces().Take(m_pieceSize)), m_memory(m_piece, m_pieceSize),
      m_cells(&m_memory) {
    m_cells.reserve(cellCount);
}

CellArena::~CellArena() {
    for (ProductTreeCellImpl* const cell : m_cells)
        cell->~ProductTreeCellImpl();
    // Nothing of the memory is touched by what goes after this.
    GetKeptPieces().GiveBack(m_piece, m_pieceSize);
}

void CellArena::FetchAhead() const {
    const auto* const piece = static_cast<const char*>(m_piece);
    for (std::size_t i = 0; i < m_pieceSize; i += c_alignment)
        __builtin_prefetch(piece + i, 1);
}

CellArena::KeptMemory::KeptMemory() {
    GetKeptPieces().StartKeeping();
}

CellArena::KeptMemory::~KeptMemory() {
    GetKeptPieces().StopKeeping();
}

} // namespace productTree
