// A tree-table for a view to begin with, as NeutralProductData is for a product: it keeps nothing
// and offers nothing beyond what a derived class adds. What stays pure virtual is what every view
// has to answer.
#pragma once

#include "host/view/ITreeTableModel.h"

/// To be answered: AppendChild, GetChildCount, GetChild, SetChildCount, GetParent; GetData,
/// SetData; GetCellText with SetTextCell and SetCellText, and the three of each further type of
/// value that columns have; SetName and GetNameText.
class NeutralTreeRow : public ITreeTableRow {
public:
    bool IsCurrent() const override { return false; }
    bool IsExpanded() const override { return true; }
    void SetExpanded(bool) override {}
    bool IsCollapsible() const override { return false; }
    void SetReadOnly(bool) override {}
    void Select() override {}
    void BeginEdit() override {}

    // Cells are found by their columns, and their places say nothing.
    std::size_t GetCellCount() const override { return 0; }
    void SetCellCount(std::size_t) override {}
    void SetCellColumn(std::size_t, const std::wstring&) override {}
    void SetCurrentCountColumn(const std::wstring&) override {}
    void ResetCurrentCountColumn() override {}

    // A cell becomes one of its kind when it is first shown.
    void InitTextEditor(const SharedText&, const SharedText&, bool, const SharedText&,
                        const MenuPtr&) override {}
    void InitIntEditor(const SharedText&, std::optional<int>, bool, int, int, bool,
                       const SharedText&) override {}
    void InitDoubleEditor(const SharedText&, std::optional<double>, bool, bool, const SharedText&,
                          double, double, double) override {}
    void InitBoolEditor(const SharedText&, std::optional<bool>, bool, bool,
                        const SharedText&) override {}
    void InitListEditor(const SharedText&, const std::list<SimplePropVal>&, int, bool,
                        const SharedText&) override {}
    void InitLinkEditor(const SharedText&, const SharedText&, bool, const SharedText&, bool,
                        const SharedText&, int) override {}

    void SetIntCell(const SharedText&, std::optional<int>, int, int, bool, bool,
                    const SharedText&) override {}
    void SetIntValue(const SharedText&, std::optional<int>) override {}
    std::optional<int> GetIntValue(const SharedText&) const override { return std::nullopt; }
    void SetDoubleCell(const SharedText&, double, bool, bool, const SharedText&, double,
                       double) override {}
    void SetDoubleValue(const SharedText&, double, bool) override {}
    std::optional<double> GetDoubleValue(const SharedText&) const override { return std::nullopt; }
    void SetBoolCell(const SharedText&, std::optional<bool>, bool, bool,
                     const SharedText&) override {}
    void SetBoolValue(const SharedText&, std::optional<bool>) override {}
    std::optional<bool> GetBoolValue(const SharedText&) const override { return std::nullopt; }
    void SetListCell(const SharedText&, const std::list<SimplePropVal>&, int, bool,
                     const SharedText&) override {}
    void SetListIndex(const SharedText&, int) override {}
    int GetListIndex(const SharedText&) const override { return -1; }
    void SetLinkCell(const SharedText&, const SharedText&, bool, const SharedText&, bool, bool,
                     bool, const SharedText&, int) override {}
    SharedText GetCellSourceIcon(const SharedText&) const override { return {}; }

    SharedText GetNameDisplay() const override { return GetNameText(); }
    SharedText GetNameValue() const override { return GetNameText(); }
    void SetNameEditable(bool) override {}
    void SetNameHypertext(bool) override {}
    void SetNameLinkStyle(int) override {}
    void SetNameIcon(const SharedText&) override {}
    SharedText GetNameIcon() const override { return {}; }
    void SetSectionNameStyle(bool) override {}
    bool IsSectionNameStyle() const override { return false; }
    void SetSectionRowStyle(bool) override {}

    void SetIcon(int, const SharedText&) override {}
    int GetIcon() const override { return 0; }
    int GetRegWithDescState() const override { return AttributeStateNone; }
    int GetAggrIntoProductState() const override { return AttributeStateNone; }
    void SetRegWithDescState(int) override {}
    void SetAggrIntoProductState(int) override {}

    // No designation is shown.
    boost::intrusive_ptr<IMarkingEditor> GetMarkingEditor() override { return nullptr; }
};

