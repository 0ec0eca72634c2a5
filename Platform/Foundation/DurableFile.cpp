#include "Platform/Foundation/DurableFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <cerrno>
#include <cstdio>

#include "Platform/Foundation/FileDescriptor.h"

bool DurableFile::create(const QString &path) {
    return FileDescriptor(open(QFile::encodeName(path).constData(),
                               O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW,
                               S_IRUSR | S_IWUSR))
        .isValid();
}

bool DurableFile::write(const QString &path, const QByteArray &contents) {
    const QString unfinished = path + QStringLiteral(".new");
    QFile::remove(unfinished);
    QFile file(unfinished);
    if (create(unfinished) && file.open(QIODevice::WriteOnly) &&
        file.write(contents) == contents.size() && file.flush() && fsync(file.handle()) == 0 &&
        rename(unfinished, path)) {
        return true;
    }
    const int number = errno;
    QFile::remove(unfinished);
    errno = number;
    return false;
}

bool DurableFile::flush(const QString &path) {
    const FileDescriptor file(open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    return file.isValid() && fsync(file.number()) == 0;
}

bool DurableFile::rename(const QString &from, const QString &to) {
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) ==
               0 &&
           flush(QFileInfo(to).path());
}

bool DurableFile::copy(const QString &from, const QString &to) {
    constexpr qint64 chunkSize = 1LL << 20;
    QFile source(from);
    QFile target(to);
    if (!create(to) || !source.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly)) {
        return false;
    }
    while (!source.atEnd()) {
        const QByteArray chunk = source.read(chunkSize);
        if (chunk.isEmpty() || target.write(chunk) != chunk.size()) {
            return false;
        }
    }
    return target.flush() && fsync(target.handle()) == 0;
}
