#pragma once

#include <QtCore/QString>
#include <stdexcept>

#include "Platform/PlatformExport.h"

/// A programming error. It is thrown so that nothing goes on with a broken premise; where nobody
/// catches it, `installAssertionReporter` sees to it that it ends in words.
class PLATFORM_EXPORT AssertionFailure : public std::logic_error {
public:
    /// `sourceFile` has no extension; `line` is 0 where none is stated.
    AssertionFailure(const QString &message, const QString &method, const QString &sourceFile,
                     int line);
    ~AssertionFailure() override;

    /// "Invalid parameter not satisfying: location != nil"
    const QString &message() const { return m_message; }
    const QString &method() const { return m_method; }
    const QString &sourceFile() const { return m_sourceFile; }
    int line() const { return m_line; }
    /// The message, the method, and where it stands, in one line.
    QString report() const;

private:
    QString m_message;
    QString m_method;
    QString m_sourceFile;
    int m_line;
};

[[noreturn]] PLATFORM_EXPORT void failAssertion(const QString &message, const char *method,
                                                const char *sourceFile, int line = 0);

/// Raises "Invalid parameter not satisfying: CONDITION" unless `isSatisfied`.
inline void requireParameter(bool isSatisfied, const char *condition, const char *method,
                             const char *sourceFile, int line = 0) {
    if (!isSatisfied) {
        failAssertion(
            QLatin1StringView("Invalid parameter not satisfying: ") + QLatin1StringView(condition),
            method, sourceFile, line);
    }
}

/// From now on an exception that nobody catches writes its report to standard error before it ends
/// the program. Called once, at the start of a program.
PLATFORM_EXPORT void installAssertionReporter();
