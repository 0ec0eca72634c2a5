#pragma once

#include <QtCore/QMetaType>
#include <set>

/// Distinct positions in a list, counted from 0, in ascending order.
using IndexSet = std::set<qsizetype>;

Q_DECLARE_METATYPE(IndexSet)
