#include "Engine/Stores/Http/FormEncoding.h"

#include "Platform/Foundation/PercentEscapes.h"

QByteArray FormEncoding::encode(const QList<Field> &fields) {
    QByteArrayList encoded;
    for (const Field &field : fields) {
        encoded.append(field.name + '=' + PercentEscapes::encoding(field.value));
    }
    return encoded.join('&');
}
