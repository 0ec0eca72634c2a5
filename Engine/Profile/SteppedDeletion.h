#pragma once

#include <QtCore/QStringList>
#include <QtCore/QVariant>
#include <chrono>

#include "Platform/Foundation/Expected.h"

class ProfileDatabase;
class QDeadlineTimer;

/// Deletes rows of the profile, of which there may be very many or very large ones, in steps that
/// block the main thread for a short time each. The log of the profile should be moved between
/// them, see ProfileDatabase::moveLog().
namespace SteppedDeletion {

/// How long a step should take: less than a frame.
constexpr std::chrono::milliseconds StepDuration(8);

/// Returns a statement that deletes some of `rows` of the table, whose primary key is stated. Its
/// last placeholder is that for how many.
QString statement(const QString &table, const QString &key, const QString &rows);
/// Executes `statements` with `values` until the deadline, but deletes at least one row. Returns
/// whether no such row is left. Must be called within a transaction, on the main thread.
Expected<bool> runUntil(const QDeadlineTimer &deadline, const ProfileDatabase &profile,
                        const QStringList &statements, const QVariantList &values);

}  // namespace SteppedDeletion
