#include "tests/support/PanelSteps.h"

#include "control/IfProductTreeCtrl.h"
#include "host/ProductProperties.h"
#include "host/frame/FeatureTrees.h"
#include "host/frame/PopupMenus.h"
#include "platform/product/answers/MemoryProduct.h"
#include "platform/product/model/AssemblyLevels.h"
#include "platform/services/UserDecisions.h"
#include "platform/services/UserPopupMenus.h"
#include "platform/view/HostFrame.h"
#include "tests/support/PanelDump.h"
#include "tests/support/RandomProduct.h"
#include "tests/support/ScriptedFiles.h"

#include <algorithm>
#include <array>
#include <random>
#include <string_view>
#include <utility>

namespace support {

namespace {

using platform::CellInput;
using platform::CellKind;
using platform::HeadKind;
using platform::MemoryProduct;
using platform::ProductModel;
using platform::TreeCell;
using platform::TreeTableRow;
using platform::TreeTableView;

template <class Items>
auto& Pick(Items& items, unsigned number) {
    return items[number % std::size(items)];
}

constexpr auto c_texts = std::to_array<const wchar_t*>(
    {L"a", L"", L"b", L"Bolt", L"2", L"x", L"1,5", L"3 m", L" a ", L"AB.1-01", L"Painted", L"-7", L"line\nbreak"});
constexpr std::array c_numbers = {0, 1, 2, 3, 5, -1, 4000};

/// Whatever is asked is answered by one number.
class NumberedDecisions final : public platform::IUserDecisions {
public:
    unsigned number = 0;

    std::optional<std::size_t> Ask(const platform::Question& question) override {
        return number % 4 == 3 ? 1 : number % 4 % question.buttons.size();
    }
    std::optional<std::filesystem::path> ChooseFile(const platform::FileRequest&) override { return {}; }
    std::vector<std::filesystem::path> ChooseFiles(const platform::FileRequest&) override {
        return {"/plant/" + std::to_string(number % 3) + ".pdf"};
    }
    std::optional<SharedText> EnterText(const platform::TextRequest&) override { return Pick(c_texts, number); }
    std::optional<UniqueMetaObjectKey> ChooseObject(const platform::ObjectRequest& request) override {
        if (request.objects.empty())
            return std::nullopt;
        return Pick(request.objects, number).key;
    }
    std::optional<platform::PropertyChoice> ChooseProperty(const platform::PropertyRequest& request) override {
        if (request.objects.empty() || request.properties.empty())
            return std::nullopt;
        return platform::PropertyChoice{Pick(request.objects, number).key, Pick(request.properties, number / 7).id};
    }
    std::optional<platform::SectionDecision> ChooseSection(const platform::SectionRequest& request) override {
        if (request.sections.empty())
            return std::nullopt;
        return platform::SectionDecision{number % request.sections.size(), number % 5 == 0};
    }
    std::optional<platform::RoughnessDecision> ChooseRoughness(const platform::RoughnessRequest& request) override {
        if (!request.refusal.IsEmpty())
            return std::nullopt;
        return platform::RoughnessDecision{number % (request.signs.size() + 1), Pick(c_texts, number)};
    }
    std::optional<platform::MaterialDecision> ChooseMaterial(const platform::MaterialRequest&) override {
        platform::MaterialDecision decision;
        decision.name = Pick(c_texts, number);
        decision.density = number % 3 == 0 ? std::optional<double>() : 1000.0 * (number % 4);
        if (number % 2)
            decision.mass = number % 5 == 0 ? std::optional<double>() : number % 7;
        return decision;
    }
    std::optional<std::vector<bool>> ChooseSeveral(const platform::ListRequest& request) override {
        std::vector<bool> lines;
        for (std::size_t i = 0; i < request.lines.size(); ++i)
            lines.push_back((number >> i % 8 & 1) != 0);
        return lines;
    }
    std::optional<std::vector<platform::ItemPropertyInput>>
    EditItemProperties(const platform::ItemPropertiesRequest& request) override {
        // Asked again with the reasons where it was refused.
        if (request.lines.empty() ||
            std::ranges::any_of(request.lines, [](const auto& line) { return !line.refusal.IsEmpty(); }))
            return std::nullopt;
        return std::vector<platform::ItemPropertyInput>{
            {number % request.lines.size(), SharedText(Pick(c_texts, number / 7))}};
    }
    std::optional<platform::DocumentTexts> EditDocument(const platform::DocumentRequest& request) override {
        if (!request.refusal.IsEmpty())
            return std::nullopt;
        return platform::DocumentTexts{Pick(c_texts, number), Pick(c_texts, number / 3), L"A4", {}};
    }
    void Tell(const SharedText&, const SharedText&) override {}
};

/// The choice is made after the menu has closed.
class Menus final : public IPopupMenuTracker {
public:
    bool Track(const IContextMenuModel& menu) override {
        for (const IContextMenuItem* const item : menu.GetItems()) {
            if (item)
                m_actions.push_back(item->GetAction());
        }
        return true;
    }
    void Choose(unsigned number) {
        const std::vector<MenuAction> actions = std::exchange(m_actions, {});
        if (!actions.empty())
            RunMenuAction(Pick(actions, number));
    }

private:
    std::vector<MenuAction> m_actions;
};

class FullWalkProduct final : public MemoryProduct {
public:
    using MemoryProduct::MemoryProduct;
    ChangedObjects GetChangedObjects(std::uint64_t) const override { return {}; }
};

/// The library keeps its menus of texts as long as it is loaded, and has none where these are missing.
class TwoNames final : public platform::IUserLists {
public:
    platform::UserListReading Read(TeeTypPopupIns) override { return {{L"Li", L"Wu"}, false, {}}; }
    SharedText Write(TeeTypPopupIns, const std::vector<SharedText>&) override { return {}; }
    void NoteUnreadable(const SharedText&) override {}
};

/// Without one nothing can be highlighted.
class DeafObserver final : public platform::IProductObserver {
public:
    void OnDocumentChanged(bool) override {}
    void OnLookChanged() override {}
    void OnSelectionChanged() override {}
    void OnHighlightChanged() override {}
};

/// A product with two panels that are told what happens to it as the program tells them.
struct World {
    World(std::shared_ptr<MemoryProduct> product, NumberedDecisions& decisions, Menus& menus)
        : m_decisions(decisions), m_menus(menus), m_first(*this, product), m_second(*this, product->MakeLook()) {
        product->SetDocumentFiles(&m_files);
    }

