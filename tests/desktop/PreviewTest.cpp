// Previews are worked out by the program itself, in a process of its own, from files of every kind.
#include "desktop/preview/PartPictures.h"
#include "desktop/preview/PreviewPane.h"
#include "desktop/preview/PreviewProcess.h"
#include "desktop/preview/PreviewService.h"
#include "desktop/preview/SheetSizes.h"
#include "tests/support/TestFolder.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPainter>
#include <QPdfWriter>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using desktop::PreviewAnswer;
using desktop::PreviewPane;
using desktop::PreviewProcess;
using desktop::PreviewRequest;
using desktop::PreviewService;

constexpr QSize c_room(200, 160);
/// The machine of the tests may have much else to do.
constexpr int c_patience = 100'000;

const std::string c_dxf = "0\nSECTION\n2\nBLOCKS\n"
                          "0\nBLOCK\n8\n0\n2\nHOLE\n70\n0\n10\n0\n20\n0\n0\nCIRCLE\n8\n0\n10\n0\n20\n0\n40\n2\n"
                          "0\nENDBLK\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n"
                          "0\nLINE\n8\n0\n10\n0\n20\n0\n11\n50\n21\n0\n"
                          "0\nARC\n8\n0\n10\n25\n20\n0\n40\n25\n50\n0\n51\n180\n"
                          "0\nINSERT\n8\n0\n2\nHOLE\n10\n25\n20\n10\n"
                          "0\nDIMENSION\n8\n0\n2\nHOLE\n70\n0\n"
                          "0\nTEXT\n8\n0\n10\n5\n20\n2\n40\n3\n1\nM10 %%c8\n"
                          "0\nENDSEC\n0\nEOF\n";
/// The entities alone of a drawing.
std::string Dxf(const std::string& entities) { return "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n"; }

bool IsDrawn(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_ARGB32);
    const QRgb ground = plain.pixel(0, 0);
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            if (plain.pixel(x, y) != ground)
                return true;
        }
    }
    return false;
}

class Previews : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directories(m_folder);
        PreviewService::SetProgram(QStringLiteral(PRODUCT_TREE_PROGRAM));
    }
    void TearDown() override {
        PreviewService::SetProgram({});
        std::filesystem::remove_all(m_folder);
    }

    QString Path(const std::string& name) const { return QFile::decodeName((m_folder / name).c_str()); }
    QString Write(const std::string& name, const std::string& content) const {
        std::ofstream(m_folder / name, std::ios::binary) << content;
        return Path(name);
    }
    QString WritePdf(const std::string& name, int pages) const {
        QPdfWriter writer(Path(name));
        QPainter painter(&writer);
        for (int page = 0; page < pages; ++page) {
            if (page > 0)
                writer.newPage();
            painter.fillRect(0, 0, writer.width() * (page + 1) / 4, writer.height(), Qt::black);
        }
        return Path(name);
    }

    static PreviewAnswer Ask(const QString& path, int page = 0,
                             std::chrono::milliseconds limit = std::chrono::milliseconds(c_patience)) {
        PreviewRequest request;
        request.path = path;
        request.pixels = c_room;
        request.page = page;
        request.ink = Qt::red;
        return Ask(request, limit);
    }
    static PreviewAnswer Ask(const PreviewRequest& request,
                             std::chrono::milliseconds limit = std::chrono::milliseconds(c_patience)) {
        PreviewProcess process(QStringLiteral(PRODUCT_TREE_PROGRAM));
        process.Ask(request, limit);
        return process.Wait();
    }

    std::filesystem::path m_folder = support::GetTestFolder();
};

