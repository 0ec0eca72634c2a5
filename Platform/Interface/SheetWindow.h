#pragma once

#include <QtWidgets/QDialog>

#include "Platform/PlatformExport.h"

/// The window of a sheet. It never closes itself: the Escape key and the window manager's close
/// button only emit leaving(), and the controller decides. QDialog::done() ends the sheet. It grows
/// with the texts in it. Its buttons and labels get mnemonics when it is shown. The first control
/// has the keyboard focus then, without empty lists, in which there is nothing to choose, and the
/// HelpButton. Must be used on the main thread.
class PLATFORM_EXPORT SheetWindow : public QDialog {
    Q_OBJECT
public:
    explicit SheetWindow(QWidget *parent = nullptr);

    /// Returns whether a sheet of `window` is shown.
    static bool isShownOn(const QWidget &window);

    /// Emits leaving(); does not close the window.
    void reject() override;

Q_SIGNALS:
    /// Emitted when the user wants to leave the sheet. A handler may delete the window later, not
    /// immediately. Without a handler, the sheet stays open.
    void leaving();

protected:
    /// Ignores the event and emits leaving(), also when the application asks all windows to close.
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    /// Gives the focus to the control after the empty lists and the HelpButton with which the sheet
    /// begins. Has no effect if it begins with another control, or if one has the focus.
    void focusFirstField();
};
