#pragma once

class QPlainTextEdit;

/// Aligns the lines of `view` with the side at which lines begin in the language of the windows. Qt
/// aligns them on the left, also where texts are written from right to left. Must be used on the
/// main thread.
void alignLines(QPlainTextEdit &view);