TEST_F(Previews, EachKindOfFileIsKnownByItsContentsAndDrawn) {
    QImage image(3000, 1500, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.setPixelColor(0, 0, Qt::white);
    QPainter(&image).fillRect(1000, 300, 500, 300, Qt::blue);
    ASSERT_TRUE(image.save(Path("image.txt"), "PNG"));
    const QString files[] = {
        Path("image.txt"),
        Write("vector", "<?xml version='1.0'?><!-- --><svg xmlns='http://www.w3.org/2000/svg' "
                        "viewBox='0 0 20 10'><circle cx='10' cy='5' r='4'/></svg>"),
        Write("notes.png", "first line\n\tsecond\r\nthird"),
        Write("table.csv", "name;mass\n\"a;b\";2\n"),
        Write("utf16.txt", std::string("\xFF\xFEo\0k\0", 6)),
        Write("drawing.pdf", c_dxf),
#ifdef PRODUCT_TREE_HAS_PDF
        WritePdf("paper.dxf", 1),
#endif
    };
    for (const QString& file : files) {
        const PreviewAnswer answer = Ask(file);
        EXPECT_EQ(answer.error, "") << qPrintable(file);
        EXPECT_TRUE(IsDrawn(answer.image)) << qPrintable(file);
        EXPECT_EQ(answer.image.size().boundedTo(c_room), answer.image.size());
        EXPECT_EQ(answer.pageCount, 1);
    }
    EXPECT_EQ(Ask(Path("image.txt")).image.size(), QSize(200, 100));
    EXPECT_EQ(Ask(Path("image.txt")).image.pixelColor(150, 50), QColor(Qt::white));
}

TEST_F(Previews, WhatCannotBeShownIsOneLine) {
    mkfifo((m_folder / "pipe").c_str(), 0600);
    ASSERT_TRUE(QImage(9, 9, QImage::Format_Mono).save(Path("whole.png")));
    QFile whole(Path("whole.png"));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const struct {
        QString path;
        const char* line;
    } cases[] = {
        {Path("none"), "No such file"},
        {Path("."), "A folder has no preview"},
        {Path("pipe"), "Not a regular file"},
        {QStringLiteral("/dev/zero"), "Not a regular file"},
        {Write("empty.pdf", ""), "The file is empty"},
        {Write("binary.txt", std::string("\x7F\0\1\2", 4)), "No preview for this kind of file"},
        {Write("old.dxf", "AutoCAD Binary DXF\r\n"), "A binary DXF file has no preview"},
        {Write("cut.pdf", "%PDF-1.7\n1 0 obj"), "The PDF file is damaged"},
        {Write("cut.svg", "<svg xmlns='http://www.w3.org/2000/svg'><g>"), "The SVG file is damaged"},
        {Write("cut.png", whole.readAll().first(40).toStdString()), "The image can't be read: "},
        {Write("nothing.dxf", Dxf("")), "Nothing is drawn in the DXF file"},
        // A block that stands in itself, and numbers that are none.
        {Write("self.dxf", "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nA\n0\nINSERT\n2\nA\n0\nINSERT\n2\nA\n"
                           "0\nENDBLK\n0\nENDSEC\n" +
                               Dxf("0\nINSERT\n2\nA\n")),
         "Nothing is drawn in the DXF file"},
        {Write("far.dxf", Dxf("0\nLINE\n10\n1e308\n20\n0\n11\n-1e308\n21\n0\n")), "Nothing is drawn in the DXF file"},
#ifdef PRODUCT_TREE_HAS_STEP
        {Write("cut.step", "ISO-10303-21;\nHEADER;\n"), ""},
#endif
    };
    for (const auto& known : cases) {
        const PreviewAnswer answer = Ask(known.path);
        EXPECT_TRUE(answer.image.isNull()) << qPrintable(known.path);
        EXPECT_TRUE(answer.error.startsWith(QLatin1String(known.line))) << qPrintable(known.path + ": " + answer.error);
        EXPECT_FALSE(answer.error.isEmpty() || answer.error.contains('\n'));
    }
}

TEST_F(Previews, TextsAreReadAsTheirBytesSuggest) {
    const QString plain = Write("plain.txt", "\xC3\xA9 5 \xE2\x82\xAC\n");
    const std::string forms[] = {"\xEF\xBB\xBF\xC3\xA9 5 \xE2\x82\xAC\n", "\xE9 5 \x80\n",
                                 std::string("\xFF\xFE\xE9\0 \0"
                                             "5\0 \0\xAC \n\0",
                                             14)};
    for (const std::string& bytes : forms)
        EXPECT_EQ(Ask(Write("other.txt", bytes)).image, Ask(plain).image) << bytes;
}

TEST_F(Previews, OneProcessAnswersOneQuestionAfterTheOther) {
    PreviewProcess process(QStringLiteral(PRODUCT_TREE_PROGRAM));
    PreviewRequest request;
    request.pixels = c_room;
    QList<QString> errors;
    QObject::connect(&process, &PreviewProcess::Answered, &process, [&](const PreviewAnswer& answer) {
        errors += answer.error;
        request.path = Path("missing");
        if (errors.size() < 3)
            process.Ask(request, std::chrono::milliseconds(c_patience));
    });
    request.path = Write("notes.txt", "text");
    process.Ask(request, std::chrono::milliseconds(c_patience));
    ASSERT_TRUE(QTest::qWaitFor([&] { return process.IsRunning(); }, c_patience));
    process.SetAsleep(true);
    QTest::qWait(500);
    EXPECT_TRUE(errors.isEmpty());
    process.SetAsleep(false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return errors.size() == 3; }, c_patience));
    EXPECT_EQ(errors.mid(1), QList<QString>(2, "No such file"));
}

