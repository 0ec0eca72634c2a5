#include "Platform/Foundation/UserDefaults.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QSettings>
#include <QtCore/QThread>

namespace UserDefaults {

namespace {

/// Returns the settings object of the main thread, updated with what other processes have written.
/// It is kept because opening one takes several times as long as a read. Owned by the application
/// object.
QSettings &mainThreadSettings() {
    static QPointer<QSettings> settings;
    if (!settings) {
        settings = new QSettings(QCoreApplication::instance());
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

}  // namespace

bool boolForKey(const QString &key) {
    return withSettings([&](const QSettings &settings) { return settings.value(key).toBool(); });
}

int integerForKey(const QString &key) {
    return withSettings([&](const QSettings &settings) { return settings.value(key).toInt(); });
}

QString stringForKey(const QString &key) {
    return withSettings([&](const QSettings &settings) { return settings.value(key).toString(); });
}

bool contains(const QString &key) {
    return withSettings([&](const QSettings &settings) { return settings.contains(key); });
}

void setValue(const QString &key, const QVariant &value) {
    withSettings([&](QSettings &settings) { settings.setValue(key, value); });
}

void remove(const QString &key) {
    withSettings([&](QSettings &settings) { settings.remove(key); });
}

}  // namespace UserDefaults
