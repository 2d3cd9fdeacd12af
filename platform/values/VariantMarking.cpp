#include "host/VariantMarking.h"

#include <boost/property_tree/ptree.hpp>

namespace {

// The bits of a MakeType; MakeWithoutCode is the first three of them.
constexpr int c_makeBase = 1;
constexpr int c_makeEmbodiment = 2;
constexpr int c_makeAdditional = 4;
constexpr int c_makeCode = 8;
static_assert(VariantMarkingData::MakeWithoutCode ==
              (c_makeBase | c_makeEmbodiment | c_makeAdditional));

// The parts are direct children, found by their whole name, so that neither name nor text is ever
// taken for a path.
const std::wstring c_base = L"base";
const std::wstring c_embodimentDelim = L"embodimentDelimiter";
const std::wstring c_embodimentNum = L"embodimentNumber";
const std::wstring c_additionalDelim = L"additionalDelimiter";
const std::wstring c_additionalNum = L"additionalNumber";
const std::wstring c_codeDelim = L"codeDelimiter";
const std::wstring c_code = L"documentNumber";

SharedText ReadText(const PropValue::Tree& tree, const std::wstring& name) {
    const auto found = tree.find(name);
    return found == tree.not_found() ? SharedText() : SharedText(found->second.data());
}

wchar_t ReadDelim(const PropValue::Tree& tree, const std::wstring& name) {
    const auto found = tree.find(name);
    return found == tree.not_found() || found->second.data().empty() ? L'\0'
                                                                     : found->second.data().front();
}

void WriteText(PropValue::Tree& tree, const std::wstring& name, const std::wstring& text) {
    if (!text.empty())
        tree.push_back({name, PropValue::Tree(text)});
}

void WriteDelim(PropValue::Tree& tree, const std::wstring& name, wchar_t delim) {
    if (delim != 0)
        tree.push_back({name, PropValue::Tree(std::wstring(1, delim))});
}

void AppendPart(std::wstring& made, wchar_t delim, const std::wstring& text, bool emptyParts) {
    if (text.empty() && !emptyParts)
        return;
    if (delim != 0)
        made.push_back(delim);
    made += text;
}

wchar_t FirstCharacter(const std::wstring& text) {
    return text.empty() ? L'\0' : text.front();
}

} // namespace

bool VariantMarking::IsEmpty() const noexcept {
    return m_base.IsEmpty() && m_embodimentNum.IsEmpty() && m_additionalNum.IsEmpty() &&
           m_code.IsEmpty();
}

void VariantMarking::FromPropertyTree(const PropValue::Tree& tree) {
    m_base = ReadText(tree, c_base);
    m_embodimentDelim = ReadDelim(tree, c_embodimentDelim);
    m_embodimentNum = ReadText(tree, c_embodimentNum);
    m_additionalDelim = ReadDelim(tree, c_additionalDelim);
    m_additionalNum = ReadText(tree, c_additionalNum);
    m_codeDelim = ReadDelim(tree, c_codeDelim);
    m_code = ReadText(tree, c_code);
}

PropValue VariantMarking::GetPropValue() const {
    auto tree = std::make_shared<PropValue::Tree>();
    WriteText(*tree, c_base, m_base);
    WriteDelim(*tree, c_embodimentDelim, m_embodimentDelim);
    WriteText(*tree, c_embodimentNum, m_embodimentNum);
    WriteDelim(*tree, c_additionalDelim, m_additionalDelim);
    WriteText(*tree, c_additionalNum, m_additionalNum);
    WriteDelim(*tree, c_codeDelim, m_codeDelim);
    WriteText(*tree, c_code, m_code);
    return PropValue(std::move(tree));
}

SharedText VariantMarking::Make(VariantMarkingData::MakeType type, bool spaced,
                                bool emptyParts) const {
    const bool onlyBase =
        m_embodimentNum.IsEmpty() && m_additionalNum.IsEmpty() && m_code.IsEmpty() && !emptyParts;
    if (onlyBase && (type & c_makeBase) != 0)
        return m_base;

    std::wstring made;
    if ((type & c_makeBase) != 0)
        made = m_base.Str();
    if ((type & c_makeEmbodiment) != 0)
        AppendPart(made, m_embodimentDelim, m_embodimentNum, emptyParts);
    if ((type & c_makeAdditional) != 0)
        AppendPart(made, m_additionalDelim, m_additionalNum, emptyParts);
    if ((type & c_makeCode) != 0) {
        if (spaced && !m_code.IsEmpty() && !made.empty())
            made.push_back(L' ');
        AppendPart(made, m_codeDelim, m_code, emptyParts);
    }
    return made;
}

wchar_t MarkingDelim(const std::wstring& text) {
    return FirstCharacter(text);
}

wchar_t CodeDelim(const std::wstring& text) {
    return FirstCharacter(text);
}
