#include "Controller/Preferences/SyncPreferencesInterface.h"

#include "Controller/NSArrayController+Emptiness.h"
#include "Controller/Preferences/ActivityStatus.h"
#include "Controller/Preferences/ClientTextValueTransformer.h"
#include "Controller/Preferences/DatabaseRowStatus.h"
#include "Controller/Preferences/DirectConnectionHost.h"
#include "Controller/Preferences/DiscoveryHint.h"
#include "Controller/Preferences/LocationCheck.h"
#include "Controller/Preferences/LocationKind.h"
#include "Controller/Preferences/LocationRowStatus.h"
#include "Controller/Preferences/PaneTitles.h"
#include "Controller/Preferences/QVSyncBookmarkManagerDataSource.h"
#include "Controller/Preferences/ScheduleStatus.h"
#include "Controller/QVBinding.h"
#include "Controller/QVLocationImageValueTransformer.h"
#include "Controller/QVLocationTitleValueTransformer.h"
#include "Platform/Interface/AccessibleCheckBox.h"
#include "Platform/Interface/AccessibleTable.h"
#include "Platform/Interface/Nib.h"
#include "Platform/Interface/SheetWindow.h"
#include "View/AccessibleList.h"
#include "View/ListRow.h"
#include "View/QVListView.h"
#include "ui_BookmarkCell.h"
#include "ui_QVBookmarkingWindow.h"
#include "ui_QVDatabaseItem.h"
#include "ui_QVImportDatabasesWindow.h"
#include "ui_QVLocationItem.h"
#include "ui_QVServerPreferences.h"
#include "ui_QVSyncScheduleEditor.h"
#include "ui_SyncPreferences.h"

namespace {

template <class Transformer>
void registerTransformer(const char *name) {
    ValueTransformer::setTransformerForName(std::make_unique<Transformer>(),
                                            QLatin1StringView(name));
}

template <class Class>
void registerObject(const char *className) {
    Nib::registerClass(QLatin1StringView(className),
                       [](QObject *parent) { return new Class(parent); });
}

template <class Form>
void registerSheet(const char *nibName) {
    Nib::registerUiForm<Form, SheetWindow>(QLatin1StringView(nibName));
}

void registerSheets() {
    registerObject<QVSyncBookmarkManagerDataSource>("QVSyncBookmarkManagerDataSource");
    registerSheet<Ui::QVBookmarkingWindow>("QVBookmarkingWindow");
    registerSheet<Ui::QVImportDatabasesWindow>("QVImportDatabasesWindow");
    registerSheet<Ui::QVServerPreferences>("QVServerPreferences");
    for (const LocationKind &kind : LocationKind::all()) {
        kind.registerForm();
    }
}

}  // namespace

void registerSyncPreferencesInterface() {
    Q_INIT_RESOURCE(SyncPreferences);
    AccessibleList::install();
    AccessibleTable::install();
    AccessibleCheckBox::install();
    QVListView::registerBindingFactory(&QVBinding::bindingWithObject);
    registerObject<NSArrayController>("NSArrayController");
    registerObject<ActivityStatus>("ActivityStatus");
    registerObject<DatabaseRowStatus>("DatabaseRowStatus");
    registerObject<DirectConnectionHost>("DirectConnectionHost");
    registerObject<DiscoveryHint>("DiscoveryHint");
    registerObject<LocationCheck>("LocationCheck");
    registerObject<LocationRowStatus>("LocationRowStatus");
    registerObject<PaneTitles>("PaneTitles");
    registerObject<ScheduleStatus>("ScheduleStatus");
    registerTransformer<ClientTextValueTransformer>("ClientTextValueTransformer");
    registerTransformer<QVLocationImageValueTransformer>("QVLocationImageValueTransformer");
    registerTransformer<QVLocationTitleValueTransformer>("QVLocationTitleValueTransformer");

    Nib::registerUiForm<Ui::SyncPreferences, QWidget>(QStringLiteral("Sync Preferences"));
    Nib::registerUiForm<Ui::QVSyncScheduleEditor, QWidget>(QStringLiteral("QVSyncScheduleEditor"));
    registerSheets();
    Nib::registerUiForm<Ui::QVDatabaseItem, ListRow>(QStringLiteral("QVDatabaseItem"));
    Nib::registerUiForm<Ui::QVLocationItem, ListRow>(QStringLiteral("QVLocationItem"));
    Nib::registerUiForm<Ui::BookmarkCell, QWidget>(QStringLiteral("BookmarkCell"));
}
