#include "control/ProductPartDocsList.h"

#include "cells/ProductTreeCellImpl.h"
#include "control/ProductTreeDocumentPreviewBox.h"
#include "host/FormatLabelUtils.h"
#include "host/data/IfProductTreeData.h"
#include "resources/ProductTreeResources.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace productTree {

namespace {

// The commands of the list, by their ids among the host's resources.
enum : unsigned {
    c_open = 7749,
    c_useFormat = 7750,
    c_takeAsSource = 7751,
    c_add = 7783,
    c_preview = 7784,
    c_remove = 7785,
};

struct FieldRow {
    const wchar_t* key;
    const char* caption;
    int icon;
    const char* tip;
    int width;
};

// Names of texts among the resources; null for none. The icons are the host's.
// clang-format off
constexpr FieldRow c_fields[] = {
//   key          caption                   icon   tip                       width
    {L"picture",  nullptr,                  60979, "IDS_SP_SOURCE_CAPTION",  25},
    {L"number",   "IDS_SP_NUMB_CAPTION",    -1,    "SPC_STR_TYPE_COLUMN_13", 25},
    {L"format",   nullptr,                  60980, "IDS_DOC_FORMAT",         25},
    {L"name",     "IDS_SP_FILE_CAPTION",    -1,    "IDS_SP_FILE_CAPTION",    100},
    {L"marking",  "IDS_SP_MARK_CAPTION",    -1,    "IDS_DOC_MARKING",        100},
    {L"comment",  "IDS_SP_COMMENT_CAPTION", -1,    "IDS_SP_COMMENT_CAPTION", 50},
};
// clang-format on

// By whether the object has taken over the format, twice, and whether the document is its source.
constexpr std::array c_pictures = {61166, 60981, 60980, 60979};
constexpr int c_previewHeight = 200;

std::wstring TextOf(const char* resource) {
    return resource ? GetResourceText(resource).Str() : std::wstring();
}

} // namespace

ProductPartDocsList::ProductPartDocsList() {
    for (const FieldRow& row : c_fields)
        m_fields.push_back({row.key, TextOf(row.caption), row.icon, TextOf(row.tip), row.width});
}

ProductPartDocsList::~ProductPartDocsList() = default;

void ProductPartDocsList::Init(std::shared_ptr<IfProductTreeData> data,
                               IParamSlideBoxModel& slideBox) {
    m_data = std::move(data);
    m_slideBox = &slideBox;
    const auto table = GetTable();
    if (!table)
        return;
    AddColumns(*table);
    table->SetToolbar("PRODUCT_TREE_DOC_LIST");
    if (const auto panel = m_slideBox->GetSubPanel()) {
        m_previewBox = std::make_unique<ProductTreeDocumentPreviewBox>(*panel, c_previewHeight);
        m_previewBox->UpdateVisibility();
    }
}

boost::intrusive_ptr<IParamTableModel> ProductPartDocsList::GetTable() const {
    return m_slideBox ? m_slideBox->GetTable() : nullptr;
}

void ProductPartDocsList::AddColumns(IParamTableModel& table) const {
    for (const DocsListField& field : m_fields) {
        const IParamTableModel::Column column{field.key, field.caption, field.tip, field.width};
        if (field.key == L"picture")
            table.AddImageColumn(column, field.icon, c_pictures);
        else if (field.key == L"number")
            table.AddIntColumn(column, {1, 2147483647, 1}, L"^-?\\d*");
        else if (field.icon < 0)
            table.AddTextColumn(column, L".*");
        else
            table.AddIconTextColumn(column, field.icon, L".*");
    }
}

void ProductPartDocsList::SetKey(const UniqueMetaObjectKey& key) {
    m_pendingKey = key;
    if (!m_visible) {
        m_pending = true;
        return;
    }
    m_pending = false;
    const bool isOther = key != m_key;
    m_key = key;
    Refill(isOther);
    UpdateButtons();
    UpdatePreview();
}

void ProductPartDocsList::SetVisible(bool visible) {
    m_visible = visible;
    if (m_visible && m_pending)
        SetKey(UniqueMetaObjectKey(m_pendingKey));
}

void ProductPartDocsList::SetEnabled(bool enabled) {
    if (const auto table = GetTable())
        table->SetEnabled(enabled);
}

