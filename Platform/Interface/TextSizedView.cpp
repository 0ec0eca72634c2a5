#include "Platform/Interface/TextSizedView.h"

void TextSizedView::setCharacters(const QSize &characters) {
    m_characters = characters;
    const QFontMetrics font = fontMetrics();
    const QSize size(characters.width() * font.averageCharWidth(),
                     characters.height() * font.lineSpacing());
    setMinimumSize(size);
    resize(size);
}