    void Run(const PanelStep& step);
    /// The panel knows all that has happened to the product.
    bool IsUpToDate(bool isSecond) const {
        return !Get(isSecond).owesWord && Get(isSecond).frame.GetView().IsVisible();
    }
    const platform::HostFrame& GetFrame(bool isSecond) const { return Get(isSecond).frame; }
    MemoryProduct& GetProduct(bool isSecond) const { return *Get(isSecond).product; }
    const std::optional<platform::ContentsMark>& GetOnDisk() const { return m_onDisk; }

    struct Look final : platform::IProductObserver {
        Look(World& owner, std::shared_ptr<MemoryProduct> shown)
            : world(owner), product(std::move(shown)), frame(product) {
            product->SetDecisions(&world.m_decisions);
            product->SetObserver(this);
            frame.SetDecisions(&world.m_decisions);
            frame.SetPopupMenus(&world.m_menus);
            frame.GetDocumentBox()->SetVisibleByUser(true);
        }
        ~Look() { product->SetObserver(nullptr); }

        void OnDocumentChanged(bool structure) override { world.Tell(structure); }
        void OnLookChanged() override { frame.GetTree().Synchronize(); }
        void OnSelectionChanged() override {
            if (!world.m_isSilent)
                frame.GetTree().SetSelectionByDoc();
        }
        void OnHighlightChanged() override {}

        World& world;
        std::shared_ptr<MemoryProduct> product;
        platform::HostFrame frame;
        /// Something has happened without a word to the panel.
        bool owesWord = false;
    };

