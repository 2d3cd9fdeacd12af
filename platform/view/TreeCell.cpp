#include "platform/view/TreeCell.h"

#include <cmath>

namespace platform {

namespace {

/// Of a cell that has no text.
const SharedText& GetNoText() {
    return CellTraits::c_none.tip;
}

} // namespace

const SharedText& TreeCell::GetText() const {
    if (const SharedText* const text = std::get_if<SharedText>(&m_content))
        return *text;
    const auto* const two = std::get_if<boost::intrusive_ptr<const TwoTexts>>(&m_content);
    return two ? (*two)->text : GetNoText();
}

const SharedText& TreeCell::GetShown() const {
    if (const SharedText* const text = std::get_if<SharedText>(&m_content))
        return *text;
    const auto* const two = std::get_if<boost::intrusive_ptr<const TwoTexts>>(&m_content);
    return two ? (*two)->shown : GetNoText();
}

int TreeCell::GetListIndex() const {
    return m_kind == CellKind::List ? static_cast<int>(GetNumber()) : -1;
}

const std::vector<SharedText>& TreeCell::GetList() const {
    static const std::vector<SharedText> none;
    const CellListPtr& list = GetTraits().list;
    return list ? list->GetTexts() : none;
}

SharedText TreeCell::GetShownText() const {
    static const SharedText yes(L"yes");
    static const SharedText no(L"no");
    if (!HasValue())
        return {};
    switch (m_kind) {
    case CellKind::None:
        return {};
    case CellKind::Text:
    case CellKind::Link:
        return GetShown();
    case CellKind::Int:
        return SimplePropVal(GetInt()).to_wstring();
    case CellKind::Double:
        return SimplePropVal(GetNumber()).to_wstring();
    case CellKind::Bool:
        return GetBool() ? yes : no;
    case CellKind::List:
        return GetList()[static_cast<std::size_t>(GetListIndex())];
    }
    return {};
}

bool TreeCell::Accepts(const CellInput& input) const {
    if (!IsEditable())
        return false;
    if (std::holds_alternative<std::monostate>(input) && m_kind != CellKind::Text &&
        m_kind != CellKind::List && m_kind != CellKind::Link)
        return CanBeEmpty();
    switch (m_kind) {
    case CellKind::None:
    case CellKind::Link:
        return false;
    case CellKind::Text:
        return std::holds_alternative<SharedText>(input);
    case CellKind::Int:
        return std::holds_alternative<int>(input);
    case CellKind::Double: {
        const double* const value = std::get_if<double>(&input);
        return value && std::isfinite(*value);
    }
    case CellKind::Bool:
        return std::holds_alternative<bool>(input);
    case CellKind::List: {
        const ListIndex* const place = std::get_if<ListIndex>(&input);
        return place && place->index >= -1 && place->index < static_cast<int>(GetList().size());
    }
    }
    return false;
}

} // namespace platform
