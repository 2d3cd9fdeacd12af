#include "desktop/store/FileReplacement.h"
#include "desktop/store/ProductFile.h"

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace desktop::store {

namespace {

namespace fs = std::filesystem;

class FileReplacement : public testing::Test {
protected:
    FileReplacement() {
        const testing::TestInfo* const info = testing::UnitTest::GetInstance()->current_test_info();
        m_folder = fs::path(testing::TempDir()) / (std::string("product-tree-") + info->name());
        fs::remove_all(m_folder);
        fs::create_directories(m_folder);
        m_file = m_folder / "product.json";
    }
    ~FileReplacement() override { fs::remove_all(m_folder); }

    static void Put(const fs::path& path, std::string_view text) { std::ofstream(path, std::ios::binary) << text; }
    static std::string TextOf(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::size_t CountFiles() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_folder), fs::directory_iterator()));
    }

    fs::path m_folder;
    fs::path m_file;
};

/// As on a full disk: writing fails after a few bytes.
class FileSizeLimit final {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

TEST_F(FileReplacement, MakesANewFile) {
    EXPECT_FALSE(ReplaceFile(m_file, "new"));
    EXPECT_EQ(TextOf(m_file), "new");
    EXPECT_EQ(CountFiles(), 1U);
}

TEST_F(FileReplacement, KeepsPermissionsAndFollowsLinks) {
    Put(m_file, "old");
    ASSERT_EQ(chmod(m_file.c_str(), 0640), 0);
    fs::create_symlink("product.json", m_folder / "link.json");

    EXPECT_FALSE(ReplaceFile(m_folder / "link.json", "new"));

    EXPECT_TRUE(fs::is_symlink(m_folder / "link.json"));
    EXPECT_EQ(TextOf(m_file), "new");
    EXPECT_EQ(static_cast<unsigned>(fs::status(m_file).permissions()), 0640U);
}

TEST_F(FileReplacement, TakesAwayWhatAKilledProgramHasLeft) {
    const pid_t gone = fork();
    if (gone == 0)
        _exit(0);
    ASSERT_EQ(waitpid(gone, nullptr, 0), gone);
    const fs::path left = m_file.parent_path() / (".product-tree-" + std::to_string(gone) + "-0");
    const fs::path working = m_file.parent_path() / (".product-tree-" + std::to_string(getppid()) + "-0");
    std::ofstream(left) << "half";
    std::ofstream(working) << "half";
    ASSERT_FALSE(ReplaceFile(m_file, "new"));
    EXPECT_FALSE(fs::exists(left));
    EXPECT_TRUE(fs::exists(working)) << "its program is at work";
}

TEST_F(FileReplacement, LeavesTheOldFileWhenTheDiskIsFull) {
    Put(m_file, "old");
    std::optional<FileError> error;
    {
        const FileSizeLimit limit(1000);
        error = ReplaceFile(m_file, std::string(5000, 'x'));
    }
    ASSERT_TRUE(error);
    EXPECT_EQ(error->reason, "File too large");
    EXPECT_EQ(TextOf(m_file), "old");
    EXPECT_EQ(CountFiles(), 1U);
}

TEST_F(FileReplacement, RefusesWhatIsNoFile) {
    EXPECT_EQ(ReplaceFile(m_folder, "new")->reason, "Is a directory");
    EXPECT_EQ(ReplaceFile("/dev/null", "new")->reason, "not an ordinary file");
    EXPECT_EQ(ReplaceFile(m_folder / "no" / "file", "new")->reason, "No such file or directory");
    EXPECT_EQ(CountFiles(), 0U);
}

TEST_F(FileReplacement, OfAProductThatCouldNotBeReadBackDoesNotHappen) {
    Put(m_file, "old");
    platform::ProductModel model;
    model.root.key = UniqueMetaObjectKey(std::string("a|b"));

    const std::optional<FileError> error = WriteProductFile(m_file, model);

    ASSERT_TRUE(error);
    EXPECT_EQ(error->reason, "the product can't be written: product.key: a key must not hold '|'");
    EXPECT_EQ(TextOf(m_file), "old");
}

} // namespace

} // namespace desktop::store
