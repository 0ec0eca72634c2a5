#include "Application/UnsavedTextDialog.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QPushButton>

#include "Application/NoteClipboard.h"
#include "Platform/Interface/MessageBox.h"

namespace {

QString dialogText(const char *text) {
    return QCoreApplication::translate("UnsavedTextDialog", text);
}

}  // namespace

UnsavedTextDialog::Choice UnsavedTextDialog::ask(QWidget *parent, const Note &note,
                                                 const Error &error) {
    MessageBox box(QMessageBox::Warning, dialogText("Your text is not saved."),
                   error.localizedDescription, parent);
    QPushButton *tryAgain = box.addButton(dialogText("&Try Again"), QMessageBox::AcceptRole);
    QPushButton *discard = box.addButton(dialogText("&Discard"), QMessageBox::DestructiveRole);
    QPushButton *copy = box.addButton(dialogText("&Copy Text"), QMessageBox::ActionRole);
    // Keep the dialog open, since the clipboard does not keep the copy for long.
    copy->disconnect(&box);
    QObject::connect(copy, &QPushButton::clicked, &box, [&note] { NoteClipboard::copy(note); });
    box.addButton(dialogText("&Keep Editing"), QMessageBox::RejectRole);
    box.setDefaultButton(tryAgain);
    box.exec();
    if (box.clickedButton() == tryAgain) {
        return Choice::TryAgain;
    }
    return box.clickedButton() == discard ? Choice::Discard : Choice::KeepEditing;
}
