#include "Engine/Foundation/Sha256.h"

#include <nettle/sha2.h>

QByteArray sha256(const QByteArray &bytes) {
    sha256_ctx context;
    sha256_init(&context);
    sha256_update(&context, static_cast<size_t>(bytes.size()),
                  reinterpret_cast<const uint8_t *>(bytes.constData()));
    QByteArray digest(SHA256_DIGEST_SIZE, Qt::Uninitialized);
    sha256_digest(&context, SHA256_DIGEST_SIZE, reinterpret_cast<uint8_t *>(digest.data()));
    return digest;
}
