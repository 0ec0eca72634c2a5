#include "Controller/QVImportDatabasesController.h"

#include <QtCore/QParallelAnimationGroup>
#include <QtCore/QPropertyAnimation>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>
#include <utility>

#include "Host/ClassRegistry.h"
#include "Host/InboxUUID.h"
#include "Host/QVJobLog.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Host/SyncLog.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/MainQueue.h"

namespace {

constexpr int SlideMilliseconds = 200;

QVSyncLocationsController &locationsController() {
    return *QVSyncPlugin::plugin()->locationsController();
}

void logPartialFetch(const Error &error) {
    const QString format = localizedSyncString("Failed to fetch information for database (%@)");
    QVJobLog::logMessage(QString(format).replace(QStringLiteral("%@"), error.localizedDescription));
}

}  // namespace

QVImportDatabasesController::QVImportDatabasesController()
    : WindowController(QStringLiteral("QVImportDatabasesWindow")),
      m_actionButtonTitle(localizedSyncString("Import")) {
    KeyValue::followDependencies(this);
}

QVImportDatabasesController::~QVImportDatabasesController() = default;

std::shared_ptr<QVImportDatabasesController> QVImportDatabasesController::newController() {
    // The last owner may be a worker thread of a store.
    return {new QVImportDatabasesController,
            [](QVImportDatabasesController *controller) { controller->deleteLater(); }};
}

void QVImportDatabasesController::setRemoteError(const std::optional<Error> &error) {
    m_remoteError = error;
    KeyValue::announce<&QVImportDatabasesController::remoteErrorChanged>(this);
}

void QVImportDatabasesController::setPartialError(const std::optional<Error> &error) {
    m_partialError = error;
    KeyValue::announce<&QVImportDatabasesController::partialErrorChanged>(this);
}

QString QVImportDatabasesController::remoteErrorText() const {
    const std::optional<Error> &error = m_remoteError ? m_remoteError : m_partialError;
    if (!error) {
        return {};
    }
    return QStringList{error->localizedDescription, error->localizedFailureReason}
        .join(u'\n')
        .trimmed();
}

void QVImportDatabasesController::setDatabases(const std::optional<QVRemoteDatabases> &databases) {
    m_databases = databases;
    KeyValue::announce<&QVImportDatabasesController::databasesChanged>(this);
}

QVariantList QVImportDatabasesController::databaseList() const {
    QVariantList list;
    for (const Record &database : m_databases.value_or(QVRemoteDatabases())) {
        list.append(QVariant::fromValue(database));
    }
    return list;
}

bool QVImportDatabasesController::isNothingToImport() const {
    return m_databases && m_databases->isEmpty() && !m_partialError;
}

bool QVImportDatabasesController::isActive() const {
    return !m_databases && !m_remoteError;
}

QList<std::shared_ptr<QVSyncLocation>> QVImportDatabasesController::locations() const {
    return locationsController().syncLocations();
}

void QVImportDatabasesController::setActionButtonTitle(const QString &title) {
    m_actionButtonTitle = title;
    KeyValue::announce<&QVImportDatabasesController::actionButtonTitleChanged>(this);
}

QIcon QVImportDatabasesController::databaseIcon() const {
    return QIcon(QStringLiteral(":/SyncPreferences/database.svg"));
}

QIcon QVImportDatabasesController::warningIcon() const {
    return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
}

void QVImportDatabasesController::windowDidLoad() {
    const QRect frame = contentFrame();
    m_locationsView->setParent(m_contentView);
    m_locationsView->setGeometry(frame);
    m_databasesView->setParent(m_contentView);
    m_databasesView->setGeometry(frame.translated(frame.width() - frame.x(), 0));
    m_locationsView->show();
    m_databasesView->hide();
}

QRect QVImportDatabasesController::contentFrame() const {
    return m_contentView ? m_contentView->geometry() : QRect();
}

void QVImportDatabasesController::runImportDatabasesSheetModalForWindow(
    QWidget *parentWindow, std::function<void()> handler) {
    requireParameter(parentWindow, "parentWindow != nil",
                     "QVImportDatabasesController::runImportDatabasesSheetModalForWindow",
                     "Controller/QVImportDatabasesController");
    m_completionHandler = std::move(handler);
    beginSheet(parentWindow);
}

