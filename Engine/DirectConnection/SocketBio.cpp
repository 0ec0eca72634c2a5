#include "Engine/DirectConnection/SocketBio.h"

#include <sys/socket.h>

#include <memory>

namespace {

int socketOf(BIO *bio) {
    return *static_cast<const int *>(BIO_get_data(bio));
}

int readSocket(BIO *bio, char *buffer, int size) {
    BIO_clear_retry_flags(bio);
    const auto count = static_cast<int>(recv(socketOf(bio), buffer, static_cast<size_t>(size), 0));
    if (count < 0 && BIO_sock_should_retry(count) != 0) {
        BIO_set_retry_read(bio);
    }
    return count;
}

int writeSocket(BIO *bio, const char *bytes, int size) {
    BIO_clear_retry_flags(bio);
    const auto count =
        static_cast<int>(send(socketOf(bio), bytes, static_cast<size_t>(size), MSG_NOSIGNAL));
    if (count < 0 && BIO_sock_should_retry(count) != 0) {
        BIO_set_retry_write(bio);
    }
    return count;
}

/// Nothing is buffered.
long controlSocket(BIO * /*bio*/, int command, long /*number*/, void * /*pointer*/) {
    return command == BIO_CTRL_FLUSH ? 1 : 0;
}

int destroy(BIO *bio) {
    const std::unique_ptr<int> socket(static_cast<int *>(BIO_get_data(bio)));
    BIO_set_data(bio, nullptr);
    return 1;
}

const BIO_METHOD *makeMethod() {
    BIO_METHOD *method = BIO_meth_new(BIO_get_new_index() | BIO_TYPE_SOURCE_SINK, "socket");
    if (method) {
        BIO_meth_set_read(method, &readSocket);
        BIO_meth_set_write(method, &writeSocket);
        BIO_meth_set_ctrl(method, &controlSocket);
        BIO_meth_set_destroy(method, &destroy);
    }
    return method;
}

}  // namespace

BIO *newSocketBio(int socket) {
    // Never freed: a thread may outlive static objects.
    static const BIO_METHOD *const method = makeMethod();
    BIO *bio = method ? BIO_new(method) : nullptr;
    if (bio) {
        BIO_set_data(bio, std::make_unique<int>(socket).release());
        BIO_set_init(bio, 1);
    }
    return bio;
}
