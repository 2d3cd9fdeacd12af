// The controller of the panel, one a wrapper. It stands between the product data, the view and the
// library's own rows, columns and sorter, and alone decides when rows are built and when values are
// read again. Its operations are spread over files by theme: ProductTreeCtrl.cpp has its life and
// the frame of builds and refreshes, ProductTreeCtrlColumns.cpp and ProductTreeCtrlRows.cpp what a
// build does, ProductTreeCtrlEdits.cpp what the user does in rows and heads and what follows. The
// selection, the commands, the menus and the embodiments have a file each.
#pragma once

#include "columns/DocumentColumnsInfo.h"
#include "control/EmbodimentFilter.h"
#include "control/IfProductTreeCtrl.h"
#include "control/ProductTreeEmbItemsStates.h"
#include "control/RowsByKey.h"
#include "host/EventsBus.h"
#include "host/UniqueMetaObjectKey.h"
#include "host/view/ITreeTableModel.h"

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

class GrProductTreeWrapper;
class IParamSlideBoxModel;
class IfProductTreeData;

namespace productTree {

class IProductTreeSorter;
class ProductPartDocsList;
class ProductTreeCellImpl;
class DesignationHeaderImpl;
class ProductTreeHeaderImpl;
class ProductTreeItemImpl;
struct ProductTreeRowInfo;
struct TreeActionResult;

class ProductTreeCtrl final : public LEventsHandler,
                              public EventsBusSubscriber,
                              public IfProductTreeCtrl {
public:
    /// Listens to the events bus from now on; there is no view and no data yet.
    explicit ProductTreeCtrl(GrProductTreeWrapper& wrapper);
    ~ProductTreeCtrl() override;

    /// Called once, when the panel has its view and its data. Ends in the first full build.
    void Init(std::shared_ptr<IfProductTreeData> data, ITreeTableModel& tree,
              IParamSlideBoxModel& slideBox);
    /// The full build of columns and rows. Owed instead while the panel is hidden, skipped in a
    /// read-only document that has not changed.
    void Synchronize();
    /// Reads values again, all of them where the product data can't tell which have changed; rows
    /// and columns stay.
    void Refresh();
    void RefreshReadOnlyMode();
    /// Selects the rows of what is selected in the document. Owed, as a refresh, while the panel is
    /// hidden.
    void SetSelectionByDoc();

    /// A command of a menu that the panel has opened. Any other is not handled.
    bool OnCommand(unsigned command, int code) override;

    void OnToolbarCommand(int command, std::int64_t data) override;
    void OnDocsListEvent(int eventId, std::int64_t data) override;
    void OnSelectionChanged() override;
    void OnColumnsChanged() override;
    void OnCellEdited(ProductTreeItemData& item, const std::wstring& columnId) override;
    void OnHeaderEdited(const std::wstring& columnId) override;
    void OnAggrIntoProductClicked(ProductTreeItemData& item) override;
    void OnRegWithDescClicked(ProductTreeItemData& item) override;
    void OnMarkingEdited(ProductTreeItemData& item) override;
    void OnDesignationCodeCommand() override;
    void OnEditDocCode(ProductTreeItemData& item) override;
    void OnNameEdited(ProductTreeItemData& item) override;
    void OnCellHypertextActivated(ProductTreeItemData& item, const std::wstring& columnId) override;
    void OnHeaderClicked(const std::wstring& columnId) override;
    void OnCellSourceIconClicked(ProductTreeItemData& item, const std::wstring& columnId) override;
    void OnItemContextMenu(ProductTreeItemData& item, const std::wstring& columnId) override;
    void OnItemPopupCommand(ProductTreeItemData& item, const std::wstring& columnId,
                            int command) override;
    void OnHeaderPopupCommand(const std::wstring& columnId, int command) override;
    void SetColumnsVisibility(const std::vector<ColumnVisibility>& columns) override;
    void ManageProperties() override;
    void SetDocsListVisible(bool visible) override;
    void OnEmbodimentModeChanged(bool allowed) override;
    void OnEmbodimentSwitch() override;
    void OnEmbodimentFilterChanged() override;
    void OnEmbodimentChecked(const std::wstring& text, bool checked) override;
    void OnColumnContextMenu(const std::wstring& columnId) override;

private:
    friend class SyncGuard;

    using Rows = std::vector<TreeRowPtr>;
    enum MenuKind : std::int32_t { RowMenu = 0, ColumnMenu = 1, RowsMenu = 2 };

    struct AttributeColumns {
        bool aggrIntoProduct;
        bool regWithDesc;
    };

    bool IsViewVisible() const;
    bool IsUnchanged() const;
    void LeaveImpossibleEmbodimentMode();
    void RememberBuild();
    /// The user has been at work in `touched`, which may show what nobody has: it is read again in
    /// any case. Null for no row.
    void RefreshAfterEdit(ITreeTableRow* touched);
    void UpdateRows(ITreeTableRow& root);
    /// False, with no row read, where it takes a walk over all rows.
    bool UpdateChangedRows(ITreeTableRow* touched);

    void RebuildColumns();
    void TakeWidthsFromView(DocumentColumnsInfo& columns) const;
    void MakeFixedHeaders(DocumentColumnsInfo& columns);
    void UpdateByDescriptions(DocumentColumnsInfo& columns) const;
    void MakeHeaders(const DocumentColumnsInfo& columns);
    std::list<ColumnInfo> MakeEmbodimentColumns() const;
    void StoreEmbodimentFilter();
    void UpdateAttributeColumns();
    DocumentColumnsInfo& GetCurrentColumns();

    void RebuildRows();
    ITreeTableRow& MakeRootRow(const UniqueMetaObjectKey& rootKey);
    /// Adds the keys of the rows to `keys`, in the order in which rows are read.
    void UpdateChildRows(const std::vector<ProductTreeRowInfo>& nodes, ITreeTableRow& parent,
                         std::vector<UniqueMetaObjectKey>& keys);
    void GiveItem(ITreeTableRow& row, std::shared_ptr<ProductTreeItemImpl> item);
    std::shared_ptr<ProductTreeItemImpl> CreateItem(const ProductTreeRowInfo& node,
                                                    const TreeRowPtr& row) const;

    /// `touched` is the row in which the user has edited something; null for none.
    template <class Work>
    void RunEdit(const Work& work, const TreeRowPtr& touched = {});
    template <class Work>
    void RunCellEdit(ProductTreeItemData& item, const std::wstring& columnId, const Work& work);
    void ApplyResult(const TreeActionResult& result, const TreeRowPtr& touched = {});

    /// Offers the editors in the heads where several rows are selected.
    void UpdateGroupEdit();
    /// The first row of each key, from top to bottom, in the order of the keys; null for a key
    /// without one.
    std::vector<ITreeTableRow*> FindRowsByKeys(const std::vector<UniqueMetaObjectKey>& keys) const;

    struct Command;
    static const Command s_commands[];
    bool IsAlways() const;
    bool CanAddObject() const;
    bool CanDeleteSelected() const;
    bool CanHighlightSelected() const;
    bool CanCalculate() const;
    /// The root row, or one directly below it, does not agree with its source.
    bool HasOutdatedRows() const;
    /// Tells the view which commands would do something now.
    void UpdateCommandStates();
    void AddObject();
    void DeleteSelected();
    void UpdateAll();
    void ShowDocument();
    void Highlight();
    void CalculatePositions();
    void RunHostCommand();
    void DeleteRows(const Rows& rows);
    bool AskAndDeleteRows(const Rows& rows);
    void TransmitToSource(const Rows& rows);
    void SetBySource(const Rows& rows, bool selectLast);
    template <class Attribute>
    void SetRowsAttribute(bool state);

    std::set<int> GetRowsMenuCommands(const Rows& rows, const std::wstring& columnId) const;
    std::set<int> GetColumnMenuCommands(const std::wstring& columnId) const;
    bool RunRowMenuCommand(int command);
    bool RunRowsMenuCommand(int command);
    bool RunColumnMenuCommand(int command);
    void HideMenuColumn();
    /// The root row and all rows below it, each before those below it.
    Rows GetAllRows() const;
    Rows GetTopRows() const;

    /// Lists the documents of the one row that is selected.
    void UpdateDocsList();
    void UpdateEmbodimentFilter();
    void SetEmbodimentModeOn(bool on);
    /// Embodiment mode was left: what it has shown goes.
    void LeaveEmbodimentColumns();
    /// For as long as something works on it: whatever that leads to may give the row another item.
    static std::shared_ptr<ProductTreeItemImpl> HoldItemOfRow(const ITreeTableRow& row);
    /// Null for the empty key, and when no row stands for the key.
    ITreeTableRow* FindRowByKey(ITreeTableRow* row, const UniqueMetaObjectKey& key) const;
    /// False when no row has that id.
    bool SelectRowById(const ProductTreeItemId& id, ITreeTableRow& row) const;
    ProductTreeHeaderImpl* FindHeader(const std::wstring& columnId) const;
    void ReplaceEmbodimentColumns(std::vector<std::wstring>& columnIds);

    GrProductTreeWrapper& m_wrapper;
    std::shared_ptr<IfProductTreeData> m_data;
    std::unique_ptr<IProductTreeSorter> m_sorter;
    boost::intrusive_ptr<ITreeTableModel> m_tree;
    std::unique_ptr<ProductPartDocsList> m_docsList;
    /// Ends the highlight that was begun last; that of an older one is gone.
    std::shared_ptr<std::function<void()>> m_highlightDone;
    /// By column set key; none is ever dropped.
    std::map<std::string, DocumentColumnsInfo> m_columns;
    std::map<std::string, AttributeColumns> m_attributeColumns;
    std::shared_ptr<ProductTreeHeaderImpl> m_nameHeader;
    std::shared_ptr<DesignationHeaderImpl> m_designationHeader;
    /// Of the other shown columns, in shown order.
    std::vector<std::shared_ptr<ProductTreeHeaderImpl>> m_headers;
    // The menu that was opened last: for which rows and which column. Without a column there is
    // none.
    Rows m_menuRows;
    std::wstring m_menuColumn;
    MenuKind m_menuKind = RowMenu;
    EmbodimentFilter m_embodiments;
    /// The panel itself is writing: a SyncGuard is alive.
    bool m_guarded = false;
    /// The panel's selection is being told, or a command runs that may change the document's: what
    /// the document says of it meanwhile is an echo.
    bool m_inCommand = false;
    /// Rows are being built, or selected as the document wants it: the view and the product data
    /// may call back, and a build inside a build would pull the rows away from under it.
    bool m_rebuilding = false;
    /// The text of the filter is being set by the panel.
    bool m_fillingFilter = false;
    ProductTreeEmbItemsStates m_rowStates;
    /// What the last full build found. The root key is empty before the first, and after one that a
    /// host has broken off: the rows are nothing to be remembered then.
    UniqueMetaObjectKey m_rootKey;
    std::string m_columnSetKey;
    std::uint64_t m_refreshStamp = 0;
    std::uint64_t m_syncStamp = 0;
    /// Up to which change all rows were read. No value: they are not there, or not all were.
    std::optional<std::uint64_t> m_readStamp;
    RowsByKey m_rowsByKey;
    bool m_embodimentMode = false;
    /// The column of counts is shown only because embodiment mode went on.
    bool m_countColumnAdded = false;
    /// Embodiment mode was left because it is impossible now, and comes back when it is possible.
    bool m_embodimentModePending = false;
};

} // namespace productTree
