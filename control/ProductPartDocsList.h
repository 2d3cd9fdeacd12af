// The documents of the selected object, as a table in the box below the tree, and what the user
// does with them. While the table is hidden nothing is read: only what is asked for is remembered.
#pragma once

#include "cells/TreeActionResult.h"
#include "host/MemLeakVerifiable.h"
#include "host/UniqueMetaObjectKey.h"
#include "host/data/PartDocument.h"
#include "host/view/IParamSlideBoxModel.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class IfProductTreeData;
struct ProductInfObjChangesResult;

namespace productTree {

class ProductTreeDocumentPreviewBox;

/// A column of the table.
struct DocsListField {
    std::wstring key;
    std::wstring caption;
    /// -1: none.
    int icon = -1;
    std::wstring tip;
    int width = 0;
};

class ProductPartDocsList : private MemLeakVerifiable {
public:
    ProductPartDocsList();
    ProductPartDocsList(const ProductPartDocsList&) = delete;
    ProductPartDocsList& operator=(const ProductPartDocsList&) = delete;
    virtual ~ProductPartDocsList();

    /// Called once. A box without a table leaves the list empty for good.
    void Init(std::shared_ptr<IfProductTreeData> data, IParamSlideBoxModel& slideBox);
    /// The object whose documents are wanted; the empty key for none.
    void SetKey(const UniqueMetaObjectKey& key);
    void SetVisible(bool visible);
    void SetEnabled(bool enabled);
    /// A DocsListEvent.
    TreeActionResult OnEvent(int eventId, std::int64_t data);

private:
    using Changes = ProductInfObjChangesResult;

    boost::intrusive_ptr<IParamTableModel> GetTable() const;
    void AddColumns(IParamTableModel& table) const;
    void Refill(bool keyChanged);
    void ShowRow(IParamTableModel& table, std::size_t place) const;
    void UpdateButtons();
    void UpdatePreview();
    void FillMenu();
    TreeActionResult RunCommand(std::int64_t command);
    void OpenSelected();
    TreeActionResult TurnFormat();
    TreeActionResult TurnSource();
    TreeActionResult Add();
    TreeActionResult RemoveSelected();
    bool Commit(Changes& changes) const;

    /// Those of the selected rows, in their order. Copies: while the user answers a question of the
    /// host, the list may be filled anew.
    std::vector<PartDocument> GetSelected() const;
    /// The one that is selected; none of several.
    using Single = std::optional<PartDocument>;
    Single GetSingle() const;
    bool CanOpenAny() const;
    bool CanPreview(const Single& document) const;
    bool CanTurnFormat(const Single& document) const;
    bool CanTurnSource(const Single& document) const;
    bool CanRemove() const;

    std::vector<DocsListField> m_fields;
    std::shared_ptr<IfProductTreeData> m_data;
    boost::intrusive_ptr<IParamSlideBoxModel> m_slideBox;
    std::unique_ptr<ProductTreeDocumentPreviewBox> m_previewBox;
    /// The rows of the table, in its order.
    std::vector<PartDocument> m_docs;
    UniqueMetaObjectKey m_key;
    bool m_visible = false;
    /// `m_pendingKey` waits until the table is seen.
    bool m_pending = false;
    UniqueMetaObjectKey m_pendingKey;
};

} // namespace productTree
