#include "Engine/Stores/Dropbox/DropboxUrl.h"

#include "Host/LocationSchemes.h"
#include "Platform/Foundation/Url.h"

QString DropboxUrl::account(const Url &URL) {
    const QString prefix = LocationSchemes::Dropbox + QStringLiteral("://");
    const QString text = URL.absoluteString();
    return text.startsWith(prefix) ? text.sliced(prefix.size()) : QString();
}

bool DropboxUrl::isSameAccount(const QString &address, const QString &other) {
    return address.compare(other, Qt::CaseInsensitive) == 0;
}
