#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>

/// The difference between what a program has written to files and what their disk has stored, as
/// far as it was told. Stores nothing itself.
class DiskCache {
public:
    /// To be called before the file `path` is written or cut to `size` bytes. What it contains when
    /// it is named first counts as stored.
    void write(const QString &path, qint64 offset, const QByteArray &bytes);
    void cut(const QString &path, qint64 size);
    /// Stores what was written to the file.
    void flush(const QString &path);
    /// The disk could not store what was written to the file, and the system does not try again.
    void drop(const QString &path);
    /// To be called before the file is deleted, which takes effect at once.
    void remove(const QString &path);

    /// Changes the copies of the files in `folder`, which have their names, to what a power failure
    /// leaves of them. Throws std::runtime_error if one cannot be written.
    void losePower(const QString &folder) const;

private:
    struct Change {
        qint64 offset;
        QByteArray bytes;
        /// Whether the file ends at the offset instead.
        bool isEnd = false;
    };
    struct File {
        QByteArray stored;
        QList<Change> changes;
    };

    File &file(const QString &path);

    QHash<QString, File> m_files;
};
