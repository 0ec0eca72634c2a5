#pragma once

#include "Application/Interface/NoteDatabase.h"

class QWidget;

/// The question what to do with a text that cannot be saved. Main thread only.
namespace UnsavedTextDialog {

enum class Choice { TryAgain, Discard, KeepEditing };

/// Asks about `note`, which cannot be saved because of `error`, in a dialog that is modal to the
/// window of `parent`, and blocks until the user has decided. The dialog can also copy the text to
/// the clipboard, as often as the user wants. Closing the dialog, also by the end of the
/// application, means KeepEditing.
Choice ask(QWidget *parent, const Note &note, const Error &error);

}  // namespace UnsavedTextDialog
