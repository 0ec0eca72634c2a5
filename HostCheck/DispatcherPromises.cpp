#include "HostCheck/DispatcherPromises.h"

#include <QtCore/QDir>
#include <QtCore/QMetaProperty>
#include <array>

#include "Host/InboxUUID.h"
#include "Host/QVApplication.h"
#include "Host/QVDatabase.h"
#include "Host/QVSyncProgress.h"
#include "Host/QVSyncResult.h"
#include "HostCheck/ApplicationWatch.h"
#include "HostCheck/Checking.h"
#include "HostCheck/Handler.h"
#include "HostCheck/NotifyWatch.h"
#include "HostCheck/StoreServer.h"

using namespace Checking;

namespace DispatcherPromises {
namespace {

constexpr char Header[] = "Host/QVSyncDispatcher.h";
constexpr char State[] = "Host/QVSyncState.h";
constexpr char Result[] = "Host/QVSyncResult.h";
constexpr char Progress[] = "Host/QVSyncProgress.h";

/// A handler that the dispatcher has, unless it was called already.
struct Synchronization : Handler<> {
    explicit Synchronization(const QVSyncStates &states, QVSyncDispatcher &checked = dispatcher()) {
        checked.performSynchronizationsWithSynchronizationStates(states, function());
        didReturn();
    }
};

struct CleanUp : Handler<> {
    explicit CleanUp(const std::shared_ptr<QVSyncState> &state) {
        dispatcher().cleanRemoteStoreWithSynchronizationState(state, function());
        didReturn();
    }
};

/// The enabled state of the inbox at a web server, which does not respond at first.
struct InboxAtServer {
    StoreServer server;
    InboxState inbox{newLocation(server.URL())};

