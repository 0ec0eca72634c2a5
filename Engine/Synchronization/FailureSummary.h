#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Error.h"

/// Returns the cause of `error` in a few localized words that continue a sentence, such as "wrong
/// password"; empty if only the error's description names it. Thread-safe.
QString failureSummary(const Error &error);