    const Look& Get(bool isSecond) const { return isSecond ? m_second : m_first; }
    TreeTableView& View() const { return m_active->frame.GetView(); }
    MemoryProduct& Data() const { return *m_active->product; }
    /// Null when the panel has no rows.
    TreeTableRow* Row(unsigned number) const {
        const std::vector<TreeTableRow*> rows = ListRows(View());
        return rows.empty() ? nullptr : Pick(rows, number);
    }
    std::wstring Column(unsigned number) const {
        const auto& heads = View().GetHeads();
        return heads.empty() ? std::wstring() : Pick(heads, number).id;
    }
    UniqueMetaObjectKey Part(unsigned number) const;
    void Tell(bool structure);

    NumberedDecisions& m_decisions;
    Menus& m_menus;
    ScriptedFiles m_files;
    std::optional<platform::ContentsMark> m_onDisk;
    bool m_isSilent = false;
    Look m_first;
    Look m_second;
    Look* m_active = &m_first;
};

void World::Tell(bool structure) {
    if (m_isSilent)
        return;
    for (const Look* const look : {&m_first, &m_second})
        structure ? look->frame.GetTree().Synchronize() : look->frame.GetTree().Refresh();
}

UniqueMetaObjectKey World::Part(unsigned number) const {
    const ProductModel& model = Data().GetModel();
    std::vector<UniqueMetaObjectKey> keys = {model.root.key};
    for (const platform::ObjectRecord& object : model.objects) {
        keys.push_back(object.key);
        for (const platform::OccurrenceRecord& use : object.occurrences)
            keys.push_back(use.key);
    }
    return Pick(keys, number);
}

/// Where there is something already, the first choice is to leave that.
CellInput MakeInput(CellKind kind, unsigned number, const TreeCell* present) {
    const bool isSame = present && number % 8 == 0;
    switch (kind) {
    case CellKind::Int:
        if (number % 8 == 1)
            return {};
        return isSame ? present->GetInt() : Pick(c_numbers, number);
    case CellKind::Double:
        if (number % 8 == 1)
            return {};
        return isSame ? present->GetDouble() : 0.5 * Pick(c_numbers, number);
    case CellKind::Bool:
        return isSame ? present->GetBool() : number % 2 == 0;
    case CellKind::List:
        return platform::ListIndex{static_cast<int>(number % 4) - 1};
    default:
        return isSame ? present->GetText() : SharedText(Pick(c_texts, number));
    }
}

void EditCell(World& world, const PanelStep& step) {
    TreeTableRow* const row = world.Row(step.a);
    const std::wstring column = world.Column(step.b);
    const TreeCell* const cell = row ? row->FindCell(column) : nullptr;
    if (cell)
        world.View().EditCellByUser(*row, column, MakeInput(cell->GetKind(), step.c, cell));
}

void EditName(World& world, const PanelStep& step) {
    if (TreeTableRow* const row = world.Row(step.a))
        world.View().EditNameByUser(*row, Pick(c_texts, step.c));
}

void EditMarking(World& world, const PanelStep& step) {
    TreeTableRow* const row = world.Row(step.a);
    if (!row)
        return;
    platform::MarkingParts parts = row->GetMarking().GetParts();
    parts[step.b % 7] = step.b % 2 ? SharedText(L"-") : SharedText(Pick(c_texts, step.c));
    world.View().EditMarkingByUser(*row, parts);
}

void EditDocCode(World& world, const PanelStep& step) {
    if (step.b % 3 == 0)
        world.View().EditDocCodesByUser();
    else if (TreeTableRow* const row = world.Row(step.a))
        world.View().EditDocCodeByUser(*row);
}

void EditHead(World& world, const PanelStep& step) {
    constexpr CellKind kinds[] = {CellKind::Text, CellKind::Text, CellKind::Text, CellKind::Int, CellKind::Double,
                                  CellKind::List, CellKind::Bool, CellKind::Link, CellKind::Text};
    const std::wstring column = world.Column(step.b);
    for (const platform::ColumnHead& head : world.View().GetHeads()) {
        if (head.id == column) {
            world.View().EditHeadByUser(column, MakeInput(kinds[static_cast<int>(head.kind)], step.c, nullptr));
            return;
        }
    }
}

void EditMarkingHead(World& world, const PanelStep& step) {
    HeaderMarkingParts parts;
    const std::wstring text = Pick(c_texts, step.c);
    (step.b % 3 == 0 ? parts.base : step.b % 3 == 1 ? parts.embodimentNum : parts.code) = text;
    world.View().EditMarkingHeadByUser(parts);
}

void ClickHead(World& world, const PanelStep& step) { world.View().ClickHeadByUser(world.Column(step.b)); }

void ClickSource(World& world, const PanelStep& step) {
    if (TreeTableRow* const row = world.Row(step.a))
        world.View().ClickSourceIconByUser(*row, world.Column(step.b));
}

void ClickLink(World& world, const PanelStep& step) {
    if (TreeTableRow* const row = world.Row(step.a))
        world.View().ClickLinkByUser(*row, world.Column(step.b));
}

void ClickBox(World& world, const PanelStep& step) {
    if (TreeTableRow* const row = world.Row(step.a))
        world.View().ClickAttributeByUser(*row,
                                          step.b % 2 ? AttributeColumnRegWithDesc : AttributeColumnAggrIntoProduct);
}

void RunCommand(World& world, const PanelStep& step) {
    using namespace productTree;
    constexpr std::array commands = {PanelCommandAddObject, PanelCommandDelete,    PanelCommandCalculatePositions,
                                     PanelCommandHighlight, PanelCommandUpdateAll, PanelCommandHost};
    world.View().RunCommandByUser(Pick(commands, step.b));
}

void OpenRowMenu(World& world, const PanelStep& step) {
    TreeTableRow* const row = world.Row(step.a);
    if (row && world.View().ShowRowMenuByUser(*row, world.Column(step.b)))
        world.m_menus.Choose(step.c / 7);
}

void OpenColumnMenu(World& world, const PanelStep& step) {
    if (world.View().ShowColumnMenuByUser(world.Column(step.b)))
        world.m_menus.Choose(step.c / 7);
}

void ChooseText(World& world, const PanelStep& step) {
    TreeTableRow* const row = world.Row(step.a);
    const TreeCell* const cell = row ? row->FindCell(world.Column(step.b)) : nullptr;
    if (!cell || !cell->GetPopup() || cell->GetPopup()->GetEntryCount() == 0)
        return;
    const int command = cell->GetPopup()->GetEntry(step.c % cell->GetPopup()->GetEntryCount()).GetCommand();
    world.View().PopupCommandByUser(*row, world.Column(step.b), command);
}

void Select(World& world, const PanelStep& step) {
    std::vector<TreeTableRow*> rows;
    for (const unsigned number : {step.a, step.b, step.c}) {
        TreeTableRow* const row = number % 5 == 4 ? nullptr : world.Row(number);
        if (row && std::ranges::find(rows, row) == rows.end())
            rows.push_back(row);
    }
    world.View().SelectByUser(rows, rows.empty() ? nullptr : rows.front());
}

void Fold(World& world, const PanelStep& step) {
    if (TreeTableRow* const row = world.Row(step.a))
        row->SetExpandedByUser(step.b % 2 == 0);
}

void MoveColumn(World& world, const PanelStep& step) {
    world.View().MoveColumnByUser(world.Column(step.a), step.b % world.View().GetHeads().size());
}

void ShowColumn(World& world, const PanelStep& step) {
    const auto& entries = world.View().GetColumnEntries();
    if (!entries.empty())
        world.View().SetColumnsVisibleByUser({{Pick(entries, step.a).id, step.b % 2}});
}

void ShowBoxes(World& world, const PanelStep& step) {
    world.View().ShowAttributeColumnByUser(step.a % 2 ? AttributeColumnRegWithDesc : AttributeColumnAggrIntoProduct,
                                           step.b % 2);
}

void SwitchEmbodiments(World& world, const PanelStep& step) { world.View().SwitchEmbodimentsByUser(step.a % 2 == 0); }

void FilterEmbodiments(World& world, const PanelStep& step) {
    constexpr std::array texts = {L"", L"0", L"1-2", L"0,3-9", L"x", L"11"};
    const auto& lines = world.View().GetEmbodiments().lines;
    if (step.a % 2 == 0 || lines.empty())
        world.View().EnterEmbodimentFilterByUser(Pick(texts, step.b));
    else
        world.View().CheckEmbodimentsByUser(std::wstring(Pick(lines, step.b).text), step.c % 2 == 0);
}

void AllowEmbodiments(World& world, const PanelStep& step) { world.View().SetEmbodimentsAllowed(step.a % 3 != 0); }

void RunOnDocuments(World& world, const PanelStep& step) {
    platform::DocumentTable& table = world.m_active->frame.GetDocumentBox()->GetDocuments();
    if (table.GetRowCount() > 0)
        table.SelectByUser({step.a % table.GetRowCount()});
    if (step.b % 4 == 0) {
        table.RemoveByUser();
        return;
    }
    const auto menu = table.MakeMenu();
    if (!menu.empty())
        table.ChooseFromMenuByUser(Pick(menu, step.b / 4).command);
}

void ChangeValue(World& world, const PanelStep& step) {
    constexpr std::array paths = {L"note",      L"comment",   L"name",      L"mass",  L"position",        L"material",
                                  L"user.1001", L"user.1003", L"user.1004", L"count", L"material.density"};
    PropertyRef ref{world.Part(step.a), {}, Pick(paths, step.b), std::nullopt};
    if (ref.propertyId.Str() == L"count")
        ref.secondKey = *world.Data().GetCurrentEmbodiments().begin();
    ProductInfObjChangesResult changes;
    if (step.c % 5 == 4) {
        changes = world.Data().MakeBySourceChanges(ref, step.c % 2 == 0);
    } else {
        const unsigned long number = ProductProperties::GetPropId(ref.propertyId.Str());
        const bool isWhole = number == 1 || number == 1004;
        const bool isNumber = number == 10 || number == 9 || number == 1001;
        const SimplePropVal value = isWhole    ? SimplePropVal(static_cast<int>(step.c % 4))
                                    : isNumber ? SimplePropVal(0.25 * (step.c % 8))
                                               : SimplePropVal(SharedText(Pick(c_texts, step.c)));
        changes = world.Data().MakeValueChanges(ref, PropValue(value));
    }
    world.Data().CommitChanges(changes);
}

void ChangeModel(World& world, const PanelStep& step) {
    world.Data().Change([&](ProductModel& model) {
        if (step.b % 12 == 0)
            model.isReadOnly = !model.isReadOnly;
        else if (step.b % 12 == 1)
            model.isSimplified = !model.isSimplified;
        else if (step.b % 12 == 2)
            model.isRegWithDescShown = model.isAggrIntoProductShown = !model.isAggrIntoProductShown;
        if (model.objects.empty())
            return;
        platform::ObjectRecord& object = Pick(model.objects, step.a);
        switch (step.b % 12) {
        case 3:
            object.iconType = static_cast<int>(step.c % 27);
            break;
        case 4:
            object.isActual = !object.isActual;
            break;
        case 5:
            object.section.numbers[0] = step.c % 2 ? 25 : 20;
            break;
        case 6:
            object.lockedMarkingParts = {static_cast<int>(step.c % 7) + 1};
            break;
        case 7:
            object.readOnlyProperties = {1 + step.c % 11};
            break;
        case 8:
            object.volume = 0.001 * (1 + step.c % 3);
            break;
        case 9:
            object.isExcludedFromCount = !object.isExcludedFromCount;
            break;
        case 10:
            object.part.attributes.separate = !object.part.attributes.separate;
            break;
        case 11:
            object.isNameLinkedToSection = !object.isNameLinkedToSection;
            break;
        default:
            break;
        }
    });
}

void DeletePart(World& world, const PanelStep& step) { world.Data().DeleteObjects({world.Part(step.a)}); }

void AddDocument(World& world, const PanelStep& step) {
    world.Data().AddDocumentFiles(world.Part(step.a), {"/plant/" + std::to_string(step.b % 3) + ".pdf"});
}

void NoteSource(World& world, const PanelStep& step) {
    world.m_onDisk = step.a % 3 == 0 ? std::nullopt : std::optional(platform::ContentsMark{step.a % 3, 1});
    world.Data().NoteSource(world.m_onDisk);
}

void EnterLevel(World& world, const PanelStep& step) {
    const ProductModel& model = world.Data().GetModel();
    if (model.assemblies.empty())
        return;
    // One that has gone is kept for undo, and nobody gets there.
    const UniqueMetaObjectKey assembly = Pick(model.assemblies, step.a).object;
    if (IsInProduct(model, assembly))
        world.Data().EnterLevel({assembly, step.b % 3 == 0});
    world.m_active->frame.GetTree().Synchronize();
}

void Undo(World& world, const PanelStep&) { world.Data().Undo(); }

void Redo(World& world, const PanelStep&) { world.Data().Redo(); }

void BeSilent(World& world, const PanelStep& step) { world.m_isSilent = step.a % 2 == 0; }

/// Late, and all at once. Values alone are told of where rows have changed, too: by a host that knows no
/// better.
void TellAll(World& world, const PanelStep& step) {
    world.m_isSilent = false;
    const bool structure = step.a % 4 < 2;
    for (World::Look* const look : {&world.m_first, &world.m_second})
        look->owesWord &= !structure && look->product->IsRebuildRequired();
    if (step.a % 2 == 0)
        world.Tell(structure);
    else
        world.m_first.frame.TellDocumentChanged(structure);
}

void Hide(World& world, const PanelStep& step) { world.m_active->frame.GetTree().SetVisible(step.a % 3 == 0, false); }

// clang-format off
constexpr struct {
    const char* name;
    void (*act)(World& world, const PanelStep& step);
} c_actions[] = {
    {"cell", &EditCell},
    {"cell", &EditCell},
    {"cell", &EditCell},
    {"name", &EditName},
    {"designation", &EditMarking},
    {"document code", &EditDocCode},
    {"head", &EditHead},
    {"designation head", &EditMarkingHead},
    {"click head", &ClickHead},
    {"source", &ClickSource},
    {"link", &ClickLink},
    {"box", &ClickBox},
    {"command", &RunCommand},
    {"row menu", &OpenRowMenu},
    {"row menu", &OpenRowMenu},
    {"column menu", &OpenColumnMenu},
    {"popup", &ChooseText},
    {"select", &Select},
    {"fold", &Fold},
    {"move column", &MoveColumn},
    {"show column", &ShowColumn},
    {"show boxes", &ShowBoxes},
    {"embodiment mode", &SwitchEmbodiments},
    {"embodiment filter", &FilterEmbodiments},
    {"allow embodiments", &AllowEmbodiments},
    {"documents", &RunOnDocuments},
    {"value", &ChangeValue},
    {"value", &ChangeValue},
    {"model", &ChangeModel},
    {"delete", &DeletePart},
    {"add document", &AddDocument},
    {"note source", &NoteSource},
    {"level", &EnterLevel},
    {"undo", &Undo},
    {"undo", &Undo},
    {"redo", &Redo},
    {"silent", &BeSilent},
    {"tell", &TellAll},
    {"tell", &TellAll},
    {"tell", &TellAll},
    {"tell", &TellAll},
    {"hide", &Hide},
};
// clang-format on

void World::Run(const PanelStep& step) {
    m_active = step.isSecond ? &m_second : &m_first;
    m_active->frame.Activate();
    m_decisions.number = step.c;
    const std::uint64_t stamp = m_first.product->GetChangeStamp();
    const auto action =
        std::ranges::find(c_actions, std::string_view(step.what), [](const auto& one) { return one.name; });
    if (action != std::end(c_actions))
        action->act(*this, step);
    const bool isUntold = m_isSilent && stamp != m_first.product->GetChangeStamp();
    m_first.owesWord |= isUntold;
    m_second.owesWord |= isUntold;
}

/// The lines that differ, and where; empty for none.
std::string Compare(const char* what, const std::vector<std::string>& lines, const std::vector<std::string>& others) {
    for (std::size_t i = 0; i < std::max(lines.size(), others.size()); ++i) {
        const std::string line = i < lines.size() ? lines[i] : "nothing";
        const std::string other = i < others.size() ? others[i] : "nothing";
        if (line != other)
            return std::string(what) + ", line " + std::to_string(i) + ":\n  " + line + "\n  " + other;
    }
    return {};
}

/// The panel against one that is made anew, on a product that is.
std::string CompareWithFresh(const World& world, bool isSecond) {
    const TreeTableView& view = world.GetFrame(isSecond).GetView();
    ScriptedFiles files;
    DeafObserver observer;
    NumberedDecisions decisions;
    const auto product = std::make_shared<MemoryProduct>(world.GetProduct(isSecond).GetModel());
    product->SetObserver(&observer);
    product->SetDecisions(&decisions);
    product->SetDocumentFiles(&files);
    product->NoteSource(world.GetOnDisk());
    const platform::HostFrame frame(product);
    TreeTableView& fresh = frame.GetView();
    frame.GetDocumentBox()->SetVisibleByUser(true);
    platform::DocumentTable& documents = frame.GetDocumentBox()->GetDocuments();
    fresh.SetEmbodimentsAllowed(view.GetEmbodiments().areAllowed);
    // Commands and documents are those of the selected rows.
    const std::vector<TreeTableRow*> rows = ListRows(view);
    const std::vector<TreeTableRow*> freshRows = ListRows(fresh);
    std::vector<TreeTableRow*> selected;
    for (std::size_t i = 0; i < std::min(rows.size(), freshRows.size()); ++i) {
        if (rows[i]->IsSelected())
            selected.push_back(freshRows[i]);
    }
    fresh.SelectByUser(selected, nullptr);
    documents.SelectByUser(world.GetFrame(isSecond).GetDocumentBox()->GetDocuments().GetSelection());
    const PanelDump shown = DumpPanel(world.GetFrame(isSecond));
    const PanelDump made = DumpPanel(frame);
    const std::string fault = Compare("other rows than a fresh panel", shown.rows, made.rows);
    return fault.empty() ? Compare("other controls than a fresh panel", shown.rest, made.rest) : fault;
}

/// Rows that stand where they stood and show something else must have been told of.
std::string FindUntold(const PanelDump& before, const PanelDump& now, const platform::TreeTableChanges& changes,
                       const TreeTableView& view) {
    if (changes.rows || before.rows.size() != now.rows.size() || (changes.values && changes.valueRows.empty()))
        return {};
    const std::vector<TreeTableRow*> rows = ListRows(view);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (before.rows[i] != now.rows[i] && std::ranges::find(changes.valueRows, rows[i]) == changes.valueRows.end())
            return "the front end was not told:\n  " + before.rows[i] + "\n  " + now.rows[i];
    }
    return {};
}

/// In which order objects lie that nobody sees follows from who was asked between two levels.
bool AreSame(ProductModel a, ProductModel b) {
    for (ProductModel* const model : {&a, &b})
        std::ranges::sort(model->objectsBelow, {}, [](const auto& object) { return object.key.String(); });
    return a == b;
}

/// The two worlds of one product.
class Stage {
public:
    explicit Stage(ProductModel model)
        : m_world(std::make_shared<MemoryProduct>(model), m_decisions, m_menus),
          m_twin(std::make_shared<FullWalkProduct>(model), m_decisions, m_menus) {
        for (const bool isSecond : {false, true})
            m_before[isSecond] = TakeDump(isSecond);
    }