    /// Waits until `job` waits for the server. Throws NotOffered if it ends without it.
    void requireWait(const Synchronization &job) const {
        wait([&] { return server.isAsked() || job.wasCalled(); });
        requireOffer(server.isAsked() && !job.wasCalled());
    }
};

/// A state of a location that no host has made.
class ForeignState : public QVSyncState {
public:
    QString databaseUUID() const override { return InboxUUID; }
    QString databaseName() const override { return {}; }
    std::shared_ptr<QVSyncLocation> destination() const override { return nullptr; }
    bool isEnabled() const override { return true; }
    void setEnabled(bool /*enabled*/) override {}
    QVSyncSchedulePtr schedule() const override { return nullptr; }
    void setSchedule(const QVSyncSchedulePtr & /*schedule*/) override {}
    bool syncOnOpen() const override { return false; }
    void setSyncOnOpen(bool /*syncOnOpen*/) override {}
    bool syncOnClose() const override { return false; }
    void setSyncOnClose(bool /*syncOnClose*/) override {}
    QDateTime lastSynced() const override { return {}; }
};

void noStatesEndOnce() {
    Synchronization({}).requireOneCall();
}

/// A synchronization of nothing, one of a disabled state, and one that has something to do. All
/// have called their handlers.
class EveryKind {
    const NewState m_disabled;
    const InboxInFolder m_enabled;

public:
    EveryKind() {
        for (Synchronization &job : jobs) {
            job.requireCall();
        }
    }
    std::array<Synchronization, 3> jobs{Synchronization({}), Synchronization({m_disabled.state}),
                                        Synchronization({m_enabled.state})};
};

void handlerIsCalledOnTheMainThread() {
    for (EveryKind all; const Synchronization &job : all.jobs) {
        require(job.wasCalledOnMainThread(), "the handler is called on another thread");
    }
}

void handlerIsCalledLater() {
    for (EveryKind all; const Synchronization &job : all.jobs) {
        require(!job.wasCalledWithinCall(), "the handler is called from within the function");
    }
}

void duplicatesEndOnce() {
    const InboxInFolder added;
    Synchronization({added.state, added.state}).requireOneCall();
}

void severalStatesEndOnce() {
    const InboxInFolder first;
    const InboxInFolder second;
    Synchronization({first.state, second.state}).requireOneCall();
}

void handlerWaitsForEveryJob() {
    const InboxInFolder folder;
    const InboxInFolder later;
    InboxAtServer added;
    Synchronization both({folder.state, added.inbox.state});
    wait([&] { return added.server.isAsked() || both.wasCalled(); });
    constexpr std::chrono::milliseconds grace(500);
    // A host may have one job at a time, so that it would ask the server only after the call.
    wait([&] { return added.server.isAsked(); }, grace);
    requireOffer(added.server.isAsked());
    // It would be over after the job in the folder is, if the host has jobs at the same time.
    Synchronization next({later.state});
    wait([&] { return next.wasCalled() || both.wasCalled(); }, grace);
    const bool hasWaited = !both.wasCalled();
    added.server.respond();
    both.requireOneCall();
    next.requireOneCall();
    require(hasWaited, "the handler is called before all jobs have ended");
}

void disabledStatesAreSkipped() {
    const InboxInFolder added;
    added.state->setEnabled(false);
    const QDateTime before = added.state->lastSynced();
    Synchronization({added.state}).requireOneCall();
    require(added.state->lastSynced() == before, "a disabled state is synchronized");
}

void statesWithoutLocationAreSkipped() {
    std::shared_ptr<QVSyncState> state;
    {
        const NewState added;
        added.state->setEnabled(true);
        state = added.state;
    }
    const QDateTime before = state->lastSynced();
    Synchronization({state}).requireOneCall();
    require(state->lastSynced() == before, "a state without a location is synchronized");
}

void foreignStatesAreSkipped() {
    Synchronization({std::make_shared<ForeignState>()}).requireOneCall();
}

void everyHandlerIsCalled() {
    const InboxInFolder added;
    Synchronization first({added.state});
    Synchronization second({added.state});
    first.requireOneCall();
    second.requireOneCall();
}

void jobsOfOneLocationWait() {
    InboxAtServer added;
    Synchronization first({added.inbox.state});
    added.requireWait(first);
    added.server.respondToOthers();
    CleanUp second(added.inbox.state);
    // It would be over before that of another location is, if the host has jobs at the same time.
    InboxAtServer other;
    other.server.respondToOthers();
    Synchronization third({other.inbox.state});
    constexpr std::chrono::milliseconds grace(500);
    wait([&] { return second.wasCalled() || third.wasCalled(); }, grace);
    const bool hasWaited = !second.wasCalled() || first.wasCalled();
    added.server.respond();
    // The other promises begin when nothing runs.
    first.requireOneCall();
    second.requireOneCall();
    third.requireOneCall();
    require(hasWaited, "a job runs while another one for the same location does");
}

void failureIsReported() {
    const InboxInFolder added;
    require(QDir(added.URL.path()).removeRecursively(),
            "the check could not remove a temporary folder");
    const ApplicationWatch watch;
    Synchronization({added.state}).requireOneCall();
    requireOffer(!added.state->lastSynced().isValid());
    require(watch.messages() > 0, "a job has failed, and nothing is in the log");
}

/// A job that has ended and changed the date of a state, which is watched.
class ChangedDate : InboxInFolder {
public:
    ChangedDate() {
        Synchronization({state}).requireCall();
        requireOffer(state->lastSynced().isValid());
    }
    bool isAnnounced() const { return m_announced.has_value() || isAnnouncedElsewhere(); }
    bool isAnnouncedElsewhere() const { return m_watch.wasNotedElsewhere(); }
    /// Whether the date was the former one when it was announced last on the main thread.
    bool isAnnouncedBefore() const { return m_announced && *m_announced != state->lastSynced(); }

private:
    std::optional<QDateTime> m_announced;
    const NotifyWatch m_watch{*state, "lastSynced", [this] { m_announced = state->lastSynced(); }};
};

void dateIsAnnounced() {
    require(ChangedDate().isAnnounced(), "the date has changed without an announcement");
}

void dateIsAnnouncedAfterwards() {
    require(!ChangedDate().isAnnouncedBefore(), "the date is announced before it changes");
}

void dateIsAnnouncedOnTheMainThread() {
    require(!ChangedDate().isAnnouncedElsewhere(), "the date is announced on another thread");
}

void disabledStateKeepsItsDate() {
    const InboxInFolder added;
    Synchronization({added.state}).requireOneCall();
    const QDateTime date = added.state->lastSynced();
    requireOffer(date.isValid());
    added.state->setEnabled(false);
    require(added.state->lastSynced() == date, "disabling changes the date");
}

void enablingStartsNothing() {
    const InboxInFolder added;
    added.state->setEnabled(false);
    const QString activity = dispatcher().activity();
    const QDateTime date = added.state->lastSynced();
    added.state->setEnabled(true);
    // A synchronization would be over before this, or still run.
    Synchronization({}).requireCall();
    require(dispatcher().activity() == activity && added.state->lastSynced() == date,
            "enabling starts a synchronization");
}

void resultIsRemoved() {
    const InboxInFolder added;
    requireOffer(QVSyncResult::isOfferedBy(added.state.get()));
    Synchronization({added.state}).requireOneCall();
    const auto result = QVSyncResult::of(added.state.get());
    requireOffer(result.has_value());
    added.state->setProperty(QVSyncResult::Key, QVariant::fromValue(std::optional<QVSyncResult>()));
    require(QVSyncResult::of(added.state.get()) != result, "the result is not removed");
}

/// A job that has ended with the first result of a state, which is watched.
class FirstResult : InboxInFolder {
public:
    FirstResult() {
        Synchronization({state}).requireOneCall();
        require(QVSyncResult::of(state.get()).has_value(),
                "there is no result after a synchronization");
    }
    bool isAnnounced() const {
        return m_announced == QVSyncResult::of(state.get()) || isAnnouncedElsewhere();
    }
    bool isAnnouncedElsewhere() const { return m_watch.wasNotedElsewhere(); }
    /// Whether a result was there before the date.
    bool isBeforeDate() const { return m_isBeforeDate && state->lastSynced().isValid(); }

private:
    void note() {
        m_announced = QVSyncResult::of(state.get());
        m_isBeforeDate = m_isBeforeDate || (m_announced && !state->lastSynced().isValid());
    }

