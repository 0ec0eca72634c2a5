#include "HostCheck/Checking.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QCoreApplication>
#include <QtCore/QDirIterator>
#include <QtCore/QTimer>
#include <QtCore/QUuid>

#include "Host/InboxUUID.h"
#include "Host/SyncStoreLayout.h"
#include "Platform/Foundation/Assertion.h"

namespace {

QVHostPlugIn *checkedHost = nullptr;

}  // namespace

Checking::CheckedHost::CheckedHost(QVHostPlugIn *host) {
    checkedHost = host;
}

Checking::CheckedHost::~CheckedHost() {
    checkedHost = nullptr;
}

QVHostPlugIn &Checking::host() {
    requireOffer(checkedHost != nullptr);
    return *checkedHost;
}

void Checking::require(bool isTrue, const char *reason) {
    if (!isTrue) {
        throw Broken{reason};
    }
}

void Checking::requireOffer(bool isOffered) {
    if (!isOffered) {
        throw NotOffered{};
    }
}

void Checking::requireAssertion(const std::function<void()> &call, const char *reason) {
    try {
        call();
    } catch (const AssertionFailure &) {
        return;
    }
    throw Broken{reason};
}

bool Checking::wait(const std::function<bool()> &isTrue, std::chrono::milliseconds limit) {
    QTimer end;
    end.setSingleShot(true);
    end.start(limit);
    while (!isTrue()) {
        if (!end.isActive()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void Checking::wakeUp() {
    // None of them exists any more if a host keeps a handler too long.
    const auto *application = QCoreApplication::instance();
    if (auto *events =
            application ? QAbstractEventDispatcher::instance(application->thread()) : nullptr) {
        events->wakeUp();
    }
}

QVSyncLocationsController &Checking::list() {
    auto *list = QVSyncPlugin::plugin()->locationsController();
    require(list != nullptr, "the plug-in has no list of locations");
    return *list;
}

QVSyncDispatcher &Checking::dispatcher() {
    auto *dispatcher = QVSyncPlugin::plugin()->dispatcher();
    require(dispatcher != nullptr, "the plug-in has no dispatcher");
    return *dispatcher;
}

QList<std::shared_ptr<QVDatabase>> Checking::openDatabases() {
    classObject<QVDatabase::Class>();
    auto databases = QVDatabase::databases();
    requireOffer(!databases.contains(nullptr));
    return databases;
}

std::shared_ptr<QVSyncLocation> Checking::newLocation(const Url &URL) {
    auto location = classObject<QVSyncLocation::Class>().syncLocationWithURL(URL);
    require(location != nullptr, "no location was made");
    return location;
}

std::shared_ptr<PZFuture> Checking::newFuture() {
    auto future = PZFuture::future();
    requireOffer(future != nullptr);
    return future;
}

QStringList Checking::contentsOf(const Folder &store) {
    QStringList paths;
    QDirIterator each(store.URL.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (each.hasNext()) {
        paths.append(each.next());
    }
    paths.sort();
    return paths;
}

Checking::InboxState::InboxState(const std::shared_ptr<QVSyncLocation> &added)
    : m_location(added),
      state(added->addStateForDatabaseWithUUID(InboxUUID, QStringLiteral("Inbox"))) {
    list().insertObjectInSyncLocationsAtIndex(m_location, 0);
    state->setEnabled(true);
}

Checking::InboxState::~InboxState() {
    list().removeObjectFromSyncLocationsAtIndex(list().syncLocations().indexOf(m_location));
}

QString Checking::newUUID() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

Url Checking::makeStore(const QString &path) {
    const QString store = path + QStringLiteral("/Checked.") + SyncStoreLayout::Extension;
    for (const QString &folder : SyncStoreLayout::foldersOfStore(store)) {
        require(QDir().mkdir(folder), "the check could not make a folder for temporary files");
    }
    return Url::fileURL(store);
}
