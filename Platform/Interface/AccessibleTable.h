#pragma once

#include <QtCore/QHash>
#include <QtWidgets/QAccessibleWidget>

#include "Platform/PlatformExport.h"

class TableView;

/// A TableView, which has no titles, as assistive technologies see it: a list with an item for each
/// row. Made by Qt, which owns it, after install().
class PLATFORM_EXPORT AccessibleTable : public QAccessibleWidget {
public:
    explicit AccessibleTable(TableView *table);
    ~AccessibleTable() override;
    AccessibleTable(const AccessibleTable &) = delete;
    AccessibleTable &operator=(const AccessibleTable &) = delete;

    /// Makes Qt use this class for each TableView until the program ends. Idempotent. Must be
    /// called on the main thread.
    static void install();

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

private:
    TableView *table() const;

    /// The items that were asked for, by row. Owned.
    mutable QHash<int, QAccessible::Id> m_items;
};