// Rows are overwritten where they stand: the table keeps its objects.
void ProductPartDocsList::Refill(bool keyChanged) {
    const auto table = GetTable();
    if (!table)
        return;
    std::set<std::wstring> selectedFiles;
    if (!keyChanged) {
        for (const PartDocument& document : GetSelected())
            selectedFiles.insert(document.file);
    }
    m_docs = m_data->GetPartDocuments(m_key);
    table->SetSelection({});
    while (table->GetRowCount() > m_docs.size())
        table->RemoveRow(table->GetRowCount() - 1);
    std::vector<std::size_t> selection;
    for (std::size_t place = 0; place < m_docs.size(); ++place) {
        ShowRow(*table, place);
        if (selectedFiles.contains(m_docs[place].file))
            selection.push_back(place);
    }
    if (!m_docs.empty() && selection.empty())
        selection.push_back(0);
    table->SetSelection(selection);
}

void ProductPartDocsList::ShowRow(IParamTableModel& table, std::size_t place) const {
    const PartDocument& document = m_docs[place];
    const std::vector<IParamTableModel::Cell> cells{
        (document.formatUsed ? 2 : 0) + (document.isSource ? 1 : 0),
        static_cast<int>(place) + 1,
        format_label_utils::FormatLabelForDisplay(document.format),
        SharedText(document.file),
        document.marking.GetDisplayName(),
        SharedText(document.comment)};
    if (place < table.GetRowCount())
        table.SetRow(place, cells);
    else
        table.AddRow(cells);
    table.SetCellEnabled(L"format", place, document.formatUsed);
    table.SetCellEnabled(L"name", place, document.isSource);
    table.SetCellEnabled(L"marking", place, document.isSource);
}

// The table is the host's, and so are the places that it names.
std::vector<PartDocument> ProductPartDocsList::GetSelected() const {
    std::vector<PartDocument> selected;
    if (const auto table = GetTable()) {
        for (const std::size_t place : table->GetSelection()) {
            if (place < m_docs.size())
                selected.push_back(m_docs[place]);
        }
    }
    return selected;
}

ProductPartDocsList::Single ProductPartDocsList::GetSingle() const {
    const std::vector<PartDocument> selected = GetSelected();
    return selected.size() == 1 ? Single(selected.front()) : std::nullopt;
}

bool ProductPartDocsList::CanOpenAny() const {
    return std::ranges::any_of(GetSelected(), [&](const PartDocument& document) {
        return m_data->CanOpenDocument(m_key, document);
    });
}

bool ProductPartDocsList::CanPreview(const Single& document) const {
    return document && m_data->CanPreviewDocument(m_key, *document);
}

bool ProductPartDocsList::CanTurnFormat(const Single& document) const {
    return document && !document->format.empty() &&
           m_data->CanUseDocumentFormat(m_key, *document, document->format);
}

bool ProductPartDocsList::CanTurnSource(const Single& document) const {
    return document && !document->sourceLocked && m_data->CanChangeDocumentSource(m_key, *document);
}

bool ProductPartDocsList::CanRemove() const {
    std::vector<std::wstring> files;
    for (const PartDocument& document : GetSelected())
        files.push_back(document.file);
    return !files.empty() && m_data->CanRemoveDocuments(m_key, files);
}

void ProductPartDocsList::UpdateButtons() {
    const auto table = GetTable();
    if (!table)
        return;
    if (m_docs.empty() || m_key.IsEmpty()) {
        for (const unsigned command : {c_open, c_preview, c_useFormat, c_takeAsSource})
            table->EnableCommand(command, false);
    } else {
        const Single single = GetSingle();
        table->EnableCommand(c_open, CanOpenAny());
        table->EnableCommand(c_useFormat, CanTurnFormat(single));
        table->CheckCommand(c_useFormat, single && single->formatUsed);
        table->EnableCommand(c_preview, CanPreview(single));
        table->CheckCommand(c_preview, m_previewBox && m_previewBox->IsWanted());
        const bool canTurnSource = CanTurnSource(single);
        table->EnableCommand(c_takeAsSource, canTurnSource);
        if (canTurnSource)
            table->CheckCommand(c_takeAsSource, single->isSource);
    }
    table->EnableCommand(c_add, m_data->CanAddDocument(m_key));
    table->EnableRemove(CanRemove());
}

