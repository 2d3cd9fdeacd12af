#include "desktop/Session.h"

#include "columns/ColumnInfo.h"
#include "desktop/RowsOfObject.h"
#include "desktop/store/ProductFile.h"
#include "host/IfPropertyDescription.h"
#include "host/frame/FeatureTrees.h"
#include "items/ProductTreeItemData.h"
#include "platform/product/answers/MemoryProduct.h"
#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/model/SourceProduct.h"
#include "platform/view/HostFrame.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <utility>

namespace desktop {

namespace {

constexpr const char* c_productExtension = ".json";

/// The last number of the type stands for no limit.
bool IsNoLimit(double limit, unsigned type) {
    const double last = type == value_type::Integer ? std::numeric_limits<int>::max()
                                                    : std::numeric_limits<double>::max();
    return std::abs(limit) >= last;
}

/// A product file can name any file as its source. One that is so large and of another size than it
/// should be is another one, and is not gone through.
constexpr std::uintmax_t c_largestSource = std::uintmax_t{1} << 30U;

std::optional<platform::ContentsMark> LookAt(const platform::SourceFile& source) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(source.path, error);
    if (error)
        return std::nullopt;
    if (size > c_largestSource && size != source.contents.size)
        return platform::ContentsMark{size, 0};
    const std::optional<FileMark> mark = FileMark::Take(source.path);
    return mark ? std::optional(mark->Get()) : std::nullopt;
}

void SetAllExpanded(platform::TreeTableRow& row, bool expanded) {
    row.SetExpanded(expanded);
    for (std::size_t i = 0; i < row.GetChildCount(); ++i)
        SetAllExpanded(row.GetChildRow(i), expanded);
}

} // namespace

Session::Session(Document document)
    : Session(std::make_shared<File>(),
              std::make_shared<platform::MemoryProduct>(std::move(document.model))) {
    m_file->path = std::move(document.path);
    m_file->notes = std::move(document.notes);
    m_file->source.Use(std::move(document.step), m_product->GetModel().source);
    m_file->mark = document.mark;
    m_file->isProduct = !GetStep() && !document.isNew;
    m_file->documents.UseFolderOf(document.isNew ? std::filesystem::path() : m_file->path);
    m_product->SetSourceFiles(&m_file->source);
    m_product->SetDocumentFiles(&m_file->documents);
}

Session::Session(std::shared_ptr<File> file, std::shared_ptr<platform::MemoryProduct> product)
    : m_file(std::move(file)), m_product(std::move(product)) {
    m_product->SetObserver(this);
    m_frame = std::make_unique<platform::HostFrame>(m_product);
    m_file->views.push_back(this);
    FollowLevel();
    TellListeners();
}

Session::~Session() {
    SetSourceDesk(nullptr);
    std::erase(m_file->views, this);
    m_product->SetObserver(nullptr);
    TellListeners();
}

std::size_t Session::GetNumber() const {
    const auto place = std::ranges::find(m_file->views, this);
    return IsAlone() ? 0 : static_cast<std::size_t>(place - m_file->views.begin()) + 1;
}

void Session::TellListeners() const {
    for (const Session* const view : m_file->views) {
        if (view->m_listener)
            view->m_listener->OnProductChanged();
    }
}

std::unique_ptr<Session> Session::MakeView() const {
    return std::unique_ptr<Session>(new Session(m_file, m_product->MakeLook()));
}

void Session::SetSourceDesk(ISourceDesk* desk) {
    m_file->source.RemoveDesk(std::exchange(m_desk, desk));
    m_file->source.PutFirst(desk);
}

void Session::Activate() {
    m_file->source.PutFirst(m_desk);
    m_frame->Activate();
}

// The panel that has made the change is at work and drops the echo.
void Session::OnDocumentChanged(bool structure) {
    m_frame->TellDocumentChanged(structure);
    for (Session* const view : m_file->views)
        view->FollowLevel();
    TellListeners();
}

void Session::OnLookChanged() {
    m_frame->GetTree().Synchronize();
}

void Session::OnSelectionChanged() {
    m_frame->GetTree().SetSelectionByDoc();
}

void Session::OnHighlightChanged() {
    if (m_listener)
        m_listener->OnHighlightChanged();
}

