#include "Engine/Notes/KeptOperations.h"

#include "Engine/Profile/ProfileSettings.h"

namespace {

/// The start of the keys of settings, which the database and the store follow.
const QString KeptPrefix = QStringLiteral("kept ");

QString keptPrefixOf(qint64 database) {
    return KeptPrefix + QString::number(database) + u' ';
}

}  // namespace

KeptOperations::KeptOperations(const ProfileDatabase &profile, const QString &store,
                               qint64 database)
    : m_profile(profile), m_database(database), m_key(keptPrefixOf(database) + store) {}

Expected<QSet<OperationId>> KeptOperations::all() const {
    return ProfileSettings::values(m_profile, keptPrefixOf(m_database)).map([](const auto &values) {
        QSet<OperationId> operations;
        for (const QVariant &packed : values) {
            const QList<OperationId> unpacked = Operation::unpacked(packed.toByteArray());
            operations.unite({unpacked.begin(), unpacked.end()});
        }
        return operations;
    });
}

Expected<void> KeptOperations::remember(const QList<OperationId> &operations) const {
    return operations.isEmpty()
               ? ProfileSettings::remove(m_profile, m_key)
               : ProfileSettings::set(m_profile, m_key, Operation::packed(operations));
}

Expected<void> KeptOperations::forgetStore(const ProfileDatabase &profile, const QString &store) {
    return ProfileSettings::removeAll(profile, KeptPrefix, u' ' + store);
}

Expected<void> KeptOperations::forgetDatabase(const ProfileDatabase &profile, qint64 database) {
    return ProfileSettings::removeAll(profile, keptPrefixOf(database));
}
