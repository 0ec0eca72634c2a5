#include "Support/Languages.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QLibraryInfo>

namespace {

QString nameOf(const QLocale &locale) {
    for (const QString &name : Languages::translated()) {
        if (QLocale(name).language() == locale.language()) {
            return name;
        }
    }
    return {};
}

}  // namespace

QStringList Languages::translated() {
    QStringList names = QDir(QStringLiteral(":/VelmoraSync/Translations"))
                            .entryList({QStringLiteral("Sync_*.qm")}, QDir::Files, QDir::Name);
    for (QString &name : names) {
        name = name.section(u'.', 0, 0).section(u'_', 1);
    }
    return names;
}

QList<QLocale> Languages::all() {
    QList<QLocale> locales{QLocale(QLocale::English)};
    for (const QString &name : translated()) {
        locales.append(QLocale(name));
    }
    return locales;
}

void Languages::use(const QLocale &locale) {
    reset();
    QLocale::setDefault(locale);
    const QString name = nameOf(locale);
    if (name.isEmpty()) {
        return;
    }
    if (!m_application.load(QStringLiteral("Velmora_") + name,
                            QStringLiteral(":/Velmora/Translations"))) {
        qFatal("The application has no table %s", qPrintable(name));
    }
    QCoreApplication::installTranslator(&m_application);
    // Its package may be missing.
    if (m_qt.load(QStringLiteral("qtbase_") + name,
                  QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(&m_qt);
    }
}

void Languages::reset() {
    QCoreApplication::removeTranslator(&m_application);
    QCoreApplication::removeTranslator(&m_qt);
    QLocale::setDefault(QLocale::c());
}
