#pragma once

class NoteDatabase;
class QWidget;

/// The question whether a database is deleted. Must be used on the main thread.
namespace DeletionQuestion {

/// Says how many notes `database` has, which sync locations have it, and what they lack, and
/// returns whether the user wants to delete it. Runs a nested event loop. The button that does not
/// delete is the default one. `parent` may be null.
bool ask(const NoteDatabase &database, QWidget *parent);

}  // namespace DeletionQuestion