    /// What is wrong; empty for nothing.
    std::string Run(const PanelStep& step) {
        m_world.Run(step);
        m_twin.Run(step);
        if (!AreSame(m_world.GetProduct(false).GetModel(), m_twin.GetProduct(false).GetModel()))
            return "the products differ";
        for (const bool isSecond : {false, true}) {
            const std::string fault = Check(isSecond);
            if (!fault.empty())
                return (isSecond ? "in the second panel " : "") + fault;
        }
        return {};
    }

private:
    PanelDump TakeDump(bool isSecond) {
        m_world.GetFrame(isSecond).GetView().TakeChanges();
        m_twin.GetFrame(isSecond).GetView().TakeChanges();
        return DumpPanel(m_world.GetFrame(isSecond));
    }
    std::string Check(bool isSecond) {
        TreeTableView& view = m_world.GetFrame(isSecond).GetView();
        TreeTableView& twin = m_twin.GetFrame(isSecond).GetView();
        const platform::TreeTableChanges changes = view.TakeChanges();
        const std::string told = DumpChanges(view, changes);
        const std::string twinTold = DumpChanges(twin, twin.TakeChanges());
        const PanelDump now = DumpPanel(m_world.GetFrame(isSecond));
        const PanelDump twinNow = DumpPanel(m_twin.GetFrame(isSecond));
        const PanelDump before = std::exchange(m_before[isSecond], now);
        const std::string faults[] = {Compare("other rows than a full walk", now.rows, twinNow.rows),
                                      Compare("other controls than a full walk", now.rest, twinNow.rest),
                                      Compare("other folds or selection than a full walk", now.own, twinNow.own),
                                      Compare("other news than a full walk", {told}, {twinTold}),
                                      FindUntold(before, now, changes, view),
                                      m_world.IsUpToDate(isSecond) ? CompareWithFresh(m_world, isSecond) : ""};
        const auto fault = std::ranges::find_if_not(faults, &std::string::empty);
        return fault == std::end(faults) ? std::string() : *fault;
    }

