#pragma once

#include "Platform/PlatformExport.h"

class QString;
class QWidget;
class TableView;

/// Provides the cells of a table and observes its selection. Called on the main thread, from within
/// functions of the table, which must not be deleted in a call. Not owned by the table.
class PLATFORM_EXPORT TableViewDelegate {
public:
    virtual ~TableViewDelegate();

    /// Returns the number of rows, at least 0.
    virtual int numberOfRowsInTableView(TableView *tableView) = 0;
    /// Returns the view of a cell, of which the table takes ownership; null for an empty cell.
    /// Its accessible name becomes that of the cell. `row` is from 0 to the number of rows - 1.
    virtual QWidget *tableViewViewForTableColumnRow(TableView *tableView,
                                                    const QString &columnIdentifier, int row) = 0;
    /// Called after each change of the selection, by the user or by the program, but not while the
    /// table is rebuilt.
    virtual void tableViewSelectionDidChange(TableView *tableView) = 0;
};
