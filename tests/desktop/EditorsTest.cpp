#include "desktop/dialogs/SectionDialog.h"
#include "desktop/editors/CellEditors.h"
#include "desktop/editors/LocaleNumbers.h"
#include "desktop/icons/ControlPictures.h"
#include "desktop/icons/SourceIcons.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QImage>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace desktop;

class InLocale {
public:
    explicit InLocale(QLocale::Language language) { QLocale::setDefault(QLocale(language)); }
    ~InLocale() { QLocale::setDefault(m_before); }

private:
    QLocale m_before;
};

TEST(LocaleNumbers, ComeBackFromEveryLocale) {
    const double numbers[] = {0, -0.1, 1e-7, 123456.789, 1e15, 1e300, 5e-324, std::numeric_limits<double>::max()};
    for (const auto language : {QLocale::C, QLocale::German, QLocale::Arabic, QLocale::Hindi}) {
        const InLocale locale(language);
        for (const double number : numbers)
            EXPECT_EQ(ParseDouble(FormatNumber(number)), number) << language;
        for (const int number : {0, -7, std::numeric_limits<int>::min()})
            EXPECT_EQ(ParseInt(FormatNumber(number)), number) << language;
    }
}

TEST(LocaleNumbers, LoseDigitsBehindThePointWhereThereIsNoRoom) {
    const InLocale locale(QLocale::C);
    const auto format = [](double number, qsizetype letters) {
        return FormatNumber(number, [&](const QString& text) { return text.size() <= letters; }).toStdString();
    };
    EXPECT_EQ(format(4.16501531189, 13), "4.16501531189");
    EXPECT_EQ(format(4.16501531189, 7), "4.16502");
    EXPECT_EQ(format(123456.75, 3), "123457") << "no digit before the point is lost";
    EXPECT_EQ(format(-0.000123456, 1), "-0.000123") << "three are left";
    EXPECT_EQ(format(2.5, 1), "2.5");
}

TEST(LocaleNumbers, WhatIsNoNumberIsNone) {
    const InLocale locale(QLocale::German);
    EXPECT_EQ(ParseDouble(" 1,5 "), 1.5);
    for (const char* text : {"", "1.5", "1,5x", "nan", "inf", "1e999"})
        EXPECT_EQ(ParseDouble(text), std::nullopt) << text;
    for (const char* text : {"", "1,5", "2147483648"})
        EXPECT_EQ(ParseInt(text), std::nullopt) << text;
}

TEST(ControlPictures, BringEveryTextBack) {
    const QString texts[] = {QStringLiteral("a\n\t\x7F"), QString(QChar(0)), QString::fromUtf16(u"\u240A and \n"),
                             QString::fromUtf16(u"\u21B5 and \r\n"), QStringLiteral("plain")};
    for (const QString& text : texts) {
        const ControlPictures pictures(text);
        EXPECT_EQ(pictures.Restore(pictures.Show(text)), text);
    }
    EXPECT_EQ(ControlPictures({}).Show("a\nb"), QString::fromUtf16(u"a\u21B5b"));
}

TEST(Editors, SayWhatTheUserWantsAndNothingWhenHeWantsNothing) {
    const struct {
        EditKind kind;
        QVariant present;
        QString typed;
        std::optional<QVariant> input;
    } cases[] = {
        {EditKind::Text, "old", "new", QVariant("new")},
        {EditKind::Text, "old", "", QVariant("")},
        {EditKind::Int, 5, "7", QVariant(7)},
        {EditKind::Int, 5, " ", QVariant()},
        {EditKind::Int, 5, "7.5", QVariant("7.5")},
        {EditKind::Double, 2.5, "-1e3", QVariant(-1000.0)},
        {EditKind::Double, QVariant(), "x", QVariant("x")},
    };
    const InLocale locale(QLocale::C);
    for (const auto& edit : cases) {
        QWidget parent;
        EditorRequest request;
        request.kind = edit.kind;
        request.value = edit.present;
        auto& line = dynamic_cast<QLineEdit&>(*MakeEditor(request, &parent));
        EXPECT_EQ(TakeInput(line), std::nullopt);
        line.selectAll();
        edit.typed.isEmpty() ? QTest::keyClick(&line, Qt::Key_Delete) : QTest::keyClicks(&line, edit.typed);
        EXPECT_EQ(TakeInput(line), edit.input) << edit.typed.toStdString();
    }
}

TEST(Editors, ANumberGoesUpAndDownByItsStepAndNotPastWhatFits) {
    QWidget parent;
    EditorRequest request;
    request.kind = EditKind::Int;
    request.value = std::numeric_limits<int>::max() - 1;
    QWidget& line = *MakeEditor(request, &parent);
    QTest::keyClick(&line, Qt::Key_Up);
    QTest::keyClick(&line, Qt::Key_Up);
    EXPECT_EQ(TakeInput(line), QVariant(std::numeric_limits<int>::max()));
}

TEST(SourceIcons, TheThreeStatesHavePicturesOfTheirOwn) {
    const SourceIcons icons;
    std::vector<QImage> seen;
    for (const wchar_t* name :
         {L"PRODUCTTREE_VALUE_BY_SOURCE", L"PRODUCTTREE_VAL_NOT_BY_SRC", L"PRODUCTTREE_BY_SRC_MIXED"}) {
        const QIcon* icon = icons.Find(name);
        ASSERT_TRUE(icon);
        const QImage picture = icon->pixmap(16).toImage();
        EXPECT_EQ(std::count(seen.begin(), seen.end(), picture), 0);
        seen.push_back(picture);
    }
    EXPECT_EQ(icons.Find({}), nullptr);
    EXPECT_EQ(icons.Find(L"OTHER"), nullptr);
}

std::string Outline(const QTreeWidgetItem& item) {
    std::string text = item.text(0).toStdString();
    for (int i = 0; i < item.childCount(); ++i)
        text += (i == 0 ? " [" : " | ") + Outline(*item.child(i));
    return item.childCount() > 0 ? text + "]" : text;
}

TEST(SectionDialogs, ShowTheSectionsAsATreeAndGiveTheChosenOne) {
    platform::SectionRequest request;
    request.sections = {{L"Parts", 0}, {L"Loose\nones", 1}, {L"Bolts", 2}, {L"Spare", 1}, {L"Standard", 0}};
    request.linkText = L"Name";
    {
        const SectionDialog dialog(request);
        EXPECT_FALSE(dialog.GetDecision());
        const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
        EXPECT_FALSE(buttons->button(QDialogButtonBox::Ok)->isEnabled());
    }
    request.present = 2;
    request.isNameLinked = true;
    const SectionDialog dialog(request);
    auto& tree = *dialog.findChild<QTreeWidget*>();
    EXPECT_EQ(Outline(*tree.invisibleRootItem()), " [Parts [Loose ones [Bolts] | Spare] | Standard]");
    EXPECT_EQ(dialog.GetDecision()->section, 2U);
    EXPECT_TRUE(dialog.GetDecision()->isNameLinked);
    tree.setCurrentItem(tree.topLevelItem(1));
    dialog.findChild<QCheckBox*>()->setChecked(false);
    EXPECT_EQ(dialog.GetDecision()->section, 4U);
    EXPECT_FALSE(dialog.GetDecision()->isNameLinked);
}

} // namespace
