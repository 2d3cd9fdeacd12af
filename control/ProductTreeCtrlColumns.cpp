// The columns of a full build: the column set of the document's key is brought up to date, every
// shown column gets its head, and the view's list of columns follows.

#include "columns/PropertyKeys.h"
#include "columns/headers/DesignationHeader.h"
#include "columns/headers/PlainHeaders.h"
#include "control/ProductTreeCtrl.h"
#include "host/ProductProperties.h"
#include "host/data/IfProductTreeData.h"
#include "items/ColumnTable.h"

#include <algorithm>
#include <unordered_set>

namespace productTree {

namespace {

constexpr int c_embodimentWidthClass = 5;

std::wstring GetCaption(const IfPropertyDescription& description) {
    const wchar_t* caption = description.GetCaption();
    return caption ? caption : L"";
}

// Brings the view's list of columns in line with a column set. The list has an entry for each
// property that could be shown; name and designation have none.
class ViewColumnsUpdate {
public:
    ViewColumnsUpdate(ITreeTableModel& view, const IfProductTreeData& data,
                      const std::list<ColumnInfo>& columns)
        : m_view(view), m_data(data), m_columns(columns) {
        for (const IfPropertyDescription* description : data.GetPropertyDescriptions()) {
            if (description && description->GetId() != ProductProperties::nameId &&
                description->GetId() != ProductProperties::markingId)
                m_descriptions.push_back(description);
        }
        for (const ColumnInfo& column : columns)
            m_shown.insert(ProductProperties::GetPropId(column.GetId()));
    }

    void Run() {
        AddUnknownEntries();
        RemoveForgottenEntries();
        UpdateEntries();
        OrderVisibleEntries();
    }

private:
    void AddUnknownEntries() {
        for (const IfPropertyDescription* description : m_descriptions) {
            const std::wstring path = ProductProperties::GetPath(description->GetId());
            if (m_view.FindColumn(path) < 0)
                m_view.AddColumn(GetCaption(*description), path, false);
        }
    }

    void RemoveForgottenEntries() {
        std::unordered_set<unsigned long> known;
        for (const IfPropertyDescription* description : m_descriptions)
            known.insert(description->GetId());
        std::vector<std::wstring> forgotten;
        for (int i = 0; i < m_view.GetColumnCount(); ++i) {
            std::wstring id = m_view.GetColumnId(i);
            if (!id.empty() && !known.contains(ProductProperties::GetPropId(id)))
                forgotten.push_back(std::move(id));
        }
        for (const std::wstring& id : forgotten)
            m_view.RemoveColumn(m_view.FindColumn(id));
    }

    void UpdateEntries() {
        for (const IfPropertyDescription* description : m_descriptions) {
            const std::wstring path = ProductProperties::GetPath(description->GetId());
            const int entry = m_view.FindColumn(path);
            if (entry < 0)
                continue;
            const bool shown = m_shown.contains(description->GetId());
            const std::wstring caption = GetCaption(*description);
            if (m_view.IsColumnVisible(entry) == shown && m_view.GetColumnCaption(entry) == caption)
                continue;
            m_view.RemoveColumn(entry);
            m_view.AddColumn(caption, path, shown);
        }
    }

    void OrderVisibleEntries() {
        int wanted = 0;
        for (const ColumnInfo& column : m_columns) {
            const int entry = FindVisibleEntry(++wanted);
            if (entry < 0 || m_view.GetColumnId(entry) == column.GetId())
                continue;
            const IfPropertyDescription* description =
                m_data.GetPropertyDescription(column.GetId());
            m_view.SetColumnCaption(entry,
                                    description ? GetCaption(*description) : column.GetHeader());
            m_view.SetColumnId(entry, column.GetId());
        }
    }

    // The entry that stands `wanted`th among the visible ones; the last entry when there are fewer,
    // negative when there is none at all.
    int FindVisibleEntry(int wanted) const {
        const int count = m_view.GetColumnCount();
        int visible = 0;
        for (int i = 0; i < count; ++i) {
            visible += m_view.IsColumnVisible(i) ? 1 : 0;
            if (visible == wanted)
                return i;
        }
        return count - 1;
    }

