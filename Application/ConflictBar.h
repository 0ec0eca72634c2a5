#pragma once

#include <QtWidgets/QWidget>

class QLabel;

/// The bar above a note that was edited in several places at once. Must be used on the main thread.
class ConflictBar : public QWidget {
    Q_OBJECT
public:
    explicit ConflictBar(QWidget *parent = nullptr);

    /// States in how many places the note was edited.
    void setCount(qsizetype count);

Q_SIGNALS:
    /// Emitted when the user chooses one of the commands.
    void compareRequested();
    void keepThisRequested();
    void keepOtherRequested();
    void keepBothRequested();

private:
    QLabel *m_label;
};