/// To be answered: SetController; CreateRow, GetRootRow, SetRootRow.
class NeutralTreeTable : public ITreeTableModel {
public:
    void SetVisible(bool, bool) override {}
    bool IsVisible() const override { return true; }
    void Activate(bool) override {}
    void SetCaption(const SharedText&) override {}
    void ShowColumnHeads(bool) override {}
    void SetHelpTopic(const std::string&) override {}
    void SetToolbar(const std::string&) override {}
    void SetAdditionalToolbar(const std::string&) override {}
    void SetReadOnly(bool) override {}

    void BeginUpdate() override {}
    void EndUpdate() override {}

    // The user can't choose columns; the shown ones are those that rows have cells of.
    void ResetColumns() override {}
    void AddColumn(const std::wstring&, const std::wstring&, bool) override {}
    void RemoveColumn(int) override {}
    int GetColumnCount() const override { return 0; }
    std::wstring GetColumnId(int) const override { return {}; }
    void SetColumnId(int, const std::wstring&) override {}
    std::wstring GetColumnCaption(int) const override { return {}; }
    void SetColumnCaption(int, const std::wstring&) override {}
    bool IsColumnVisible(int) const override { return false; }
    int FindColumn(const std::wstring&) const override { return -1; }
    std::vector<std::wstring> GetColumnIds() const override { return {}; }
    std::map<std::wstring, double> GetColumnWidths() const override { return {}; }
    double GetNameColumnWidth() const override { return 0; }
    double GetMarkingColumnWidth() const override { return 0; }
    void OnColumnsRebuilt() override {}
    void ClearColumnMark() override {}
    void SetColumnMark(const std::wstring&, bool) override {}

    // Heads have no editors.
    void InitNameHeader(const productTree::ColumnInfo&) override {}
    void InitDesignationHeader(const productTree::ColumnInfo&) override {}
    void InitCountHeader(const productTree::ColumnInfo&, const std::wstring&, const std::wstring&,
                         bool) override {}
    void InitTextHeader(const productTree::ColumnInfo&,
                        const boost::intrusive_ptr<IMenuItems>&) override {}
    void InitIntHeader(const productTree::ColumnInfo&) override {}
    void InitDoubleHeader(const productTree::ColumnInfo&) override {}
    void InitListHeader(const productTree::ColumnInfo&) override {}
    void InitBoolHeader(const productTree::ColumnInfo&) override {}
    void InitLinkHeader(const productTree::ColumnInfo&) override {}
    SharedText GetHeaderName() const override { return {}; }
    HeaderMarkingParts GetHeaderMarking() const override { return {}; }
    SharedText GetHeaderText(const SharedText&) const override { return {}; }
    std::optional<int> GetHeaderInt(const SharedText&) const override { return std::nullopt; }
    std::optional<double> GetHeaderDouble(const SharedText&) const override { return std::nullopt; }
    std::optional<bool> GetHeaderBool(const SharedText&) const override { return std::nullopt; }
    int GetHeaderListIndex(const SharedText&) const override { return -1; }

    void SetAttributeColumnEnabled(int, bool) override {}
    void SetAttributeColumnShown(int, bool) override {}
    bool IsAttributeColumnShown(int) const override { return false; }

    std::vector<TreeRowPtr> GetSelectedRows() const override { return {}; }
    void SelectRow(const TreeRowPtr&, bool, bool) override {}
    TreeRowPtr GetCurrentRow() const override { return nullptr; }
    void ClearSelection() override {}

    void EnableCommand(unsigned, bool) override {}
    void ShowCommand(unsigned, bool) override {}

    void SetGroupEditMode(bool) override {}
    void AddGroupEditProperty(const std::wstring&, bool) override {}

    bool IsEmbodimentsAllowed() const override { return false; }
    void SetEmbodimentSwitch(bool) override {}
    bool GetEmbodimentSwitch() const override { return false; }
    void EnableEmbodimentSwitch(bool) override {}
    void ClearEmbodimentFilter() override {}
    void AddEmbodimentFilterItem(const std::wstring&, std::optional<bool>) override {}
    void SetEmbodimentFilterText(const std::wstring&) override {}
    std::wstring GetEmbodimentFilterText() const override { return {}; }
};
