// The place of a row that shows a designation, part by part.
#pragma once

#include "host/RcBase.h"
#include "host/SharedText.h"

#include <set>
#include <string>

/// Called by the row's item and its marking cell. No operation calls back into the library.
///
/// The parts have the numbers 1 base, 2 embodiment delimiter, 3 embodiment number, 4 additional
/// delimiter, 5 additional number, 6 code delimiter, 7 document code. A delimiter is a text of one
/// character, or empty.
class IMarkingEditor : public IRefItem {
public:
    virtual SharedText GetBase() const = 0;
    virtual void SetBase(const SharedText& text) = 0;
    virtual std::wstring GetEmbodimentNumDelim() const = 0;
    virtual void SetEmbodimentNumDelim(const std::wstring& delim) = 0;
    virtual SharedText GetEmbodimentNum() const = 0;
    virtual void SetEmbodimentNum(const SharedText& text) = 0;
    virtual std::wstring GetAdditionalNumDelim() const = 0;
    virtual void SetAdditionalNumDelim(const std::wstring& delim) = 0;
    virtual SharedText GetAdditionalNum() const = 0;
    virtual void SetAdditionalNum(const SharedText& text) = 0;
    virtual std::wstring GetCodeDelim() const = 0;
    virtual void SetCodeDelim(const std::wstring& delim) = 0;
    virtual SharedText GetCode() const = 0;
    virtual void SetCode(const SharedText& text) = 0;

    /// What is shown while nobody edits.
    virtual void SetDisplayText(const SharedText& text) = 0;
    virtual SharedText GetDisplayText() const = 0;
    /// The numbers of the parts that the user must not change.
    virtual void SetLockedParts(const std::set<int>& parts) = 0;
    /// The column id under which edits are reported.
    virtual void SetColumn(const std::wstring& columnId) = 0;
    virtual void SetReadOnly(bool readOnly) = 0;
    /// Whether the text is shown as a link; the style, a LinkStyle, counts only then.
    virtual void SetHypertext(bool hypertext) = 0;
    virtual void SetLinkStyle(int style) = 0;
    /// The resource name of the by-source icon; empty for none.
    virtual void SetIcon(const SharedText& name) = 0;
    virtual SharedText GetIcon() const = 0;
    virtual void SetPartTip(const SharedText& text, int part) = 0;
    /// All seven parts are equal.
    virtual bool IsSameMarking(const IMarkingEditor& other) const = 0;
    /// The user can't choose a designation from a book here.
    virtual bool IsChoiceLocked() const = 0;
};
