#pragma once

#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkAccessManager>

/// The browser of a person who is sent to a DropboxServer: while it exists, every address of the
/// scheme "http" that this process opens comes here, is loaded, and whatever it leads to. Main
/// thread.
class DropboxBrowser : public QObject {
    Q_OBJECT
public:
    DropboxBrowser();
    ~DropboxBrowser() override;
    DropboxBrowser(const DropboxBrowser &) = delete;
    DropboxBrowser &operator=(const DropboxBrowser &) = delete;

    /// From now on an address is only kept.
    void onlyRemember() { m_loads = false; }
    /// Loads `address` as if the person had typed it.
    Q_INVOKABLE void open(const QUrl &address);
    void load(const QUrl &address);

    /// The addresses that were opened.
    const QList<QUrl> &opened() const { return m_opened; }
    /// The texts of the pages that were shown in the end, and their statuses.
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
