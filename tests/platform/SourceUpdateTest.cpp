// Imported products that are brought up to date. A product is written as
// "car: axle*2 wheel | axle: wheel*2 tube", as an export that begins to number at any number.
#include "platform/product/edits/SourceUpdate.h"

#include "host/ProductProperties.h"
#include "host/data/ProductInfObjChangesResult.h"
#include "platform/product/answers/MemoryProduct.h"
#include "platform/product/answers/SourceFiles.h"
#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/model/PropertyNumbers.h"
#include "platform/product/model/SourceProduct.h"
#include "platform/product/validation/ProductValidation.h"
#include "platform/services/UserDecisions.h"
#include "platform/values/Utf8.h"
#include "tests/support/ProductBuilder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <rapidcheck/gtest.h>
#include <sstream>

namespace {

using namespace platform;

constexpr const char* c_car = "car: axle*2 wheel | axle: wheel*2 tube";

UniqueMetaObjectKey Numbered(const char* stem, int number) {
    return UniqueMetaObjectKey(stem + std::to_string(number));
}

ProductModel Import(const std::string& text, int number = 1) {
    ProductModel model;
    std::map<std::string, UniqueMetaObjectKey> keys;
    const auto take = [&](const std::string& name) {
        const auto [known, isNew] = keys.try_emplace(name, Numbered("product", number));
        if (isNew) {
            ObjectRecord& object = model.objectsBelow.emplace_back();
            object.key = known->second;
            object.part.used = meta_data::SPUsed({model.styleId});
            object.section.numbers[0] = 20;
            // "X'" is a twin of X.
            const std::wstring title = *FromUtf8(name.substr(0, name.find('\'')));
            TakeOver(object, {title, title, {}, {}});
            ++number;
        }
        return known->second;
    };
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line, '|');) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        model.assemblies.push_back({take(word.substr(0, word.find(':'))), {}, {}, {}});
        while (words >> word) {
            const std::size_t star = word.find('*');
            ObjectRecord standing;
            standing.key = take(word.substr(0, star));
            for (int i = star == std::string::npos ? 1 : std::stoi(word.substr(star + 1)); i > 0; --i) {
                OccurrenceRecord& use = standing.occurrences.emplace_back();
                use.key = Numbered("use", number++);
                use.part.used = meta_data::SPUsed({model.styleId});
            }
            model.assemblies.back().components.push_back(std::move(standing));
        }
    }
    model.source = SourceFile{"/parts/car.stp", {text.size(), std::hash<std::string>()(text)}, {}, {}};
    model.properties.emplace_back().number = 1000;
    TakeAllOut(model);
    return model;
}

const ObjectRecord* Find(const ProductModel& model, const std::wstring& name) {
    for (const auto* const list : {&model.objects, &model.objectsBelow}) {
        const auto found =
            std::ranges::find_if(*list, [&](const ObjectRecord& object) { return object.name.Str() == name; });
        if (found != list->end())
            return &*found;
    }
    return nullptr;
}

std::string NameOf(const ProductModel& model, const UniqueMetaObjectKey& key) {
    for (const auto* const list : {&model.objects, &model.objectsBelow}) {
        const auto found = std::ranges::find(*list, key, &ObjectRecord::key);
        if (found != list->end())
            return ToUtf8(found->name.Str());
    }
    return ToUtf8(model.root.name.Str());
}

/// As Import takes it, assemblies and components in the order of their names.
std::string Structure(const ProductModel& model) {
    std::map<std::string, std::map<std::string, std::size_t>> assemblies;
    const auto add = [&](const UniqueMetaObjectKey& assembly, const std::vector<ObjectRecord>& components) {
        for (const ObjectRecord& component : components)
            assemblies[NameOf(model, assembly)][NameOf(model, component.key)] += component.occurrences.size();
    };
    if (!HasLevels(model))
        add(model.root.key, model.objects);
    for (const AssemblyRecord* const assembly : SortAssemblies(model, model.root.key))
        add(assembly->object, GetComponents(model, *assembly));
    std::string text;
    for (const auto& [assembly, components] : assemblies) {
        text += (text.empty() ? "" : " | ") + assembly + ":";
        for (const auto& [name, count] : components)
            text += " " + name + (count == 1 ? "" : "*" + std::to_string(count));
    }
    return text;
}

