#include "Engine/Stores/Http/FormEncoding.h"

#include <QtCore/QUrl>

QByteArray FormEncoding::encode(const QList<Field> &fields) {
    QByteArrayList encoded;
    for (const Field &field : fields) {
        encoded.append(field.name + '=' + QUrl::toPercentEncoding(field.value));
    }
    return encoded.join('&');
}
