#include "Application/DamagedProfileDialog.h"

#include <QtCore/QDir>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QPushButton>

#include "Application/Interface/SyncPlugIn.h"
#include "Host/QVApplication.h"
#include "Platform/Foundation/DateText.h"
#include "Platform/Interface/MessageBox.h"
#include "Platform/Interface/Workspace.h"

namespace {

QString damageText(const char *text) {
    return QCoreApplication::translate("DamagedProfileDialog", text);
}

/// What the user can do, depending on the backup that can be restored.
QString nextSteps(const Expected<std::optional<QDate>> &backup) {
    if (!backup) {
        return backup.error().localizedDescription + u' ' +
               damageText(
                   "Make the backups readable and start Velmora again. Or you can start with "
                   "an empty profile and import your databases from the sync locations.");
    }
    if (!*backup) {
        return damageText(
            "There is no backup of it that can be restored. You can start with a profile that has "
            "the notes that can still be read, and import your other databases from the sync "
            "locations.");
    }
    return damageText(
               "You can restore the backup that Velmora made of it on %1; later changes of notes "
               "are added to it if they can be read, and are otherwise missing until they are "
               "synchronized again. Or you can start with an empty profile and import your "
               "databases from the sync locations.")
        .arg(DateText::longDate(**backup));
}

}  // namespace

DamagedProfileDialog::Choice DamagedProfileDialog::ask(
    const QString &directory, const QString &text, const Expected<std::optional<QDate>> &found) {
    const std::optional<QDate> backup = found.value_or(std::nullopt);
    MessageBox box(QMessageBox::Critical, text,
                   nextSteps(found) + QStringLiteral("\n\n") +
                       damageText("The present files are kept in the folder “Damaged Profiles”."));
    QPushButton *restore = nullptr;
    if (backup) {
        restore =
            box.addButton(damageText("&Restore the Backup of %1").arg(DateText::shortDate(*backup)),
                          QMessageBox::AcceptRole);
    }
    QPushButton *begin =
        box.addButton(damageText("Start from the Sync &Locations"), QMessageBox::AcceptRole);
    QPushButton *show = box.addButton(damageText("Show &Folder"), QMessageBox::ActionRole);
    // Keep the dialog open.
    show->disconnect(&box);
    QObject::connect(show, &QPushButton::clicked, &box, [&directory] {
        Workspace::selectFile(QDir(directory).absolutePath(),
                              [](const Error &failed) { NSApp()->presentError(failed); });
    });
    QPushButton *quit = box.addButton(damageText("&Quit"), QMessageBox::RejectRole);
    box.setDefaultButton(restore ? restore : quit);
    box.setEscapeButton(quit);
    box.exec();
    if (restore && box.clickedButton() == restore) {
        return Choice::Restore;
    }
    return box.clickedButton() == begin ? Choice::Begin : Choice::Quit;
}

bool DamagedProfileDialog::run(SyncPlugIn &sync, const QString &directory, const Error &error) {
    QString text = error.localizedDescription;
    for (;;) {
        const Choice choice = ask(directory, text, sync.dateOfBackup(directory));
        if (choice == Choice::Quit) {
            return false;
        }
        const Expected<void> replaced =
            sync.replaceProfile(directory, choice == Choice::Restore ? ProfileReplacement::Backup
                                                                     : ProfileReplacement::Empty);
        if (replaced) {
            return true;
        }
        text = replaced.error().localizedDescription;
    }
}
