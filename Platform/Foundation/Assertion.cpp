#include "Platform/Foundation/Assertion.h"

#include <QtCore/QCoreApplication>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

QString makeReport(const QString &message, const QString &method, const QString &sourceFile,
                   int line) {
    const QString place = line > 0 ? QStringLiteral("%1:%2").arg(sourceFile).arg(line) : sourceFile;
    return QStringLiteral("%1 (in %2, %3)").arg(message, method, place);
}

void report(const char *reason) {
    const QByteArray program = QCoreApplication::applicationName().toUtf8();
    std::fprintf(stderr, "%s stopped because of %s\n",
                 program.isEmpty() ? "The program" : program.constData(), reason);
}

[[noreturn]] void reportAndAbort() {
    try {
        if (const std::exception_ptr exception = std::current_exception()) {
            std::rethrow_exception(exception);
        }
        report("an unknown programming error.");
    } catch (const std::exception &error) {
        report((std::string("a programming error: ") + error.what()).c_str());
    } catch (...) {
        report("an unknown programming error.");
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
