#pragma once

#include <QtWidgets/QProxyStyle>

/// Fusion with outlines that are visible on every ground, also on a selected row; its own have too
/// little contrast. Controls have them, also disabled ones, and lists, tables, texts and menus. The
/// outline of a control with the focus has the selection color, and the current item of a list with
/// the focus has a frame. Check marks and the icons of rows and buttons grow with the font. The
/// arrow of a bar without enough room has the color of texts. Buttons have more room at both sides
/// of their text, and so have the shortcuts in menus. Layouts have margins of 12 and spacings of 8
/// pixels unless they set others. Must be used on the main thread.
class OutlineStyle : public QProxyStyle {
    Q_OBJECT
public:
    OutlineStyle();

    using QProxyStyle::polish;
    using QProxyStyle::unpolish;
    void polish(QWidget *widget) override;
    void unpolish(QWidget *widget) override;
    /// Standard buttons have no icons, as other buttons have none, and the one that accepts is
    /// last, as in the sheets. Disabled items of menus have no second text beside them, which makes
    /// them hard to read on a dark ground.
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr,
                  const QWidget *widget = nullptr,
                  QStyleHintReturn *returnData = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget = nullptr) const override;
    /// The arrow of a bar is drawn without an icon: loading Qt's would load the plug-ins for all
    /// formats of pictures at each start.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;
    /// The frame of a current item encloses its icon and its check mark, too.
    QRect subElementRect(SubElement element, const QStyleOption *option,
                         const QWidget *widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
                    const QWidget *widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                           const QWidget *widget = nullptr) const override;

protected:
    /// Repaints the frame of a scroll area when its focus changes, which Qt does not.
    bool eventFilter(QObject *object, QEvent *event) override;
};
