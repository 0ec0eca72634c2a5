#include "Support/DiskCache.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <stdexcept>

DiskCache::File &DiskCache::file(const QString &path) {
    auto found = m_files.find(path);
    if (found == m_files.end()) {
        QFile file(path);
        const QByteArray stored = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        found = m_files.insert(path, {stored, {}});
    }
    return *found;
}

void DiskCache::write(const QString &path, qint64 offset, const QByteArray &bytes) {
    file(path).changes.append({offset, bytes});
}

void DiskCache::cut(const QString &path, qint64 size) {
    file(path).changes.append({size, {}, true});
}

void DiskCache::flush(const QString &path) {
    File &flushed = file(path);
    for (const Change &change : std::as_const(flushed.changes)) {
        const qsizetype end = change.offset + change.bytes.size();
        if (change.isEnd || flushed.stored.size() < end) {
            flushed.stored.resize(end, '\0');
        }
        flushed.stored.replace(change.offset, change.bytes.size(), change.bytes);
    }
    flushed.changes.clear();
}

void DiskCache::drop(const QString &path) {
    file(path).changes.clear();
}

void DiskCache::remove(const QString &path) {
    m_files.remove(path);
}

void DiskCache::losePower(const QString &folder) const {
    for (auto each = m_files.begin(); each != m_files.end(); ++each) {
        QFile copy(folder + u'/' + QFileInfo(each.key()).fileName());
        if (!copy.open(QIODevice::WriteOnly) || copy.write(each->stored) != each->stored.size()) {
            throw std::runtime_error("cannot write the copy of " + each.key().toStdString());
        }
    }
}
