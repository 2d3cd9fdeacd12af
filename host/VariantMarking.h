// A designation in its seven parts: base, embodiment delimiter and number, additional delimiter and
// number, code delimiter and document code.
#pragma once

#include "host/PropValue.h"

/// Which parts a made text holds.
namespace VariantMarkingData {

enum MakeType {
    MakeAll = -1,
    /// All but the document code and its delimiter.
    MakeWithoutCode = 7,
};

} // namespace VariantMarkingData

class VariantMarking {
public:
    const SharedText& GetBase() const noexcept { return m_base; }
    void SetBase(SharedText text) { m_base = std::move(text); }
    /// A delimiter of 0 stands for none.
    wchar_t GetEmbodimentNumDelim() const noexcept { return m_embodimentDelim; }
    void SetEmbodimentNumDelim(wchar_t delim) noexcept { m_embodimentDelim = delim; }
    const SharedText& GetEmbodimentNum() const noexcept { return m_embodimentNum; }
    void SetEmbodimentNum(SharedText text) { m_embodimentNum = std::move(text); }
    wchar_t GetAdditionalNumDelim() const noexcept { return m_additionalDelim; }
    void SetAdditionalNumDelim(wchar_t delim) noexcept { m_additionalDelim = delim; }
    const SharedText& GetAdditionalNum() const noexcept { return m_additionalNum; }
    void SetAdditionalNum(SharedText text) { m_additionalNum = std::move(text); }
    wchar_t GetCodeDelim() const noexcept { return m_codeDelim; }
    void SetCodeDelim(wchar_t delim) noexcept { m_codeDelim = delim; }
    const SharedText& GetCode() const noexcept { return m_code; }
    void SetCode(SharedText text) { m_code = std::move(text); }

    bool IsEmpty() const noexcept;

    /// Takes the parts from the structured value of the property "marking"; a tree without them
    /// gives an empty marking.
    void FromPropertyTree(const PropValue::Tree& tree);
    PropValue GetPropValue() const;
    /// Takes the parts from a whole designation's text. What does not look like a number or a code
    /// belongs to the base. From a text that Make has made `spaced` comes the very code that it was
    /// made of, whatever that is, also none.
    void Parse(const SharedText& text);
    /// The text of the parts that `type` names. `spaced` puts a blank and a mark before the place
    /// of the document code, by which Parse finds it again; such a text is for the dialog of
    /// document codes. `emptyParts` writes the delimiters of empty parts too.
    SharedText Make(VariantMarkingData::MakeType type, bool spaced, bool emptyParts) const;

    /// All parts in one text, as a user reads them.
    SharedText GetDisplayName() const;

    friend bool operator==(const VariantMarking&, const VariantMarking&) = default;

private:
    SharedText m_base;
    SharedText m_embodimentNum;
    SharedText m_additionalNum;
    SharedText m_code;
    wchar_t m_embodimentDelim = 0;
    wchar_t m_additionalDelim = 0;
    wchar_t m_codeDelim = 0;
};

/// The delimiter that the text of a delimiter field stands for: its first character, else 0. The
/// first serves the embodiment and additional numbers, the second the document code.
wchar_t MarkingDelim(const std::wstring& text);
wchar_t CodeDelim(const std::wstring& text);
