#include "Controller/Preferences/SyncPreferencesInterface.h"

#include "Controller/NSArrayController+Emptiness.h"
#include "Controller/QVLastSynchronizationValueTransformer.h"
#include "Controller/QVLocationImageValueTransformer.h"
#include "Controller/QVLocationTitleValueTransformer.h"
#include "Controller/QVNextScheduledDateValueTransformer.h"
#include "Platform/Interface/Nib.h"
#include "Platform/Interface/SheetWindow.h"
#include "View/ListRow.h"
#include "ui_QVDatabaseItem.h"
#include "ui_QVFolderLocationEditor.h"
#include "ui_QVLocationItem.h"
#include "ui_QVSyncScheduleEditor.h"
#include "ui_QVWebDAVLocationEditor.h"
#include "ui_SyncPreferences.h"

namespace {

template <class Transformer>
void registerTransformer(const char *name) {
    ValueTransformer::setTransformerForName(std::make_unique<Transformer>(),
                                            QLatin1StringView(name));
}

}  // namespace

void registerSyncPreferencesInterface() {
    Q_INIT_RESOURCE(SyncPreferences);
    Nib::registerClass(QStringLiteral("NSArrayController"),
                       [](QObject *parent) { return new NSArrayController(parent); });
    registerTransformer<QVLastSynchronizationValueTransformer>(
        "QVLastSynchronizationValueTransformer");
    registerTransformer<QVLocationImageValueTransformer>("QVLocationImageValueTransformer");
    registerTransformer<QVLocationTitleValueTransformer>("QVLocationTitleValueTransformer");
    registerTransformer<QVNextScheduledDateValueTransformer>("QVNextScheduledDateValueTransformer");

    Nib::registerUiForm<Ui::SyncPreferences, QWidget>(QStringLiteral("Sync Preferences"));
    Nib::registerUiForm<Ui::QVSyncScheduleEditor, QWidget>(QStringLiteral("QVSyncScheduleEditor"));
    Nib::registerUiForm<Ui::QVFolderLocationEditor, SheetWindow>(
        QStringLiteral("QVFolderLocationEditor"));
    Nib::registerUiForm<Ui::QVWebDAVLocationEditor, SheetWindow>(
        QStringLiteral("QVWebDAVLocationEditor"));
    Nib::registerUiForm<Ui::QVDatabaseItem, ListRow>(QStringLiteral("QVDatabaseItem"));
    Nib::registerUiForm<Ui::QVLocationItem, ListRow>(QStringLiteral("QVLocationItem"));
}
