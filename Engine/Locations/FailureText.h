#pragma once

#include "Host/QVSyncResult.h"

/// What a job could not do, and why, as a sentence in the user's language. Thread-safe.
namespace FailureText {

/// Returns the sentence for a job with the database `name` at the location `title`, which failed
/// because of `reason`. All three may be any texts.
QString of(bool isCleanUp, const QString &name, const QString &title, const QString &reason);

/// Replaces the description of a failure that was stored while the user had another language by one
/// with the summary as its reason; the former one is then in the details. Has no effect on other
/// results, or if there is no summary.
void localize(QVSyncResult &result, const QString &name, const QString &title);

}  // namespace FailureText
