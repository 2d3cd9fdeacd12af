// What a user does with a real assembly, from opening its file to opening what was saved. Real
// assemblies stand outside the repository; without them the tests are skipped.
#include "desktop/JsonPrint.h"
#include "desktop/tree/TreeItemModel.h"
#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/model/PropertyNumbers.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/TestFolder.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdlib>

namespace {

/// In cubic metres, as the file itself tells it.
constexpr double c_plateVolume = 0.0005305752;

constexpr const char* c_density = "Density, kg/m\u00B3";
constexpr const char* c_mass = "Mass, kg";
constexpr const char* c_section = "Section";
constexpr const char* c_position = "Pos.";

class AssemblyEditsTest : public window_tests::WindowFixture {
protected:
    void SetUp() override {
        const char* const folder = std::getenv("PRODUCT_TREE_ASSEMBLIES");
        m_file = folder ? folder : PRODUCT_TREE_SOURCES "/../shared/assemblies";
        if (!std::filesystem::is_directory(m_file))
            GTEST_SKIP() << "no assemblies in " << m_file;
        m_exports = m_file;
        std::filesystem::create_directories(m_folder);
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    /// Parts are not measured yet.
    void Open(const char* name = "as1-oc-214.stp", const desktop::step::StepOptions& options = {}) {
        auto opened = desktop::OpenDocument(m_file / name, options);
        ASSERT_TRUE(std::holds_alternative<desktop::Document>(opened));
        auto document = std::get<desktop::Document>(std::move(opened));
        auto session = std::make_unique<desktop::Session>(std::move(document));
        m_session = session.get();
        m_window->Show(std::move(session));
        m_window->show();
        m_window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
        Trigger("Expand all");
        Tree().setFocus();
    }
    void Measure() {
        m_window->StartMasses();
        WaitForText("5 parts measured");
        QApplication::processEvents();
    }
    /// The cell of the only row of that name.
    QModelIndex Find(const QString& name, const char* column) const {
        const QAbstractItemModel& model = *Tree().model();
        const auto found =
            model.match(model.index(0, 0), Qt::DisplayRole, name, 2, Qt::MatchExactly | Qt::MatchRecursive);
        EXPECT_EQ(found.size(), 1) << name.toStdString();
        return found.isEmpty() ? QModelIndex() : found[0].siblingAtColumn(Column(column));
    }
    void Edit(const QModelIndex& index, const QString& text) {
        Tree().setCurrentIndex(index);
        Press(Qt::Key_F2);
        Type(text);
        Press(Qt::Key_Return);
    }
    void ClickLink(const QModelIndex& index) {
        const QRect cell = Tree().visualRect(index);
        QTest::mouseClick(Tree().viewport(), Qt::LeftButton, Qt::NoModifier, {cell.left() + 12, cell.center().y()});
        QApplication::processEvents();
    }
    static std::string Text(const QModelIndex& index) { return index.data().toString().toStdString(); }
    double MassOf(const QString& name) const { return QLocale().toDouble(Find(name, c_mass).data().toString()); }
    /// With all rows expanded and the row of that name alone selected.
    std::string Print(const QString& name) const {
        Trigger("Expand all");
        Tree().setCurrentIndex(Find(name, "Name"));
        return desktop::PrintJson(static_cast<desktop::TreeItemModel*>(Tree().model())->GetView());
    }
    void TriggerAll(const QString& text) const {
        while (Action(text)->isEnabled())
            Trigger(text);
    }

    const platform::MemoryProduct& GetProduct() const { return m_session->GetProduct(); }

    desktop::Session* m_session = nullptr;
    std::filesystem::path m_file;
    std::filesystem::path m_exports;
    std::filesystem::path m_folder = support::GetTestFolder();
};

TEST_F(AssemblyEditsTest, APartIsAddedNamedSortedNumberedAndDeletedAndAllOfItUndone) {
    for (const char* const file : {"as1-oc-214.stp", "cubefactory_01_00_00-shredder_unit.STEP"}) {
        Open(file);
        const auto print = [&] {
            Trigger("Expand all");
            Tree().setCurrentIndex(Tree().model()->index(0, 0));
            return desktop::PrintJson(static_cast<desktop::TreeItemModel*>(Tree().model())->GetView());
        };
        const std::string untouched = print();
        Tree().setCurrentIndex(Tree().model()->index(0, 0, Tree().model()->index(0, 0, Tree().model()->index(0, 0))));
        Trigger("Add part");
        ASSERT_TRUE(Tree().IsEditing()) << file << ": the new part wants a name";
        Type("Brass washer");
        Press(Qt::Key_Return);
        const QString section = Text(Find("Brass washer", c_section)).c_str();
        m_decisions->ChooseNextSection(platform::SectionDecision{5, false});
        ClickLink(Find("Brass washer", c_section));
        EXPECT_NE(Text(Find("Brass washer", c_section)), section.toStdString()) << file;
        Trigger("Number positions");
        EXPECT_NE(Text(Find("Brass washer", c_position)), "") << file;
        Shoot("assembly-added");
        Tree().setCurrentIndex(Find("Brass washer", "Name"));
        m_decisions->AnswerNext(std::nullopt);
        Trigger("Delete");
        EXPECT_NE(Text(Find("Brass washer", "Name")), "") << "the question was cancelled";
        m_decisions->AnswerNext(0);
        Trigger("Delete");
        const QAbstractItemModel& model = *Tree().model();
        EXPECT_TRUE(model.match(model.index(0, 0), Qt::DisplayRole, "Brass washer", 1, Qt::MatchRecursive).isEmpty());
        TriggerAll("Undo");
        EXPECT_EQ(print(), untouched) << file;
        EXPECT_FALSE(m_window->isWindowModified());
    }
}

TEST_F(AssemblyEditsTest, AnEditedAssemblyIsUndoneRedoneSavedAndOpenedAgain) {
    Open();
    Measure();
    const std::string untouched = Print("plate");
    Shoot("assembly-1-open");

    Edit(Find("plate", "Name"), "Base plate");
    Edit(Find("Base plate", c_density), "7850");
    EXPECT_NEAR(MassOf("Base plate"), 7850 * c_plateVolume, 1e-5);
    Shoot("assembly-2-edited");
    const std::string edited = Print("Base plate");

    TriggerAll("Undo");
    EXPECT_EQ(Print("plate"), untouched);
    EXPECT_FALSE(m_window->isWindowModified());
    Shoot("assembly-3-undone");
    TriggerAll("Redo");
    EXPECT_EQ(Print("Base plate"), edited);

    m_decisions->ChooseNext(m_folder / "as1.json");
    Trigger("Save");
    EXPECT_FALSE(m_window->isWindowModified());
    m_window->OpenFile(m_folder / "as1.json", {});
    EXPECT_EQ(Print("Base plate"), edited);
    EXPECT_TRUE(m_decisions->GetQuestions().empty());
    Shoot("assembly-4-opened-again");

    // What the file keeps of the parts' volumes is enough to go on.
    Edit(Find("Base plate", c_density), "1000");
    EXPECT_NEAR(MassOf("Base plate"), 1000 * c_plateVolume, 1e-5);
}

TEST_F(AssemblyEditsTest, ADensityThatIsGivenBeforeThePartsAreMeasuredMakesTheMassToo) {
    Open();
    Edit(Find("plate", c_density), "7850");
    EXPECT_EQ(Find("plate", c_mass).data().toString().toStdString(), "");
    Measure();
    EXPECT_EQ(Find("plate", c_density).data().toString().toStdString(), "7850");
    EXPECT_NEAR(MassOf("plate"), 7850 * c_plateVolume, 1e-5);
    Trigger("Undo");
    EXPECT_EQ(Find("plate", c_density).data().toString().toStdString(), "");
    EXPECT_EQ(Find("plate", c_mass).data().toString().toStdString(), "");
    Trigger("Redo");
    EXPECT_NEAR(MassOf("plate"), 7850 * c_plateVolume, 1e-5);
}

/// Among the sections that a document without a style of its own offers.
constexpr platform::SectionDecision c_standardParts{4, false};
constexpr platform::SectionDecision c_parts{3, false};

TEST_F(AssemblyEditsTest, APartMovesToTheSectionThatIsChosenAndTakesAPosition) {
    Open("as1-oc-214.stp");
    EXPECT_EQ(Text(Find("plate", c_section)), "Parts");
    m_decisions->ChooseNextSection(c_standardParts);
    ClickLink(Find("plate", c_section));
    const QModelIndex plate = Find("plate", "Name");
    EXPECT_EQ(Text(Find("plate", c_section)), "Standard parts");
    EXPECT_EQ(Text(plate.parent()), "Standard parts (x1)");
    EXPECT_EQ(Tree().selectionModel()->selectedRows(), QModelIndexList{plate});

    Edit(Find("plate", c_position), "12");
    EXPECT_EQ(Text(Find("plate", c_position)), "12");
    for (const char* refused : {"0", "-1", "1.5", "seven"}) {
        Edit(Find("plate", c_position), refused);
        EXPECT_EQ(Text(Find("plate", c_position)), "12") << refused;
        auto* const line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        EXPECT_TRUE(line && line->text() == refused) << "it waits to be mended";
        Press(Qt::Key_Escape);
    }
    Shoot("assembly-sections");
    m_decisions->ChooseNextSection(std::nullopt);
    ClickLink(Find("plate", c_section));
    EXPECT_EQ(m_decisions->GetSectionRequests().back().present, c_standardParts.section);

    Trigger("Undo");
    EXPECT_EQ(Text(Find("plate", c_position)), "");
    Trigger("Undo");
    EXPECT_EQ(Text(Find("plate", "Name").parent()), "Parts (x1)");
    EXPECT_FALSE(m_window->isWindowModified());

    Trigger("Number positions");
    EXPECT_EQ(Text(Find("l-bracket-assembly (x2)", c_position)), "1");
    EXPECT_EQ(Text(Find("rod-assembly", c_position)), "2");
    EXPECT_EQ(Text(Find("plate", c_position)), "5") << "two numbers stay free between sections";
    Shoot("assembly-numbered");
    Trigger("Undo");
    EXPECT_EQ(Text(Find("rod-assembly", c_position)), "");
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(AssemblyEditsTest, AGroupOfTwelveScrewsIsPlacedAsOne) {
    desktop::step::StepOptions leaves;
    leaves.flatten = true;
    Open("cubefactory_01_00_00-shredder_unit.STEP", leaves);
    const QString name = "01_02_12-cylinder_screw_M5x10-DIN912 (x12)";
    const auto areAll = [&](const char* column, const std::string& text) {
        const QModelIndex group = Find(name, "Name");
        EXPECT_EQ(Tree().model()->rowCount(group), 12);
        bool isSame = Text(Find(name, column)) == text;
        for (int i = 0; i < Tree().model()->rowCount(group); ++i)
            isSame &= Text(Tree().model()->index(i, Column(column), group)) == text;
        return isSame;
    };
    Edit(Find(name, c_position), "7");
    EXPECT_TRUE(areAll(c_position, "7"));
    Edit(Find(name, c_position), "none");
    Press(Qt::Key_Escape);
    EXPECT_TRUE(areAll(c_position, "7"));
    m_decisions->ChooseNextSection(c_parts);
    ClickLink(Find(name, c_section));
    EXPECT_TRUE(areAll(c_section, "Parts"));
    EXPECT_EQ(Tree().currentIndex().siblingAtColumn(0), Find(name, "Name"));

    Trigger("Undo");
    EXPECT_TRUE(areAll(c_section, "Standard parts"));
    EXPECT_TRUE(areAll(c_position, "7"));
    Trigger("Undo");
    EXPECT_TRUE(areAll(c_position, ""));
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(AssemblyEditsTest, NamesInAnEncodingOfTheirOwnAreChosenByTheirLooks) {
    Open("isometria_Switch.STEP");
    ASSERT_TRUE(Action("Text Encoding...")->isEnabled());
    QTimer::singleShot(0, [this] {
        QWidget* const dialog = QApplication::activeModalWidget();
        auto* const encodings = dialog->findChild<QListWidget*>();
        encodings->setCurrentItem(encodings->findItems("GB 18030", Qt::MatchContains).at(0));
        if (const char* folder = std::getenv("PRODUCT_TREE_SHOTS"))
            dialog->grab().save(QString("%1/encoding.png").arg(folder));
        QTest::keyClick(encodings, Qt::Key_Return);
    });
    Trigger("Text Encoding...");
    Trigger("Expand all");
    EXPECT_TRUE(Find("bottom part_\u9ED8\u8BA4\u00E8_", "Name").isValid());
    EXPECT_FALSE(m_window->isWindowModified());
    Open();
    EXPECT_FALSE(Action("Text Encoding...")->isEnabled());
}

TEST_F(AssemblyEditsTest, AnAssemblyIsSavedWithAllItsLevels) {
    Open();
    Measure();
    Tree().setCurrentIndex(Find("rod-assembly", "Name"));
    Trigger("Open Assembly");
    Trigger("Expand all");
    Edit(Find("rod", c_density), "7850");
    Edit(Tree().model()->index(0, Column(c_density), Find("nut (x2)", "Name")), "7850");
    const double mass = MassOf("rod-assembly");
    EXPECT_GT(mass, 0.1);
    m_decisions->ChooseNext(m_folder / "as1.json");
    Trigger("Save");
    m_window->OpenFile(m_folder / "as1.json", {});
    Trigger("Expand all");
    EXPECT_EQ(MassOf("rod-assembly"), mass);
    Trigger("All Parts");
    Trigger("Expand all");
    EXPECT_EQ(Text(Find("rod", c_density)), "7850");
    EXPECT_EQ(Text(Find("bolt (x6)", "Count")), "6");
    EXPECT_TRUE(m_decisions->GetQuestions().empty());
}

TEST_F(AssemblyEditsTest, AnotherExportOfTheAssemblyKeepsWhatWasEdited) {
    const std::filesystem::path step = m_folder / "as1.stp";
    const std::filesystem::path product = m_folder / "as1.json";
    std::filesystem::copy_file(m_file / "as1-oc-214.stp", step);
    std::filesystem::permissions(step, std::filesystem::perms::owner_all);
    m_file = m_folder;
    Open("as1.stp");
    Measure();
    Edit(Find("plate", "Name"), "Base plate");
    Edit(Find("Base plate", c_density), "7850");
    m_decisions->ChooseNext(product);
    Trigger("Save");

    std::filesystem::copy_file(m_exports / "as1_pe_203.stp", step, std::filesystem::copy_options::overwrite_existing);
    WaitForText("as1.stp has changed; Update all brings its parts up to date");
    Shoot("sources-1-changed");
    Trigger("Update all");
    Trigger("Expand all");
    Shoot("sources-2-updated");
    EXPECT_TRUE(m_decisions->GetQuestions().empty()) << "all parts are there, under other names";
    WaitForText("5 parts measured");
    // Its numbers are those of the first, and its unit is the inch.
    EXPECT_NEAR(MassOf("Base plate") / (7850 * c_plateVolume), 25.4 * 25.4 * 25.4, 1);
    const std::string updated = Print("Base plate");
    Shoot("sources-3-measured");
    TriggerAll("Undo");
    EXPECT_TRUE(Find("plate", "Name").isValid());
    TriggerAll("Redo");
    EXPECT_EQ(Print("Base plate"), updated);
    Trigger("Save");
    Open("as1.json");
    EXPECT_EQ(Print("Base plate"), updated);
    EXPECT_FALSE(Action("Update all")->isEnabled());
}

/// Of one object, by what the file that was saved says of volumes, densities and uses.
double Weigh(const platform::ProductModel& model, const platform::ObjectRecord& object) {
    const auto assembly = std::ranges::find(model.assemblies, object.key, &platform::AssemblyRecord::object);
    if (assembly != model.assemblies.end()) {
        double mass = 0;
        for (const platform::ObjectRecord& component : platform::GetComponents(model, *assembly))
            mass += static_cast<double>(component.occurrences.size()) * Weigh(model, component);
        return mass;
    }
    for (const auto* const objects : {&model.objects, &model.objectsBelow}) {
        const auto part = std::ranges::find(*objects, object.key, &platform::ObjectRecord::key);
        if (part == objects->end())
            continue;
        const auto density = std::ranges::find(part->properties, platform::number::density,
                                               &platform::PropertyValues::value_type::first);
        return part->volume && density != part->properties.end() ? *part->volume * density->second.to_double() : 0;
    }
    return 0;
}

TEST_F(AssemblyEditsTest, PartsGetTheirMaterialByTheHeadAndTheirMassesAddUp) {
    desktop::step::StepOptions leaves;
    leaves.flatten = true;
    Open("cubefactory_01_00_00-shredder_unit.STEP", leaves);
    const auto countWithout = [&] { return GetProduct().FindMassesBelow(GetProduct().GetRootKey()).without.size(); };
    const std::size_t all = countWithout();
    m_window->StartMasses();
    WaitForText(QString("%1 parts measured").arg(all));
    QApplication::processEvents();
    platform::TreeTableView& view = static_cast<desktop::TreeItemModel*>(Tree().model())->GetView();
    std::vector<platform::TreeTableRow*> parts;
    platform::TreeTableRow& root = *view.GetRoot();
    for (std::size_t section = 0; section < root.GetChildCount(); ++section) {
        for (std::size_t row = 0; row < root.GetChildRow(section).GetChildCount(); ++row)
            parts.push_back(&root.GetChildRow(section).GetChildRow(row));
    }
    ASSERT_GT(parts.size(), 20U);
    m_decisions->ChooseNextMaterial(platform::MaterialDecision{L"S235JR EN 10025-2", 7850.0, {}});
    view.SelectByUser({parts.begin(), parts.begin() + 20}, nullptr);
    ASSERT_TRUE(view.HeadPopupCommandByUser(L"material", 7768));
    Shoot("twenty-materials");
    QApplication::processEvents();
    const std::size_t rest = countWithout();
    EXPECT_LE(rest, all - 20) << "each row stands for a part or several";
    EXPECT_GT(rest, 0U);
    EXPECT_TRUE(root.FindCell(L"mass")->GetShownText().IsEmpty()) << "some have none";
    Trigger("Undo");
    EXPECT_EQ(countWithout(), all) << "one step";

    m_decisions->ChooseNextMaterial(platform::MaterialDecision{L"S235JR EN 10025-2", 7850.0, {}});
    view.SelectByUser(parts, nullptr);
    ASSERT_TRUE(view.HeadPopupCommandByUser(L"material", 7768));
    const double shown = QLocale().toDouble(Tree().model()->index(0, Column(c_mass)).data().toString());
    m_decisions->ChooseNext(m_folder / "shredder.json");
    Trigger("Save");
    const auto saved = desktop::OpenDocument(m_folder / "shredder.json", {});
    ASSERT_TRUE(std::holds_alternative<desktop::Document>(saved));
    const platform::ProductModel& model = std::get<desktop::Document>(saved).model;
    EXPECT_NEAR(shown, Weigh(model, model.root), 1e-6 * shown);
    EXPECT_GT(shown, 0);
}

} // namespace
