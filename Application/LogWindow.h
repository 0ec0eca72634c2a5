#pragma once

#include <QtWidgets/QWidget>

class EventLog;
class LogFilter;
class QComboBox;
class QHBoxLayout;
class QTreeView;

/// A window that shows the application's log, all of it or what is about one database or location,
/// and scrolls to new entries. Entries can be copied. Closing the window hides it, and the log goes
/// on. Must be used on the main thread.
class LogWindow : public QWidget {
    Q_OBJECT
public:
    /// `log` is not owned, must not be null, and must outlive the window. With a parent, the window
    /// stays above it and is deleted with it.
    explicit LogWindow(EventLog *log, QWidget *parent = nullptr);

    /// Fits the text column if the view has another size.
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void makeView();
    /// Gives the text column what the others leave of the view, or its minimum width.
    void fitText();
    /// Returns the choices and the button; owned by the caller.
    QHBoxLayout *makeControls();
    /// Offers the databases and locations that the log names from the row `first` on, besides the
    /// former ones.
    void updateChoices(int first);
    /// Adds those of `names` that `choice` does not offer yet; the selection does not change.
    static void updateChoice(QComboBox *choice, const QStringList &names);
    /// Copies the selected entries, or all that are shown, to the clipboard.
    void copy() const;

    EventLog *const m_log;
    /// What the window shows of the log. Owned by the window, as are the widgets.
    LogFilter *const m_filter;
    QTreeView *const m_view;
    QComboBox *const m_databases;
    QComboBox *const m_locations;
};
