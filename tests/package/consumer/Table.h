// The view of a host: a tree-table of texts that is printed.
#pragma once

#include "control/IfProductTreeCtrl.h"
#include "host/view/NeutralTreeTable.h"
#include "items/ProductTreeItemData.h"

#include <iostream>
#include <map>
#include <vector>

class Row final : public RcBase<NeutralTreeRow> {
public:
    void AppendChild(const TreeRowPtr& child) override {
        static_cast<Row&>(*child).m_parent = this;
        m_children.push_back(child);
    }
    std::size_t GetChildCount() const override { return m_children.size(); }
    ITreeTableRow* GetChild(std::size_t index) const override { return m_children[index].get(); }
    void SetChildCount(std::size_t count) override {
        for (; m_children.size() > count; m_children.pop_back())
            static_cast<Row&>(*m_children.back()).LetGo();
    }
    ITreeTableRow* GetParent() const override { return m_parent; }
    /// Row and data refer to each other: a row that is dropped breaks the ring.
    void LetGo() {
        SetChildCount(0);
        m_data.reset();
    }

    productTree::ProductTreeItemData* GetData() const override { return m_data.get(); }
    void SetData(const boost::intrusive_ptr<productTree::ProductTreeItemData>& data, const std::wstring&,
                 const std::wstring&) override {
        m_data = data;
    }

    void SetTextCell(const SharedText& column, const SharedText& text, const SharedText& shown, bool, bool,
                     const SharedText&, const MenuPtr&) override {
        SetCellText(column, text, shown);
    }
    void SetCellText(const SharedText& column, const SharedText& text, const SharedText& shown) override {
        m_texts[column] = {text, shown};
    }
    SharedText GetCellText(const SharedText& column) const override {
        const auto found = m_texts.find(column);
        return found == m_texts.end() ? SharedText() : found->second.first;
    }

    void SetName(const SharedText& raw, const SharedText& shown, const std::wstring&) override {
        m_name = raw;
        m_shownName = shown;
    }
    SharedText GetNameText() const override { return m_name; }
    SharedText GetNameDisplay() const override { return m_shownName; }

    /// The user leaves a text in the cell.
    void Edit(const std::wstring& column, const std::wstring& text) {
        m_texts[column].first = text;
        m_data->GetProductTreeCtrl().OnCellEdited(*m_data, column);
    }
    void Print(int depth = 0) const {
        std::wcout << std::wstring(2 * static_cast<std::size_t>(depth), L' ') << m_shownName.Str();
        for (const auto& [column, text] : m_texts) {
            if (!text.second.IsEmpty())
                std::wcout << L" | " << text.second.Str();
        }
        std::wcout << L'\n';
        for (const TreeRowPtr& child : m_children)
            static_cast<const Row&>(*child).Print(depth + 1);
    }

private:
    Row* m_parent = nullptr;
    std::vector<TreeRowPtr> m_children;
    boost::intrusive_ptr<productTree::ProductTreeItemData> m_data;
    /// What an editor begins with, and what is shown.
    std::map<std::wstring, std::pair<SharedText, SharedText>> m_texts;
    SharedText m_name;
    SharedText m_shownName;
};

class Table final : public RcBase<NeutralTreeTable> {
public:
    ~Table() override {
        if (m_root)
            m_root->LetGo();
    }

    void SetController(productTree::IfProductTreeCtrl&) override {}
    TreeRowPtr CreateRow() override { return new Row; }
    ITreeTableRow* GetRootRow(std::size_t index) const override { return index == 0 ? m_root.get() : nullptr; }
    void SetRootRow(const TreeRowPtr& row) override { m_root = static_cast<Row*>(row.get()); }

    Row& GetRoot() const { return *m_root; }

private:
    boost::intrusive_ptr<Row> m_root;
};
