#include "host/VariantMarking.h"

#include <algorithm>
#include <array>
#include <boost/property_tree/ptree.hpp>
#include <iterator>
#include <optional>
#include <string_view>

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

// How a part is taken out of a tree, by its name there.
struct PartReader {
    const std::wstring& name;
    void (*read)(VariantMarking&, const std::wstring&);
};

wchar_t FirstCharacter(const std::wstring& text) {
    return text.empty() ? L'\0' : text.front();
}

template <void (VariantMarking::*set)(SharedText)>
void ReadText(VariantMarking& marking, const std::wstring& text) {
    (marking.*set)(text);
}

template <void (VariantMarking::*set)(wchar_t)>
void ReadDelim(VariantMarking& marking, const std::wstring& text) {
    (marking.*set)(FirstCharacter(text));
}

// clang-format off
const PartReader c_readers[] = {
    {c_base,            ReadText<&VariantMarking::SetBase>},
    {c_embodimentDelim, ReadDelim<&VariantMarking::SetEmbodimentNumDelim>},
    {c_embodimentNum,   ReadText<&VariantMarking::SetEmbodimentNum>},
    {c_additionalDelim, ReadDelim<&VariantMarking::SetAdditionalNumDelim>},
    {c_additionalNum,   ReadText<&VariantMarking::SetAdditionalNum>},
    {c_codeDelim,       ReadDelim<&VariantMarking::SetCodeDelim>},
    {c_code,            ReadText<&VariantMarking::SetCode>},
};
// clang-format on

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

constexpr std::wstring_view c_numberDelims = L"-";
constexpr std::wstring_view c_additionalDelims = L".";
constexpr std::wstring_view c_codeDelims = L"-./_";
constexpr std::size_t c_maxCodeSize = 8;
// Stands before the code in a text made for Parse to find it. Nobody types an invisible separator.
constexpr std::wstring_view c_codeMark = L" \u2063";

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// A capital letter of any script that has capitals, whatever the process's locale is.
bool IsCapital(wchar_t c) {
    return (c >= L'A' && c <= L'Z') || (c >= L'\u00C0' && c <= L'\u00DE' && c != L'\u00D7') ||
           (c >= L'\u0391' && c <= L'\u03A9') || (c >= L'\u0400' && c <= L'\u042F');
}

/// A word of capitals and digits that begins with a capital.
bool IsCode(std::wstring_view text) {
    return !text.empty() && text.size() <= c_maxCodeSize && IsCapital(text.front()) &&
           std::all_of(text.begin(), text.end(),
                       [](wchar_t c) { return IsDigit(c) || IsCapital(c); });
}

/// What stands at the end of a designation behind a delimiter.
struct Tail {
    wchar_t delim = 0;
    std::wstring_view text;
};

/// Takes a number of two or three digits with one of the delimiters before it off the end, as long
/// as something is left.
std::optional<Tail> TakeNumber(std::wstring_view& text, std::wstring_view delims) {
    const std::size_t before = text.find_last_not_of(L"0123456789");
    if (before == std::wstring_view::npos || before == 0)
        return std::nullopt;
    const std::size_t digits = text.size() - before - 1;
    if (digits < 2 || digits > 3 || delims.find(text[before]) == std::wstring_view::npos)
        return std::nullopt;
    const Tail tail{text[before], text.substr(before + 1)};
    text = text.substr(0, before);
    return tail;
}

/// Takes what stands behind the mark of a code off the end, whatever it is.
std::optional<Tail> TakeMarkedCode(std::wstring_view& text) {
    const std::size_t mark = text.rfind(c_codeMark);
    if (mark == std::wstring_view::npos)
        return std::nullopt;
    Tail tail{0, text.substr(mark + c_codeMark.size())};
    text = text.substr(0, mark);
    const bool hasDelim =
        !tail.text.empty() && !text.empty() &&
        (c_codeDelims.find(text.back()) != std::wstring_view::npos || text.back() == L' ');
    if (hasDelim) {
        tail.delim = text.back();
        text.remove_suffix(1);
    }
    return tail;
}

