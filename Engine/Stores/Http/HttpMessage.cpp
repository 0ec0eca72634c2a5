#include "Engine/Stores/Http/HttpMessage.h"

#include <QtCore/QByteArrayList>

QByteArray HttpResponse::header(const QByteArray &name) const {
    QByteArrayList values;
    for (const HttpHeader &header : headers) {
        if (header.name.compare(name, Qt::CaseInsensitive) == 0) {
            values.append(header.value);
        }
    }
    return values.join(", ");
}