std::string ListGone(const SourceUpdate& update) {
    std::string text;
    for (const GonePart& gone : update.gone)
        text += ToUtf8(gone.part.Str()) + (gone.assembly.IsEmpty() ? "" : "@" + ToUtf8(gone.assembly.Str())) + " ";
    return text;
}

TEST(SourceUpdates, FollowTheFileWhateverItsNumbersAre) {
    const struct {
        const char* file;
        int number;
        const char* gone;
        std::size_t newParts;
        const char* kept;
    } cases[] = {
        {c_car, 1, "", 0, "axle: tube wheel*2 | car: axle*2 wheel"},
        {"car: axle*2 wheel | axle: tube wheel*2", 500, "", 0, "axle: tube wheel*2 | car: axle*2 wheel"},
        {"car: axle*3 wheel lamp*2 | axle: wheel*2 tube", 9, "", 1, "axle: tube wheel*2 | car: axle*3 lamp*2 wheel"},
        {"car: axle | axle: wheel tube", 70, "wheel@car ", 0, "axle: tube wheel | car: axle wheel"},
        {"car: wheel*4", 30, "axle tube ", 0, "axle: tube wheel*2 | car: axle*2 wheel*4"},
        {"CAR: Axle*2 WHEEL | Axle: WHEEL*2 Tube", 90, "", 0, "Axle: Tube WHEEL*2 | CAR: Axle*2 WHEEL"},
        // Another name for what is built up of the same parts, and for what has kept its numbers.
        {"car: front*2 wheel | front: wheel*2 tube", 1000, "", 0, "car: front*2 wheel | front: tube wheel*2"},
        {"car: axle*2 hub | axle: hub*2 tube", 1, "", 0, "axle: hub*2 tube | car: axle*2 hub"},
        {"car: axle*2 wheel | axle: wheel*2 tube | tube: pin", 1, "", 1,
         "axle: tube wheel*2 | car: axle*2 wheel | tube: pin"},
    };
    const ProductModel present = Import(c_car);
    for (const auto& sample : cases) {
        const ProductModel fresh = Import(sample.file, sample.number);
        const SourceUpdate update = UpdateFromSource(present, fresh, GoneParts::Remove);
        EXPECT_EQ(Structure(update.model), Structure(fresh)) << sample.file;
        EXPECT_EQ(ListGone(update), sample.gone) << sample.file;
        EXPECT_EQ(update.newParts, sample.newParts) << sample.file;
        EXPECT_EQ(update.model.root.key, present.root.key);
        const SourceUpdate kept = UpdateFromSource(present, fresh, GoneParts::Keep);
        EXPECT_EQ(Structure(kept.model), sample.kept) << sample.file;
        for (const ProductModel* const model : {&update.model, &kept.model}) {
            const auto fault = ValidateModel(*model);
            EXPECT_FALSE(fault) << sample.file << ": " << fault->path << ": " << fault->reason;
        }
    }
}

TEST(SourceUpdates, KeepWhatTheUserHasGivenAndFollowWhatHeHasNot) {
    ProductModel present = Import("car: disc tube wheel wheel'*2");
    for (ObjectRecord& object : present.objects)
        object.volume = 2;
    TakeOver(present.objects[0], {L"D-1", L"disc", L"Steel", 7850});
    present.objects[0].properties.emplace_back(number::mass, PropValue(SimplePropVal(7850.0 * 2)));
    present.objects[1].name = L"My tube";
    present.objects[1].counts.push_back({present.root.key, L"5"});
    ProductModel fresh = Import("car: disc tube wheel wheel'*3", 40);
    fresh.source->contents.hash = 1;
    fresh.objects[0].kind = PartKindStandard;
    fresh.objects[0].section.numbers[0] = 25;
    TakeOver(fresh.objects[0], {L"D-2", L"disc", L"Aluminium", 2700});
    TakeOver(fresh.objects[1], {L"tube", L"pipe", {}, {}});

    const ProductModel model = UpdateFromSource(present, fresh, GoneParts::Remove).model;
    const ObjectRecord& disc = model.objects[0];
    EXPECT_EQ(disc.key, present.objects[0].key);
    EXPECT_EQ(disc.marking.GetBase().Str(), L"D-2");
    EXPECT_EQ(disc.section.numbers[0], 25);
    EXPECT_EQ(disc.properties.back(), std::pair(number::mass, PropValue(SimplePropVal(2700.0 * 2))));
    EXPECT_EQ(model.objects[1].name.Str(), L"My tube");
    EXPECT_EQ(model.objects[1].source->name.Str(), L"pipe");
    EXPECT_EQ(model.objects[1].counts, present.objects[1].counts);
    EXPECT_EQ(model.objects[3].occurrences.size(), 3U) << "twins keep their order";
}

