#pragma once

#include <QtCore/QJsonObject>

#include "Application/Interface/SyncPlugIn.h"

/// How `velmora verify` reports to the user and to scripts. The text is localized; scripts use the
/// JSON and the exit code, which do not change between versions. Thread-safe.
namespace VerificationOutput {

/// Returns the report of a verification with `mode` as text of several lines, in which names have
/// no control characters, so that they cannot control the terminal. Ends with a conclusion, which
/// names the next step, and a line break.
QString text(const VerificationReport &report, VerificationMode mode);
/// Returns the report as JSON: "outcome" and "parts", each of these with "name", "outcome",
/// "extent", "repairs" and "problems". An outcome is "sound", "problems" or "not checked"; the
/// other texts are localized.
QJsonObject json(const VerificationReport &report);
/// Returns the exit code of the process: 0 if everything is sound, 1 if there are problems, 2 if
/// something could not be checked.
int exitCode(VerificationReport::Outcome outcome);

}  // namespace VerificationOutput
