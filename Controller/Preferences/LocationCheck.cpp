#include "Controller/Preferences/LocationCheck.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <utility>

#include "Controller/Preferences/LocationRecovery.h"
#include "Host/PZFuture.h"
#include "Host/QVApplication.h"
#include "Host/QVSyncDispatcher.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVSyncResult.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/MainQueue.h"

namespace {

Error notInTime(const QString &title) {
    return {.domain = SyncErrorDomain,
            .localizedDescription =
                localizedSyncString("“%1” takes too long to respond. Check whether it is "
                                    "available, and try again.")
                    .arg(title)};
}

}  // namespace

LocationCheck::~LocationCheck() {
    for (const Run &run : std::as_const(m_runs)) {
        if (run.future) {
            run.future->cancel();
        }
    }
}

void LocationCheck::setAddedSelection(const Selection &selection) {
    m_addedSelection = selection;
    if (selection) {
        start(selection, Presentation::Shown);
    }
}

void LocationCheck::setSelections(const QList<Selection> &selections) {
    if (!m_text.isEmpty() && !selections.contains(m_textSelection.lock())) {
        setText(nullptr, {});
    }
}

void LocationCheck::check(const Selection &selection) {
    requireParameter(selection != nullptr, "selection != nil", "LocationCheck::check",
                     "Controller/Preferences/LocationCheck");
    start(selection, Presentation::Presented);
}

void LocationCheck::start(const Selection &selection, Presentation presentation) {
    if (selection->isActive()) {
        return;
    }
    const quint64 run = ++m_lastRun;
    m_runs.insert(run, {selection, presentation, nullptr});
    setText(nullptr, {});
    selection->setError({});
    selection->setActive(true);
    QTimer::singleShot(m_timeout, this, [this, run] {
        if (const auto row = m_runs.value(run).selection.lock()) {
            finish(run, {.error = notInTime(row->title())});
        }
    });
    read(run, selection);
}

void LocationCheck::read(quint64 run, const Selection &selection) {
    const auto checkable = QVCheckableStore::of(selection->location()->createStore());
    if (!checkable) {
        selection->fetchDatabasesWithCompletionHandler(
            [self = QPointer(this), run](const auto &databases, const auto &error) {
                if (self) {
                    self->finish(run, {.databases = databases ? databases->size() : 0,
                                       .isReadable = databases.has_value(),
                                       .error = error});
                }
            });
        return;
    }
    // Rows are released on the main thread only, so the handler has none.
    const auto future =
        checkable->checkWithCompletionHandler([self = QPointer(this), run](const auto &found) {
            MainQueue::dispatchAsync([self, run, found] {
                if (self) {
                    self->finish(run, found);
                }
            });
        });
    if (m_runs.contains(run)) {
        m_runs[run].future = future;
    }
}

void LocationCheck::finish(quint64 run, const QVSyncStoreCheck &found) {
    if (!m_runs.contains(run)) {
        return;
    }
    const Run ended = m_runs.take(run);
    if (ended.future) {
        ended.future->cancel();
    }
    const Selection row = ended.selection.lock();
    if (!row) {
        return;
    }
    row->setActive(false);
    if (!found.error) {
        setText(row, found.text(row->title()));
        return;
    }
    Error error = *found.error;
    error.localizedDescription = found.text(row->title());
    error.details = QVSyncResult::details(error, *row->location(), QDateTime::currentDateTime());
    error.recoveryOptions = LocationRecovery::options(
        row->location(), [self = QPointer(this), checked = ended.selection] {
            const Selection again = checked.lock();
            if (self && again) {
                self->check(again);
            }
        });
    row->setError(error);
    if (ended.presentation == Presentation::Presented) {
        NSApp()->presentError(error);
    } else {
        setText(row, error.localizedDescription);
    }
}

void LocationCheck::setText(const Selection &selection, const QString &text) {
    disconnect(m_textOutdated);
    disconnect(m_synchronizationBegan);
    if (selection) {
        // An accepted edit or a synchronization says more about the location than the check.
        m_textOutdated = connect(selection.get(), &QVSynchronizationSelection::errorChanged, this,
                                 [this] { setText(nullptr, {}); });
        QVSyncDispatcher *dispatcher = QVSyncPlugin::plugin()->dispatcher();
        m_synchronizationBegan =
            connect(dispatcher, &QVSyncDispatcher::activityChanged, this,
                    [this, dispatcher, wasIdle = dispatcher->activity().isEmpty()]() mutable {
                        const bool isIdle = dispatcher->activity().isEmpty();
                        if (std::exchange(wasIdle, isIdle) && !isIdle) {
                            setText(nullptr, {});
                        }
                    });
    }
    m_textSelection = selection;
    m_text = text;
    Q_EMIT textChanged();
}
