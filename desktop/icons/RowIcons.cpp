#include "desktop/icons/RowIcons.h"

#include "desktop/icons/IconGlyphs.h"

#include <QPainter>

#include <algorithm>
#include <array>

namespace desktop {

namespace {

/// How a drawing stands for more than one object.
enum class Form {
    Single,
    /// A group of like objects: one behind the other.
    Stack,
    /// A section: the drawing on a folder.
    Folder
};

struct IconRow {
    int number;
    glyphs::Draw draw;
    Form form;
};

constexpr int c_otherIcon = 58764;

// clang-format off
constexpr std::array c_icons = {
    IconRow{63248, glyphs::Assembly,         Form::Single},
    IconRow{58763, glyphs::Assembly,         Form::Stack},
    IconRow{63247, glyphs::Part,             Form::Single},
    IconRow{58760, glyphs::Part,             Form::Stack},
    IconRow{58775, glyphs::StandardPart,     Form::Single},
    IconRow{58778, glyphs::CataloguePart,    Form::Single},
    IconRow{58776, glyphs::StandardPart,     Form::Stack},
    IconRow{57348, glyphs::Billet,           Form::Single},
    IconRow{58033, glyphs::Billet,           Form::Stack},
    IconRow{58599, glyphs::Sheet,            Form::Single},
    IconRow{58598, glyphs::Drawing,          Form::Single},
    IconRow{58465, glyphs::PartsList,        Form::Single},
    IconRow{60275, glyphs::Report,           Form::Single},
    IconRow{60897, glyphs::Report,           Form::Stack},
    IconRow{61275, glyphs::Phantom,          Form::Single},
    IconRow{61276, glyphs::Phantom,          Form::Stack},
    IconRow{58764, glyphs::Other,            Form::Single},
    IconRow{58767, glyphs::Other,            Form::Stack},
    IconRow{58806, glyphs::Library,          Form::Single},
    IconRow{58787, glyphs::Complex,          Form::Single},
    IconRow{58782, glyphs::Complex,          Form::Stack},
    IconRow{58881, glyphs::Kit,              Form::Single},
    IconRow{60730, glyphs::Profile,          Form::Single},
    IconRow{60731, glyphs::Circle,           Form::Single},
    IconRow{60732, glyphs::Text,             Form::Single},
    IconRow{60733, glyphs::Hatch,            Form::Single},
    IconRow{60735, glyphs::Axis,             Form::Single},
    IconRow{60736, glyphs::Dimension,        Form::Single},
    IconRow{63250, glyphs::EmbodiedPart,     Form::Single},
    IconRow{63251, glyphs::EmbodiedAssembly, Form::Single},
    IconRow{61166, glyphs::Document,         Form::Single},
    IconRow{60981, glyphs::NameDocument,     Form::Single},
    IconRow{60980, glyphs::FormatDocument,   Form::Single},
    IconRow{60979, glyphs::SourceDocument,   Form::Single},
    IconRow{60276, glyphs::Sheet,            Form::Folder},
    IconRow{58762, glyphs::Assembly,         Form::Folder},
    IconRow{58759, glyphs::Part,             Form::Folder},
    IconRow{58766, glyphs::StandardPart,     Form::Folder},
    IconRow{60737, glyphs::Material,         Form::Folder},
    IconRow{63242, glyphs::Nothing,          Form::Folder},
};
// clang-format on

void DrawScaled(QPainter& painter, glyphs::Draw draw, QPointF place, double scale) {
    painter.save();
    painter.translate(place);
    painter.scale(scale, scale);
    draw(painter);
    painter.restore();
}

void DrawIcon(QPainter& painter, const IconRow& icon) {
    switch (icon.form) {
    case Form::Single:
        icon.draw(painter);
        return;
    case Form::Stack:
        painter.setOpacity(0.55);
        DrawScaled(painter, icon.draw, {4.2, 0}, 0.74);
        painter.setOpacity(1);
        DrawScaled(painter, icon.draw, {0, 4.2}, 0.74);
        return;
    case Form::Folder:
        glyphs::Folder(painter);
        DrawScaled(painter, icon.draw, {5.6, 5.6}, 0.65);
        return;
    }
}

const IconRow& FindIcon(int number) {
    const auto find = [](int wanted) {
        return std::find_if(c_icons.begin(), c_icons.end(),
                            [&](const IconRow& icon) { return icon.number == wanted; });
    };
    const auto found = find(number);
    return found != c_icons.end() ? *found : *find(c_otherIcon);
}

} // namespace

const QIcon& RowIcons::Get(int number) const {
    const auto [icon, isNew] = m_icons.try_emplace(number);
    if (isNew && number != 0)
        icon->second =
            glyphs::MakeIcon([number](QPainter& painter) { DrawIcon(painter, FindIcon(number)); });
    return icon->second;
}

std::vector<int> RowIcons::GetNumbers() {
    std::vector<int> numbers;
    numbers.reserve(c_icons.size());
    for (const IconRow& icon : c_icons)
        numbers.push_back(icon.number);
    return numbers;
}

} // namespace desktop
