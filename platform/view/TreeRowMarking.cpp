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
    Hub().NoteValues(m_row);
}

template <class T>
void TreeRowMarking::ChangePart(T& field, const T& value) {
    Hub().AnswerInput(m_row, RowInput::Place::Marking);
    Change(field, value);
}

void TreeRowMarking::ChangeDelim(wchar_t& field, const std::wstring& delim) {
    ChangePart(field, delim.empty() ? wchar_t{0} : delim.front());
}

void TreeRowMarking::ChangeName(NameId& field, const SharedText& name) {
    if (!(Hub().NameOf(field) == name))
        Change(field, Hub().GetNames().IdOf(name));
}

const RowInput* TreeRowMarking::FindInput() const {
    return Hub().FindInput(m_row, RowInput::Place::Marking);
}

SharedText TreeRowMarking::Part(std::size_t place, const SharedText& text) const {
    const RowInput* const input = FindInput();
    return input ? input->parts[place] : text;
}

std::wstring TreeRowMarking::Part(std::size_t place, wchar_t delim) const {
    const RowInput* const input = FindInput();
    return input ? input->parts[place].Str() : DelimText(delim);
}

MarkingParts TreeRowMarking::GetParts() const {
    return {
        GetBase(),          GetEmbodimentNumDelim(), GetEmbodimentNum(), GetAdditionalNumDelim(),
        GetAdditionalNum(), GetCodeDelim(),          GetCode()};
}

void TreeRowMarking::SetBase(const SharedText& text) {
    ChangePart(m_base, text);
}

std::wstring TreeRowMarking::GetEmbodimentNumDelim() const {
    return Part(1, m_embodimentDelim);
}

void TreeRowMarking::SetEmbodimentNumDelim(const std::wstring& delim) {
    ChangeDelim(m_embodimentDelim, delim);
}

void TreeRowMarking::SetEmbodimentNum(const SharedText& text) {
    ChangePart(m_embodimentNum, text);
}

std::wstring TreeRowMarking::GetAdditionalNumDelim() const {
    return Part(3, m_additionalDelim);
}

void TreeRowMarking::SetAdditionalNumDelim(const std::wstring& delim) {
    ChangeDelim(m_additionalDelim, delim);
}

void TreeRowMarking::SetAdditionalNum(const SharedText& text) {
    ChangePart(m_additionalNum, text);
}

std::wstring TreeRowMarking::GetCodeDelim() const {
    return Part(5, m_codeDelim);
}

void TreeRowMarking::SetCodeDelim(const std::wstring& delim) {
    ChangeDelim(m_codeDelim, delim);
}

void TreeRowMarking::SetCode(const SharedText& text) {
    ChangePart(m_code, text);
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
        if (IsLocked(part))
            parts.insert(part);
    }
    return parts;
}

void TreeRowMarking::SetColumn(const std::wstring& columnId) {
    if (GetColumn() != columnId)
        Change(m_column, Hub().GetNames().IdOf(columnId));
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
    Change(m_linkStyle, static_cast<std::int8_t>(style));
}

void TreeRowMarking::SetIcon(const SharedText& name) {
    ChangeName(m_icon, name);
}

SharedText TreeRowMarking::GetIcon() const {
    return Hub().NameOf(m_icon);
}

void TreeRowMarking::SetPartTip(const SharedText& text, int part) {
    if (part < 1 || part > c_partCount)
        return;
    const auto place = static_cast<std::size_t>(part - 1);
    PartTipsTable& tips = Hub().GetPartTips();
    if (!(Hub().NameOf(tips.Get(m_tips)[place]) == text))
        Change(m_tips, tips.With(m_tips, place, text, Hub().GetNames()));
}

SharedText TreeRowMarking::GetPartTip(int part) const {
    if (part < 1 || part > c_partCount)
        return {};
    return Hub().NameOf(Hub().GetPartTips().Get(m_tips)[static_cast<std::size_t>(part - 1)]);
}

bool TreeRowMarking::IsSameMarking(const IMarkingEditor& editor) const {
    const auto& other = static_cast<const TreeRowMarking&>(editor);
    if (!FindInput() && !other.FindInput()) // a group compares all its members, part by part
        return m_base == other.m_base && m_embodimentDelim == other.m_embodimentDelim &&
               m_embodimentNum == other.m_embodimentNum &&
               m_additionalDelim == other.m_additionalDelim &&
               m_additionalNum == other.m_additionalNum && m_codeDelim == other.m_codeDelim &&
               m_code == other.m_code;
    return GetBase() == other.GetBase() &&
           GetEmbodimentNumDelim() == other.GetEmbodimentNumDelim() &&
           GetEmbodimentNum() == other.GetEmbodimentNum() &&
           GetAdditionalNumDelim() == other.GetAdditionalNumDelim() &&
           GetAdditionalNum() == other.GetAdditionalNum() &&
           GetCodeDelim() == other.GetCodeDelim() && GetCode() == other.GetCode();
}

} // namespace platform
