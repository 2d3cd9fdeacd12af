// What the product takes for a row is what the panel shows, for products of every kind, made by
// number. The environment variable PRODUCT_TREE_SEEDS says how many are tried.
#include "platform/product/index/RowRules.h"

#include "host/ProductProperties.h"
#include "items/ProductTreeItemData.h"
#include "items/ProductTreeItemImpl.h"
#include "platform/product/model/PropertyNumbers.h"
#include "tests/library/PanelTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

namespace {

using platform::ObjectRecord;
using platform::OccurrenceRecord;
using platform::PartRecord;
using platform::ProductModel;
using platform::TreeTableRow;
using support::Key;

unsigned SeedCount() {
    const char* const count = std::getenv("PRODUCT_TREE_SEEDS");
    return count ? static_cast<unsigned>(std::strtoul(count, nullptr, 10)) : 400;
}

class Maker {
public:
    explicit Maker(unsigned seed) : m_random(seed) {}

    ProductModel Make() {
        ProductModel& model = m_model;
        model.root.key = Key("root");
        model.visibleProperties = {platform::number::position, platform::number::count};
        model.areSectionRowsShown = !OneIn(4);
        if (OneIn(2))
            MakeStyle();
        const int embodiments = OneIn(3) ? 2 : 0;
        for (int i = 0; i < embodiments; ++i)
            model.embodiments.push_back({Key("e" + std::to_string(i)), {}});
        if (embodiments > 0 && OneIn(3))
            model.currentEmbodiments = {Key("e1")};
        const int count = Below(9) + 1;
        for (int i = 0; i < count; ++i)
            AddObject(i);
        return std::move(model);
    }

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool OneIn(int times) { return Below(times) == 0; }

private:
    void MakeStyle() {
        platform::StyleRecord style;
        style.isAvailable = !OneIn(8);
        style.isTuned = !OneIn(8);
        style.sortBySections = !OneIn(5);
        style.addBlocks = OneIn(3);
        style.blocks = {{1, L"Block", !OneIn(3), {25}}};
        for (const int number : {5, 20, 25}) {
            platform::StyleSectionRecord section{number, std::to_wstring(number), {}, {}, {}, {}};
            section.isTuned = !OneIn(6);
            section.addBlocks = OneIn(2);
            if (OneIn(2))
                section.blocks = {{1, L"B1", !OneIn(3), {}}, {2, L"B2", true, {}}};
            style.sections.push_back(section);
            if (OneIn(3))
                break;
        }
        m_model.style = std::move(style);
    }

    void FillPart(PartRecord& part) {
        constexpr int kinds[] = {PartKindDetail, PartKindStandard, PartKindAssembly,
                                 PartKindOther,  PartKindDocument, PartKindFeature};
        part.kind = kinds[OneIn(3) ? Below(6) : 0];
        part.isPhantom = OneIn(15);
        part.hasHandler = !OneIn(12);
        part.part.used = meta_data::SPUsed(OneIn(5)   ? std::vector<int>{2}
                                           : OneIn(8) ? std::vector<int>{}
                                                      : std::vector<int>{1});
        part.part.attributes.inProduct = !OneIn(10);
        part.part.attributes.separate = OneIn(6);
        part.part.attributes.hiddenA = OneIn(15);
        part.part.attributes.hiddenB = OneIn(15);
        if (OneIn(12))
            part.calculatedInProduct = OneIn(2);
    }

    void AddObject(int number) {
        ObjectRecord object;
        object.key = Key("o" + std::to_string(number));
        FillPart(object);
        const std::wstring name(1, static_cast<wchar_t>(L'a' + Below(2)));
        object.name = name;
        constexpr int sections[] = {5, 20, 25, 25, 40};
        object.section.numbers[0] = sections[Below(5)];
        if (OneIn(3))
            object.section.numbers[5] = Below(3);
        if (OneIn(8))
            object.section = {};
        if (!(object.section.numbers[0] == 25 && OneIn(2)))
            object.marking.SetBase(L"D" + name);
        object.keepsOwnPosition = OneIn(8);
        if (OneIn(8))
            object.readOnlyProperties = {platform::number::position};
        if (OneIn(3))
            object.properties.emplace_back(platform::number::position, PropValue(SimplePropVal(Below(20) + 1)));
        if (number > 0 && OneIn(10))
            object.links = {{platform::number::position, Key("o0"), platform::number::position}};
        if (number > 0 && OneIn(6)) {
            object.billet = OneIn(2) ? platform::BilletKind::Manual : platform::BilletKind::Associative;
            object.billetOwner = Key("o" + std::to_string(Below(number)));
        }
        if (number > 0 && OneIn(12))
            object.groupKey = Key("o" + std::to_string(Below(number)));
        const int uses = Below(4);
        for (int i = 1; i <= uses; ++i) {
            OccurrenceRecord use;
            static_cast<PartRecord&>(use) = object;
            if (OneIn(3))
                FillPart(use);
            use.key = Key(object.key.String() + "#" + std::to_string(i));
            use.properties.clear();
            use.links.clear();
            use.isShown = !OneIn(10);
            if (!m_model.embodiments.empty() && OneIn(2))
                use.embodiments = {m_model.embodiments[static_cast<std::size_t>(Below(2))].key};
            object.occurrences.push_back(std::move(use));
        }
        m_model.objects.push_back(std::move(object));
    }

