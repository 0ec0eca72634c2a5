#pragma once

#include <QtCore/QEventLoop>
#include <QtCore/QObject>
#include <QtCore/QPointer>

#include "Platform/Interface/SheetWindow.h"

/// Controls one window, which it loads from the nib of a name, and runs it as a sheet. Main thread.
class PLATFORM_EXPORT WindowController : public QObject {
    Q_OBJECT
public:
    /// The form of that name must be made of a SheetWindow.
    explicit WindowController(const QString &windowNibName);
    ~WindowController() override;

    /// Loaded and connected when first asked for; `awakeFromNib` and `windowDidLoad` then run
    /// before this returns. The controller owns it, but so does the parent that a sheet gets.
    QWidget *window();
    bool isWindowLoaded() const { return m_window; }

protected:
    /// The window has just been loaded and the outlets are set.
    virtual void awakeFromNib() {}
    virtual void windowDidLoad() {}
    /// The person pressed Escape or closed the window. Nothing happens unless overridden.
    virtual void leaveSheet() {}

    /// Shows the window as a sheet, modal to `parentWindow`'s window only, and returns at once.
    void beginSheet(QWidget *parentWindow);
    /// Ends the sheet; harmless where none was begun.
    void endSheet(int returnCode);
    /// Shows the window as a sheet of `parentWindow`'s window, modal to the whole application. Runs
    /// the event loop until `stopModal`, or until the application or the window ends, and then ends
    /// the sheet with that code.
    void runModalSheet(QWidget *parentWindow);
    void stopModal(int code);

private:
    QString m_windowNibName;
    QPointer<SheetWindow> m_window;
    QEventLoop m_modalLoop;
};
