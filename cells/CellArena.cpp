#include "cells/CellArena.h"

#include "cells/ProductTreeCellImpl.h"

#include <new>

namespace productTree {

namespace {

// One cell of each row, that of the designation, remembers more than the others.
constexpr std::size_t c_spare = 32;

// Most classes add nothing to the base, or fit into what alignment leaves of it. A refresh reads
// each cell once, and they are most of what it reads.
static_assert(sizeof(void*) != 8 || sizeof(ProductTreeCellImpl) <= 64);

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
        return m_first ? std::exchange(m_first, m_first->next) : ::operator new(size);
    }

    void GiveBack(void* piece, std::size_t size) noexcept {
        if (m_isKeeping && size == m_size)
            m_first = new (piece) Piece{m_first};
        else
            ::operator delete(piece);
    }

private:
    struct Piece {
        Piece* next;
    };

    void Drop() noexcept {
        while (m_first)
            ::operator delete(std::exchange(m_first, m_first->next));
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

/// Gives the arena, with what its pointers count, room for its cells behind it.
template <class T>
class CellArena::PieceAllocator {
public:
    using value_type = T;

    explicit PieceAllocator(std::size_t room) : m_room(room) {}
    template <class U>
    PieceAllocator(const PieceAllocator<U>& other) : m_room(other.GetRoom()) {}

    std::size_t GetRoom() const { return m_room; }
    T* allocate(std::size_t) {
        static_assert(alignof(T) <= c_alignment);
        return static_cast<T*>(GetKeptPieces().Take(sizeof(T) + m_room));
    }
    void deallocate(T* piece, std::size_t) noexcept {
        GetKeptPieces().GiveBack(piece, sizeof(T) + m_room);
    }

private:
    std::size_t m_room;
};

struct CellArena::Overflow {
    alignas(c_alignment) Overflow* next;
};

std::shared_ptr<CellArena> CellArena::Create(std::size_t cellCount) {
    return std::allocate_shared<CellArena>(PieceAllocator<CellArena>(MeasureRoom(cellCount)),
                                           Token(), cellCount);
}

std::size_t CellArena::GetListSize(std::size_t cellCount) {
    return RoundUp(cellCount * sizeof(void*));
}

std::size_t CellArena::MeasureRoom(std::size_t cellCount) {
    return GetListSize(cellCount) + cellCount * RoundUp(sizeof(ProductTreeCellImpl)) + c_spare;
}

CellArena::CellArena(Token, std::size_t cellCount)
    : m_free(reinterpret_cast<char*>(this + 1) + GetListSize(cellCount)),
      m_end(reinterpret_cast<char*>(this + 1) + MeasureRoom(cellCount)), m_limit(cellCount) {}

CellArena::~CellArena() {
    for (ProductTreeCellImpl* const cell : GetCells())
        cell->~ProductTreeCellImpl();
    while (m_overflow)
        ::operator delete(std::exchange(m_overflow, m_overflow->next));
}

void* CellArena::TakeBeside(std::size_t size) {
    m_overflow = new (::operator new(sizeof(Overflow) + size)) Overflow{m_overflow};
    return m_overflow + 1;
}

void CellArena::FetchAhead() const {
    constexpr std::size_t line = 64;
    const auto* const begin = reinterpret_cast<const char*>(this);
    for (const char* memory = begin; memory < m_free; memory += line)
        __builtin_prefetch(memory, 1);
}

CellArena::KeptMemory::KeptMemory() {
    GetKeptPieces().StartKeeping();
}

CellArena::KeptMemory::~KeptMemory() {
    GetKeptPieces().StopKeeping();
}

} // namespace productTree
