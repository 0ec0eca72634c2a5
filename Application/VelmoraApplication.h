#pragma once

#include <QtWidgets/QApplication>

#include "Application/EventLog.h"
#include "Application/Interface/QuestionPresenter.h"
#include "Host/QVApplication.h"

class NoteLibrary;

/// The application object. Errors and assertion failures end here in words: in a message box, or,
/// while the program does its work without windows, on standard error. So does, once, that
/// passwords cannot be saved.
class VelmoraApplication : public QApplication, public QVApplication, public QuestionPresenter {
    Q_OBJECT
public:
    VelmoraApplication(int &argumentCount, char **arguments);
    ~VelmoraApplication() override;

    /// Not owned; where the inbox comes from.
    void setLibrary(NoteLibrary *library) { m_library = library; }
    void setBatch(bool isBatch) { m_isBatch = isBatch; }
    /// Light or dark colours instead of the desktop's.
    void setDarkAppearance(bool dark);
    EventLog *eventLog() { return &m_eventLog; }

    std::shared_ptr<QVDatabase> inbox() const override;
    void logItemCmd(const QString &title, const QString &info) override;
    /// Returns at once; the message box is modal to the active window.
    void presentError(const Error &error) override;
    /// Without windows every question is refused.
    void ask(const Question &question, std::function<void(bool)> handler) override;

    bool notify(QObject *receiver, QEvent *event) override;

private:
    EventLog m_eventLog;
    NoteLibrary *m_library = nullptr;
    bool m_isBatch = false;
};
