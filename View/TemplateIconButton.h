#pragma once

#include <QtWidgets/QToolButton>

/// A tool button that shows an icon which is a mask (QIcon::isMask) in the color of the text around
/// it, so that it can be seen on light, dark and selected grounds. Other icons are shown as they
/// are. Must be used on the main thread.
class TemplateIconButton : public QToolButton {
    Q_OBJECT
public:
    using QToolButton::QToolButton;

protected:
    void initStyleOption(QStyleOptionToolButton *option) const override;
};