#ifdef PRODUCT_TREE_HAS_STEP
std::filesystem::path FindAssembly(const char* name) {
    const char* const folder = std::getenv("PRODUCT_TREE_ASSEMBLIES");
    return (folder ? std::filesystem::path(folder)
                   : std::filesystem::path(PRODUCT_TREE_SOURCES) / "../shared/assemblies") /
           name;
}

TEST_F(Previews, OfAFileThePartIsDrawnThatCameFromIt) {
    const auto file = FindAssembly("as1-oc-214.stp");
    if (!std::filesystem::exists(file))
        GTEST_SKIP() << "no assembly " << file;
    PreviewRequest request;
    request.path = QFile::decodeName(file.c_str());
    request.pixels = c_room;
    const QImage whole = Ask(request).image;
    request.part = {L"nut", L"nut", "another export's", {}};
    const QImage nut = Ask(request).image;
    EXPECT_NE(nut, whole);
    request.part = {L"nut", L"rod", "product744", {}};
    EXPECT_EQ(Ask(request).image, whole);
    request.isPartAlone = true;
    EXPECT_EQ(Ask(request).error, "The part is not in the file any more");
    request.part = {};
    request.assembly = "nut";
    EXPECT_EQ(Ask(request).image, nut);
}

TEST_F(Previews, PicturesOfPartsComeOneByOneAsSoonAsNothingElseIsWorkedOut) {
    const QString file = QFile::decodeName(FindAssembly("as1-oc-214.stp").c_str());
    if (!QFile::exists(file))
        GTEST_SKIP() << "no assembly";
    const desktop::StepPart nut{L"nut", L"nut", "product744", {}};
    const desktop::StepPart bolt{L"bolt", L"bolt", "product1903", {}};
    const desktop::StepPart gone{L"gone", L"", "product1", {}};
    desktop::PartPictures pictures;
    QSignalSpy drawn(&pictures, &desktop::PartPictures::Drawn);
    bool isHeldUp = true;
    pictures.SetObstacle([&] { return isHeldUp; });
    pictures.Want(file, {nut, gone, bolt});
    QTest::qWait(500);
    EXPECT_EQ(drawn.size(), 0);
    isHeldUp = false;
    ASSERT_TRUE(QTest::qWaitFor([&] { return drawn.size() == 2; }, c_patience));
    EXPECT_TRUE(IsDrawn(pictures.Find(file, nut)));
    EXPECT_NE(pictures.Find(file, nut), pictures.Find(file, bolt));
    EXPECT_TRUE(pictures.Find(file, gone).isNull());
    pictures.Want(Path("missing"), {nut});
    QTest::qWait(300);
    EXPECT_EQ(drawn.size(), 2);
}

TEST_F(Previews, ARealPartIsDrawnInTheInkOnNothing) {
    const auto file = FindAssembly("as1-oc-214.stp");
    if (!std::filesystem::exists(file))
        GTEST_SKIP() << "no assembly " << file;
    const PreviewAnswer answer = Ask(QFile::decodeName(file.c_str()));
    EXPECT_EQ(answer.error, "");
    ASSERT_TRUE(IsDrawn(answer.image));
    int inked = 0;
    for (int y = 0; y < answer.image.height(); ++y) {
        for (int x = 0; x < answer.image.width(); ++x) {
            const QColor colour = answer.image.pixelColor(x, y);
            inked += colour.alpha() > 0;
            EXPECT_TRUE(colour.alpha() == 0 || colour.green() == 0);
        }
    }
    // Lines and no faces.
    EXPECT_LT(inked, answer.image.width() * answer.image.height() / 2);
}
#endif

TEST_F(Previews, AFileThatTakesTooLongIsGivenUp) {
    const PreviewAnswer answer = Ask(Write("notes.txt", "text"), 0, std::chrono::milliseconds(1));
    EXPECT_TRUE(answer.error.startsWith("Takes longer")) << qPrintable(answer.error);
}

