#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include "Application/Interface/NoteDatabase.h"

class QWidget;

/// Files with the contents of notes, for other programs. Must be used on the main thread.
namespace NoteExport {

/// What is exported. A value.
struct Contents {
    /// The name of the database; empty for a single note.
    QString database = {};
    QList<Note> notes;
};

/// Returns the notes as Markdown in UTF-8: the name of the database, if there is one, and the
/// titles as headings, with escaped markup, and the texts as they are.
QByteArray markdown(const Contents &contents);
/// Returns the notes as JSON in UTF-8: an object with the keys "database", if there is one, and
/// "notes", a list of objects with "identifier", "title", "text" and "modified" (ISO 8601, UTC).
QByteArray json(const Contents &contents);

/// Writes the notes to `file`: as JSON if its name ends in ".json", otherwise as Markdown. Replaces
/// an existing file only if all could be written. Blocks for the time of disk writes.
Expected<void> write(const Contents &contents, const QString &file);

/// Lets the user choose a file in a dialog, which runs a nested event loop, and writes it. Presents
/// an error if that fails.
void ask(const Contents &contents, QWidget *parent);

}  // namespace NoteExport
