#include "Application/LogWindow.h"

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTreeView>
#include <QtWidgets/QVBoxLayout>

#include "Application/EventLog.h"

LogWindow::LogWindow(EventLog *log, QWidget *parent) : QWidget(parent, Qt::Window) {
    setWindowTitle(tr("Log"));
    resize(640, 320);
    auto *view = new QTreeView(this);
    view->setAccessibleName(tr("Log entries"));
    view->setModel(log);
    view->setRootIsDecorated(false);
    view->setUniformRowHeights(true);
    view->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    view->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(log, &EventLog::rowsInserted, view, &QTreeView::scrollToBottom);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
}
