#include "platform/view/TreeColumns.h"

#include "columns/ColumnInfo.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace platform {

namespace {

bool IsFixed(HeadKind kind) {
    return kind == HeadKind::Name || kind == HeadKind::Designation;
}

// Some heads make their menu anew with each build.
bool OfferTheSame(const IMenuItems* a, const IMenuItems* b) {
    if (a == b || !a || !b)
        return a == b;
    if (a->GetEntryCount() != b->GetEntryCount())
        return false;
    for (std::size_t place = 0; place < a->GetEntryCount(); ++place) {
        if (a->GetEntry(place) != b->GetEntry(place))
            return false;
    }
    return true;
}

} // namespace

bool operator==(const ColumnHead& a, const ColumnHead& b) {
    const auto rest = [](const ColumnHead& head) {
        return std::tie(head.id, head.caption, head.width, head.kind, head.min, head.max, head.list,
                        head.text, head.tag, head.isActive);
    };
    return rest(a) == rest(b) && OfferTheSame(a.popup.get(), b.popup.get());
}

bool ColumnHead::Accepts(const CellInput& input) const {
    if (!IsEditable())
        return false;
    const bool isEmptied = std::holds_alternative<std::monostate>(input);
    switch (kind) {
    case HeadKind::Designation:
    case HeadKind::Link:
        return false;
    case HeadKind::Name:
    case HeadKind::Text:
    case HeadKind::Count:
        return std::holds_alternative<SharedText>(input);
    case HeadKind::Int:
        return isEmptied || std::holds_alternative<int>(input);
    case HeadKind::Double: {
        const double* const value = std::get_if<double>(&input);
        return isEmptied || (value && std::isfinite(*value));
    }
    case HeadKind::Bool:
        return isEmptied || std::holds_alternative<bool>(input);
    case HeadKind::List: {
        const ListIndex* const place = std::get_if<ListIndex>(&input);
        return place && place->index >= 0 && static_cast<std::size_t>(place->index) < list.size();
    }
    }
    return false;
}

void ColumnList::Add(ColumnEntry entry) {
    m_entries.push_back(std::move(entry));
    m_isIndexed = false;
}

bool ColumnList::Has(int index) const {
    return index >= 0 && static_cast<std::size_t>(index) < m_entries.size();
}

void ColumnList::Remove(int index) {
    if (!Has(index))
        return;
    m_entries.erase(m_entries.begin() + index);
    m_isIndexed = false;
}

void ColumnList::MoveToEnd(int index) {
    if (!Has(index))
        return;
    std::rotate(m_entries.begin() + index, m_entries.begin() + index + 1, m_entries.end());
    m_isIndexed = false;
}

void ColumnList::SetId(int index, const std::wstring& id) {
    if (!Has(index))
        return;
    At(index).id = id;
    m_isIndexed = false;
}

void ColumnList::SetCaption(int index, const std::wstring& caption) {
    if (Has(index))
        At(index).caption = caption;
}

const ColumnEntry* ColumnList::Get(int index) const {
    return Has(index) ? &m_entries[static_cast<std::size_t>(index)] : nullptr;
}

int ColumnList::Find(const std::wstring& id) const {
    if (!m_isIndexed) {
        m_index.clear();
        for (std::size_t i = 0; i < m_entries.size(); ++i)
            m_index.try_emplace(m_entries[i].id, static_cast<int>(i));
        m_isIndexed = true;
    }
    const auto found = m_index.find(id);
    return found == m_index.end() ? -1 : found->second;
}

void ColumnHeads::Init(const productTree::ColumnInfo& column, HeadKind kind,
                       const boost::intrusive_ptr<IMenuItems>& popup) {
    ColumnHead head{column.GetId(), column.GetHeader(), column.GetWidth(),
                    kind,           column.GetMin(),    column.GetMax()};
    if (kind == HeadKind::List) {
        for (const SimplePropVal& value : column.GetShownList())
            head.list.push_back(value.to_wstring());
    }
    head.popup = popup;
    if (!IsFixed(kind)) {
        m_heads.push_back(std::move(head));
        return;
    }
    const auto place = std::find_if(m_heads.begin(), m_heads.end(),
                                    [&](const ColumnHead& other) { return other.kind >= kind; });
    if (place != m_heads.end() && place->kind == kind)
        *place = std::move(head);
    else
        m_heads.insert(place, std::move(head));
}

void ColumnHeads::InitCount(const productTree::ColumnInfo& column, const std::wstring& text,
                            const std::wstring& tag, bool isActive) {
    Init(column, HeadKind::Count);
    ColumnHead& head = m_heads.back();
    head.text = text;
    head.tag = tag;
    head.isActive = isActive;
}

void ColumnHeads::Reset() {
    std::erase_if(m_heads, [](const ColumnHead& head) { return !IsFixed(head.kind); });
}

const ColumnHead* ColumnHeads::Find(const std::wstring& id) const {
    const auto head =
        std::ranges::find_if(m_heads, [&](const ColumnHead& other) { return other.id == id; });
    return head == m_heads.end() ? nullptr : &*head;
}

bool ColumnHeads::Move(const std::wstring& id, std::size_t place) {
    const ColumnHead* const head = Find(id);
    if (!head || place >= m_heads.size() || IsFixed(head->kind) || IsFixed(m_heads[place].kind))
        return false;
    const auto from = m_heads.begin() + (head - m_heads.data());
    const auto to = m_heads.begin() + static_cast<std::ptrdiff_t>(place);
    if (from < to)
        std::rotate(from, from + 1, to + 1);
    else
        std::rotate(to, from, from + 1);
    return true;
}

bool ColumnHeads::SetWidth(const std::wstring& id, double width) {
    const ColumnHead* const head = Find(id);
    if (!head || !(width > 0))
        return false;
    m_heads[static_cast<std::size_t>(head - m_heads.data())].width = width;
    return true;
}

double ColumnHeads::GetWidth(HeadKind fixed) const {
    const auto head = std::find_if(m_heads.begin(), m_heads.end(),
                                   [&](const ColumnHead& other) { return other.kind == fixed; });
    return head == m_heads.end() ? 0 : head->width;
}

std::map<std::wstring, double> ColumnHeads::GetWidths() const {
    std::map<std::wstring, double> widths;
    for (const ColumnHead& head : m_heads) {
        if (!IsFixed(head.kind))
            widths[head.id] = head.width;
    }
    return widths;
}

} // namespace platform