/// Assemblies "a" to "d" and parts "e" to "h", of which each uses only what comes behind it.
std::string Structure() {
    std::string text;
    std::string used = "a";
    for (char assembly = 'a'; assembly <= 'd'; ++assembly) {
        if (used.find(assembly) == std::string::npos)
            continue;
        text += (text.empty() ? "" : " | ") + std::string(1, assembly) + ":";
        for (char part = static_cast<char>(assembly + 1); part <= 'h'; ++part) {
            const int count = part == 'h' ? 1 : *rc::gen::inRange(0, 4);
            if (count > 0)
                text += " " + std::string(1, part) + "*" + std::to_string(count);
            used += count > 0 ? part : ' ';
        }
    }
    return text;
}

RC_GTEST_PROP(SourceUpdates, ToAnotherFileAndBackLoseNothingThatBothHave, ()) {
    ProductModel first = Import(Structure(), *rc::gen::inRange(1, 50));
    const ProductModel second = Import(Structure(), *rc::gen::inRange(1, 50));
    for (auto* const list : {&first.objects, &first.objectsBelow}) {
        for (ObjectRecord& object : *list)
            object.properties.emplace_back(1000, PropValue(SimplePropVal(object.name)));
    }
    RC_ASSERT(UpdateFromSource(first, first, GoneParts::Keep).model == first);
    const ProductModel there = UpdateFromSource(first, second, GoneParts::Remove).model;
    const ProductModel back = UpdateFromSource(there, first, GoneParts::Remove).model;
    RC_ASSERT(Structure(there) == Structure(second));
    RC_ASSERT(Structure(back) == Structure(first));
    RC_ASSERT(!ValidateModel(there));
    for (const std::wstring name : {L"b", L"c", L"d", L"e", L"f", L"g", L"h"}) {
        const ObjectRecord* const before = Find(first, name);
        if (before && Find(second, name)) {
            RC_ASSERT(Find(back, name)->properties == before->properties);
        }
    }
    const ProductModel kept = UpdateFromSource(first, second, GoneParts::Keep).model;
    const auto fault = ValidateModel(kept);
    if (fault)
        RC_FAIL(fault->path + ": " + fault->reason);
}

/// Files that a test writes.
class Files final : public ISourceFiles {
public:
    std::variant<ProductModel, SharedText> Read(const ProductModel&) override {
        if (content.empty())
            return SharedText(L"no such file");
        return Import(content, 200);
    }
    void OnUpdated(const SourceUpdate&) override { ++updates; }
    bool IsThere(const SourceFile&) const override { return !content.empty(); }
    bool Open(const SourceFile& source) override { return opened = source.path, true; }

    std::string content, opened;
    int updates = 0;
};

class Sources : public testing::Test {
protected:
    Sources() {
        m_product.SetSourceFiles(&m_files);
        m_product.SetDecisions(&m_user);
    }
    void Write(const char* content) {
        m_files.content = content;
        m_product.NoteSource(Import(content).source->contents);
    }
    UniqueMetaObjectKey KeyOf(const std::wstring& name) const { return Find(m_product.GetModel(), name)->key; }
    std::string Now() const { return ::Structure(m_product.MakeSaved()); }

    Files m_files;
    ScriptedDecisions m_user;
    MemoryProduct m_product{Import(c_car)};
};

TEST_F(Sources, MakeTheirRowsOutOfDateUntilTheyAreReadAgain) {
    const UniqueMetaObjectKey own = m_product.AddObject();
    Write(c_car);
    EXPECT_TRUE(m_product.IsActual(KeyOf(L"axle")));
    Write("car: axle*2 wheel*5 | axle: wheel*2 tube");
    EXPECT_FALSE(m_product.IsActual(KeyOf(L"axle")));
    EXPECT_FALSE(m_product.IsActual(m_product.GetRootKey()));
    EXPECT_TRUE(m_product.IsActual(own));
    m_product.UpdateAll();
    EXPECT_TRUE(m_product.IsActual(KeyOf(L"axle")));
    EXPECT_EQ(Now(), "axle: tube wheel*2 | car:  axle*2 wheel*5");
    EXPECT_EQ(m_product.GetUndoName().Str(), L"Update from car.stp");
    m_product.Undo();
    EXPECT_EQ(Now(), "axle: tube wheel*2 | car:  axle*2 wheel");
    EXPECT_FALSE(m_product.IsActual(KeyOf(L"axle")));
    m_product.Redo();
    EXPECT_EQ(Now(), "axle: tube wheel*2 | car:  axle*2 wheel*5");
    Write(c_car);
    EXPECT_FALSE(m_product.IsActual(KeyOf(L"axle")));
    EXPECT_EQ(m_files.updates, 1);
}

