#pragma once

#include <QtCore/QPointer>
#include <QtGui/QAccessible>

#include "Platform/PlatformExport.h"

class TableView;

/// A row of a TableView as assistive technologies see it: an item of a list that can be selected,
/// ticked if it has a check box, and removed if the table has a button for that. Owned by its
/// AccessibleTable.
class PLATFORM_EXPORT AccessibleTableRow : public QAccessibleInterface,
                                           public QAccessibleActionInterface {
public:
    /// `table` is not owned; the row is invalid once it is destroyed or has too few rows.
    AccessibleTableRow(TableView *table, int row);

    bool isValid() const override;
    QObject *object() const override { return nullptr; }
    QWindow *window() const override;
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    /// Has no effect.
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &name) const override;

private:
    /// Returns whether the row has a check box.
    bool isCheckable() const;
    /// Returns the text of the button that removes the selected row; empty if there is none.
    QString removeAction() const;

    const QPointer<TableView> m_table;
    const int m_row;
};
