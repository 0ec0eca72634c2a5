#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QLabel>

#include "Platform/PlatformExport.h"

/// One line of plain text, cut with an ellipsis where there is no room for it; the tool tip then
/// has it whole.
class PLATFORM_EXPORT TextLabel : public QLabel {
    Q_OBJECT
    /// On a dark background the selection's text colour stands for it, with its opacity.
    Q_PROPERTY(QColor textColor READ textColor WRITE setTextColor)
public:
    explicit TextLabel(QWidget *parent = nullptr);

    QColor textColor() const { return m_textColor; }
    void setTextColor(const QColor &color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void applyColor();

    QColor m_textColor = Qt::black;
};