platform::TreeTableView& Session::GetView() const {
    return m_frame->GetView();
}

void Session::SetDecisions(platform::IUserDecisions* decisions) {
    m_product->SetDecisions(decisions);
    m_frame->SetDecisions(decisions);
}

void Session::SetPopupMenus(IPopupMenuTracker* tracker) {
    m_frame->SetPopupMenus(tracker);
}

std::optional<SharedText> Session::GetHighlightedName() const {
    const std::optional<platform::Highlighting>& highlighting = m_product->GetHighlighting();
    return highlighting ? std::optional(highlighting->name) : std::nullopt;
}

std::vector<platform::TreeTableRow*>
Session::FindHighlightedRows(const platform::TreeTableView& view) const {
    const std::optional<platform::Highlighting>& highlighting = m_product->GetHighlighting();
    if (!highlighting)
        return {};
    return FindRowsOf(m_product->GetModel(), highlighting->object, view.GetRoot());
}

void Session::EndHighlighting() {
    m_product->EndHighlighting();
}

void Session::ExpandAll() {
    if (platform::TreeTableRow* root = GetView().GetRoot())
        SetAllExpanded(*root, true);
}

void Session::UnfoldSections(int rows) {
    platform::TreeTableRow* const root = GetView().GetRoot();
    if (!root)
        return;
    const std::size_t count = root->GetChildCount();
    for (std::size_t i = 0; i < count; ++i) {
        if (root->GetChildRow(i).IsExpanded() && root->GetChildRow(i).GetChildCount() > 0)
            return;
    }
    root->SetExpanded(true);
    auto room = static_cast<std::int64_t>(rows) - 1 - static_cast<std::int64_t>(count);
    for (std::size_t i = 0; i < count && room > 0; ++i) {
        platform::TreeTableRow& row = root->GetChildRow(i);
        if (!row.IsSection())
            continue;
        row.SetExpanded(true);
        room -= static_cast<std::int64_t>(row.GetChildCount());
    }
}

void Session::CollapseAll() {
    if (platform::TreeTableRow* root = GetView().GetRoot()) {
        SetAllExpanded(*root, false);
        root->SetExpanded(true);
    }
}

bool Session::HasLevels() const {
    return m_product->HasLevels();
}

const platform::ProductLevel& Session::GetLevel() const {
    return m_product->GetLevel();
}

platform::ProductLevel Session::GetHome() const {
    return platform::GetHome(m_product->GetModel());
}

SharedText Session::NameOf(const UniqueMetaObjectKey& assembly) const {
    // No object is looked for that can't be there: this is asked at each key.
    if (assembly.IsEmpty())
        return {};
    const platform::ProductModel& model = m_product->GetModel();
    if (model.root.key == assembly)
        return TitleOf(model.root);
    for (const auto* const list : {&model.objects, &model.objectsBelow}) {
        const auto found = std::ranges::find(*list, assembly, &platform::ObjectRecord::key);
        if (found != list->end())
            return TitleOf(*found);
    }
    return {};
}

std::vector<SharedText> Session::GetWay() const {
    std::vector<SharedText> names;
    for (const platform::ProductLevel& level : m_way)
        names.push_back(NameOf(level.assembly));
    return names;
}

UniqueMetaObjectKey Session::FindAssembly(const platform::TreeTableRow& row) const {
    const productTree::ProductTreeItemData* const data = row.GetData();
    if (!data || !HasLevels())
        return {};
    UniqueMetaObjectKey assembly = m_product->FindAssembly(data->GetObjectKey());
    if (assembly.IsEmpty())
        return {};
    const std::vector<UniqueMetaObjectKey> members = data->GetAllKeys();
    const bool isOne = std::ranges::all_of(members, [&](const UniqueMetaObjectKey& member) {
        return m_product->FindAssembly(member) == assembly;
    });
    return isOne ? assembly : UniqueMetaObjectKey();
}

bool Session::OpensAssembly(const platform::TreeTableRow& row) const {
    return !FindAssembly(row).IsEmpty();
}

bool Session::OpenAssembly(const platform::TreeTableRow& row) {
    const UniqueMetaObjectKey assembly = FindAssembly(row);
    if (assembly.IsEmpty())
        return false;
    m_way.push_back({assembly, false});
    return Enter(platform::ProductLevel(m_way.back()));
}

