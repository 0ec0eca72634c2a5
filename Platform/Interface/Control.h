#pragma once

#include <QtWidgets/QWidget>

#include "Platform/PlatformExport.h"

/// A view with an action: the target is what is connected to the `action` signal. Must be used on
/// the main thread.
class PLATFORM_EXPORT Control : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    /// What is painted behind a control: the ground of the list (Light), or the selection color
    /// (Dark).
    enum class BackgroundStyle { Light = 0, Dark = 1 };

    /// Returns whether `view` is a Control, QLabel, QAbstractButton, QLineEdit, QAbstractSpinBox or
    /// QComboBox; false for null.
    static bool isControl(const QWidget *view);
    /// Sets the palette of `control`, which may be any widget but not null, to the list palette for
    /// `style`, and stores the style in its dynamic property "backgroundStyle", whose change event
    /// labels with a color of their own observe. Child widgets keep their palettes. It must be
    /// called again when the application's palette has changed.
    static void setBackgroundStyle(QWidget *control, BackgroundStyle style);
    /// Returns the stored style; Light if none was set. `control` must not be null.
    static BackgroundStyle backgroundStyle(const QWidget *control);

Q_SIGNALS:
    /// Emitted when the user triggers the control; subclasses define how.
    void action();
};
