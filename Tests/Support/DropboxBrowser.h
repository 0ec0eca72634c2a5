#pragma once

#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkAccessManager>

/// The browser of a user who is sent to a DropboxServer. While it exists, it loads every "http"
/// address that this process opens and follows the redirections. Must be used on the main thread.
class DropboxBrowser : public QObject {
    Q_OBJECT
public:
    DropboxBrowser();
    ~DropboxBrowser() override;
    DropboxBrowser(const DropboxBrowser &) = delete;
    DropboxBrowser &operator=(const DropboxBrowser &) = delete;

    /// Stops loading: later addresses are only recorded.
    void onlyRemember() { m_loads = false; }
    /// Loads `address` as if the user had typed it.
    Q_INVOKABLE void open(const QUrl &address);
    void load(const QUrl &address);

    /// The opened addresses, in order.
    const QList<QUrl> &opened() const { return m_opened; }
    /// The texts and HTTP status codes of the pages at which loading ended.
    const QStringList &pages() const { return m_pages; }
    const QList<int> &statuses() const { return m_statuses; }

Q_SIGNALS:
    void shown();

private:
    QNetworkAccessManager m_manager;
    bool m_loads = true;
    QList<QUrl> m_opened;
    QStringList m_pages;
    QList<int> m_statuses;
};
