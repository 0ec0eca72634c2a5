#include "Application/NoteClipboard.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

void NoteClipboard::copy(const Note &note) {
    QGuiApplication::clipboard()->setText(note.title + QStringLiteral("\n\n") + note.text);
}
