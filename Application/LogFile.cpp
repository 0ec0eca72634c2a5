#include "Application/LogFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <cerrno>
#include <cstring>

#include "Application/ApplicationError.h"
#include "Platform/Foundation/DurableFile.h"

namespace {

QString logFileText(const char *text) {
    return QCoreApplication::translate("LogFile", text);
}

/// Reads up to `limit` bytes from the end of the file. Fails with the system's text.
tl::expected<QByteArray, QString> endOf(int file, qint64 size, qint64 limit) {
    QFile reader;
    QByteArray contents;
    if (reader.open(file, QIODevice::ReadOnly, QFileDevice::DontCloseHandle) &&
        reader.seek(std::max<qint64>(0, size - limit))) {
        contents = reader.read(limit);
    }
    if (reader.error() != QFile::NoError) {
        return tl::unexpected(reader.errorString());
    }
    return contents;
}

}  // namespace

QString LogFile::pathInProfile(const QString &profile) {
    return profile + QStringLiteral("/log.jsonl");
}

Expected<QList<LogEntry>> LogFile::open(const QString &path) {
    return openForAppending(path).map([&](const QByteArray &contents) {
        QList<LogEntry> entries;
        QList<QByteArray> lines = contents.split('\n');
        lines.removeIf([](const QByteArray &line) { return line.isEmpty(); });
        if (m_size > contents.size() && !lines.isEmpty()) {
            // Its beginning was not read.
            lines.removeFirst();
        }
        for (const QByteArray &line : std::as_const(lines)) {
            if (const auto entry = LogEntry::fromJson(QJsonDocument::fromJson(line).object())) {
                entries.append(*entry);
            }
        }
        if (const qsizetype damaged = lines.size() - entries.size(); damaged > 0) {
            entries.append({.time = QDateTime::currentDateTime(),
                            .text = logFileText("Lines of the log file “%1” that cannot be read "
                                                "and are not shown: %2. Check its disk.")
                                        .arg(path)
                                        .arg(damaged)});
        }
        return entries;
    });
}

Expected<QByteArray> LogFile::openForAppending(const QString &path) {
    m_path = path;
    // A pipe would block.
    m_file = FileDescriptor(::open(
        QFile::encodeName(path).constData(),
        O_RDWR | O_CREAT | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR));
    struct stat status {};
    if (!m_file.isValid() || fstat(m_file.number(), &status) != 0) {
        return failure(systemFailure(errno));
    }
    if (!S_ISREG(status.st_mode) || fchmod(m_file.number(), S_IRUSR | S_IWUSR) != 0) {
        const Error refused = systemFailure(S_ISREG(status.st_mode) ? errno : EINVAL);
        m_file = FileDescriptor();
        return failure(refused);
    }
    m_size = status.st_size;
    m_longest = Limit;
    return endOf(m_file.number(), m_size, Limit)
        .map_error([&](const QString &reason) { return notSaved(reason); })
        .map([&](const QByteArray &contents) {
            m_isTorn = !contents.isEmpty() && !contents.endsWith('\n');
            return contents;
        });
}

Expected<void> LogFile::append(const LogEntry &entry) {
    const QByteArray line = (m_isTorn ? QByteArray("\n") : QByteArray()) +
                            QJsonDocument(entry.toJson()).toJson(QJsonDocument::Compact) + '\n';
    const ssize_t written =
        write(m_file.number(), line.constData(), static_cast<std::size_t>(line.size()));
    m_isTorn = written != line.size();
    m_size += std::max<ssize_t>(0, written);
    if (m_isTorn) {
        return failure(systemFailure(written < 0 ? errno : ENOSPC));
    }
    return m_size > m_longest ? shorten() : Expected<void>();
}

Expected<void> LogFile::shorten() {
    m_longest = m_size + Limit / 8;
    const auto newer = endOf(m_file.number(), m_size, Limit / 2);
    if (!newer) {
        return failure(notSaved(newer.error()));
    }
    return DurableFile::write(m_path, newer->mid(newer->indexOf('\n') + 1))
        .map_error([&](const Error &error) { return notSaved(error.localizedFailureReason); })
        .and_then([&] { return openForAppending(m_path).map([](const QByteArray &) {}); });
}

Error LogFile::systemFailure(int number) const {
    return notSaved(QString::fromLocal8Bit(std::strerror(number)));
}

Error LogFile::notSaved(const QString &reason) const {
    return applicationError(
        logFileText("The log cannot be saved in the file “%1” (%2). Check its permissions "
                    "and the space on its disk.")
            .arg(m_path, reason));
}