/// Takes a document code off the end. It stands behind a blank, or behind two, or behind a blank
/// and a delimiter.
std::optional<Tail> TakeCode(std::wstring_view& text) {
    if (std::optional<Tail> marked = TakeMarkedCode(text))
        return marked;
    const std::size_t blank = text.rfind(L' ');
    if (blank == std::wstring_view::npos || blank + 1 == text.size())
        return std::nullopt;
    Tail tail{L' ', text.substr(blank + 1)};
    if (c_codeDelims.find(tail.text.front()) != std::wstring_view::npos) {
        tail.delim = tail.text.front();
        tail.text.remove_prefix(1);
    }
    const std::size_t end = text.find_last_not_of(L' ', blank);
    if (!IsCode(tail.text) || end == std::wstring_view::npos)
        return std::nullopt;
    text = text.substr(0, end + 1);
    return tail;
}

SharedText Shared(std::wstring_view text) {
    return std::wstring(text);
}

} // namespace

bool VariantMarking::IsEmpty() const noexcept {
    return m_base.IsEmpty() && m_embodimentNum.IsEmpty() && m_additionalNum.IsEmpty() &&
           m_code.IsEmpty();
}

void VariantMarking::FromPropertyTree(const PropValue::Tree& tree) {
    *this = {};
    // Most trees have one or two parts. Of several of one name the first counts.
    std::array<bool, std::size(c_readers)> isRead{};
    for (const auto& [name, part] : tree) {
        for (std::size_t i = 0; i < isRead.size(); ++i) {
            if (isRead[i] || c_readers[i].name != name)
                continue;
            isRead[i] = true;
            c_readers[i].read(*this, part.data());
            break;
        }
    }
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

void VariantMarking::Parse(const SharedText& text) {
    *this = {};
    std::wstring_view rest = text.Str();
    if (const std::optional<Tail> code = TakeCode(rest)) {
        m_codeDelim = code->delim;
        m_code = Shared(code->text);
    }
    // An additional number stands only behind an embodiment number.
    std::wstring_view shorter = rest;
    const std::optional<Tail> additional = TakeNumber(shorter, c_additionalDelims);
    std::wstring_view& end = additional ? shorter : rest;
    std::optional<Tail> embodiment = TakeNumber(end, c_numberDelims);
    if (embodiment && additional) {
        m_additionalDelim = additional->delim;
        m_additionalNum = Shared(additional->text);
        rest = shorter;
    }
    if (embodiment) {
        m_embodimentDelim = embodiment->delim;
        m_embodimentNum = Shared(embodiment->text);
    }
    m_base = rest.size() == text.Str().size() ? text : Shared(rest);
}

SharedText VariantMarking::Make(VariantMarkingData::MakeType type, bool spaced,
                                bool emptyParts) const {
    const bool onlyBase = m_embodimentNum.IsEmpty() && m_additionalNum.IsEmpty() &&
                          m_code.IsEmpty() && !spaced && !emptyParts;
    if (onlyBase && (type & c_makeBase) != 0)
        return m_base;

    std::wstring made;
    if ((type & c_makeBase) != 0)
        made = m_base.Str();
    if ((type & c_makeEmbodiment) != 0)
        AppendPart(made, m_embodimentDelim, m_embodimentNum, emptyParts);
    if ((type & c_makeAdditional) != 0)
        AppendPart(made, m_additionalDelim, m_additionalNum, emptyParts);
    if ((type & c_makeCode) == 0)
        return made;
    if (!spaced) {
        AppendPart(made, m_codeDelim, m_code, emptyParts);
        return made;
    }
    if (m_codeDelim != 0 && (!m_code.IsEmpty() || emptyParts))
        made.push_back(m_codeDelim);
    made += c_codeMark;
    made += m_code.Str();
    return made;
}

SharedText VariantMarking::GetDisplayName() const {
    return Make(VariantMarkingData::MakeAll, false, false);
}

wchar_t MarkingDelim(const std::wstring& text) {
    return FirstCharacter(text);
}

wchar_t CodeDelim(const std::wstring& text) {
    return FirstCharacter(text);
}
