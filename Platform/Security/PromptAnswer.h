#pragma once

#include <cstddef>

/// The GType of a libsecret service that takes a dismissed prompt, or one whose service has gone,
/// for a failed question: it ends with G_IO_ERROR_CANCELLED. Without that libsecret 0.20 holds a
/// dismissed deletion for done, and some other dismissed questions are never answered.
std::size_t promptAnsweringServiceType();
