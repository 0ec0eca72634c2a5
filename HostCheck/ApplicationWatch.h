#pragma once

#include "Host/QVApplication.h"

/// Takes the place of the host's application object while it exists, and counts what the user would
/// see. Errors are not shown, since the check has caused them. There must be one at a time, which
/// must be destroyed before the host ends. Must be used on the main thread.
class ApplicationWatch : public QVApplication {
public:
    /// NSApp() must not be null.
    ApplicationWatch() { setNSApp(this); }
    /// Puts the host's application object back.
    ~ApplicationWatch() override { setNSApp(&m_application); }
    ApplicationWatch(const ApplicationWatch &) = delete;
    ApplicationWatch &operator=(const ApplicationWatch &) = delete;

    /// Calls the host's application object, as does logItemCmd() after it has counted.
    std::shared_ptr<QVDatabase> inbox() const override { return m_application.inbox(); }
    void logItemCmd(const QString &title, const QString &info) override {
        ++m_messages;
        m_application.logItemCmd(title, info);
    }
    /// Only counts.
    void presentError(const Error & /*error*/) override { ++m_errors; }

    /// Returns the number of errors that were presented.
    int errors() const { return m_errors; }
    /// Returns the number of entries that were appended to the log.
    int messages() const { return m_messages; }

private:
    QVApplication &m_application = *NSApp();
    int m_errors = 0;
    int m_messages = 0;
};