void ProductPartDocsList::UpdatePreview() {
    if (!m_previewBox)
        return;
    const Single single = GetSingle();
    if (!CanPreview(single)) {
        m_previewBox->SetShown(false);
    } else if (m_previewBox->IsWanted()) {
        m_previewBox->SetShown(true);
        m_previewBox->PreviewDocument(single->file);
    }
}

TreeActionResult ProductPartDocsList::OnEvent(int eventId, std::int64_t data) {
    switch (eventId) {
    case DocsListEventCommand:
    case DocsListEventMenuCommand:
        return RunCommand(data);
    case DocsListEventRemove:
        return RemoveSelected();
    case DocsListEventSelection:
        UpdateButtons();
        UpdatePreview();
        return {};
    case DocsListEventMenu:
        FillMenu();
        return {};
    default:
        return {};
    }
}

TreeActionResult ProductPartDocsList::RunCommand(std::int64_t command) {
    switch (command) {
    case c_open:
        OpenSelected();
        return {};
    case c_useFormat:
        return TurnFormat();
    case c_takeAsSource:
        return TurnSource();
    case c_add:
        return Add();
    case c_preview:
        if (m_previewBox)
            m_previewBox->TurnOver();
        UpdateButtons();
        UpdatePreview();
        return {};
    case c_remove:
        return RemoveSelected();
    default:
        return {};
    }
}

void ProductPartDocsList::OpenSelected() {
    for (const PartDocument& document : GetSelected()) {
        if (m_data->CanOpenDocument(m_key, document))
            m_data->OpenDocument(document, document.marking, MbPath_From_String(document.path));
    }
}

TreeActionResult ProductPartDocsList::TurnFormat() {
    const auto selected = GetSelected();
    if (selected.empty())
        return {};
    const PartDocument& document = selected.front();
    const bool isUsed = selected.size() == 1 && document.formatUsed;
    Changes changes = isUsed ? m_data->ClearDocumentFormat(m_key, document)
                             : m_data->UseDocumentFormat(m_key, document, document.format);
    TreeActionResult result;
    if (Commit(changes))
        result.action = TreeActionResult::Refresh;
    return result;
}

TreeActionResult ProductPartDocsList::TurnSource() {
    const auto selected = GetSelected();
    if (selected.empty())
        return {};
    const PartDocument& document = selected.front();
    TreeActionResult result;
    result.action = TreeActionResult::Synchronise;
    Changes changes;
    if (document.isSource) {
        changes = m_data->ClearDocumentSource(m_key, document);
    } else {
        changes = m_data->SetDocumentSource(m_key, document);
        result.selectKey = m_key;
    }
    m_data->CommitChanges(changes);
    return result;
}

TreeActionResult ProductPartDocsList::Add() {
    Changes changes = m_data->AddDocument(m_key);
    TreeActionResult result;
    if (Commit(changes))
        result.action = TreeActionResult::Refresh;
    return result;
}

TreeActionResult ProductPartDocsList::RemoveSelected() {
    const UniqueMetaObjectKey key = m_key;
    Changes changes;
    for (const PartDocument& document : GetSelected())
        MergeChanges(changes, m_data->RemoveDocument(key, document));
    TreeActionResult result;
    if (Commit(changes)) {
        SetKey(key);
        result.action = TreeActionResult::Refresh;
    }
    return result;
}

bool ProductPartDocsList::Commit(Changes& changes) const {
    m_data->CommitChanges(changes);
    return changes.IsExistsChanges();
}

void ProductPartDocsList::FillMenu() {
    const auto table = GetTable();
    if (!table || !table->BeginContextMenu())
        return;
    const Single single = GetSingle();
    struct Item {
        unsigned command;
        bool isOffered;
        bool isCheckable;
        bool isChecked;
    };
    const Item items[] = {
        {c_add, m_data->CanAddDocument(m_key), false, false},
        {c_open, CanOpenAny(), false, false},
        {c_preview, CanPreview(single), true, m_previewBox && m_previewBox->IsWanted()},
        {c_takeAsSource, CanTurnSource(single), true, single && single->isSource},
        {c_useFormat, CanTurnFormat(single), true, single && single->formatUsed},
        {c_remove, CanRemove(), false, false},
    };
    for (const Item& item : items) {
        if (item.isOffered)
            table->AddMenuItem(item.isCheckable, item.isChecked, item.command, L"Orvex");
    }
}

} // namespace productTree
