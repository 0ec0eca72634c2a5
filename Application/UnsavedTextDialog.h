#pragma once

#include "Application/Interface/NoteDatabase.h"

class QWidget;

/// The dialog for a text that cannot be saved. Must be used on the main thread.
namespace UnsavedTextDialog {

/// The user's decision.
enum class Choice { TryAgain, Discard, KeepEditing };

/// Asks about `note`, which cannot be saved because of `error`, in a dialog that is modal to the
/// window of `parent`, and runs a nested event loop until the user decides. Changes nothing by
/// itself. The dialog can also copy the title and the text to the clipboard, any number of times;
/// the clipboard may lose them when the program ends. Closing the dialog, also because the
/// application quits, means KeepEditing. `parent` must not be destroyed meanwhile.
Choice ask(QWidget *parent, const Note &note, const Error &error);

}  // namespace UnsavedTextDialog
