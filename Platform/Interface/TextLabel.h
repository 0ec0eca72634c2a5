#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QLabel>

#include "Platform/PlatformExport.h"

/// Plain text on one line, elided at its end if it is too long; the tool tip then shows the whole
/// text, unless one was set. With QLabel's property "wordWrap", the text is wrapped instead,
/// within words only if one is wider than the label, and the height depends on the width. The label
/// shows markup as plain text. Must be used on the main thread.
class PLATFORM_EXPORT TextLabel : public QLabel {
    Q_OBJECT
    /// The color of the text; invalid, the default, is the palette's. On the selection color and on
    /// dark windows it is replaced by the palette's text color with the opacity of this one. If the
    /// text then has too little contrast, it is painted less transparent.
    Q_PROPERTY(QColor textColor READ textColor WRITE setTextColor)
public:
    explicit TextLabel(QWidget *parent = nullptr);

    QColor textColor() const { return m_textColor; }
    void setTextColor(const QColor &color);

    /// Returns the size at which nothing is elided or wrapped.
    QSize sizeHint() const override;
    /// Returns the height of a line, at width 0: the label may be made narrower than its text.
    QSize minimumSizeHint() const override;
    /// Returns the height of the wrapped text; -1 if it is not wrapped.
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// Returns the color for the present ground, see textColor.
    QColor paintedColor() const;

    QColor m_textColor;
};
