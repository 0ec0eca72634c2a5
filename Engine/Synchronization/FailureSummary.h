#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Error.h"

/// Returns the cause of `error` in a few localized words that continue a sentence, such as "wrong
/// password"; empty if only the error's description names it. Thread-safe. Errors of other domains
/// than the engine's have none.
QString failureSummary(const Error &error);
