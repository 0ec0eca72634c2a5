#pragma once

#include <QtCore/QPointer>
#include <QtGui/QIcon>
#include <QtWidgets/QPushButton>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>

#include "Host/PZFuture.h"
#include "Host/QVRemoteDatabase.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncStore.h"
#include "Platform/Interface/TableView.h"
#include "Platform/Interface/WindowController.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Platform/KeyValue/SharedPointer.h"

class QParallelAnimationGroup;

/// The sheet that imports databases: from a list of the sync locations it slides to a list of those
/// databases of the chosen one that this computer does not have. Main thread, but that a store
/// calls back on its own threads. Always shared: what runs for it keeps it alive.
class QVImportDatabasesController
    : public WindowController,
      public std::enable_shared_from_this<QVImportDatabasesController> {
    Q_OBJECT
    /// Why the chosen location cannot be used.
    Q_PROPERTY(std::optional<Error> remoteError READ remoteError WRITE setRemoteError NOTIFY
                   remoteErrorChanged)
    Q_PROPERTY(QString remoteErrorText READ remoteErrorText NOTIFY remoteErrorTextChanged)
    /// Those offered; empty, too, until the location has answered.
    Q_PROPERTY(QVariantList databases READ databaseList NOTIFY databasesChanged)
    /// Whether the location has answered with nothing to offer.
    Q_PROPERTY(bool nothingToImport READ isNothingToImport NOTIFY nothingToImportChanged)
    /// Whether neither databases nor an error are there yet.
    Q_PROPERTY(bool active READ isActive NOTIFY activeChanged)
    /// Read afresh each time.
    Q_PROPERTY(QList<std::shared_ptr<QVSyncLocation>> locations READ locations)
    Q_PROPERTY(QString actionButtonTitle READ actionButtonTitle WRITE setActionButtonTitle NOTIFY
                   actionButtonTitleChanged)
    Q_PROPERTY(QIcon databaseIcon READ databaseIcon)
    Q_PROPERTY(QIcon warningIcon READ warningIcon)
    // Outlets: the two pages, and what they slide in.
    Q_PROPERTY(QWidget *contentView MEMBER m_contentView)
    Q_PROPERTY(QWidget *locationsView MEMBER m_locationsView)
    Q_PROPERTY(QWidget *databasesView MEMBER m_databasesView)
    Q_PROPERTY(TableView *locationsTable MEMBER m_locationsTable)
    Q_PROPERTY(TableView *databasesTable MEMBER m_databasesTable)
    Q_PROPERTY(QPushButton *continueButton MEMBER m_continueButton)
    Q_PROPERTY(QPushButton *actionButton MEMBER m_actionButton)
public:
    using Record = std::shared_ptr<QVRemoteDatabase>;

    static std::shared_ptr<QVImportDatabasesController> newController();
    ~QVImportDatabasesController() override;

    std::optional<Error> remoteError() const { return m_remoteError; }
    void setRemoteError(const std::optional<Error> &error);
    QString remoteErrorText() const;
    /// Empty optional until a fetch has answered with a list.
    const std::optional<QVRemoteDatabases> &databases() const { return m_databases; }
    void setDatabases(const std::optional<QVRemoteDatabases> &databases);
    QVariantList databaseList() const;
    bool isNothingToImport() const;
    bool isActive() const;
    QList<std::shared_ptr<QVSyncLocation>> locations() const;
    QString actionButtonTitle() const { return m_actionButtonTitle; }
    void setActionButtonTitle(const QString &title);
    QIcon databaseIcon() const;
    QIcon warningIcon() const;
    QWidget *contentView() const { return m_contentView; }
    QWidget *locationsView() const { return m_locationsView; }
    QWidget *databasesView() const { return m_databasesView; }
    /// That of the chosen location, and what cancels the work on it. Any thread.
    std::shared_ptr<QVSyncStore> store() const { return m_store.load(); }
    std::shared_ptr<PZFuture> future() const { return m_future.load(); }

    /// Shows the sheet and returns at once; `handler` is called once, when it has closed. An absent
    /// window is a programming error.
    void runImportDatabasesSheetModalForWindow(QWidget *parentWindow,
                                               std::function<void()> handler);

    /// Whether a fetched database is offered: never the inbox, nor what is open here.
    bool shouldListDatabase(const Record &database) const;
    /// Makes the enabled state for one database and returns it.
    std::shared_ptr<QVSyncState> importDatabase(const Record &database);
    /// Imports all, saves, starts their synchronization, and closes the sheet.
    void importDatabases(const QVRemoteDatabases &databases);

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingActive() {
        return {"databases", "remoteError"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingNothingToImport() {
        return {"databases"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingRemoteErrorText() {
        return {"remoteError"};
    }

public Q_SLOTS:
    /// Slides to the databases and fetches those of `location`.
    void fetchDatabasesForLocation(const std::shared_ptr<QVSyncLocation> &location);
    /// Slides back and cancels the fetch.
    void returnToLocationsView(QObject *sender);
    void cancelModalSheet(QObject *sender);
    void performActionWithDatabases(const QVariantList &databases);

Q_SIGNALS:
    void remoteErrorChanged();
    void remoteErrorTextChanged();
    void databasesChanged();
    void nothingToImportChanged();
    void activeChanged();
    void actionButtonTitleChanged();

protected:
    void windowDidLoad() override;
    void leaveSheet() override;

private:
    /// One of the two pages that slide into the sheet.
    struct Page {
        QWidget *view;
        TableView *table;
        QPushButton *defaultButton;
    };

    QVImportDatabasesController();
    QRect contentFrame() const;
    void turnTo(const Page &page, QWidget *otherPage, int otherX);
    void didOpen(const std::optional<Error> &error);
    void didFetch(const std::optional<QVRemoteDatabases> &fetched,
                  const std::optional<Error> &error);
    void list(const QVRemoteDatabases &fetched);
    void cancelFetch();
    void sheetDidClose();

    std::optional<Error> m_remoteError;
    QPointer<QWidget> m_contentView;
    QPointer<QWidget> m_locationsView;
    QPointer<QWidget> m_databasesView;
    QPointer<TableView> m_locationsTable;
    QPointer<TableView> m_databasesTable;
    QPointer<QPushButton> m_continueButton;
    QPointer<QPushButton> m_actionButton;
    std::atomic<std::shared_ptr<QVSyncStore>> m_store;
    std::optional<QVRemoteDatabases> m_databases;
    std::atomic<std::shared_ptr<PZFuture>> m_future;
    std::function<void()> m_completionHandler;
    QString m_actionButtonTitle;
    std::unique_ptr<QParallelAnimationGroup> m_slide;
};
