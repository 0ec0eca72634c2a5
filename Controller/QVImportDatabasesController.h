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

/// The sheet that imports databases. It shows a list of the sync locations, then slides to a list
/// of the databases at the chosen location that are not on this computer.
///
/// Must be used on the main thread, except that a store calls its handlers on worker threads;
/// results are then delivered on the main thread. Shared ownership: running operations keep the
/// controller alive. The last owner may be a worker thread, so the controller is deleted from the
/// main thread's event loop.
class QVImportDatabasesController
    : public WindowController,
      public std::enable_shared_from_this<QVImportDatabasesController> {
    Q_OBJECT
    /// The reason why the chosen location cannot be used; empty if there is none. A cancelled fetch
    /// sets it too.
    Q_PROPERTY(std::optional<Error> remoteError READ remoteError WRITE setRemoteError NOTIFY
                   remoteErrorChanged)
    /// Why some databases of the chosen location could not be read; empty if all could.
    Q_PROPERTY(std::optional<Error> partialError READ partialError NOTIFY partialErrorChanged)
    /// The description and the reason of `remoteError` or, without one, of `partialError`, on
    /// separate lines; empty if there is no error.
    Q_PROPERTY(QString remoteErrorText READ remoteErrorText NOTIFY remoteErrorTextChanged)
    /// Whether there is one of these errors.
    Q_PROPERTY(bool errorShown READ isErrorShown NOTIFY errorShownChanged)
    /// The databases offered. Also empty while the location is being read.
    Q_PROPERTY(QVariantList databases READ databaseList NOTIFY databasesChanged)
    /// Whether the location was read completely and has no database to offer.
    Q_PROPERTY(bool nothingToImport READ isNothingToImport NOTIFY nothingToImportChanged)
    /// Whether there is neither a list of databases nor an error yet; shown as progress.
    Q_PROPERTY(bool active READ isActive NOTIFY activeChanged)
    /// All sync locations in the user's order, read again at each call. Not announced.
    Q_PROPERTY(QList<std::shared_ptr<QVSyncLocation>> locations READ locations)
    /// The title of the button that imports; "Import", localized, by default.
    Q_PROPERTY(QString actionButtonTitle READ actionButtonTitle WRITE setActionButtonTitle NOTIFY
                   actionButtonTitleChanged)
    Q_PROPERTY(QIcon databaseIcon READ databaseIcon)
    Q_PROPERTY(QIcon warningIcon READ warningIcon)
    /// Outlets: the two pages, the view in which they slide, their tables and default buttons. Null
    /// until the window is loaded; owned by the window.
    Q_PROPERTY(QWidget *contentView MEMBER m_contentView)
    Q_PROPERTY(QWidget *locationsView MEMBER m_locationsView)
    Q_PROPERTY(QWidget *databasesView MEMBER m_databasesView)
    Q_PROPERTY(TableView *locationsTable MEMBER m_locationsTable)
    Q_PROPERTY(TableView *databasesTable MEMBER m_databasesTable)
    Q_PROPERTY(QPushButton *continueButton MEMBER m_continueButton)
    Q_PROPERTY(QPushButton *actionButton MEMBER m_actionButton)
public:
    /// A database at the chosen location, as its store describes it.
    using Record = std::shared_ptr<QVRemoteDatabase>;

    /// Returns a new controller. Never null. Loads no window yet.
    static std::shared_ptr<QVImportDatabasesController> newController();
    ~QVImportDatabasesController() override;

    /// Returns the error of the latest fetch that failed; empty after fetchDatabasesForLocation(),
    /// until its result arrives.
    std::optional<Error> remoteError() const { return m_remoteError; }
    /// Called by the fetch. Announces the key even if the value is equal. A fetch that was
    /// cancelled reports that here as well, possibly after the next one was started.
    void setRemoteError(const std::optional<Error> &error);
    const std::optional<Error> &partialError() const { return m_partialError; }
    QString remoteErrorText() const;
    bool isErrorShown() const { return m_remoteError || m_partialError; }
    /// Returns the databases offered, or an empty optional until a fetch has succeeded.
    const std::optional<QVRemoteDatabases> &databases() const { return m_databases; }
    /// Sets the databases offered; an empty optional means that none were fetched yet. Announces
    /// the key even if the value is equal. No entry may be null.
    void setDatabases(const std::optional<QVRemoteDatabases> &databases);
    /// Returns the same databases as a list for binding, each a Record; empty if there are none
    /// yet.
    QVariantList databaseList() const;
    /// False until a fetch has succeeded.
    bool isNothingToImport() const;
    /// Also true before a location was chosen, when the page of databases is not visible.
    bool isActive() const;
    QList<std::shared_ptr<QVSyncLocation>> locations() const;
    /// Returns the UUIDs of the databases that were imported; empty before.
    QStringList importedUUIDs() const { return m_importedUUIDs; }
    QString actionButtonTitle() const { return m_actionButtonTitle; }
    /// Sets the title, which must be localized already. The button shows it at once if the window
    /// is loaded.
    void setActionButtonTitle(const QString &title);
    QIcon databaseIcon() const;
    QIcon warningIcon() const;
    /// The outlets; null until the window is loaded, and after it was deleted.
    QWidget *contentView() const { return m_contentView; }
    QWidget *locationsView() const { return m_locationsView; }
    QWidget *databasesView() const { return m_databasesView; }
    /// Returns the store of the location chosen last, also after the fetch has ended; null if none
    /// was chosen. Thread-safe.
    std::shared_ptr<QVSyncStore> store() const { return m_store.load(); }
    /// Returns the future that cancels the work on that store; null if no location was chosen. It
    /// is another one for each fetch. Thread-safe.
    std::shared_ptr<PZFuture> future() const { return m_future.load(); }

    /// Shows the sheet on the window of `parentWindow` and returns at once. `handler`, which may be
    /// empty, is called once, on the main thread, after the sheet has closed, from within the call
    /// that closed it: after an import, or if the user cancelled. It is not called if the
    /// controller is destroyed before. Must not be called again while the sheet is shown. Raises an
    /// AssertionFailure if `parentWindow` is null.
    void runImportDatabasesSheetModalForWindow(QWidget *parentWindow,
                                               std::function<void()> handler);

    /// Returns whether a fetched database is offered: not the inbox, and not a database that is on
    /// this computer, open or closed. `database` must not be null.
    bool shouldListDatabase(const Record &database) const;
    /// Adds the state of one database to its location, or finds it, and enables it. Returns the
    /// state; never null. Does not save. `database` must not be null. A new state has no schedule.
    std::shared_ptr<QVSyncState> importDatabase(const Record &database);
    /// Imports all databases, saves, starts their synchronization, and closes the sheet. Returns
    /// before they are synchronized. A failure to save is not reported here; the states stay
    /// enabled until the program ends. If `databases` is empty, it only saves and closes. The
    /// controller may be destroyed when this returns.
    void importDatabases(const QVRemoteDatabases &databases);

    /// Dependencies of the derived keys, read by KeyValue.
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingActive() {
        return {"databases", "remoteError"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingNothingToImport() {
        return {"databases", "partialError"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingRemoteErrorText() {
        return {"remoteError", "partialError"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingErrorShown() {
        return {"remoteError", "partialError"};
    }

public Q_SLOTS:
    /// Slides to the databases page, opens the store of `location`, which must not be null, and
    /// reads its databases. Returns at once; the result is announced as "databases" or
    /// "remoteError". The time depends on the location: there is no deadline other than those of
    /// its store. Databases that could be read are listed even if others could not, which is
    /// announced as "partialError" and reported in the application's log. A fetch that is still
    /// running must be cancelled before, as returnToLocationsView() does.
    void fetchDatabasesForLocation(const std::shared_ptr<QVSyncLocation> &location);
    /// Slides back to the locations and cancels the fetch, without waiting for it. `sender` is not
    /// used, here and in cancelModalSheet().
    void returnToLocationsView(QObject *sender);
    /// Cancels the fetch, closes the sheet and calls its handler. The controller may be destroyed
    /// when this returns.
    void cancelModalSheet(QObject *sender);
    /// Calls importDatabases() with `databases`, a list of Record, of which none may be null. The
    /// form passes the selected rows.
    void performActionWithDatabases(const QVariantList &databases);

Q_SIGNALS:
    /// Emitted each time the value is set or one that it depends on is announced, even if it stays
    /// equal.
    void remoteErrorChanged();
    void partialErrorChanged();
    void remoteErrorTextChanged();
    void errorShownChanged();
    void databasesChanged();
    void nothingToImportChanged();
    void activeChanged();
    void actionButtonTitleChanged();

protected:
    /// Places the pages side by side, the locations in front.
    void windowDidLoad() override;
    /// Cancels, as the Cancel button does.
    void leaveSheet() override;

private:
    void setPartialError(const std::optional<Error> &error);
    /// One of the two pages that slide into the sheet.
    struct Page {
        QWidget *view;
        TableView *table;
        QPushButton *defaultButton;
    };

    QVImportDatabasesController();
    /// Returns the frame in which a page is visible; empty until the window is loaded.
    QRect contentFrame() const;
    /// Slides `page` in and `otherPage` out to the horizontal position `otherX`, which disables and
    /// hides the latter.
    void turnTo(const Page &page, QWidget *otherPage, int otherX);
    /// Handlers of the store, called on its threads.
    void didOpen(const std::optional<Error> &error);
    void didFetch(const std::optional<QVRemoteDatabases> &fetched,
                  const std::optional<Error> &error);
    /// Sets those of the fetched databases that are offered.
    void list(const QVRemoteDatabases &fetched);
    /// Cancels the running fetch, if there is one, without waiting for it.
    void cancelFetch();
    /// Closes the sheet and calls the completion handler, at most once.
    void sheetDidClose();

    std::optional<Error> m_remoteError;
    std::optional<Error> m_partialError;
    /// The outlets: null until the window is loaded, and after it is deleted.
    QPointer<QWidget> m_contentView;
    QPointer<QWidget> m_locationsView;
    QPointer<QWidget> m_databasesView;
    QPointer<TableView> m_locationsTable;
    QPointer<TableView> m_databasesTable;
    QPointer<QPushButton> m_continueButton;
    QPointer<QPushButton> m_actionButton;
    /// Atomic, because the store's handlers read it on worker threads; so is the future.
    std::atomic<std::shared_ptr<QVSyncStore>> m_store;
    /// Empty until a fetch has succeeded.
    std::optional<QVRemoteDatabases> m_databases;
    std::atomic<std::shared_ptr<PZFuture>> m_future;
    /// Empty after it was called.
    std::function<void()> m_completionHandler;
    QStringList m_importedUUIDs;
    QString m_actionButtonTitle;
    /// The latest animation; null before the first. A new one replaces a running one.
    std::unique_ptr<QParallelAnimationGroup> m_slide;
};