    std::optional<QVSyncResult> m_announced;
    bool m_isBeforeDate = false;
    const NotifyWatch m_watch{*state, QVSyncResult::Key, [this] { note(); }};
};

void resultIsAnnounced() {
    require(FirstResult().isAnnounced(), "the result has changed without an announcement");
}

void resultFollowsTheDate() {
    require(!FirstResult().isBeforeDate(), "the result changes before the date");
}

void resultIsAnnouncedOnTheMainThread() {
    require(!FirstResult().isAnnouncedElsewhere(), "the result is announced on another thread");
}

void cancelledJobHasNoResult() {
    InboxAtServer added;
    QVSyncState &state = *added.inbox.state;
    requireOffer(QVSyncResult::isOfferedBy(&state) && QVSyncProgress::canStop(&dispatcher()));
    const auto before = QVSyncResult::of(&state);
    Synchronization running({added.inbox.state});
    added.requireWait(running);
    QVSyncProgress::stop(&dispatcher());
    running.requireOneCall();
    require(QVSyncResult::of(&state) == before, "a job that was cancelled has a result");
}

void nullIsNotCleaned() {
    CleanUp(nullptr).requireOneCall();
}

void disabledStateIsNotCleaned() {
    const NewState added;
    CleanUp(added.state).requireOneCall();
}

void storeOfDisabledStateIsUnchanged() {
    const InboxInFolder added;
    Synchronization({added.state}).requireOneCall();
    added.state->setEnabled(false);
    const QStringList before = contentsOf(added);
    const auto result = QVSyncResult::of(added.state.get());
    CleanUp(added.state).requireOneCall();
    require(contentsOf(added) == before && QVSyncResult::of(added.state.get()) == result,
            "the store of a disabled state is cleaned");
}

void stateWithoutLocationIsNotCleaned() {
    std::shared_ptr<QVSyncState> state;
    {
        const NewState added;
        state = added.state;
        state->setEnabled(true);
    }
    CleanUp(state).requireOneCall();
}

void cleanUpEndsOnce() {
    const InboxInFolder added;
    CleanUp(added.state).requireOneCall();
}

void idleDispatcherDoesNothing() {
    Synchronization({}).requireCall();
    require(dispatcher().activity().isEmpty(), "the dispatcher says that it does something");
}

void activityIsAnnounced() {
    const InboxInFolder added;
    QVSyncDispatcher &checked = dispatcher();
    QString announced = checked.activity();
    QObject receiver;
    QObject::connect(&checked, &QVSyncDispatcher::activityChanged, &receiver,
                     [&] { announced = checked.activity(); });
    Synchronization running({added.state}, checked);
    bool isAnnounced = true;
    wait([&] {
        isAnnounced = isAnnounced && checked.activity() == announced;
        return running.wasCalled();
    });
    running.requireOneCall();
    require(isAnnounced, "the text has changed without an announcement");
}

QMetaProperty progressProperty() {
    const QMetaObject *meta = dispatcher().metaObject();
    const int index = meta->indexOfProperty(QVSyncProgress::Key);
    requireOffer(index >= 0);
    return meta->property(index);
}

void progressIsAnnounced() {
    require(progressProperty().hasNotifySignal(), "the property has no NOTIFY signal");
    require(progressProperty().metaType() == QMetaType::fromType<QVSyncProgress>(),
            "the property is of another type");
}

void endOfProgressIsAnnounced() {
    QVSyncDispatcher &checked = dispatcher();
    QVSyncProgress announced = QVSyncProgress::of(&checked);
    const NotifyWatch watch(checked, QVSyncProgress::Key,
                            [&] { announced = QVSyncProgress::of(&checked); });
    const InboxInFolder added;
    Synchronization({added.state}, checked).requireOneCall();
    // The announcement may follow later, since there are at most about ten per second.
    constexpr std::chrono::seconds limit(2);
    wait([&] { return announced == QVSyncProgress::of(&checked); }, limit);
    require(QVSyncProgress::of(&checked).phase == QVSyncProgress::Phase::Idle,
            "the progress goes on when nothing runs any more");
    require(announced == QVSyncProgress::of(&checked),
            "the end has changed the progress without an announcement");
}

void progressHasTheActivity() {
    progressProperty();
    const InboxInFolder added;
    Synchronization running({added.state});
    require(QVSyncProgress::of(&dispatcher()).activity == dispatcher().activity(),
            "the progress has another text");
    running.requireCall();
}

void stoppedDispatcherIsIdle() {
    requireOffer(QVSyncProgress::canStop(&dispatcher()));
    const InboxInFolder added;
    Synchronization running({added.state});
    requireOffer(!running.wasCalled());
    running.willCall();
    QVSyncProgress::stop(&dispatcher());
    running.didReturn();
    require(dispatcher().activity().isEmpty(), "it does something after it was stopped");
    running.requireOneCall();
    require(!running.wasCalledWithinCall(), "stopping calls a handler");
}

constexpr char Performed[] =
    "calls `handler` once when all these synchronizations have ended, successfully or not: on the "
    "main thread, since it updates the user interface, and never from within this function.";
constexpr char Skipped[] =
    "Disabled states, and those whose location has been destroyed or is not one of this host, are "
    "skipped.";
constexpr char NotCleaned[] =
    "If `state` is null or disabled, or its location has been destroyed, nothing is cleaned and "
    "`handler` is called all the same.";
constexpr char DateChanged[] =
    "Emitted on the main thread after the host has changed lastSynced().";
constexpr char ResultChanged[] =
    "The host changes it on the main thread when a job ends, after `lastSynced`, and saves it by "
    "itself.";

constexpr HostPromise Promises[] = {
    {"QVSyncDispatcher.cleanRemoteStoreWithSynchronizationState", Header,
     "`handler`, which must not be empty, is called once when that has succeeded or failed.",
     &cleanUpEndsOnce},
    {"QVSyncDispatcher.cleanRemoteStoreWithSynchronizationState (null)", Header, NotCleaned,
     &nullIsNotCleaned},
    {"QVSyncDispatcher.cleanRemoteStoreWithSynchronizationState (disabled)", Header, NotCleaned,
     &disabledStateIsNotCleaned},
    {"QVSyncDispatcher.cleanRemoteStoreWithSynchronizationState (unchanged)", Header, NotCleaned,
     &storeOfDisabledStateIsUnchanged},
    {"QVSyncDispatcher.cleanRemoteStoreWithSynchronizationState (destroyed)", Header, NotCleaned,
     &stateWithoutLocationIsNotCleaned},
    {"QVSyncDispatcher.performSynchronizations (once)", Header, Performed, &noStatesEndOnce},
    {"QVSyncDispatcher.performSynchronizations (thread)", Header, Performed,
     &handlerIsCalledOnTheMainThread},
    {"QVSyncDispatcher.performSynchronizations (later)", Header, Performed, &handlerIsCalledLater},
    {"QVSyncDispatcher.performSynchronizations (several)", Header, Performed,
     &severalStatesEndOnce},
    {"QVSyncDispatcher.performSynchronizations (all ended)", Header, Performed,
     &handlerWaitsForEveryJob},
    {"QVSyncDispatcher.performSynchronizations (duplicates)", Header,
     "`states` may be empty and contain duplicates; no entry may be null.", &duplicatesEndOnce},
    {"QVSyncDispatcher.performSynchronizations (disabled)", Header, Skipped,
     &disabledStatesAreSkipped},
    {"QVSyncDispatcher.performSynchronizations (destroyed)", Header, Skipped,
     &statesWithoutLocationAreSkipped},
    {"QVSyncDispatcher.performSynchronizations (foreign)", Header, Skipped,
     &foreignStatesAreSkipped},
    {"QVSyncDispatcher.performSynchronizations (waiting)", Header,
     "asking again for a job that is still waiting does not add another one, but every handler is "
     "called.",
     &everyHandlerIsCalled},
    {"QVSyncDispatcher (one location)", Header,
     "Jobs for the same location run one after the other,", &jobsOfOneLocationWait},
    {"QVSyncDispatcher (failure)", Header,
     "A job that fails reports to the user by itself (the application's log), never through a "
     "handler.",
     &failureIsReported},
    {"QVSyncState.lastSynced (announced)", State, DateChanged, &dateIsAnnounced},
    {"QVSyncState.lastSynced (changed before)", State, DateChanged, &dateIsAnnouncedAfterwards},
    {"QVSyncState.lastSynced (thread)", State, DateChanged, &dateIsAnnouncedOnTheMainThread},
    {"QVSyncState.isEnabled (date)", State,
     "A disabled state keeps its schedule and the date of its last synchronization.",
     &disabledStateKeepsItsDate},
    {"QVSyncState.setEnabled (quiet)", State, "Enabling starts no synchronization.",
     &enablingStartsNothing},
    {"QVSyncResult.lastResult (written)", Result,
     "The property can be written: an empty result, which is saved with the state.",
     &resultIsRemoved},
    {"QVSyncResult.lastResult (announced)", Result, ResultChanged, &resultIsAnnounced},
    {"QVSyncResult.lastResult (after the date)", Result, ResultChanged, &resultFollowsTheDate},
    {"QVSyncResult.lastResult (thread)", Result, ResultChanged, &resultIsAnnouncedOnTheMainThread},
    {"QVSyncResult.lastResult (cancelled)", Result, "A cancelled job has no result.",
     &cancelledJobHasNoResult},
    {"QVSyncDispatcher.activityChanged", Header, "Emitted after activity() has changed.",
     &activityIsAnnounced},
    {"QVSyncDispatcher.activity", Header,
     "Returns a localized description of what the dispatcher is doing, or an empty text if it is "
     "idle.",
     &idleDispatcherDoesNothing},
    {"QVSyncProgress.progress", Progress,
     "the property \"progress\" of the type QVSyncProgress, with a NOTIFY signal",
     &progressIsAnnounced},
    {"QVSyncProgress.progress (end)", Progress,
     "a NOTIFY signal that is emitted on the main thread, at most about ten times per second, and "
     "once more when nothing runs any more;",
     &endOfProgressIsAnnounced},
    {"QVSyncProgress.activity", Progress, "The same text as QVSyncDispatcher::activity().",
     &progressHasTheActivity},
    {"QVSyncProgress.stop", Progress,
     "The dispatcher is idle when it returns, and the handlers of the jobs are called later.",
     &stoppedDispatcherIsIdle},
};

}  // namespace

QList<HostPromise> all() {
    return {std::begin(Promises), std::end(Promises)};
}

}  // namespace DispatcherPromises
