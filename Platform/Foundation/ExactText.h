#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Conversions that keep every character. Qt drops U+FEFF, a byte order mark, from the beginning of
/// UTF-8 and of the strings in a JSON document. Thread-safe.
namespace ExactText {

/// Returns the text with the encoding `UTF8`. Invalid sequences become U+FFFD.
PLATFORM_EXPORT QString fromUtf8(const QByteArray &UTF8);

/// Returns `object` as a compact JSON document.
PLATFORM_EXPORT QByteArray json(const QJsonObject &object);
/// Returns the object that the document `json` contains; empty if it contains none. Byte order
/// marks outside strings are errors.
PLATFORM_EXPORT QJsonObject objectIn(QByteArray json);

}  // namespace ExactText
