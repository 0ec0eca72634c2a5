#pragma once

#include <QtWidgets/QWidget>

class QLabel;

/// The bar above a note that was edited in several places at once, with the commands to compare the
/// edits and to keep one of them or both. It changes no note. Must be used on the main thread.
class ConflictBar : public QWidget {
    Q_OBJECT
public:
    explicit ConflictBar(QWidget *parent = nullptr);

    /// States in how many places the note was edited: `count`, which is at least 2, or more than
    /// the list shows. The texts of the buttons do not depend on it.
    void setCount(qsizetype count, bool hasMore);

Q_SIGNALS:
    /// Emitted when the user chooses one of the commands. "This" is the edit that is shown below
    /// the bar.
    void compareRequested();
    void keepThisRequested();
    void keepOtherRequested();
    void keepBothRequested();

private:
    QLabel *m_label;
};
