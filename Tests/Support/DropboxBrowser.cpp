#include "Support/DropboxBrowser.h"

#include <QtGui/QDesktopServices>
#include <QtNetwork/QNetworkReply>

namespace {

const QString BrowsedScheme = QStringLiteral("http");

}  // namespace

DropboxBrowser::DropboxBrowser() {
    QDesktopServices::setUrlHandler(BrowsedScheme, this, "open");
}

DropboxBrowser::~DropboxBrowser() {
    QDesktopServices::unsetUrlHandler(BrowsedScheme);
}

void DropboxBrowser::open(const QUrl &address) {
    m_opened.append(address);
    if (m_loads) {
        load(address);
    }
}

void DropboxBrowser::load(const QUrl &address) {
    QNetworkReply *reply = m_manager.get(QNetworkRequest(address));
    connect(reply, &QNetworkReply::finished, this, [this, reply] {
        m_statuses.append(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt());
        m_pages.append(QString::fromUtf8(reply->readAll()));
        reply->deleteLater();
        Q_EMIT shown();
    });
}
