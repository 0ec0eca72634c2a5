#include "Application/LogFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <cerrno>
#include <cstring>

#include "Platform/Foundation/DurableFile.h"

namespace {

QString logFileText(const char *text) {
    return QCoreApplication::translate("LogFile", text);
}

/// Reads up to `limit` bytes from the end of the file.
QByteArray endOf(int file, qint64 size, qint64 limit) {
    QFile reader;
    if (!reader.open(file, QIODevice::ReadOnly, QFileDevice::DontCloseHandle)) {
        return {};
    }
    reader.seek(std::max<qint64>(0, size - limit));
    return reader.read(limit);
}

}  // namespace

QString LogFile::pathInProfile(const QString &profile) {
    return profile + QStringLiteral("/log.jsonl");
}

Expected<QList<LogEntry>> LogFile::open(const QString &path) {
    return openForAppending(path).map([](const QByteArray &contents) {
        QList<LogEntry> entries;
        const QList<QByteArray> lines = contents.split('\n');
        for (const QByteArray &line : lines) {
            if (const auto entry = LogEntry::fromJson(QJsonDocument::fromJson(line).object())) {
                entries.append(*entry);
            }
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
        return failure(error());
    }
    if (!S_ISREG(status.st_mode) || fchmod(m_file.number(), S_IRUSR | S_IWUSR) != 0) {
        errno = S_ISREG(status.st_mode) ? errno : EINVAL;
        const Error refused = error();
        m_file = FileDescriptor();
        return failure(refused);
    }
    m_size = status.st_size;
    const QByteArray contents = endOf(m_file.number(), m_size, Limit);
    m_isTorn = !contents.isEmpty() && !contents.endsWith('\n');
    return contents;
}

Expected<void> LogFile::append(const LogEntry &entry) {
    const QByteArray line = (m_isTorn ? QByteArray("\n") : QByteArray()) +
                            QJsonDocument(entry.toJson()).toJson(QJsonDocument::Compact) + '\n';
    const ssize_t written =
        write(m_file.number(), line.constData(), static_cast<std::size_t>(line.size()));
    m_isTorn = written != line.size();
    m_size += std::max<ssize_t>(0, written);
    if (m_isTorn) {
        errno = written < 0 ? errno : ENOSPC;
        return failure(error());
    }
    return m_size > Limit ? shorten() : Expected<void>();
}

Expected<void> LogFile::shorten() {
    const QByteArray contents = endOf(m_file.number(), m_size, Limit / 2);
    if (!DurableFile::write(m_path, contents.mid(contents.indexOf('\n') + 1))) {
        return failure(error());
    }
    return openForAppending(m_path).map([](const QByteArray &) {});
}

Error LogFile::error() const {
    return {.domain = QStringLiteral("Velmora"),
            .localizedDescription =
                logFileText("The log cannot be saved in the file “%1” (%2). Check its permissions "
                            "and the space on its disk.")
                    .arg(m_path, QString::fromLocal8Bit(std::strerror(errno)))};
}
