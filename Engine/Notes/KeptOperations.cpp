#include "Engine/Notes/KeptOperations.h"

#include "Engine/Profile/ProfileSettings.h"

namespace {

QString keyOf(qint64 database) {
    return QStringLiteral("kept %1 ").arg(database);
}

}  // namespace

KeptOperations::KeptOperations(const ProfileDatabase &profile, qint64 database)
    : m_profile(profile), m_key(keyOf(database)) {}

Expected<QSet<OperationId>> KeptOperations::all() const {
    return ProfileSettings::values(m_profile, m_key).map([](const auto &values) {
        QSet<OperationId> operations;
        for (const QVariant &packed : values) {
            const QList<OperationId> unpacked = Operation::unpacked(packed.toByteArray());
            operations.unite({unpacked.begin(), unpacked.end()});
        }
        return operations;
    });
}

Expected<void> KeptOperations::replace(const QSet<OperationId> &previous,
                                       const QSet<OperationId> &operations) const {
    return all().and_then([&](const QSet<OperationId> &remembered) {
        const QSet<OperationId> left = (remembered - previous) + operations;
        return ProfileSettings::removeAll(m_profile, m_key).and_then([&] {
            return left.isEmpty()
                       ? Expected<void>()
                       : ProfileSettings::set(m_profile, m_key, Operation::packed(left.values()));
        });
    });
}

Expected<void> KeptOperations::forgetDatabase(const ProfileDatabase &profile, qint64 database) {
    return ProfileSettings::removeAll(profile, keyOf(database));
}
