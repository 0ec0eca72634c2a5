#pragma once

#include <QtCore/QStringList>

/// The SQL statements that make the tables of a profile. Each has no effect if what it makes
/// exists. Thread-safe.
namespace ProfileSchema {

/// The tables of everything that the user and the program have stored.
QStringList tables();
/// What follows from the tables of operations and superseded identifiers. Triggers keep it up to
/// date, so that little has to be counted or compared; it can be computed again at any time.
QStringList derivedTables();
/// The columns that version 4 has added to the table "states", with their types.
QStringList columnsOfResults();

}  // namespace ProfileSchema
