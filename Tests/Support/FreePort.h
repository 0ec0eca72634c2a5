#pragma once

#include <QtCore/QtGlobal>

/// A TCP port on which nothing of this computer listens just now.
quint16 freePort();