bool Session::GoBack(std::size_t entry) {
    return entry + 1 < m_way.size() && Enter(platform::ProductLevel(m_way[entry]));
}

bool Session::ShowAllParts(bool on) {
    return HasLevels() && Enter({GetLevel().assembly, on});
}

bool Session::Enter(const platform::ProductLevel& level) {
    if (!m_product->EnterLevel(level))
        return false;
    FollowLevel();
    m_frame->GetTree().Synchronize();
    return true;
}

void Session::FollowLevel() {
    const platform::ProductModel& model = m_product->GetModel();
    const platform::ProductLevel& level = m_product->GetLevel();
    std::erase_if(m_way, [&](const platform::ProductLevel& entry) {
        return !platform::IsInProduct(model, entry.assembly);
    });
    const auto known = std::ranges::find(m_way, level.assembly, &platform::ProductLevel::assembly);
    if (known != m_way.end()) {
        m_way.erase(known + 1, m_way.end());
    } else {
        m_way = {platform::GetHome(model)};
        if (!(level.assembly == m_way.front().assembly))
            m_way.push_back(level);
    }
    m_way.back().allParts = level.allParts;
}

platform::TreeTableRow* Session::FindRow(const UniqueMetaObjectKey& assembly) const {
    platform::TreeTableRow* const root = GetView().GetRoot();
    if (!root)
        return nullptr;
    std::vector<platform::TreeTableRow*> open{root};
    while (!open.empty()) {
        platform::TreeTableRow* const row = open.back();
        open.pop_back();
        if (FindAssembly(*row) == assembly)
            return row;
        for (std::size_t i = row->GetChildCount(); i > 0; --i)
            open.push_back(&row->GetChildRow(i - 1));
    }
    return nullptr;
}

bool Session::HasEmbodiments() const {
    return m_product->HasEmbodiments();
}

bool Session::IsEmbodimentMode() const {
    return m_product->IsEmbodimentMode();
}

SharedText Session::FindCountNote(const platform::TreeTableRow& row,
                                  const std::wstring& columnId) const {
    const productTree::ProductTreeItemData* const data = row.GetData();
    if (!HasEmbodiments() || !data)
        return {};
    std::set<UniqueMetaObjectKey> embodiments =
        productTree::ColumnInfo::ConvertGroupCountFromId(columnId);
    if (embodiments.empty())
        embodiments = m_product->GetCurrentEmbodiments();
    if (embodiments.size() < 2)
        return {};
    const platform::TreeTableRow* const parent = row.GetParentRow();
    const bool isInGroup = parent && parent->GetData() && parent->GetData()->IsGroup();
    // A group has its own count in the first of them.
    return m_product->MakeCountNote(
        data->IsGroup() ? *embodiments.begin()
                        : m_product->GetCountKey(data->GetObjectKey(), embodiments, isInGroup));
}

void Session::TakeMeasures(const step::Measures& measures) {
    if (const auto translated = m_file->source.Translate(m_product->GetModel(), measures))
        Write(*translated);
}

void Session::Write(const step::Measures& measures) {
    m_product->Change([&](platform::ProductModel& model) { ApplyMeasures(model, measures); });
    m_file->hasUnsavedMeasures = m_file->isProduct;
}

std::optional<ValueLimits> Session::FindLimits(const std::wstring& columnId) const {
    const IfPropertyDescription* const description = m_product->GetPropertyDescription(columnId);
    if (!description)
        return std::nullopt;
    const productTree::ColumnInfo column(description);
    const bool hasLimits = column.GetMin() != 0 || column.GetMax() != 0;
    if (!hasLimits || column.IsVariable())
        return std::nullopt;
    const auto shown = [&](double limit) -> std::optional<double> {
        if (IsNoLimit(limit, column.GetType()))
            return std::nullopt;
        return column.ApplyUnitCoefficient(limit);
    };
    return ValueLimits{shown(column.GetMin()), shown(column.GetMax())};
}

SharedText Session::TakeRefusal() {
    return m_product->TakeRefusal();
}

SharedText Session::TakeNote() {
    return m_product->TakeNote();
}

SharedText Session::GetUndoName() const {
    return m_product->GetUndoName();
}

