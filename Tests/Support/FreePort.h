#pragma once

#include <QtCore/QtGlobal>

/// Returns a random TCP port of this computer on which nothing listens at the moment, and which the
/// system does not choose by itself.
quint16 freePort();
