#pragma once

#include <QtCore/QHash>
#include <memory>

#include "Host/QVSyncLocation.h"

class EngineSyncState;

/// A location as the engine keeps it. Main thread.
class EngineSyncLocation : public QVSyncLocation,
                           public std::enable_shared_from_this<EngineSyncLocation> {
    Q_OBJECT
public:
    class Class : public QVSyncLocation::Class {
    public:
        std::shared_ptr<QVSyncLocation> syncLocationWithURL(const Url &URL) const override;
    };

    Url URL() const override { return m_URL; }
    void setURL(const Url &URL) override;
    QVSyncStates synchronizationStates() const override { return m_states; }
    std::shared_ptr<QVSyncState> stateForDatabaseWithUUID(const QString &UUID) const override;
    std::shared_ptr<QVSyncState> addStateForDatabaseWithUUID(const QString &UUID,
                                                             const QString &name) override;
    std::shared_ptr<QVSyncStore> createStore() override;

    /// The URL as the profile has it: of a damaged one, which gives a nil URL, the text is kept.
    QString savedURL() const { return m_savedURL; }
    void setSavedURL(const QString &text);
    /// The key of the profile's row; 0 until there is one.
    qint64 rowId() const { return m_rowId; }
    void setRowId(qint64 rowId) { m_rowId = rowId; }
    bool needsSaving() const { return m_needsSaving; }
    void setNeedsSaving(bool needsSaving) { m_needsSaving = needsSaving; }

private:
    Url m_URL;
    QString m_savedURL;
    QVSyncStates m_states;
    QHash<QString, std::shared_ptr<QVSyncState>> m_statesByUUID;
    qint64 m_rowId = 0;
    bool m_needsSaving = true;
};
