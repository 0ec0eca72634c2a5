#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

/// Encodes names and values as "application/x-www-form-urlencoded" (WHATWG URL Standard, section
/// 5), for queries and bodies. Spaces become "%20" instead of "+", which every recipient of that
/// format decodes as well. Thread-safe.
namespace FormEncoding {

/// A name, which is not encoded and must be ASCII, and its value. The value may contain any text;
/// it is encoded as UTF-8. An empty value is sent as "name=".
struct Field {
    QByteArray name;
    QString value;
};

/// Returns the fields in order, joined with "&". Returns an empty array if there are none. Names
/// may occur several times.
QByteArray encode(const QList<Field> &fields);

}  // namespace FormEncoding
