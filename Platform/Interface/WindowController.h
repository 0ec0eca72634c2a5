#pragma once

#include <QtCore/QEventLoop>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QVariantList>

#include "Platform/Interface/SheetWindow.h"

/// Controls one window, loaded from a form, and runs it as a sheet. Must be used on the main
/// thread.
class PLATFORM_EXPORT WindowController : public QObject {
    Q_OBJECT
public:
    /// `windowNibName` is the name of a form whose root is a SheetWindow. The form is not loaded
    /// yet.
    explicit WindowController(const QString &windowNibName);
    /// Hides the window and deletes it from the event loop, since one of its buttons may be the
    /// caller.
    ~WindowController() override;

    /// Returns the window. The first call loads and connects it and calls awakeFromNib() and
    /// windowDidLoad(). Never null. The controller and the parent of the sheet both own it: if the
    /// parent deletes it, runModalSheet() returns and the next call loads a new window. Raises an
    /// AssertionFailure if the form cannot be loaded or is not made of a SheetWindow.
    QWidget *window();
    /// Returns whether window() has loaded the window and it still exists.
    bool isWindowLoaded() const { return m_window; }

protected:
    /// Called when the window is loaded and the outlets are set. Bindings are connected already, so
    /// setting a bound key updates the widgets.
    virtual void awakeFromNib() {}
    /// Called after awakeFromNib().
    virtual void windowDidLoad() {}
    /// Called when the user presses Escape or closes the window. The default has no effect: the
    /// sheet stays. Must not destroy the window within the call.
    virtual void leaveSheet() {}

    /// Returns what the user can enter in the window: the values of its fields, in an order that
    /// stays the same. Loads the window if necessary. Two equal results mean that nothing was
    /// changed between the calls.
    QVariantList fieldValues();

    /// Shows the window as a sheet of the window that contains `parentWindow`, modal to that window
    /// only. `parentWindow` must not be null. Returns without waiting for the end of the sheet, see
    /// endSheet().
    void beginSheet(QWidget *parentWindow);
    /// Closes the sheet with `returnCode`. Has no effect if the window is not loaded.
    void endSheet(int returnCode);
    /// Shows the window as a sheet of the window that contains `parentWindow`, which must not be
    /// null, modal to the whole application. Runs a nested event loop until stopModal(), until the
    /// window is destroyed, or until the application quits, and then ends the sheet with that code.
    /// Not reentrant. The controller must not be destroyed meanwhile.
    void runModalSheet(QWidget *parentWindow);
    /// Ends the nested event loop with `code`. Has no effect if it is not running.
    void stopModal(int code);

private:
    QString m_windowNibName;
    QPointer<SheetWindow> m_window;
    QEventLoop m_modalLoop;
};
