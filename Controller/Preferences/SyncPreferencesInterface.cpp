#include "Controller/Preferences/SyncPreferencesInterface.h"

#include "Controller/NSArrayController+Emptiness.h"
#include "Controller/Preferences/QVSyncBookmarkManagerDataSource.h"
#include "Controller/QVBinding.h"
#include "Controller/QVLastSynchronizationValueTransformer.h"
#include "Controller/QVLocationImageValueTransformer.h"
#include "Controller/QVLocationTitleValueTransformer.h"
#include "Controller/QVNextScheduledDateValueTransformer.h"
#include "Platform/Interface/Nib.h"
#include "Platform/Interface/SheetWindow.h"
#include "View/ListRow.h"
#include "View/QVListView.h"
#include "ui_BookmarkCell.h"
#include "ui_QVBookmarkingWindow.h"
#include "ui_QVDatabaseItem.h"
#include "ui_QVDirectConnectionLocationEditor.h"
#include "ui_QVDropboxLocationEditor.h"
#include "ui_QVFolderLocationEditor.h"
#include "ui_QVImportDatabasesWindow.h"
#include "ui_QVLocationItem.h"
#include "ui_QVServerPreferences.h"
#include "ui_QVSyncScheduleEditor.h"
#include "ui_QVWebDAVLocationEditor.h"
#include "ui_SyncPreferences.h"

namespace {

template <class Transformer>
void registerTransformer(const char *name) {
    ValueTransformer::setTransformerForName(std::make_unique<Transformer>(),
                                            QLatin1StringView(name));
}

template <class Form>
void registerSheet(const char *nibName) {
    Nib::registerUiForm<Form, SheetWindow>(QLatin1StringView(nibName));
}

void registerSheets() {
    Nib::registerClass(QStringLiteral("QVSyncBookmarkManagerDataSource"),
                       [](QObject *parent) { return new QVSyncBookmarkManagerDataSource(parent); });
    registerSheet<Ui::QVBookmarkingWindow>("QVBookmarkingWindow");
    registerSheet<Ui::QVDirectConnectionLocationEditor>("QVDirectConnectionLocationEditor");
    registerSheet<Ui::QVDropboxLocationEditor>("QVDropboxLocationEditor");
    registerSheet<Ui::QVFolderLocationEditor>("QVFolderLocationEditor");
    registerSheet<Ui::QVImportDatabasesWindow>("QVImportDatabasesWindow");
    registerSheet<Ui::QVServerPreferences>("QVServerPreferences");
    registerSheet<Ui::QVWebDAVLocationEditor>("QVWebDAVLocationEditor");
}

}  // namespace

void registerSyncPreferencesInterface() {
    Q_INIT_RESOURCE(SyncPreferences);
    QVListView::registerBindingFactory(&QVBinding::bindingWithObject);
    Nib::registerClass(QStringLiteral("NSArrayController"),
                       [](QObject *parent) { return new NSArrayController(parent); });
    registerTransformer<QVLastSynchronizationValueTransformer>(
        "QVLastSynchronizationValueTransformer");
    registerTransformer<QVLocationImageValueTransformer>("QVLocationImageValueTransformer");
    registerTransformer<QVLocationTitleValueTransformer>("QVLocationTitleValueTransformer");
    registerTransformer<QVNextScheduledDateValueTransformer>("QVNextScheduledDateValueTransformer");

    Nib::registerUiForm<Ui::SyncPreferences, QWidget>(QStringLiteral("Sync Preferences"));
    Nib::registerUiForm<Ui::QVSyncScheduleEditor, QWidget>(QStringLiteral("QVSyncScheduleEditor"));
    registerSheets();
    Nib::registerUiForm<Ui::QVDatabaseItem, ListRow>(QStringLiteral("QVDatabaseItem"));
    Nib::registerUiForm<Ui::QVLocationItem, ListRow>(QStringLiteral("QVLocationItem"));
    Nib::registerUiForm<Ui::BookmarkCell, QWidget>(QStringLiteral("BookmarkCell"));
}
