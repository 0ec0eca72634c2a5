#include "Engine/EngineRemoteDatabase.h"

namespace {

class Metadata : public QVRemoteDatabaseMetadata {
public:
    explicit Metadata(const QString &name) : m_name(name) {}
    QString name() const override { return m_name; }

private:
    const QString m_name;
};

}  // namespace

EngineRemoteDatabase::EngineRemoteDatabase(const QString &UUID, const QString &name,
                                           std::shared_ptr<QVSyncStore> store)
    : m_UUID(UUID), m_metadata(new Metadata(name)), m_store(std::move(store)) {
    m_metadata->setParent(this);
}
