#pragma once

#include <cstddef>

/// Returns the GType of a libsecret service that ends an operation with G_IO_ERROR_CANCELLED if its
/// prompt is dismissed or the service disappears. Without it, libsecret 0.20 reports a dismissed
/// deletion as successful and never completes some other dismissed operations. Thread-safe.
std::size_t promptAnsweringServiceType();
