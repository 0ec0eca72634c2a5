#pragma once

#include "Controller/Preferences/QVSyncLocationEditor.h"
#include "Platform/Interface/TableView.h"
#include "Platform/Network/NetService.h"
#include "Platform/Network/NetServiceBrowser.h"
#include "Platform/Network/NetServiceBrowserDelegate.h"
#include "Platform/Network/NetServiceDelegate.h"

/// Edits the location of a direct connection to another computer: lists the servers announced on
/// the local network, and accepts a host and a port. When accepted, it contacts the server so that
/// the two computers pair; the result is not reported.
///
/// Must be used on the main thread. Browsing starts when the window is loaded and ends when the
/// editor is destroyed. A pairing that is running is not cancelled then. The result is not part of
/// the completion handler: a failed pairing shows when the location is used.
class QVDirectConnectionLocationEditor : public QVSyncLocationEditor,
                                         public NetServiceBrowserDelegate,
                                         public NetServiceDelegate {
    Q_OBJECT
    /// The servers found, without this computer's own, in the order found. Announced once for each
    /// batch of changes.
    Q_PROPERTY(QList<std::shared_ptr<NetService>> services READ services NOTIFY servicesChanged)
    /// The host of the location's URL, null if the URL is nil. An IPv6 address is without brackets.
    /// Setting an empty or null host makes the URL nil.
    Q_PROPERTY(QString host READ host WRITE setHost NOTIFY hostChanged)
    /// Whether the host is not empty.
    Q_PROPERTY(bool hasHost READ hasHost NOTIFY hasHostChanged)
    /// Whether the sheet can be accepted: if there is a host, and always if there is no Cancel
    /// button.
    Q_PROPERTY(bool canAccept READ canAccept NOTIFY canAcceptChanged)
    /// The port of the location's URL, or the default port if it has none; never 0. Setting 0
    /// selects the default port.
    Q_PROPERTY(quint16 port READ port WRITE setPort NOTIFY portChanged)
public:
    /// Returns a new editor of `location`, which must not be null. Never null. Loads no window yet.
    static std::shared_ptr<QVDirectConnectionLocationEditor> editorWithSyncLocation(
        const std::shared_ptr<QVSyncLocation> &location);
    ~QVDirectConnectionLocationEditor() override;

    /// Returns the URL for a host and a port; the port 0 selects the default port. An IPv6 address
    /// is written with or without brackets. Returns nil if `host` is null or the result is not a
    /// valid URL, for example because of a space.
    static Url URLWithHost(const QString &host, quint16 port);

    /// No entry is null. The editor is the delegate of each of them until it is removed.
    QList<std::shared_ptr<NetService>> services() const { return m_services; }
    QString host() const;
    /// Setting the host or the port changes the location's URL immediately, and thereby announces
    /// all keys that depend on it. A URL with a path or user loses both. Setting the port leaves a
    /// nil URL nil.
    void setHost(const QString &host);
    bool hasHost() const { return !host().isEmpty(); }
    /// Only the state of the button: acceptModalSheet() does not check it.
    bool canAccept() const;
    quint16 port() const;
    void setPort(quint16 port);

    /// Resolves `service`, which must not be null, asynchronously and then sets its address as the
    /// location's URL, replacing what the user has entered. If it is not resolved within 3 seconds,
    /// the URL does not change and no error is reported. Several services may be resolved at once;
    /// the last one that is resolved determines the URL.
    void acceptURLWithNetService(const std::shared_ptr<NetService> &service);

    /// Delegate functions, called on the main thread from the event loop. Their arguments are never
    /// null.
    void netServiceBrowserDidFindServiceMoreComing(NetServiceBrowser *browser,
                                                   const std::shared_ptr<NetService> &service,
                                                   bool moreComing) override;
    void netServiceBrowserDidRemoveServiceMoreComing(NetServiceBrowser *browser,
                                                     const std::shared_ptr<NetService> &service,
                                                     bool moreComing) override;
    void netServiceDidResolveAddress(const std::shared_ptr<NetService> &service) override;

    /// Dependencies of the derived keys, read by KeyValue.
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingHost() {
        return {"location.URL"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingHasHost() {
        return {"location.URL"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingCanAccept() {
        return {"hasHost", "shouldShowCancelButton"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingPort() {
        return {"location.URL"};
    }

public Q_SLOTS:
    /// Accepts the service in the row that was clicked. Has no effect if the click was below the
    /// rows.
    void selectURLWithNetServiceFromTableView(TableView *tableView);
    /// Closes the sheet and calls the completion handler. The first call then starts to pair if the
    /// location has a URL: it returns at once, the other computer may ask its user, and the running
    /// operation keeps the store and the location alive, but not the editor.
    void acceptModalSheet(QObject *sender) override;

Q_SIGNALS:
    /// The others are emitted when the location's URL is announced.
    void servicesChanged();
    void hostChanged();
    void hasHostChanged();
    void canAcceptChanged();
    void portChanged();

protected:
    /// Starts to browse.
    void awakeFromNib() override;

private:
    explicit QVDirectConnectionLocationEditor(const std::shared_ptr<QVSyncLocation> &location);
    /// Opens the location's store, reads its databases and closes it, on worker threads. Errors are
    /// ignored.
    void attemptPair();
    /// Announces "services" at the end of a batch.
    void announceServicesUnless(bool moreComing);

    /// Its delegate is this object, which must outlive it.
    NetServiceBrowser m_browser;
    /// Their delegate is this object, until it is destroyed.
    QList<std::shared_ptr<NetService>> m_services;
    /// Whether acceptModalSheet() was called.
    bool m_isAccepted = false;
};
