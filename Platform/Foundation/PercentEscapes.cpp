#include "Platform/Foundation/PercentEscapes.h"

#include <QtCore/QUrl>
#include <algorithm>

QByteArray PercentEscapes::encoding(const QString &text, const QByteArray &kept) {
    return QUrl::toPercentEncoding(text, kept);
}

QString PercentEscapes::encodingPath(const QString &path) {
    return QString::fromLatin1(encoding(path, QByteArray(SubDelimiters) + "/:@"));
}

QString PercentEscapes::decoding(QStringView text) {
    return QUrl::fromPercentEncoding(text.toLatin1());
}

QString PercentEscapes::adding(const QString &text, const QString &alsoEscaped) {
    // Qt always encodes non-ASCII characters and never encodes "-", ".", "_" and "~".
    QString ascii = alsoEscaped;
    ascii.removeIf([](QChar c) { return c > QChar(0x7F); });
    return QString::fromLatin1(QUrl::toPercentEncoding(text, "!*'();/?:@&=+$,", ascii.toLatin1()));
}
