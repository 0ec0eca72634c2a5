#pragma once

#include <QtCore/QString>

#include "Engine/Profile/ProfileDatabase.h"

/// Makes reads of a table of an open profile fail, as an unreadable page does, until destroyed.
class FailingTable {
public:
    enum class Fault {
        /// Every statement that uses the table fails.
        AllRows,
        /// The first row can be read, and every row that differs from it fails.
        LaterRows,
    };

    /// `profile` is not owned and must outlive this object. Throws std::runtime_error on failure.
    FailingTable(const ProfileDatabase &profile, const QString &table, Fault fault);
    ~FailingTable();
    FailingTable(const FailingTable &) = delete;
    FailingTable &operator=(const FailingTable &) = delete;

private:
    QString failingView() const;

    const ProfileDatabase &m_profile;
    const QString m_table;
    const Fault m_fault;
};
