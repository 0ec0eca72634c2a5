#pragma once

#include <QtWidgets/QApplication>

#include "Application/ErrorBoxes.h"
#include "Application/EventLog.h"
#include "Application/Guide.h"
#include "Application/Interface/QuestionPresenter.h"
#include "Host/QVApplication.h"
#include "Host/QVJobLog.h"

class NoteLibrary;

/// The application object. It presents errors and assertion failures: in a message box or, in batch
/// mode, on standard error. It also reports, once, that passwords cannot be saved, and each time
/// that one cannot be deleted. Must be used on the main thread; it is NSApp(), which also presents
/// questions, as long as it exists.
class VelmoraApplication : public QApplication,
                           public QVApplication,
                           public QVJobLog,
                           public QuestionPresenter {
    Q_OBJECT
    /// See SynchronizationTextKey. Empty until the main window sets it.
    Q_PROPERTY(QString synchronizationText READ synchronizationText WRITE setSynchronizationText
                   NOTIFY synchronizationTextChanged)
public:
    /// `argumentCount` is a reference that must stay valid as long as this object, see
    /// QApplication.
    VelmoraApplication(int &argumentCount, char **arguments);
    /// Plug-ins must have closed the profile before: NSApp() is null afterwards.
    ~VelmoraApplication() override;

    /// Sets the library that contains the inbox; null removes it. Not owned; must be removed before
    /// it is destroyed.
    void setLibrary(NoteLibrary *library) { m_library = library; }
    /// Sets batch mode: no windows, and errors on standard error. To be called before anything can
    /// fail.
    void setBatch(bool isBatch) { m_isBatch = isBatch; }
    /// Makes the desktop's colors and the Fusion style legible: the selection, placeholders, the
    /// ground of disabled fields, and the outlines of controls. To be called once, at the start.
    void useDesktopAppearance();
    /// Uses dark or light colors instead of the desktop's, with the Fusion style. Cannot be undone.
    void setDarkAppearance(bool dark);
    /// Returns the log, never null. Owned by the application.
    EventLog *eventLog() { return &m_eventLog; }
    QString synchronizationText() const { return m_synchronizationText; }
    void setSynchronizationText(const QString &text);
    /// See QVJobLog::ShowFunction. The main window shows the log.
    Q_INVOKABLE void showLog() { Q_EMIT logRequested(); }

    /// See HelpButton::ShowFunction.
    Q_INVOKABLE void showHelp(const QString &page) { Guide::open(page); }

    /// Returns the inbox; null if there is no library.
    std::shared_ptr<QVDatabase> inbox() const override;
    /// Appends to the event log.
    void logItemCmd(const QString &title, const QString &info) override;
    void logJob(const QVJobReport &report) override;
    /// Shows a message box with the next steps, modal to the active window, or to the window to
    /// which the active dialog belongs, and returns at once; several may be open. If that window is
    /// destroyed before the user has closed the box, the error is shown again, unless the program
    /// ends. The texts are plain text. An error that ErrorBoxes does not show again is added to the
    /// event log; others are not logged. In batch mode, writes only the description to standard
    /// error.
    void presentError(const Error &error) override;
    /// Shows a message box, modal as that of presentError(), and returns at once. `handler` is
    /// called once, from the event loop, or never if the program ends before; with false if the
    /// user closes the box, if its window is destroyed before, and always in batch mode. The button
    /// that refuses is the default one.
    Withdrawal ask(const Question &question, std::function<void(bool)> handler) override;
    /// Shows a dialog, modal as the box of presentError(), and returns at once. In batch mode,
    /// decides for Later.
    void askAboutRemoval(const RemovalQuestion &question,
                         std::function<void(RemovalDecision)> handler) override;

    /// Dispatches an event. If a handler raises an AssertionFailure, logs and presents it and
    /// returns true; the program continues. Other exceptions are not caught, which ends the
    /// program.
    bool notify(QObject *receiver, QEvent *event) override;

Q_SIGNALS:
    /// Emitted when a question is shown, with its text.
    void questionShown(const QString &text);
    void synchronizationTextChanged();
    /// Emitted when the user wants to read the log.
    void logRequested();

private:
    EventLog m_eventLog;
    ErrorBoxes m_errorBoxes;
    NoteLibrary *m_library = nullptr;
    QString m_synchronizationText;
    bool m_isBatch = false;
    /// Whether the event loop has ended: windows that go then answer no question.
    bool m_isEnding = false;
};
