#include "Support/ScriptedLocation.h"

#include <QtCore/QThreadPool>
#include <utility>

#include "Platform/KeyValue/KeyValue.h"

namespace {

class ScriptedStore : public QVSyncStore {
public:
    ScriptedStore(StoreScript *script, const std::weak_ptr<QVSyncLocation> &location)
        : m_script(script), m_location(location) {}

    std::shared_ptr<QVSyncLocation> location() const override { return m_location.lock(); }
    std::shared_ptr<PZFuture> openWithCompletionHandler(ErrorHandler handler) override {
        return m_script->begin(QStringLiteral("open"),
                               [handler, script = m_script] { handler(script->openError); });
    }
    std::shared_ptr<PZFuture> fetchDatabasesWithCompletionHandler(
        DatabasesHandler handler) override {
        return m_script->begin(QStringLiteral("fetch"), [handler, script = m_script] {
            handler(script->databases, script->fetchError);
        });
    }
    std::shared_ptr<PZFuture> closeWithCompletionHandler(ErrorHandler handler) override {
        return m_script->begin(QStringLiteral("close"),
                               [handler, script = m_script] { handler(script->closeError); });
    }

private:
    StoreScript *const m_script;
    const std::weak_ptr<QVSyncLocation> m_location;
};

}  // namespace

void StoreScript::release() {
    QList<std::function<void()>> waiting;
    {
        const QMutexLocker lock(&m_mutex);
        m_isHeld = false;
        waiting = std::exchange(m_waiting, {});
    }
    for (auto &answer : waiting) {
        QThreadPool::globalInstance()->start(std::move(answer));
    }
}

QStringList StoreScript::steps() const {
    const QMutexLocker lock(&m_mutex);
    return m_steps;
}

std::shared_ptr<ScriptedFuture> StoreScript::future(const QString &step) const {
    const QMutexLocker lock(&m_mutex);
    return m_futures.value(step);
}

std::shared_ptr<PZFuture> StoreScript::begin(const QString &step, std::function<void()> answer) {
    const auto future = std::make_shared<ScriptedFuture>();
    const QMutexLocker lock(&m_mutex);
    m_steps.append(step);
    m_futures.insert(step, future);
    if (m_isHeld) {
        m_waiting.append(std::move(answer));
    } else {
        QThreadPool::globalInstance()->start(std::move(answer));
    }
    return future;
}

ScriptedLocation::ScriptedLocation(StoreScript *script) : m_script(script) {}

void ScriptedLocation::setURL(const Url &URL) {
    m_states->setURL(URL);
    KeyValue::announce<&ScriptedLocation::URLChanged>(this);
}

std::shared_ptr<QVSyncStore> ScriptedLocation::createStore() {
    if (willCreateStore) {
        willCreateStore();
    }
    return std::make_shared<ScriptedStore>(m_script, weak_from_this());
}
