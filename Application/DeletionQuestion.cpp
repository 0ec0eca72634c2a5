#include "Application/DeletionQuestion.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtWidgets/QPushButton>

#include "Application/CountText.h"
#include "Application/Interface/NoteDatabase.h"
#include "Application/Interface/QVUnsentChanges.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationFormatter.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Platform/Interface/MessageBox.h"
#include "Platform/Interface/PlainText.h"

namespace {

QString deletionText(const char *text) {
    return QCoreApplication::translate("DeletionQuestion", text);
}

QString notesText(const NoteDatabase &database) {
    const Expected<qint64> count = database.countOfNotes();
    if (!count) {
        // They may be unreadable, which is why they are deleted.
        return deletionText("Its notes are deleted on this computer, with their earlier versions.");
    }
    if (*count == 0) {
        return deletionText("It has no notes.");
    }
    return translateCount("DeletionQuestion",
                          "Its %1 notes are deleted on this computer, with their earlier versions.",
                          "Its %1 note is deleted on this computer, with its earlier versions.",
                          *count)
        .arg(QLocale().toString(*count));
}

/// Returns which locations have the database, and which of them lack changes.
QString locationsText(const NoteDatabase &database) {
    QStringList having;
    QStringList lacking;
    const auto locations = QVSyncPlugin::plugin()->locationsController()->syncLocations();
    for (const auto &location : locations) {
        const auto state = location->stateForDatabaseWithUUID(database.UUID());
        if (!state || !state->lastSynced().isValid()) {
            continue;
        }
        const QString title = deletionText("“%1”").arg(
            QVSyncLocationFormatter::formatterForLocationWithURL(location->URL())->title());
        having.append(title);
        if (QVUnsentChanges::in(*state, QVSyncPlugin::plugin()->dispatcher()).value_or(true)) {
            lacking.append(title);
        }
    }
    if (having.isEmpty()) {
        return deletionText(
            "No sync location has a copy of it. To keep one, choose “Database”, “Export…” first.");
    }
    const QString separator = QStringLiteral(", ");
    const QString text =
        deletionText("These locations keep the database, and you can import it from them: %1.")
            .arg(having.join(separator));
    return lacking.isEmpty() ? text
                             : text + u'\n' +
                                   deletionText("Your latest changes are not there yet: %1.")
                                       .arg(lacking.join(separator));
}

}  // namespace

bool DeletionQuestion::ask(const NoteDatabase &database, QWidget *parent) {
    const QStringList details{
        notesText(database), locationsText(database),
        deletionText("You can undo this for ten minutes, unless you quit Velmora.")};
    MessageBox box(
        QMessageBox::Warning,
        PlainText::message(deletionText("Delete the database “%1”?").arg(database.name())),
        PlainText::message(details.join(u'\n')), parent);
    QPushButton *remove = box.addButton(deletionText("&Delete"), QMessageBox::DestructiveRole);
    QPushButton *cancel = box.addButton(deletionText("&Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    return box.clickedButton() == remove;
}
