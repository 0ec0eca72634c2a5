#include "Engine/Foundation/Sha256.h"

#include <nettle/sha2.h>

QByteArray sha256(std::initializer_list<QByteArrayView> parts) {
    sha256_ctx context;
    sha256_init(&context);
    for (const QByteArrayView part : parts) {
        sha256_update(&context, static_cast<size_t>(part.size()),
                      reinterpret_cast<const uint8_t *>(part.data()));
    }
    QByteArray digest(SHA256_DIGEST_SIZE, Qt::Uninitialized);
    sha256_digest(&context, SHA256_DIGEST_SIZE, reinterpret_cast<uint8_t *>(digest.data()));
    return digest;
}
