#include "Platform/Foundation/PercentEscapes.h"

#include <QtCore/QUrl>
#include <algorithm>

QString PercentEscapes::adding(const QString &text, const QString &alsoEscaped) {
    // Qt always encodes non-ASCII characters and never encodes "-", ".", "_" and "~".
    QString ascii = alsoEscaped;
    ascii.removeIf([](QChar c) { return c > QChar(0x7F); });
    return QString::fromLatin1(QUrl::toPercentEncoding(text, "!*'();/?:@&=+$,", ascii.toLatin1()));
}