SharedText Session::GetRedoName() const {
    return m_product->GetRedoName();
}

bool Session::CanUndo() const {
    return m_product->CanUndo();
}

bool Session::CanRedo() const {
    return m_product->CanRedo();
}

void Session::FollowCommand() {
    // An assembly that was opened by a command stands below the one that it was opened from.
    const platform::ProductLevel& level = GetLevel();
    const bool isElsewhere = !(level == m_way.back());
    if (!(level.assembly == m_way.back().assembly))
        m_way.push_back(level);
    FollowLevel();
    // What the command has chosen there.
    if (isElsewhere)
        m_frame->GetTree().SetSelectionByDoc();
}

void Session::Undo() {
    m_product->Undo();
    WriteKept();
}

void Session::Redo() {
    m_product->Redo();
    WriteKept();
}

void Session::WriteKept() {
    if (const auto kept = m_file->source.TakeKept(m_product->GetModel()))
        Write(*kept);
}

bool Session::IsModified() const {
    return m_product->IsModified() || m_file->hasUnsavedMeasures || m_file->isGone;
}

std::filesystem::path Session::GetProductPath() const {
    std::filesystem::path path = m_file->path;
    return m_file->isProduct ? path : path.replace_extension(c_productExtension);
}

std::optional<FileError> Session::SaveAs(const std::filesystem::path& path) {
    // What was written last needs no second look.
    const bool isOurs = m_file->isProduct && m_file->mark && FileMark::Take(path) == m_file->mark;
    if (auto error = isOurs ? std::nullopt : FindWhatStands(path))
        return error;
    if (auto error = store::WriteProductFile(path, m_product->MakeSaved()))
        return error;
    m_file->path = path;
    m_file->isProduct = true;
    m_file->hasUnsavedMeasures = false;
    m_file->isGone = false;
    m_file->mark = FileMark::Take(path);
    m_product->MarkSaved();
    // Documents are named as seen from the file.
    const std::filesystem::path before = m_file->documents.GetFolder();
    m_file->documents.UseFolderOf(path);
    if (m_file->documents.GetFolder() != before)
        m_frame->TellDocumentChanged(false);
    TellListeners();
    return std::nullopt;
}

std::filesystem::path Session::GetSourcePath() const {
    const std::optional<platform::SourceFile>& source = m_product->GetModel().source;
    return source ? std::filesystem::path(source->path) : std::filesystem::path();
}

SourceNews Session::NoticeSourceOnDisk() {
    const std::filesystem::path path = GetSourcePath();
    if (std::exchange(m_file->noticedSource, path) != path) {
        m_product->NoteSource(std::nullopt);
        m_file->isSourceGone = false;
    }
    if (path.empty())
        return SourceNews::None;
    const auto mark = LookAt(*m_product->GetModel().source);
    const bool wasGone = std::exchange(m_file->isSourceGone, !mark);
    if (!mark)
        return wasGone ? SourceNews::None : SourceNews::Gone;
    const bool wasChanged = m_product->IsSourceChanged();
    m_product->NoteSource(mark);
    const bool isChanged = m_product->IsSourceChanged();
    if (isChanged == wasChanged)
        return wasGone && !isChanged ? SourceNews::Agrees : SourceNews::None;
    return isChanged ? SourceNews::Changed : SourceNews::Agrees;
}

FileNews Session::NoticeChangeOnDisk() {
    if (!m_file->isProduct)
        return FileNews::None;
    std::error_code error;
    const bool wasGone =
        std::exchange(m_file->isGone, !std::filesystem::exists(m_file->path, error));
    if (m_file->isGone)
        return wasGone ? FileNews::None : FileNews::Gone;
    const std::optional<FileMark> mark = FileMark::Take(m_file->path);
    if (!mark || mark == m_file->mark)
        return FileNews::None;
    m_file->mark = mark;
    return FileNews::Changed;
}

std::optional<FileError> Session::Reload(const SharedText& stepName) {
    auto read = store::ReadProductFile(m_file->path);
    if (auto* error = std::get_if<FileError>(&read))
        return std::move(*error);
    m_product->Replace(std::get<platform::ProductModel>(std::move(read)), stepName);
    m_file->hasUnsavedMeasures = false;
    return std::nullopt;
}

} // namespace desktop
