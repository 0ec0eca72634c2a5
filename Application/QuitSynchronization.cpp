#include "Application/QuitSynchronization.h"

#include <QtCore/QPointer>
#include <QtWidgets/QPushButton>
#include <algorithm>

#include "Application/CountText.h"
#include "Application/FailureSteps.h"
#include "Application/MainWindow.h"
#include "Application/QuitProgressDialog.h"
#include "Host/InboxUUID.h"
#include "Host/QVApplication.h"
#include "Host/QVDatabase.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Platform/Foundation/CombinedErrors.h"
#include "Platform/Interface/MessageBox.h"

namespace {

/// The number of databases that a question names.
constexpr qsizetype MostNamed = 8;

/// Returns what opens the editor of a location, as long as `window` exists.
FailureSteps::Editor editorIn(MainWindow *window) {
    return [window = QPointer(window)](const auto &location) {
        if (window) {
            window->editLocation(location);
        }
    };
}

QStringList openUUIDs() {
    QStringList UUIDs;
    const auto databases = QVDatabase::databases();
    for (const auto &database : databases) {
        UUIDs.append(UUIDInStores(*database, NSApp()->inbox().get()));
    }
    return UUIDs;
}

QStringList limited(QStringList lines) {
    if (const qsizetype more = lines.size() - MostNamed; more > 0) {
        lines = lines.first(MostNamed);
        lines.append(translateCount("QuitSynchronization", "and %1 more", nullptr, more).arg(more));
    }
    return lines;
}

}  // namespace

QuitSynchronization::QuitSynchronization(MainWindow *window) : m_window(window) {}

bool QuitSynchronization::run() {
    QVSyncStates states = closingStates();
    if (const QList<Item> unsent = unsentItems(states); !unsent.isEmpty()) {
        switch (askAbout(unsent)) {
            case Choice::Synchronize:
                for (const Item &item : unsent) {
                    states.append(item.state);
                }
                break;
            case Choice::Quit:
                break;
            case Choice::Stay:
                return false;
        }
    }
    return states.isEmpty() || synchronize(states);
}

QVSyncStates QuitSynchronization::closingStates() {
    const QStringList open = openUUIDs();
    QVSyncStates found;
    const auto locations = QVSyncPlugin::plugin()->locationsController()->syncLocations();
    for (const auto &location : locations) {
        const QVSyncStates states = location->synchronizationStates();
        std::copy_if(states.begin(), states.end(), std::back_inserter(found),
                     [&](const auto &state) {
                         return state->isEnabled() && state->syncOnClose() &&
                                open.contains(state->databaseUUID());
                     });
    }
    return found;
}

QList<QuitSynchronization::Item> QuitSynchronization::unsentItems(const QVSyncStates &except) {
    QList<Item> items = SynchronizationSummary::of(*QVSyncPlugin::plugin()).items();
    items.removeIf([&](const Item &item) { return !item.isUnsent || except.contains(item.state); });
    return items;
}

QuitSynchronization::Choice QuitSynchronization::askAbout(const QList<Item> &unsent) const {
    QStringList lines;
    for (const Item &item : unsent) {
        lines.append(tr("“%1” with “%2”").arg(item.database, item.location));
    }
    const bool isOne = unsent.size() == 1;
    const QString text =
        isOne ? tr("“%1” has changes that are not synchronized with “%2”. Synchronize them before "
                   "quitting?")
                    .arg(unsent.first().database, unsent.first().location)
              : tr("There are changes that are not synchronized. Synchronize them before "
                   "quitting?");
    MessageBox box(QMessageBox::Question, text, isOne ? QString() : limited(lines).join(u'\n'),
                   m_window);
    box.setWindowTitle(tr("Quit Velmora"));
    const QPushButton *quit = box.addButton(tr("&Quit"), QMessageBox::DestructiveRole);
    box.addButton(QMessageBox::Cancel);
    QPushButton *synchronize = box.addButton(tr("&Synchronize and Quit"), QMessageBox::AcceptRole);
    box.setDefaultButton(synchronize);
    box.exec();
    if (box.clickedButton() == synchronize) {
        return Choice::Synchronize;
    }
    return box.clickedButton() == quit ? Choice::Quit : Choice::Stay;
}

bool QuitSynchronization::synchronize(const QVSyncStates &states) const {
    Choice choice = Choice::Synchronize;
    while (choice == Choice::Synchronize) {
        QuitProgressDialog dialog(m_window->monitor(), m_window);
        QVSyncPlugin::plugin()->dispatcher()->performSynchronizationsWithSynchronizationStates(
            states, [shown = QPointer(&dialog)] {
                // The user may have ended it before.
                if (shown && shown->isVisible()) {
                    shown->done(QuitProgressDialog::Finished);
                }
            });
        const int end = dialog.exec();
        if (end != QuitProgressDialog::Finished) {
            return end == QuitProgressDialog::QuitNow;
        }
        choice = confirmFailure(states);
    }
    return choice == Choice::Quit;
}

QuitSynchronization::Choice QuitSynchronization::confirmFailure(const QVSyncStates &states) const {
    QList<Item> items = SynchronizationSummary::of(*QVSyncPlugin::plugin()).items();
    items.removeIf(
        [&](const Item &item) { return !item.isUnsent || !states.contains(item.state); });
    return items.isEmpty() ? Choice::Quit : askAboutFailed(items);
}

QuitSynchronization::Choice QuitSynchronization::askAboutFailed(const QList<Item> &unsent) const {
    QStringList lines;
    QList<Error> errors;
    for (const Item &item : unsent) {
        lines.append(item.failure ? item.failure->localizedDescription
                                  : tr("“%1” with “%2”").arg(item.database, item.location));
        errors.append(item.failure.value_or(Error()));
    }
    MessageBox box(QMessageBox::Warning,
                   tr("Some changes could not be synchronized. They are saved on this computer. "
                      "Quit anyway?"),
                   limited(lines).join(QStringLiteral("\n\n")), m_window);
    box.setWindowTitle(tr("Quit Velmora"));
    box.setDetailedText(CombinedErrors::of(errors).details);
    const QPushButton *quit = box.addButton(tr("&Quit"), QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(QMessageBox::Cancel));
    Choice choice = Choice::Stay;
    const QList<RecoveryOption> steps =
        FailureSteps::of(unsent, editorIn(m_window), [&choice] { choice = Choice::Synchronize; });
    QList<const QAbstractButton *> buttons;
    for (const RecoveryOption &step : steps) {
        buttons.append(box.addButton(step.title, QMessageBox::ActionRole));
    }
    box.exec();
    if (box.clickedButton() == quit) {
        return Choice::Quit;
    }
    if (const qsizetype chosen = buttons.indexOf(box.clickedButton()); chosen >= 0) {
        steps[chosen].choose();
    }
    return choice;
}