TEST_F(Previews, WhatFailsIsNotTriedAgainBeforeTheFileIsAnother) {
    PreviewService service;
    service.SetTimeLimit(std::chrono::milliseconds(1));
    QSignalSpy failed(&service, &PreviewService::Failed);
    const QString cut = Write("cut", std::string("\x7F\0", 2));
    service.Show(cut, c_room, 0);
    ASSERT_TRUE(failed.wait(c_patience));
    // The next attempt may be in time.
    service.SetTimeLimit(std::chrono::milliseconds(c_patience));
    service.Show(cut, c_room, 0);
    EXPECT_EQ(failed.size(), 1);
    ASSERT_TRUE(failed.wait(c_patience));
    service.Show(cut, c_room, 0);
    ASSERT_EQ(failed.size(), 3);
    EXPECT_FALSE(service.IsBusy());
    EXPECT_EQ(failed[2], failed[1]);
    Write("cut", std::string("\x7F\0\1", 3));
    service.Show(cut, c_room, 0);
    EXPECT_TRUE(service.IsBusy());
}

TEST_F(Previews, TheLastOfManyQuickSelectionsIsShownAndACancelledOneNever) {
    PreviewService service;
    service.SetTimeLimit(std::chrono::milliseconds(c_patience));
    QSignalSpy ready(&service, &PreviewService::Ready);
    QSignalSpy failed(&service, &PreviewService::Failed);
    const QString notes = Write("notes.txt", "text");
    for (int i = 0; i < 5; ++i)
        service.Show(Path("missing"), c_room, 0);
    service.Show(notes, c_room, 0);
    ASSERT_TRUE(ready.wait(c_patience));
    service.Show(Path("missing"), c_room, 0);
    QTest::qWait(100);
    service.Cancel();
    EXPECT_FALSE(service.IsBusy());
    QTest::qWait(300);
    EXPECT_EQ(ready.count(), 1);
    EXPECT_EQ(failed.count(), 0);
    // It is known by now, until the file is another.
    service.Show(notes, c_room, 0);
    EXPECT_EQ(ready.count(), 2);
    Write("notes.txt", "a longer text");
    service.Show(notes, c_room, 0);
    EXPECT_TRUE(service.IsBusy());
    EXPECT_TRUE(ready.wait(c_patience));
}

#ifdef PRODUCT_TREE_HAS_PDF
TEST_F(Previews, SheetsAreMeasuredOfWhatIsAPdfByItsContents) {
    desktop::SheetSizes sizes;
    EXPECT_FALSE(sizes.Find(Write("cut.pdf", "%PDF-1.7\n1 0 obj")));
    EXPECT_FALSE(sizes.Find(Write("notes.pdf", "text")));
    EXPECT_FALSE(sizes.Find(Path("none.pdf")));
    const std::optional<QSizeF> size = sizes.Find(WritePdf("paper.txt", 2));
    ASSERT_TRUE(size);
    EXPECT_EQ(size->toSize(), QSize(210, 297));
}

TEST_F(Previews, APaneLeafsThroughPagesAndForgetsThemWithTheFile) {
    PreviewPane pane;
    pane.resize(c_room);
    pane.show();
    const auto buttons = pane.findChildren<QToolButton*>();
    auto* const text = pane.findChild<QLabel*>();
    ASSERT_EQ(buttons.size(), 2);
    pane.ShowFile(WritePdf("paper.pdf", 3));
    ASSERT_TRUE(QTest::qWaitFor([&] { return text->isVisible(); }, c_patience));
    EXPECT_EQ(text->text(), "1 of 3");
    EXPECT_FALSE(buttons[0]->isEnabled());
    const QImage first = pane.grab().toImage();
    buttons[1]->click();
    buttons[1]->click();
    EXPECT_EQ(text->text(), "3 of 3");
    EXPECT_FALSE(buttons[1]->isEnabled());
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return pane.grab().toImage().pixel(100, 60) != first.pixel(100, 60); }, c_patience));
    pane.ShowFile(Path("missing"));
    EXPECT_FALSE(text->isVisible());
    EXPECT_EQ(pane.toolTip(), Path("missing"));
    pane.Clear();
    EXPECT_EQ(pane.toolTip(), "");
}
#endif

} // namespace
