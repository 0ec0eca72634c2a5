#include "Platform/Foundation/DurableFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <cerrno>
#include <cstdio>

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/Localization.h"
#include "Platform/Foundation/SystemError.h"

namespace {

/// Returns the error of the last call of the system.
tl::unexpected<Error> notWritten(const QString &path) {
    const int number = errno;
    return failure(systemError(
        number, localizedString(PlatformTable,
                                "The file “%1” could not be written. Check its permissions and the "
                                "space on its disk.")
                    .arg(path)));
}

tl::unexpected<Error> notRead(const QString &path) {
    const int number = errno;
    return failure(systemError(
        number, localizedString(PlatformTable,
                                "The file “%1” could not be read. Check its permissions and its "
                                "disk.")
                    .arg(path)));
}

Expected<void> fill(const QString &path, const QByteArray &contents) {
    QFile file(path);
    const bool isDone = file.open(QIODevice::WriteOnly) &&
                        file.write(contents) == contents.size() && file.flush() &&
                        fsync(file.handle()) == 0;
    return isDone ? Expected<void>() : notWritten(path);
}

}  // namespace

Expected<void> DurableFile::create(const QString &path) {
    const FileDescriptor file(open(QFile::encodeName(path).constData(),
                                   O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW,
                                   S_IRUSR | S_IWUSR));
    return file.isValid() ? Expected<void>() : notWritten(path);
}

Expected<void> DurableFile::write(const QString &path, const QByteArray &contents) {
    const QString unfinished = path + QStringLiteral(".new");
    QFile::remove(unfinished);
    return create(unfinished)
        .and_then([&] { return fill(unfinished, contents); })
        .and_then([&] { return rename(unfinished, path); })
        .map_error([&](const Error &error) {
            QFile::remove(unfinished);
            return error;
        });
}

Expected<void> DurableFile::flush(const QString &path) {
    const FileDescriptor file(open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    return file.isValid() && fsync(file.number()) == 0 ? Expected<void>() : notWritten(path);
}

Expected<void> DurableFile::rename(const QString &from, const QString &to) {
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0) {
        return notWritten(to);
    }
    return flush(QFileInfo(to).path());
}

Expected<void> DurableFile::copy(const QString &from, const QString &to) {
    constexpr qint64 chunkSize = 1LL << 20;
    if (Expected<void> created = create(to); !created) {
        return created;
    }
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly)) {
        return notRead(from);
    }
    QFile target(to);
    if (!target.open(QIODevice::WriteOnly)) {
        return notWritten(to);
    }
    while (!source.atEnd()) {
        const QByteArray chunk = source.read(chunkSize);
        if (chunk.isEmpty()) {
            return notRead(from);
        }
        if (target.write(chunk) != chunk.size()) {
            return notWritten(to);
        }
    }
    return target.flush() && fsync(target.handle()) == 0 ? Expected<void>() : notWritten(to);
}
