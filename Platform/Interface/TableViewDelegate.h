#pragma once

#include "Platform/PlatformExport.h"

class QString;
class QWidget;
class TableView;

/// Fills a table and follows its selection. Main thread.
class PLATFORM_EXPORT TableViewDelegate {
public:
    virtual ~TableViewDelegate();

    virtual int numberOfRowsInTableView(TableView *tableView) = 0;
    /// The view of a cell, which the table takes over; nullptr for an empty one. `row` from 0 to
    /// the number of rows.
    virtual QWidget *tableViewViewForTableColumnRow(TableView *tableView,
                                                    const QString &columnIdentifier, int row) = 0;
    virtual void tableViewSelectionDidChange(TableView *tableView) = 0;
};