TEST_F(Sources, ThatLackPartsAskWhatBecomesOfThem) {
    constexpr std::size_t remove = 0, keep = 1, cancel = 2;
    const struct {
        std::optional<std::size_t> answer;
        const char* now;
    } cases[] = {{std::nullopt, "axle: tube wheel*2 | car: axle*2 wheel"},
                 {cancel, "axle: tube wheel*2 | car: axle*2 wheel"},
                 {keep, "axle: tube wheel*2 | car: axle*2 wheel*4"},
                 {remove, "car: wheel*4"}};
    Write("car: wheel*4");
    for (const auto& sample : cases) {
        m_user.AnswerNext(sample.answer);
        m_product.UpdateAll();
        EXPECT_EQ(Now(), sample.now);
        EXPECT_EQ(m_product.CanUndo(), sample.answer == keep || sample.answer == remove);
        EXPECT_EQ(sample.answer == keep, Find(m_product.GetModel(), L"axle") && m_product.IsActual(KeyOf(L"axle")))
            << "what is kept is the user's own";
        while (m_product.CanUndo())
            m_product.Undo();
        EXPECT_EQ(Now(), cases[0].now);
    }
    EXPECT_EQ(m_user.GetQuestions()[0].text.Str(), L"car.stp does not have these parts any more:\naxle\ntube");
}

TEST_F(Sources, ThatCannotBeReadAreToldOfInOneLine) {
    Write("car: wheel");
    m_files.content.clear();
    m_product.UpdateAll();
    ASSERT_EQ(m_user.GetMessages().size(), 1U);
    EXPECT_EQ(m_user.GetMessages()[0].Str(), L"no such file");
    EXPECT_FALSE(m_product.CanUndo());
}

TEST_F(Sources, DoNotBringBackWhatTheUserHasDeleted) {
    const UniqueMetaObjectKey axles = Find(m_product.GetModel(), L"axle")->occurrences[0].key;
    ASSERT_TRUE(m_product.DeleteObjects({KeyOf(L"wheel"), axles}));
    Write("car: axle*2 wheel lamp | axle: wheel*2 tube");
    m_product.UpdateAll();
    EXPECT_EQ(Now(), "axle: tube wheel*2 | car: axle lamp");
    m_product.Undo();
    m_product.Undo();
    m_product.UpdateAll();
    EXPECT_EQ(Now(), "axle: tube wheel*2 | car: axle*2 lamp wheel");
}

TEST_F(Sources, LeaveTheUserWhereHeIsAsLongAsThatIsThere) {
    const ProductLevel axle{KeyOf(L"axle"), false};
    ASSERT_TRUE(m_product.EnterLevel(axle));
    Write("car: axle wheel | axle: wheel*2 tube");
    m_product.UpdateAll();
    EXPECT_EQ(m_product.GetLevel(), axle);
    Write("car: wheel");
    m_user.AnswerNext(0);
    m_product.UpdateAll();
    EXPECT_EQ(Now(), "car: wheel");
    m_product.Undo();
    EXPECT_EQ(m_product.GetLevel(), axle);
    m_product.Redo();
    EXPECT_EQ(Now(), "car: wheel");
}

TEST_F(Sources, AreOpenedForPartsWhileTheyAreThere) {
    EXPECT_EQ(m_product.GetEditSourceCommand(KeyOf(L"axle")), 7020);
    EXPECT_EQ(m_product.GetEditSourceCommand(KeyOf(L"wheel")), 5707);
    EXPECT_FALSE(m_product.CanEditSource(KeyOf(L"wheel"))) << "the file is not there";
    EXPECT_FALSE(m_product.CanEditSource(m_product.AddObject()));
    Write(c_car);
    EXPECT_TRUE(m_product.CanEditSource(KeyOf(L"wheel")));
    m_product.EditSource(KeyOf(L"wheel"));
    EXPECT_EQ(m_files.opened, "/parts/car.stp");
}

} // namespace
