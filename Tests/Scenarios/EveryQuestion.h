#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <algorithm>
#include <functional>
#include <optional>

#include "Application/DamagedProfileDialog.h"
#include "Application/MainWindow.h"
#include "Application/QuitProgressDialog.h"
#include "Application/QuitSynchronization.h"
#include "Application/UnsavedTextDialog.h"
#include "Controller/Preferences/QVServerPreferencesController.h"
#include "Platform/Interface/TableView.h"
#include "Support/EventTimeout.h"
#include "Support/TestHost.h"

/// The questions of the application that wait for the user.
namespace EveryQuestion {

/// Asks something in a dialog with a nested event loop.
using Ask = void (*)(TestHost &host, MainWindow &window);

inline void askAboutUnsavedText(TestHost & /*host*/, MainWindow &window) {
    UnsavedTextDialog::ask(
        &window, {.title = QStringLiteral("Garden Shed"), .text = QStringLiteral("Paint it.")},
        {.localizedDescription = QStringLiteral(
             "The profile cannot be written: The disk that contains “/home/ida/.local/share/"
             "Velmora” is full. Free some space on it.")});
}

/// Ticks a location for databases with unsent changes.
inline QVSyncStates makeUnsentChanges(TestHost &host) {
    const auto location = host.addLocation(QStringLiteral("http://127.0.0.1:1/Shared.qvSyncStore"));
    QVSyncStates states;
    for (const char *name : {"Projects", "Recipes", "Travel"}) {
        const auto database = host.addDatabase(QString::fromUtf8(name));
        Note note{{}, QStringLiteral("Title"), QStringLiteral("Text"), {}};
        std::ignore = database->saveNote(note);
        states.append(host.addState(location, database));
        states.last()->setEnabled(true);
    }
    return states;
}

inline void askAboutUnsentChanges(TestHost &host, MainWindow &window) {
    makeUnsentChanges(host);
    QuitSynchronization(&window).run();
}

inline void askAboutFailedChanges(TestHost &host, MainWindow &window) {
    for (const auto &state : makeUnsentChanges(host)) {
        state->setSyncOnClose(true);
    }
    QuitSynchronization(&window).run();
}

inline void askAboutRevocation(TestHost & /*host*/, MainWindow &window) {
    const auto controller = QVServerPreferencesController::controller();
    controller->addAuthorizedClientsObject(
        QStringLiteral("kim at the-computer-in-the-living-room.example.com"));
    const QWidget *sheet = controller->window();
    QTimer::singleShot(0, sheet, [&] {
        const auto *table = sheet->findChild<TableView *>(QStringLiteral("clientsTable"));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualItemRect(table->item(0, 0)).center());
        sheet->findChild<QPushButton *>(QStringLiteral("revokeButton"))->click();
        QObject::connect(sheet->findChild<QMessageBox *>(), &QDialog::finished, controller.get(),
                         [&] { controller->acceptModalSheet(nullptr); });
    });
    controller->runServerPreferencesModalForWindow(&window);
}

inline void askAboutDamagedProfile(TestHost &host, MainWindow & /*window*/) {
    DamagedProfileDialog::ask(
        host.directory(),
        QStringLiteral("The profile “/home/ida/.local/share/Velmora/profile.sqlite” is damaged."),
        std::optional(QDate(2026, 11, 22)));
}

inline void askAboutDamagedProfileWithoutCopy(TestHost &host, MainWindow & /*window*/) {
    DamagedProfileDialog::ask(
        host.directory(),
        QStringLiteral("The profile “/home/ida/.local/share/Velmora/profile.sqlite” is damaged."),
        std::optional<QDate>());
}

/// Triggers the command of the database menu with this shortcut for a database.
inline void chooseForDatabase(TestHost &host, MainWindow &window, const QKeySequence &shortcut) {
    host.addDatabase(QStringLiteral("Projects"));
    auto *list = window.findChild<QListWidget *>();
    list->setCurrentRow(list->count() - 1);
    const auto actions = window.menuBar()->findChild<QMenu *>()->actions();
    const auto found = std::find_if(actions.begin(), actions.end(), [&](const QAction *action) {
        return action->shortcut() == shortcut;
    });
    (*found)->trigger();
}

inline void askForNewName(TestHost &host, MainWindow &window) {
    chooseForDatabase(host, window, Qt::Key_F2);
}

inline void askAboutDeletion(TestHost &host, MainWindow &window) {
    chooseForDatabase(host, window, QKeySequence::Delete);
}

/// Returns the functions by the names of the questions.
inline QList<std::pair<const char *, Ask>> all() {
    return {{"unsaved text", askAboutUnsavedText},
            {"unsent", askAboutUnsentChanges},
            {"failed", askAboutFailedChanges},
            {"revocation", askAboutRevocation},
            {"damaged profile", askAboutDamagedProfile},
            {"damaged profile without copy", askAboutDamagedProfileWithoutCopy},
            {"rename", askForNewName},
            {"deletion", askAboutDeletion}};
}

/// Asks, returns what `check` finds in the question as soon as it finds nothing, or when time is
/// up, and rejects the question. Returns nothing if none is asked.
inline std::optional<QStringList> problems(Ask ask, TestHost &host, MainWindow &window,
                                           const std::function<QStringList(QWidget &)> &check) {
    std::optional<QStringList> problems;
    QElapsedTimer shown;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!box || qobject_cast<QuitProgressDialog *>(box)) {
            return;
        }
        if (!box->isActiveWindow()) {
            box->activateWindow();
            return;
        }
        if (!shown.isValid()) {
            shown.start();
        }
        problems = check(*box);
        if (problems->isEmpty() || shown.hasExpired(EventTimeout)) {
            timer.stop();
            box->reject();
        }
    });
    timer.start(10);
    ask(host, window);
    return problems;
}

}  // namespace EveryQuestion
