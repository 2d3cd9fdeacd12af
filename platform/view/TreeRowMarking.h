// The place of a row where its designation stands, part by part. It is a part of the row and lives
// and dies with it: counting it counts the row. While the control looks at what the user has left
// in the editor, the parts are that.
#pragma once

#include "host/view/IMarkingEditor.h"
#include "platform/view/TreeTableHub.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>

namespace platform {

class TreeTableRow;

class TreeRowMarking final : public IMarkingEditor {
public:
    explicit TreeRowMarking(TreeTableRow& row) : m_row(row) {}
    TreeRowMarking(const TreeRowMarking&) = delete;
    TreeRowMarking& operator=(const TreeRowMarking&) = delete;

    void AddRef() override;
    void Release() override;

    SharedText GetBase() const override { return Part(0, m_base); }
    void SetBase(const SharedText& text) override;
    std::wstring GetEmbodimentNumDelim() const override;
    void SetEmbodimentNumDelim(const std::wstring& delim) override;
    SharedText GetEmbodimentNum() const override { return Part(2, m_embodimentNum); }
    void SetEmbodimentNum(const SharedText& text) override;
    std::wstring GetAdditionalNumDelim() const override;
    void SetAdditionalNumDelim(const std::wstring& delim) override;
    SharedText GetAdditionalNum() const override { return Part(4, m_additionalNum); }
    void SetAdditionalNum(const SharedText& text) override;
    std::wstring GetCodeDelim() const override;
    void SetCodeDelim(const std::wstring& delim) override;
    SharedText GetCode() const override { return Part(6, m_code); }
    void SetCode(const SharedText& text) override;

    void SetDisplayText(const SharedText& text) override;
    SharedText GetDisplayText() const override { return m_display; }
    void SetLockedParts(const std::set<int>& parts) override;
    void SetColumn(const std::wstring& columnId) override;
    void SetReadOnly(bool readOnly) override;
    void SetHypertext(bool hypertext) override;
    void SetLinkStyle(int style) override;
    void SetIcon(const SharedText& name) override;
    SharedText GetIcon() const override;
    void SetPartTip(const SharedText& text, int part) override;
    /// `editor` must be that of a row of ours.
    bool IsSameMarking(const IMarkingEditor& editor) const override;
    /// With the base locked, or all of the designation.
    bool IsChoiceLocked() const override { return m_readOnly || IsLocked(1); }

    MarkingParts GetParts() const;
    bool IsLocked(int part) const { return (m_lockedParts >> part & 1) != 0; }
    std::set<int> GetLockedParts() const;
    const std::wstring& GetColumn() const;
    bool IsReadOnly() const { return m_readOnly; }
    bool IsHypertext() const { return m_hypertext; }
    int GetLinkStyle() const { return m_linkStyle; }
    /// Empty for a part without tip, and for a number that is no part.
    SharedText GetPartTip(int part) const;

private:
    static constexpr int c_partCount = 7;

    template <class T>
    void Change(T& field, const T& value);
    /// Of one of the seven parts: the library's word about them ends the user's.
    template <class T>
    void ChangePart(T& field, const T& value);
    void ChangeDelim(wchar_t& field, const std::wstring& delim);
    void ChangeName(NameId& field, const SharedText& name);
    TreeTableHub& Hub() const;
    const RowInput* FindInput() const;
    SharedText Part(std::size_t place, const SharedText& text) const;
    std::wstring Part(std::size_t place, wchar_t delim) const;

    TreeTableRow& m_row;
    SharedText m_base;
    SharedText m_embodimentNum;
    SharedText m_additionalNum;
    SharedText m_code;
    SharedText m_display;
    wchar_t m_embodimentDelim = 0;
    wchar_t m_additionalDelim = 0;
    wchar_t m_codeDelim = 0;
    PartTipsId m_tips = 0;
    NameId m_column = 0;
    NameId m_icon = 0;
    std::int8_t m_linkStyle = 0;
    std::uint8_t m_lockedParts = 0;
    bool m_readOnly = false;
    bool m_hypertext = false;
};

} // namespace platform
