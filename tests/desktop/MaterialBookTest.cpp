// The book of materials: the program's own table, and the user's file that takes its place.
#include "desktop/books/MaterialBook.h"
#include "tests/support/TestFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

namespace {

using desktop::Material;
using desktop::MaterialBook;

class MaterialBookTest : public testing::Test {
protected:
    ~MaterialBookTest() override { std::filesystem::remove_all(m_folder); }

    QString File() const { return QString::fromStdString((m_folder / "books" / "materials.tsv").string()); }
    void Write(const std::string& text) const {
        std::filesystem::create_directories(m_folder / "books");
        std::ofstream(m_folder / "books" / "materials.tsv", std::ios::binary) << text;
    }
    std::string Text() const {
        std::ostringstream text;
        text << std::ifstream(m_folder / "books" / "materials.tsv", std::ios::binary).rdbuf();
        return text.str();
    }
    static std::string Names(const std::vector<Material>& materials) {
        std::string names;
        for (const Material& material : materials)
            names += material.GetText().toStdString() + "=" + QString::number(material.density).toStdString() + ";";
        return names;
    }

    std::filesystem::path m_folder = support::GetTestFolder();
    const Material m_foam{"Foam", "In-house 7", 41.5, "Plastics/Foams", "weighed"};
};

TEST_F(MaterialBookTest, TheProgramsOwnTableIsWhole) {
    MaterialBook book(File());
    EXPECT_TRUE(book.TakeProblems().isEmpty());
    const std::vector<Material> materials = book.GetMaterials();
    EXPECT_GT(materials.size(), 150U);
    std::set<QString> texts;
    for (const Material& material : materials) {
        EXPECT_TRUE(texts.insert(material.GetText()).second) << material.GetText().toStdString();
        EXPECT_FALSE(material.classPath.isEmpty() || material.source.isEmpty()) << material.name.toStdString();
        EXPECT_TRUE(material.density > 10 && material.density < 20000) << material.name.toStdString();
    }
    EXPECT_FALSE(std::filesystem::exists(m_folder)) << "nothing was changed";
}

TEST_F(MaterialBookTest, TheUsersFileBeginsAsACopyAndKeepsWhatIsNoMaterial) {
    MaterialBook book(File());
    const std::size_t count = book.GetMaterials().size();
    EXPECT_EQ(book.Add(m_foam), "");
    EXPECT_EQ(MaterialBook(File()).GetMaterials().size(), count + 1);
    EXPECT_EQ(book.Add(m_foam), "the book has Foam In-house 7 already");

    // Somebody else writes it meanwhile.
    Write("# mine\nOak\t\t690\nbroken\nFoam\tIn-house 7\t41.5\tPlastics/Foams\tweighed\n");
    Material lighter = m_foam;
    lighter.density = 0.1;
    EXPECT_EQ(book.Change(m_foam, lighter), "");
    EXPECT_EQ(Text(), "# mine\nOak\t\t690\nbroken\nFoam\tIn-house 7\t0.1\tPlastics/Foams\tweighed\n");
    EXPECT_EQ(book.Change(m_foam, lighter), "the book does not have Foam In-house 7 any more");
    EXPECT_EQ(book.Change(lighter, book.GetMaterials().front()), "the book has Oak already");
    EXPECT_EQ(book.Remove(lighter), "");
    EXPECT_EQ(Text(), "# mine\nOak\t\t690\nbroken\n");
}

TEST_F(MaterialBookTest, BadLinesArePassedOverAndToldOnce) {
    Write("\xEF\xBB\xBF"
          "Oak\tEN 13556\t690\tWood\tscales\r\n\nPine\nAsh\t\tlight\nElm\t\t-1\n\t\t5\nTeak\x01\t\t5\n\xFF\t\t5\n"
          "Oak\tEN 13556\t1\na\tb\t1\tc\td\te\nFir\t\t1e999\n");
    MaterialBook book(File());
    EXPECT_EQ(Names(book.GetMaterials()), "Oak EN 13556=690;");
    const QString several = "name, standard, density, class and source are expected";
    const QStringList expected = {"line 3: " + several,
                                  "line 4: the density is no number",
                                  "line 5: the density must be more than 0",
                                  "line 6: the name is missing",
                                  "line 7: it has a character that can't be shown",
                                  "line 8: it is not UTF-8 text",
                                  "line 9: the material was there before",
                                  "line 10: " + several,
                                  "line 11: the density is no number"};
    EXPECT_EQ(book.TakeProblems().join('\n').toStdString(), expected.join('\n').toStdString());
    book.Refresh();
    EXPECT_TRUE(book.TakeProblems().isEmpty());
}

TEST_F(MaterialBookTest, AFileThatCantBeReadGivesTheUsualMaterialsAndStays) {
    std::filesystem::create_directories(m_folder / "books" / "materials.tsv");
    MaterialBook book(File());
    EXPECT_GT(book.GetMaterials().size(), 150U);
    ASSERT_EQ(book.TakeProblems().size(), 1);
    EXPECT_EQ(book.Add(m_foam), "the book can't be read: it is no ordinary file");
    EXPECT_TRUE(std::filesystem::is_directory(m_folder / "books" / "materials.tsv"));

    std::filesystem::remove_all(m_folder);
    std::filesystem::create_directories(m_folder);
    std::ofstream(m_folder / "books") << "no folder";
    EXPECT_TRUE(book.Add(m_foam).startsWith("the folder"));
    EXPECT_GT(book.GetMaterials().size(), 150U) << "as before";
}

TEST_F(MaterialBookTest, RemembersWhatWasUsedLast) {
    MaterialBook book(File());
    Write("A\t\t1\nB\tS\t2\n");
    book.Refresh();
    for (const char* text : {"A", "gone", "B S", "A"})
        book.NoteUsed(text);
    EXPECT_EQ(Names(MaterialBook(File()).GetRecent()), "A=1;B S=2;");
}

} // namespace
