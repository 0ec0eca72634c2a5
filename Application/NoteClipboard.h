#pragma once

#include "Application/Interface/NoteDatabase.h"

namespace NoteClipboard {

/// Copies the title and the text of `note`, with an empty line between them. Must be called on the
/// main thread.
void copy(const Note &note);

}  // namespace NoteClipboard
