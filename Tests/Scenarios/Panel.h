#pragma once

#include <QtCore/QPointer>
#include <QtGui/QAction>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

#include "Application/PreferencesWindow.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Platform/Interface/SheetWindow.h"
#include "Support/TestMain.h"

/// The window with the pane "Sync Preferences", used as by a user. Shown when it is made, closed
/// when it is destroyed.
class Panel {
public:
    Panel() : m_window(new PreferencesWindow(std::make_unique<QVSyncPreferences>())) {
        m_window->show();
    }
    ~Panel() {
        if (m_window) {
            m_window->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    Panel(const Panel &) = delete;
    Panel &operator=(const Panel &) = delete;

    static QVSyncPreferences &pane() { return *QVSyncPreferences::preferences(); }
    QWidget *window() const { return m_window; }

    template <class Part>
    Part *find(const char *name) const {
        return m_window->findChild<Part *>(QLatin1StringView(name));
    }
    QString text(const char *label) const { return find<QLabel>(label)->text(); }
    void press(const char *button) const { find<QPushButton>(button)->click(); }
    void choose(const char *item) const { find<QAction>(item)->trigger(); }

    static qsizetype countOfLocations() { return pane().locationsView()->items().size(); }
    static QWidget *locationRow(int index) {
        return pane().locationsView()->items().at(index)->view();
    }
    static QWidget *databaseRow(int index) {
        return pane().databasesView()->items().at(index)->view();
    }
    /// Returns the row of the database `name`; null if there is none.
    static QWidget *databaseRow(const QString &name) {
        for (const auto &item : pane().databasesView()->items()) {
            if (part<QLabel>(item->view(), "rowName")->text() == name) {
                return item->view();
            }
        }
        return nullptr;
    }
    template <class Part>
    static Part *part(QWidget *row, const char *name) {
        return row->findChild<Part *>(QLatin1StringView(name));
    }
    static void select(QWidget *row) {
        QTest::mouseClick(row, Qt::LeftButton, {}, row->rect().topLeft() + QPoint(3, 3));
    }
    static QToolButton *warning(QWidget *row) { return part<QToolButton>(row, "rowWarningButton"); }

    /// Returns the open sheet; null if there is none.
    SheetWindow *sheet() const {
        for (auto *window : m_window->findChildren<SheetWindow *>()) {
            if (window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }
    template <class Part>
    Part *inSheet(const char *name) const {
        return sheet()->findChild<Part *>(QLatin1StringView(name));
    }

private:
    QPointer<PreferencesWindow> m_window;
};
