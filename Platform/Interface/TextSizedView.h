#pragma once

#include <QtWidgets/QWidget>

#include "Platform/PlatformExport.h"

/// A view whose size is given in characters of its font, so that it has room for as much text at
/// any font size. Must be used on the main thread.
class PLATFORM_EXPORT TextSizedView : public QWidget {
    Q_OBJECT
    /// The width in average characters, and the height in lines. Setting them sets the minimum size
    /// and the size, for the font of that moment.
    Q_PROPERTY(QSize characters READ characters WRITE setCharacters)
public:
    using QWidget::QWidget;

    QSize characters() const { return m_characters; }
    void setCharacters(const QSize &characters);

private:
    QSize m_characters;
};
