#include "Platform/Foundation/Assertion.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

QString makeReport(const QString &message, const QString &method, const QString &sourceFile,
                   int line) {
    const QString place = line > 0 ? QStringLiteral("%1:%2").arg(sourceFile).arg(line) : sourceFile;
    return QStringLiteral("%1 (in %2, %3)").arg(message, method, place);
}

[[noreturn]] void reportAndAbort() {
    if (const std::exception_ptr exception = std::current_exception()) {
        try {
            std::rethrow_exception(exception);
        } catch (const std::exception &error) {
            std::fprintf(stderr, "Velmora stopped because of a programming error: %s\n",
                         error.what());
        } catch (...) {
            std::fputs("Velmora stopped because of an unknown programming error.\n", stderr);
        }
    }
    std::abort();
}

}  // namespace

AssertionFailure::AssertionFailure(const QString &message, const QString &method,
                                   const QString &sourceFile, int line)
    : std::logic_error(makeReport(message, method, sourceFile, line).toStdString()),
      m_message(message),
      m_method(method),
      m_sourceFile(sourceFile),
      m_line(line) {}

AssertionFailure::~AssertionFailure() = default;

QString AssertionFailure::report() const {
    return QString::fromUtf8(what());
}

void failAssertion(const QString &message, const char *method, const char *sourceFile, int line) {
    throw AssertionFailure(message, QString::fromUtf8(method), QString::fromUtf8(sourceFile), line);
}

void installAssertionReporter() {
    std::set_terminate(&reportAndAbort);
}
