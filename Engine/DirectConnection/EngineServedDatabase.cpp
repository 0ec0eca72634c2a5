#include "Engine/DirectConnection/EngineServedDatabase.h"

#include <utility>

#include "Application/Interface/NoteDatabase.h"
#include "Engine/DirectConnection/ServedDatabases.h"
#include "Host/InboxUUID.h"
#include "Host/QVApplication.h"
#include "Platform/KeyValue/KeyValue.h"

EngineServedDatabase::EngineServedDatabase(std::shared_ptr<NoteDatabase> database,
                                           std::shared_ptr<ServedDatabases> served)
    : m_database(std::move(database)), m_served(std::move(served)) {
    connect(m_database.get(), &QVDatabase::nameChanged, this, [this] {
        KeyValue::announce<&QVServedDatabase::nameChanged>(static_cast<QVServedDatabase *>(this));
    });
}

QString EngineServedDatabase::name() const {
    return m_database->name();
}

bool EngineServedDatabase::isServed() const {
    return m_served->contain(UUIDInStores());
}

void EngineServedDatabase::setServed(bool isServed) {
    if (const Expected<void> saved = m_served->setServed(UUIDInStores(), isServed); !saved) {
        NSApp()->presentError(saved.error());
    }
    KeyValue::announce<&QVServedDatabase::servedChanged>(static_cast<QVServedDatabase *>(this));
}

QString EngineServedDatabase::UUIDInStores() const {
    return m_database->isInbox() ? InboxUUID : m_database->UUID();
}
