#include "Platform/Foundation/UserLanguage.h"

#include <QtCore/QFileInfo>
#include <QtCore/QLocale>

QString userLanguage(const QString &folder, const QString &table) {
    const QStringList languages = QLocale().uiLanguages();
    for (const QString &each : languages) {
        const QLocale locale(each);
        if (locale.language() == QLocale::English || locale.language() == QLocale::C) {
            return {};
        }
        const QString withCountry = locale.name();
        for (const QString &name : {withCountry, withCountry.section(u'_', 0, 0)}) {
            if (QFileInfo::exists(QStringLiteral("%1/%2_%3.qm").arg(folder, table, name))) {
                return name;
            }
        }
    }
    return {};
}
