#include "Platform/Foundation/UserDefaults.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDebug>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtCore/QSettings>
#include <QtCore/QThread>
#include <cerrno>
#include <utility>

#include "Platform/Foundation/Localization.h"

namespace UserDefaults {

namespace {

/// Lets only the user access the file and its folder, if they exist.
void makePrivate(const QSettings &settings) {
    const QString file = settings.fileName();
    for (const auto &[path, mode] : {std::pair(QFileInfo(file).path(), mode_t(S_IRWXU)),
                                     std::pair(file, mode_t(S_IRUSR | S_IWUSR))}) {
        struct stat status = {};
        const QByteArray name = QFile::encodeName(path);
        const bool isOpen =
            stat(name.constData(), &status) == 0 && (status.st_mode & (S_IRWXG | S_IRWXO)) != 0;
        if (isOpen && chmod(name.constData(), mode) != 0) {
            qWarning().noquote()
                << QStringLiteral("Others can access “%1”: %2").arg(path, qt_error_string(errno));
        }
    }
}

/// Returns the settings object of the main thread, updated with what other processes have written.
/// It is kept because opening one takes several times as long as a read. Owned by the application
/// object.
QSettings &mainThreadSettings() {
    static QPointer<QSettings> settings;
    // An object keeps its first error for ever.
    if (settings && settings->status() != QSettings::NoError) {
        delete settings;
    }
    if (!settings) {
        settings = new QSettings(QCoreApplication::instance());
        makePrivate(*settings);
    }
    settings->sync();
    return *settings;
}

template <class Use>
auto withSettings(const Use &use) {
    const QCoreApplication *application = QCoreApplication::instance();
    if (application && application->thread() == QThread::currentThread()) {
        return use(mainThreadSettings());
    }
    QSettings settings;
    return use(settings);
}

/// Returns whether the file was read or does not exist. The status of `settings` is also an
/// error if it could not be written.
bool isRead(const QSettings &settings) {
    QFile file(settings.fileName());
    return file.open(QIODevice::ReadOnly) ||
           (access(QFile::encodeName(file.fileName()).constData(), F_OK) != 0 && errno == ENOENT);
}

template <class Read>
auto read(const Read &value) {
    return withSettings([&](const QSettings &settings) -> Expected<decltype(value(settings))> {
        if (isRead(settings)) {
            return value(settings);
        }
        return failure(
            {.domain = QStringLiteral("UserDefaults"),
             .code = QSettings::AccessError,
             .localizedDescription =
                 localizedString(PlatformTable,
                                 "The settings in the file “%1” cannot be read. Check the "
                                 "permissions of the file.")
                     .arg(settings.fileName())});
    });
}

/// Calls `make` and writes what it has changed.
template <class Make>
Expected<void> change(const Make &make) {
    return withSettings([&](QSettings &settings) -> Expected<void> {
        make(settings);
        settings.sync();
        makePrivate(settings);
        if (settings.status() == QSettings::NoError) {
            return {};
        }
        return failure(
            {.domain = QStringLiteral("UserDefaults"),
             .code = settings.status(),
             .localizedDescription =
                 localizedString(PlatformTable,
                                 "The setting could not be saved in the file “%1”. It is lost when "
                                 "%2 ends.")
                     .arg(settings.fileName(), QCoreApplication::applicationName()),
             .localizedFailureReason = localizedString(
                 PlatformTable, "Check the permissions of the file and the space on the disk.")});
    });
}

}  // namespace

Expected<bool> boolForKey(const QString &key) {
    return read([&](const QSettings &settings) { return settings.value(key).toBool(); });
}

Expected<int> integerForKey(const QString &key) {
    return read([&](const QSettings &settings) { return settings.value(key).toInt(); });
}

Expected<QString> stringForKey(const QString &key) {
    return read([&](const QSettings &settings) { return settings.value(key).toString(); });
}

Expected<bool> contains(const QString &key) {
    return read([&](const QSettings &settings) { return settings.contains(key); });
}

Expected<void> setValue(const QString &key, const QVariant &value) {
    return change([&](QSettings &settings) { settings.setValue(key, value); });
}

Expected<void> remove(const QString &key) {
    return change([&](QSettings &settings) { settings.remove(key); });
}

}  // namespace UserDefaults
