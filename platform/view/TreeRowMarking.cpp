#include "platform/view/TreeRowMarking.h"

#include "platform/view/TreeTableRow.h"

namespace platform {

namespace {

std::wstring DelimText(wchar_t delim) {
    return delim ? std::wstring(1, delim) : std::wstring();
}

} // namespace

void TreeRowMarking::AddRef() {
    m_row.AddRef();
}

void TreeRowMarking::Release() {
    m_row.Release();
}

TreeTableHub& TreeRowMarking::Hub() const {
    return m_row.GetHub();
}

template <class T>
void TreeRowMarking::Change(T& field, const T& value) {
    if (field == value)
        return;
    field = value;
    Hub().Note(&TreeTableChanges::values);
}

void TreeRowMarking::ChangeDelim(wchar_t& field, const std::wstring& delim) {
    Change(field, delim.empty() ? wchar_t{0} : delim.front());
}

void TreeRowMarking::SetBase(const SharedText& text) {
    Change(m_base, text);
}

std::wstring TreeRowMarking::GetEmbodimentNumDelim() const {
    return DelimText(m_embodimentDelim);
}

void TreeRowMarking::SetEmbodimentNumDelim(const std::wstring& delim) {
    ChangeDelim(m_embodimentDelim, delim);
}

void TreeRowMarking::SetEmbodimentNum(const SharedText& text) {
    Change(m_embodimentNum, text);
}

std::wstring TreeRowMarking::GetAdditionalNumDelim() const {
    return DelimText(m_additionalDelim);
}

void TreeRowMarking::SetAdditionalNumDelim(const std::wstring& delim) {
    ChangeDelim(m_additionalDelim, delim);
}

void TreeRowMarking::SetAdditionalNum(const SharedText& text) {
    Change(m_additionalNum, text);
}

std::wstring TreeRowMarking::GetCodeDelim() const {
    return DelimText(m_codeDelim);
}

void TreeRowMarking::SetCodeDelim(const std::wstring& delim) {
    ChangeDelim(m_codeDelim, delim);
}

void TreeRowMarking::SetCode(const SharedText& text) {
    Change(m_code, text);
}

void TreeRowMarking::SetDisplayText(const SharedText& text) {
    // A plain designation is its base: one text then serves both.
    Change(m_display, text == m_base ? m_base : text);
}

void TreeRowMarking::SetLockedParts(const std::set<int>& parts) {
    std::uint8_t bits = 0;
    for (const int part : parts) {
        if (part >= 1 && part <= c_partCount)
            bits = static_cast<std::uint8_t>(bits | 1U << part);
    }
    Change(m_lockedParts, bits);
}

std::set<int> TreeRowMarking::GetLockedParts() const {
    std::set<int> parts;
    for (int part = 1; part <= c_partCount; ++part) {
        if (m_lockedParts & 1U << part)
            parts.insert(part);
    }
    return parts;
}

void TreeRowMarking::SetColumn(const std::wstring& columnId) {
    if (GetColumn() != columnId)
        Change(m_column, Hub().IdOf(columnId));
}

const std::wstring& TreeRowMarking::GetColumn() const {
    return Hub().NameOf(m_column);
}

void TreeRowMarking::SetReadOnly(bool readOnly) {
    Change(m_readOnly, readOnly);
}

void TreeRowMarking::SetHypertext(bool hypertext) {
    Change(m_hypertext, hypertext);
}

void TreeRowMarking::SetLinkStyle(int style) {
    Change(m_linkStyle, style);
}

void TreeRowMarking::SetIcon(const std::wstring& name) {
    if (GetIcon() != name)
        Change(m_icon, Hub().IdOf(name));
}

std::wstring TreeRowMarking::GetIcon() const {
    return Hub().NameOf(m_icon);
}

void TreeRowMarking::SetPartTip(const SharedText& text, int part) {
    if (part < 1 || part > c_partCount)
        return;
    NameId& tip = m_tips[static_cast<std::size_t>(part - 1)];
    if (!(Hub().NameOf(tip) == text))
        Change(tip, Hub().IdOf(text));
}

SharedText TreeRowMarking::GetPartTip(int part) const {
    if (part < 1 || part > c_partCount)
        return {};
    return Hub().NameOf(m_tips[static_cast<std::size_t>(part - 1)]);
}

bool TreeRowMarking::IsSameMarking(const IMarkingEditor& other) const {
    return m_base == other.GetBase() && GetEmbodimentNumDelim() == other.GetEmbodimentNumDelim() &&
           m_embodimentNum == other.GetEmbodimentNum() &&
           GetAdditionalNumDelim() == other.GetAdditionalNumDelim() &&
           m_additionalNum == other.GetAdditionalNum() && GetCodeDelim() == other.GetCodeDelim() &&
           m_code == other.GetCode();
}

} // namespace platform
