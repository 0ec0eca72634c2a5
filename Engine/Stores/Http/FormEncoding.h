#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

/// Names and values as "application/x-www-form-urlencoded" has them, for queries and bodies alike.
/// Blanks become "%20".
namespace FormEncoding {

struct Field {
    QByteArray name;
    QString value;
};

QByteArray encode(const QList<Field> &fields);

}  // namespace FormEncoding