    std::mt19937 m_random;
    ProductModel m_model;
};

/// What one row of an object stands for, and the number of the row that shows it with others.
struct ShownRow {
    UniqueMetaObjectKey key;
    int group;
};

std::vector<ShownRow> ListRows(const Panel& panel) {
    std::vector<ShownRow> rows;
    int groups = 0;
    const auto visit = [&](auto&& self, const TreeTableRow& row, int group) -> void {
        const auto* const item = row.GetData() ? row.GetData()->GetImpl().get() : nullptr;
        const bool isGroup = item && item->IsGroup();
        const int own = isGroup ? ++groups : group;
        if (row.GetParentRow() && !row.IsSection() && !isGroup)
            rows.push_back({item->GetObjectKey(), group});
        for (std::size_t i = 0; i < row.GetChildCount(); ++i)
            self(self, row.GetChildRow(i), own);
    };
    if (const TreeTableRow* const root = panel.View().GetRoot())
        visit(visit, *root, 0);
    return rows;
}

std::multiset<std::string> KeysOf(const std::vector<ShownRow>& rows) {
    std::multiset<std::string> keys;
    for (const ShownRow& row : rows)
        keys.insert(row.key.String());
    return keys;
}

TEST(RowRules, AreThoseOfThePanel) {
    for (unsigned seed = 1; seed <= SeedCount(); ++seed) {
        const Panel panel(Maker(seed).Make());
        const ProductModel& model = panel.data->GetModel();
        platform::ProductIndex index;
        index.Rebuild(model);
        const platform::RowRules rules(model, index);
        const std::vector<ShownRow> rows = ListRows(panel);
        const std::multiset<std::string> shown = KeysOf(rows);

        std::size_t expected = 0;
        for (const platform::PartEntry& object : index.GetObjects())
            expected += rules.CountRows(object);
        ASSERT_EQ(rows.size(), expected) << seed;
        for (const platform::PartEntry& use : index.GetUses()) {
            const bool isManual = use.object->record->billet == platform::BilletKind::Manual;
            ASSERT_EQ(shown.contains(use.key.String()), !isManual && rules.HasRow(use))
                << seed << " " << use.key.String();
        }
        // Whatever shares a row is one to counts and positions, and nothing else is.
        for (const ShownRow& a : rows) {
            for (const ShownRow& b : rows) {
                const platform::PartEntry& first = *index.Find(a.key)->owner;
                const platform::PartEntry& second = *index.Find(b.key)->owner;
                const auto mates = rules.GetRowMates(first);
                const bool areMates = std::ranges::find(mates, &second) != mates.end();
                if (&first == &second)
                    continue;
                ASSERT_EQ(a.group != 0 && a.group == b.group, areMates)
                    << seed << " " << a.key.String() << " " << b.key.String();
            }
        }
    }
}

TEST(RowRules, NumberingTwiceChangesNothingTheSecondTime) {
    constexpr int numbering = 7766;
    for (unsigned seed = 1; seed <= SeedCount(); ++seed) {
        const Panel panel(Maker(seed).Make());
        panel.View().RunCommandByUser(numbering);
        const ProductModel numbered = panel.data->GetModel();
        const std::uint64_t stamp = panel.data->GetChangeStamp();
        panel.View().RunCommandByUser(numbering);
        ASSERT_EQ(panel.data->GetChangeStamp(), stamp) << seed;
        ASSERT_TRUE(panel.data->GetModel() == numbered) << seed;
        for (const ShownRow& row : ListRows(panel)) {
            if (!panel.data->CanSetPosition(row.key))
                continue;
            const PropValue position = panel.data->GetValue({row.key, {}, L"position", {}});
            ASSERT_FALSE(position.IsEmpty() && row.group == 0) << seed << " " << row.key.String();
        }
    }
}

TEST(RowRules, ADeletionCountsTheRowsThatGo) {
    for (unsigned seed = 1; seed <= SeedCount(); ++seed) {
        Maker maker(seed);
        ProductModel model = maker.Make();
        // Who speaks for others takes their attributes along, and perhaps their rows.
        for (ObjectRecord& object : model.objects)
            object.groupKey = {};
        const Panel panel(std::move(model));
        const std::vector<ShownRow> rows = ListRows(panel);
        if (rows.empty())
            continue;
        const UniqueMetaObjectKey key = rows[static_cast<std::size_t>(maker.Below(static_cast<int>(rows.size())))].key;
        const UniqueMetaObjectKey owner = panel.data->GetAggregator().GetOwnerObject(key);
        const UniqueMetaObjectKey object = owner.IsEmpty() ? key : owner;
        const int count = *panel.data->GetDeleteInfo({object}).count;
        panel.data->DeleteObjects({object});
        panel.Tree().Synchronize();
        const auto before = KeysOf(rows);
        const auto after = KeysOf(ListRows(panel));
        std::vector<std::string> gone;
        std::ranges::set_difference(before, after, std::back_inserter(gone));
        // A billet that lost its place by it is still there.
        std::erase_if(gone, [&](const std::string& row) { return panel.data->CanDelete(Key(row)); });
        ASSERT_EQ(count, static_cast<int>(gone.size())) << seed << " " << object.String();
    }
}

} // namespace
