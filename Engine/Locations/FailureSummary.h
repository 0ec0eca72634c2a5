#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Error.h"

/// The causes of failures in a few words that continue a sentence, such as "wrong password".
/// Thread-safe.
namespace FailureSummary {

/// Returns the cause of `error` in the user's language; empty if only the error's description names
/// it. Errors of other domains than the engine's have none.
QString of(const Error &error);
/// Returns the English text of `summary`, which of() has returned, as the profile saves it: the
/// user may choose another language later. Any other text is returned as it is, for example one of
/// the former language.
QString english(const QString &summary);
/// Returns the text in the user's language that english() has returned. Any other text is returned
/// as it is.
QString localized(const QString &english);

}  // namespace FailureSummary
