#pragma once

#include <QtWidgets/QWidget>

#include "Platform/PlatformExport.h"

/// A view with an action. What is connected to `action` is its target.
class PLATFORM_EXPORT Control : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    /// How what a control writes stands out from what is painted behind it.
    enum class BackgroundStyle { Light = 0, Dark = 1 };

    /// Whether `view` is a control: one of ours, or a label, button, field, spin box or pop-up of
    /// Qt's.
    static bool isControl(const QWidget *view);
    /// Makes a control write in the colour for text on white (Light) or on the selection colour
    /// (Dark). Views in the control keep the palettes that they have.
    static void setBackgroundStyle(QWidget *control, BackgroundStyle style);
    /// Light for a control whose style was never set.
    static BackgroundStyle backgroundStyle(const QWidget *control);

Q_SIGNALS:
    void action();
};
