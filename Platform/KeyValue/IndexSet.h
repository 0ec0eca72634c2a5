#pragma once

#include <QtCore/QMetaType>
#include <set>

/// Distinct positions in a list, counted from 0, in ascending order. The type does not check a
/// range; the functions that take an IndexSet say what happens to positions past the end. A value
/// of the C++ standard library: copying takes O(n).
using IndexSet = std::set<qsizetype>;

Q_DECLARE_METATYPE(IndexSet)
