#pragma once

#include "Controller/Preferences/QVSyncLocationEditor.h"
#include "Platform/Interface/TableView.h"
#include "Platform/Network/NetService.h"
#include "Platform/Network/NetServiceBrowser.h"
#include "Platform/Network/NetServiceBrowserDelegate.h"
#include "Platform/Network/NetServiceDelegate.h"

/// Edits the location of a direct connection with another computer: lists the servers that announce
/// themselves on the local network, or takes a host and a port. Once accepted it contacts the
/// server, by which the two computers pair; what comes of that is not reported.
class QVDirectConnectionLocationEditor : public QVSyncLocationEditor,
                                         public NetServiceBrowserDelegate,
                                         public NetServiceDelegate {
    Q_OBJECT
    /// In the order found; announced once for each batch.
    Q_PROPERTY(QList<std::shared_ptr<NetService>> services READ services NOTIFY servicesChanged)
    /// Of the location's URL, an IPv6 address without brackets; null where the URL is nil. Setting
    /// an empty or null one makes the URL nil.
    Q_PROPERTY(QString host READ host WRITE setHost NOTIFY hostChanged)
    /// Whether there is a host to connect with.
    Q_PROPERTY(bool hasHost READ hasHost NOTIFY hasHostChanged)
    /// Whether OK is enabled: if there is a host, and without a Cancel button always.
    Q_PROPERTY(bool canAccept READ canAccept NOTIFY canAcceptChanged)
    /// 1 to 65535: that of the location's URL, else the default port. 0 sets the default port.
    Q_PROPERTY(quint16 port READ port WRITE setPort NOTIFY portChanged)
public:
    static std::shared_ptr<QVDirectConnectionLocationEditor> editorWithSyncLocation(
        const std::shared_ptr<QVSyncLocation> &location);
    ~QVDirectConnectionLocationEditor() override;

    /// nil for a null host, and where what comes out does not parse; port 0 stands for the default
    /// port.
    static Url URLWithHost(const QString &host, quint16 port);

    QList<std::shared_ptr<NetService>> services() const { return m_services; }
    QString host() const;
    void setHost(const QString &host);
    bool hasHost() const { return !host().isEmpty(); }
    bool canAccept() const;
    quint16 port() const;
    void setPort(quint16 port);

    /// Takes over the address of `service` once it is resolved, within 3 seconds; else nothing
    /// happens.
    void acceptURLWithNetService(const std::shared_ptr<NetService> &service);

    void netServiceBrowserDidFindServiceMoreComing(NetServiceBrowser *browser,
                                                   const std::shared_ptr<NetService> &service,
                                                   bool moreComing) override;
    void netServiceBrowserDidRemoveServiceMoreComing(NetServiceBrowser *browser,
                                                     const std::shared_ptr<NetService> &service,
                                                     bool moreComing) override;
    void netServiceDidResolveAddress(const std::shared_ptr<NetService> &service) override;

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
    /// Takes the service of the row that was clicked; a click beside the rows does nothing.
    void selectURLWithNetServiceFromTableView(TableView *tableView);
    /// Pairs the first time that it is sent.
    void acceptModalSheet(QObject *sender) override;

Q_SIGNALS:
    void servicesChanged();
    void hostChanged();
    void hasHostChanged();
    void canAcceptChanged();
    void portChanged();

protected:
    void awakeFromNib() override;

private:
    explicit QVDirectConnectionLocationEditor(const std::shared_ptr<QVSyncLocation> &location);
    void attemptPair();
    void announceServicesUnless(bool moreComing);

    NetServiceBrowser m_browser;
    QList<std::shared_ptr<NetService>> m_services;
    bool m_isAccepted = false;
};
