#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

/// Encodes names and values as "application/x-www-form-urlencoded", for queries and bodies. Spaces
/// become "%20". Thread-safe.
namespace FormEncoding {

/// A name, which is not encoded and must be ASCII, and its value.
struct Field {
    QByteArray name;
    QString value;
};

/// Returns the fields in order, joined with "&".
QByteArray encode(const QList<Field> &fields);

}  // namespace FormEncoding