void QVImportDatabasesController::turnTo(const Page &page, QWidget *otherPage, int otherX) {
    if (!isWindowLoaded()) {
        return;
    }
    const QRect frame = contentFrame();
    m_slide = std::make_unique<QParallelAnimationGroup>();
    const auto addAnimation = [this](QWidget *view, const QRect &end) {
        auto *animation = new QPropertyAnimation(view, "geometry");
        animation->setDuration(SlideMilliseconds);
        animation->setEndValue(end);
        m_slide->addAnimation(animation);
    };
    addAnimation(page.view, frame);
    addAnimation(otherPage, QRect(otherX, frame.y(), frame.width(), frame.height()));
    // Disable the hidden page, so that it receives neither clicks nor keys.
    page.view->setEnabled(true);
    page.view->show();
    otherPage->setEnabled(false);
    page.table->setFocus();
    page.defaultButton->setDefault(true);
    connect(m_slide.get(), &QAbstractAnimation::finished, otherPage, &QWidget::hide);
    m_slide->start();
}

void QVImportDatabasesController::fetchDatabasesForLocation(
    const std::shared_ptr<QVSyncLocation> &location) {
    turnTo({m_databasesView, m_databasesTable, m_actionButton}, m_locationsView,
           -contentFrame().width());
    setDatabases({});
    setRemoteError({});
    setPartialError({});
    m_store = location->createStore();
    m_future = PZFuture::future();
    const auto opened = store()->openWithCompletionHandler(
        [self = shared_from_this()](const auto &error) { self->didOpen(error); });
    future()->cascadeCancellationToFuture(opened);
}

void QVImportDatabasesController::didOpen(const std::optional<Error> &error) {
    const auto self = shared_from_this();
    if (error) {
        MainQueue::dispatchAsync([self, error] { self->setRemoteError(error); });
        future()->cancel();
        return;
    }
    store()->fetchDatabasesWithCompletionHandler(
        [self](const auto &fetched, const auto &fetchError) {
            self->didFetch(fetched, fetchError);
        });
}

void QVImportDatabasesController::didFetch(const std::optional<QVRemoteDatabases> &fetched,
                                           const std::optional<Error> &error) {
    const auto self = shared_from_this();
    if (fetched && error) {
        MainQueue::dispatchAsync([self, error] {
            logPartialFetch(*error);
            self->setPartialError(error);
        });
    }
    if (fetched) {
        MainQueue::dispatchAsync([self, fetched] { self->list(*fetched); });
    } else if (error) {
        MainQueue::dispatchAsync([self, error] { self->setRemoteError(error); });
    }
    future()->passControlToFuture(store()->closeWithCompletionHandler([](const auto &) {}));
}

void QVImportDatabasesController::list(const QVRemoteDatabases &fetched) {
    // They may arrive after the host has ended.
    if (!optionalHostClass<QVSyncPlugin::Class>()) {
        return;
    }
    QVRemoteDatabases offered;
    for (const Record &database : fetched) {
        if (shouldListDatabase(database)) {
            offered.append(database);
        }
    }
    setDatabases(offered);
}

bool QVImportDatabasesController::shouldListDatabase(const Record &database) const {
    return database->UUID() != InboxUUID && !QVSyncPlugin::databaseForUUID(database->UUID(), false);
}

void QVImportDatabasesController::returnToLocationsView(QObject * /*sender*/) {
    turnTo({m_locationsView, m_locationsTable, m_continueButton}, m_databasesView,
           contentFrame().width());
    cancelFetch();
}

void QVImportDatabasesController::cancelModalSheet(QObject * /*sender*/) {
    cancelFetch();
    sheetDidClose();
}

void QVImportDatabasesController::cancelFetch() {
    if (const auto running = future()) {
        running->cancel();
    }
}

void QVImportDatabasesController::leaveSheet() {
    cancelModalSheet(nullptr);
}

void QVImportDatabasesController::performActionWithDatabases(const QVariantList &databases) {
    QVRemoteDatabases chosen;
    for (const QVariant &database : databases) {
        chosen.append(database.value<Record>());
    }
    importDatabases(chosen);
}

std::shared_ptr<QVSyncState> QVImportDatabasesController::importDatabase(const Record &database) {
    const QString name = database->metadata()->name();
    auto state = database->store()->location()->addStateForDatabaseWithUUID(database->UUID(), name);
    state->setEnabled(true);
    syncLog().message(
        QStringLiteral("Importing database with name %1 and UUID %2").arg(name, database->UUID()));
    return state;
}

void QVImportDatabasesController::importDatabases(const QVRemoteDatabases &databases) {
    QVSyncStates states;
    for (const Record &database : databases) {
        states.append(importDatabase(database));
        m_importedUUIDs.append(database->UUID());
    }
    locationsController().save(nullptr);
    QVSyncPlugin::plugin()->dispatcher()->performSynchronizationsWithSynchronizationStates(states);
    sheetDidClose();
}

void QVImportDatabasesController::sheetDidClose() {
    const auto self = shared_from_this();
    endSheet(0);
    if (const auto handler = std::exchange(m_completionHandler, nullptr)) {
        handler();
    }
}
