#include "desktop/icons/RowIcons.h"

#include <QImage>
#include <QPixmap>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

QImage Picture(const desktop::RowIcons& icons, int number) {
    return icons.Get(number).pixmap(16).toImage().convertToFormat(QImage::Format_ARGB32);
}

TEST(RowIcons, EveryNumberThatThePanelShowsHasADrawing) {
    // Objects, then groups, then sections, then documents.
    const std::set<int> shown = {63248, 63247, 58775, 58778, 57348, 58599, 61275, 58598, 58465, 58764,
                                 58806, 58787, 58881, 60275, 60730, 60735, 60731, 60732, 60733, 60736,
                                 63251, 63250, 58763, 58760, 58776, 58767, 60897, 58782, 58033, 61276,
                                 60276, 58762, 58759, 58766, 60737, 63242, 61166, 60981, 60980, 60979};
    const std::vector<int> numbers = desktop::RowIcons::GetNumbers();
    EXPECT_EQ(numbers.size(), shown.size());
    EXPECT_EQ(std::set<int>(numbers.begin(), numbers.end()), shown);
}

TEST(RowIcons, NoTwoDrawingsAreAlikeEvenWhenSmall) {
    const desktop::RowIcons icons;
    std::vector<QImage> seen;
    for (const int number : desktop::RowIcons::GetNumbers()) {
        const QImage picture = Picture(icons, number);
        EXPECT_EQ(std::count(seen.begin(), seen.end(), picture), 0) << number;
        seen.push_back(picture);
    }
}

TEST(RowIcons, ARowWithoutIconShowsNoneAndAnUnknownOneIsAnyOther) {
    const desktop::RowIcons icons;
    EXPECT_TRUE(icons.Get(0).isNull());
    EXPECT_EQ(Picture(icons, 12345), Picture(icons, 58764));
}

} // namespace