    TwoNames m_names;
    platform::UserListsSlot m_nameSlot{m_names};
    NumberedDecisions m_decisions;
    platform::UserDecisionsSlot m_decisionSlot{m_decisions};
    Menus m_menus;
    World m_world;
    World m_twin;
    PanelDump m_before[2];
};

} // namespace

PanelRun MakePanelRun(unsigned seed, unsigned steps) {
    std::mt19937 random(seed);
    PanelRun run{seed, 2 + static_cast<unsigned>(random()) % (seed % 5 == 0 ? 39 : 12), {}};
    while (run.steps.size() < steps) {
        PanelStep step;
        step.what = Pick(c_actions, static_cast<unsigned>(random())).name;
        for (unsigned* const number : {&step.a, &step.b, &step.c})
            *number = static_cast<unsigned>(random()) % 1000;
        step.isSecond = random() % 5 == 0;
        run.steps.push_back(step);
    }
    return run;
}

std::optional<std::string> FindDifference(const PanelRun& run) {
    Stage stage(MakeRandomProduct(run.seed, run.objects));
    for (std::size_t i = 0; i < run.steps.size(); ++i) {
        const std::string fault = stage.Run(run.steps[i]);
        if (!fault.empty())
            return "after step " + std::to_string(i + 1) + " " + fault;
    }
    return std::nullopt;
}

