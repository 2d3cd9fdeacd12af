// What many cells of a column have in common: limits, tip, menu and list. Cells share it by
// counting, so that a hundred thousand cells of one column hold one of it.
#pragma once

#include "host/SharedText.h"
#include "host/SimplePropVal.h"
#include "host/view/IMenuItems.h"
#include "platform/view/NameTable.h"

#include <array>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>
#include <cstddef>
#include <cstdint>
#include <list>
#include <vector>

namespace platform {

/// Counted plainly, since all cells live on one thread.
template <class T>
using CountedPlainly = boost::intrusive_ref_counter<T, boost::thread_unsafe_counter>;

/// The values that can be chosen in a list cell.
class CellList final : public CountedPlainly<CellList> {
public:
    explicit CellList(const std::list<SimplePropVal>& values);

    const std::vector<SharedText>& GetTexts() const { return m_texts; }
    /// `epoch` counts the updates of the view: a list that was found equal is not compared again in
    /// the same one. In another update its place in memory may be that of another list.
    bool IsEqual(const std::list<SimplePropVal>& values, std::uint64_t epoch);

private:
    struct Source {
        const std::list<SimplePropVal>* list = nullptr;
        std::uint64_t epoch = 0;
    };

    std::vector<SimplePropVal> m_values;
    std::vector<SharedText> m_texts;
    std::array<Source, 4> m_sources;
    std::size_t m_nextSource = 0;
};

using CellListPtr = boost::intrusive_ptr<CellList>;

struct CellTraits {
    /// As the column has them, in stored units; both 0 where there are none.
    double min = 0;
    double max = 0;
    /// Of the editor's arrows.
    double step = 1;
    SharedText tip;
    boost::intrusive_ptr<IMenuItems> popup;
    CellListPtr list;

    friend bool operator==(const CellTraits&, const CellTraits&) = default;

    static const CellTraits c_none;
};

struct SharedCellTraits final : CellTraits, CountedPlainly<SharedCellTraits> {
    explicit SharedCellTraits(const CellTraits& traits) : CellTraits(traits) {}
};

/// Null stands for traits without anything.
using CellTraitsPtr = boost::intrusive_ptr<const SharedCellTraits>;

/// Finds traits and lists that other cells of the column have already. It remembers the last few of
/// each column; traits that nobody finds again only cost memory.
class CellTraitsTable final {
public:
    CellTraitsPtr GetTraits(NameId column, const CellTraits& traits);
    /// Null for an empty list.
    CellListPtr GetList(NameId column, const std::list<SimplePropVal>& values, std::uint64_t epoch);

private:
    template <class T>
    struct LastFew {
        std::array<boost::intrusive_ptr<T>, 4> items;
        std::size_t next = 0;

        void Add(boost::intrusive_ptr<T> item) {
            items[next] = std::move(item);
            next = (next + 1) % items.size();
        }
    };
    struct Column {
        LastFew<const SharedCellTraits> traits;
        LastFew<CellList> lists;
    };

    Column& At(NameId column);

    std::vector<Column> m_columns;
};

} // namespace platform
