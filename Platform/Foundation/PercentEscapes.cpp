#include "Platform/Foundation/PercentEscapes.h"

#include <QtCore/QUrl>
#include <algorithm>

QString PercentEscapes::adding(const QString &text, const QString &alsoEscaped) {
    // What is not ASCII is always escaped. "-", ".", "_" and "~" stay without being named.
    QString ascii = alsoEscaped;
    ascii.removeIf([](QChar c) { return c > QChar(0x7F); });
    return QString::fromLatin1(QUrl::toPercentEncoding(text, "!*'();/?:@&=+$,", ascii.toLatin1()));
}
