#pragma once

#include <QtCore/QString>
#include <stdexcept>

#include "Platform/PlatformExport.h"

/// A programming error, such as an argument that violates a contract. It is thrown, so that nothing
/// continues on a false assumption. If it is not caught, the process terminates, and reports it
/// first if installAssertionReporter() was called. An application may catch it where it dispatches
/// events, and go on: functions that raise it must therefore leave their objects usable, and check
/// their arguments before they change anything.
class PLATFORM_EXPORT AssertionFailure : public std::logic_error {
public:
    /// `sourceFile` is given without its extension. `line` is 0 if no line is stated. Used by
    /// failAssertion(); other code should call that.
    AssertionFailure(const QString &message, const QString &method, const QString &sourceFile,
                     int line);
    ~AssertionFailure() override;

    /// What is wrong, for example "Invalid parameter not satisfying: location != nil".
    const QString &message() const { return m_message; }
    /// The function in which it was found, with its class.
    const QString &method() const { return m_method; }
    /// The source file without extension. For developers, not localized.
    const QString &sourceFile() const { return m_sourceFile; }
    /// The line in the source file; 0 if no line is stated.
    int line() const { return m_line; }
    /// Returns the message, the method, the source file and the line in one line of text. The same
    /// text as what(), in English.
    QString report() const;

private:
    QString m_message;
    QString m_method;
    QString m_sourceFile;
    int m_line;
};

/// Throws an AssertionFailure. Parameters as for its constructor, in UTF-8. Thread-safe.
[[noreturn]] PLATFORM_EXPORT void failAssertion(const QString &message, const char *method,
                                                const char *sourceFile, int line = 0);

/// Throws an AssertionFailure with the message "Invalid parameter not satisfying: CONDITION" unless
/// `isSatisfied`. Thread-safe.
inline void requireParameter(bool isSatisfied, const char *condition, const char *method,
                             const char *sourceFile, int line = 0) {
    if (!isSatisfied) {
        failAssertion(
            QLatin1StringView("Invalid parameter not satisfying: ") + QLatin1StringView(condition),
            method, sourceFile, line);
    }
}

/// Makes the process write a report to standard error before an uncaught exception terminates it.
/// Call it once, at the start of a program; it replaces the process's terminate handler. The
/// process is then ended with abort().
PLATFORM_EXPORT void installAssertionReporter();