PanelRun Shrink(PanelRun run, const std::function<bool(const PanelRun&)>& fails) {
    const auto take = [&](PanelRun smaller) {
        const bool isTaken = fails(smaller);
        if (isTaken)
            run = std::move(smaller);
        return isTaken;
    };
    bool isSmaller = true;
    while (std::exchange(isSmaller, false)) {
        for (std::size_t length = std::max<std::size_t>(run.steps.size() / 2, 1); length > 0; length /= 2) {
            for (std::size_t end = run.steps.size(); end >= length; --end) {
                PanelRun smaller = run;
                const auto begin = smaller.steps.begin() + static_cast<std::ptrdiff_t>(end - length);
                smaller.steps.erase(begin, begin + static_cast<std::ptrdiff_t>(length));
                isSmaller |= take(std::move(smaller));
                end = std::min(end, run.steps.size() + 1);
            }
        }
        for (unsigned objects = 1; objects < run.objects; ++objects) {
            if (take({run.seed, objects, run.steps}))
                isSmaller = true;
        }
    }
    // Numbers that make no difference are 0.
    for (std::size_t i = 0; i < run.steps.size(); ++i) {
        for (unsigned PanelStep::*const number : {&PanelStep::a, &PanelStep::b, &PanelStep::c}) {
            PanelRun simpler = run;
            if (std::exchange(simpler.steps[i].*number, 0) != 0)
                take(std::move(simpler));
        }
    }
    return run;
}

std::string ToText(const PanelRun& run) {
    std::string text = "{" + std::to_string(run.seed) + ", " + std::to_string(run.objects) + ", {\n";
    for (const PanelStep& step : run.steps) {
        text += std::string("    {\"") + step.what + "\"";
        for (const unsigned number : {step.a, step.b, step.c})
            text += ", " + std::to_string(number);
        text += step.isSecond ? ", true},\n" : "},\n";
    }
    return text + "}}";
}

} // namespace support
