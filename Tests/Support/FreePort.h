#pragma once

#include <QtCore/QtGlobal>

/// Returns a TCP port of this computer on which nothing listens at the moment.
quint16 freePort();
