#pragma once

#include <QtWidgets/QProxyStyle>

/// Fusion with outlines of check boxes and radio buttons that are visible on dark colors; its own
/// are darker than the window. Has no effect on widgets with light colors.
class DarkStyle : public QProxyStyle {
    Q_OBJECT
public:
    DarkStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
};
