#pragma once

#include <openssl/bio.h>

/// Returns a BIO that reads and writes the connected socket `socket` like BIO_new_socket(3), except
/// that writing to a connection that the other end has closed sends no SIGPIPE to the process. The
/// socket is not owned. The caller owns the BIO; null if there is no memory. Thread-safe.
BIO *newSocketBio(int socket);
