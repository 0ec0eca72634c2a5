#include "Support/SheetForms.h"

#include <QtCore/QDir>

QStringList SheetForms::names() {
    static const QStringList others = {
        QStringLiteral("Sync Preferences"),        QStringLiteral("QVSyncScheduleEditor"),
        QStringLiteral("QVDatabaseItem"),          QStringLiteral("QVLocationItem"),
        QStringLiteral("QVImportDatabasesWindow"), QStringLiteral("BookmarkCell")};
    const QDir forms(QStringLiteral(VELMORA_SOURCE_DIR "/Resources/Interface"));
    QStringList names;
    for (const QFileInfo &form : forms.entryInfoList({QStringLiteral("*.ui")})) {
        if (!others.contains(form.completeBaseName())) {
            names.append(form.completeBaseName());
        }
    }
    return names;
}
