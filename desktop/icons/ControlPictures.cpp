#include "desktop/icons/ControlPictures.h"

#include <algorithm>
#include <iterator>

namespace desktop {

namespace {

/// The block of letters that stand for the control characters, in their order.
constexpr char16_t c_firstPicture = 0x2400;
constexpr char16_t c_controls = 0x20;

struct Picture {
    char16_t control;
    char16_t picture;
};

/// Others than those of the block: two that every font has, and one that stands elsewhere.
constexpr Picture c_pictures[] = {{u'\n', u'\u21B5'}, {u'\t', u'\u21E5'}, {0x7F, u'\u2421'}};

char16_t PictureOf(char16_t code) {
    const auto own = std::ranges::find(c_pictures, code, &Picture::control);
    if (own != std::end(c_pictures))
        return own->picture;
    return code < c_controls ? static_cast<char16_t>(c_firstPicture + code) : code;
}

char16_t ControlOf(char16_t code) {
    const auto own = std::ranges::find(c_pictures, code, &Picture::picture);
    if (own != std::end(c_pictures))
        return own->control;
    const bool isPicture = code >= c_firstPicture && code < c_firstPicture + c_controls;
    return isPicture ? static_cast<char16_t>(code - c_firstPicture) : code;
}

bool IsPicture(QChar character) {
    return ControlOf(character.unicode()) != character.unicode();
}

} // namespace

ControlPictures::ControlPictures(const QString& original)
    : m_areUsed(std::none_of(original.begin(), original.end(), IsPicture)) {}

QString ControlPictures::Show(QString text) const {
    if (m_areUsed)
        std::transform(text.begin(), text.end(), text.begin(),
                       [](QChar letter) { return QChar(PictureOf(letter.unicode())); });
    return text;
}

QString ControlPictures::Restore(QString text) const {
    if (m_areUsed)
        std::transform(text.begin(), text.end(), text.begin(),
                       [](QChar letter) { return QChar(ControlOf(letter.unicode())); });
    return text;
}

} // namespace desktop