    ITreeTableModel& m_view;
    const IfProductTreeData& m_data;
    const std::list<ColumnInfo>& m_columns;
    std::vector<const IfPropertyDescription*> m_descriptions;
    std::unordered_set<unsigned long> m_shown;
};

} // namespace

DocumentColumnsInfo& ProductTreeCtrl::GetCurrentColumns() {
    return m_columns[m_data->GetColumnSetKey()];
}

void ProductTreeCtrl::RebuildColumns() {
    m_embodiments.Update(EmbodimentFilter::ReadEmbodiments(*m_data));
    if (const auto last = m_columns.find(m_columnSetKey); last != m_columns.end())
        TakeWidthsFromView(last->second);

    DocumentColumnsInfo& columns = GetCurrentColumns();
    const auto descriptions = m_data->GetPropertyDescriptions();
    columns.SetNameColumn(descriptions);
    columns.SetMarkingColumn(descriptions);
    columns.SetColumns(m_data->GetVisiblePropertyIds(), descriptions);
    if (m_data->IsEmbodimentMode())
        columns.SetEmbodimentColumns(MakeEmbodimentColumns());

    MakeFixedHeaders(columns);
    m_tree->ResetColumns();
    UpdateByDescriptions(columns);
    MakeHeaders(columns);
    ViewColumnsUpdate(*m_tree, *m_data, columns.GetColumns()).Run();
    if (m_data->IsEmbodimentMode()) {
        m_tree->ClearColumnMark();
        m_tree->SetColumnMark(keys::count, false);
        StoreEmbodimentFilter();
    }
    m_tree->OnColumnsRebuilt();
}

void ProductTreeCtrl::TakeWidthsFromView(DocumentColumnsInfo& columns) const {
    if (ColumnInfo* name = columns.GetNameColumn())
        name->SetWidth(m_tree->GetNameColumnWidth());
    if (ColumnInfo* marking = columns.GetMarkingColumn())
        marking->SetWidth(m_tree->GetMarkingColumnWidth());
    columns.UpdateWidths(m_tree->GetColumnWidths());
}

void ProductTreeCtrl::MakeFixedHeaders(DocumentColumnsInfo& columns) {
    m_nameHeader.reset();
    m_designationHeader.reset();
    if (const ColumnInfo* name = columns.GetNameColumn()) {
        m_nameHeader = std::make_shared<NameHeaderImpl>(*name, m_data.get(), m_tree);
        m_nameHeader->InitEditor();
    }
    if (const ColumnInfo* marking = columns.GetMarkingColumn()) {
        m_designationHeader =
            std::make_shared<DesignationHeaderImpl>(*marking, m_data.get(), m_tree);
        m_designationHeader->InitEditor();
    }
}

void ProductTreeCtrl::UpdateByDescriptions(DocumentColumnsInfo& columns) const {
    for (ColumnInfo& column : columns.GetColumns()) {
        if (const auto* description = m_data->GetPropertyDescription(column.GetId()))
            column.UpdateByDescription(*description);
    }
}

void ProductTreeCtrl::MakeHeaders(const DocumentColumnsInfo& columns) {
    m_headers.clear();
    for (const ColumnInfo& column : columns.GetShownColumns(m_data->IsEmbodimentMode())) {
        auto header = CreateHeader(column, m_data.get(), m_tree);
        if (!header)
            continue;
        m_headers.push_back(std::move(header));
        m_headers.back()->InitEditor();
    }
}

std::list<ColumnInfo> ProductTreeCtrl::MakeEmbodimentColumns() const {
    std::list<ColumnInfo> columns;
    for (const EmbodimentGroup& embodiment : m_embodiments.GetShown())
        columns.emplace_back(ColumnInfo::ConvertGroupCountToId(embodiment.rawKeys), embodiment.name,
                             ColumnInfo::DEFAULT_COLUMN_WIDTH.at(c_embodimentWidthClass));
    return columns;
}

void ProductTreeCtrl::StoreEmbodimentFilter() {
    const std::wstring text = m_embodiments.GetStoredText();
    if (text != m_data->GetEmbodimentFilter())
        m_data->SetEmbodimentFilter(text);
}

void ProductTreeCtrl::UpdateAttributeColumns() {
    if (!m_columnSetKey.empty())
        m_attributeColumns[m_columnSetKey] = {
            m_tree->IsAttributeColumnShown(AttributeColumnAggrIntoProduct),
            m_tree->IsAttributeColumnShown(AttributeColumnRegWithDesc)};

    const AttributeColumns offered{m_data->IsAggrIntoProductShown(), m_data->IsRegWithDescShown()};
    const AttributeColumns& shown =
        m_attributeColumns.try_emplace(m_data->GetColumnSetKey(), offered).first->second;
    m_tree->SetAttributeColumnEnabled(AttributeColumnAggrIntoProduct, offered.aggrIntoProduct);
    m_tree->SetAttributeColumnShown(AttributeColumnAggrIntoProduct, shown.aggrIntoProduct);
    m_tree->SetAttributeColumnEnabled(AttributeColumnRegWithDesc, offered.regWithDesc);
    m_tree->SetAttributeColumnShown(AttributeColumnRegWithDesc, shown.regWithDesc);
}

} // namespace productTree
