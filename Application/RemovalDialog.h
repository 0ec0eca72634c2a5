#pragma once

#include <QtWidgets/QDialog>

#include "Application/Interface/QuestionPresenter.h"

/// The question whether a synchronization may remove many notes, with a list of them. Deletes
/// itself when it is closed. Must be used on the main thread.
class RemovalDialog : public QDialog {
    Q_OBJECT
public:
    /// Shows nothing yet, see QDialog::open(). It must be created with `new`, and be closed or have
    /// a parent. `handler`, which must not be empty, is called once, on the main thread: after the
    /// dialog is closed, or, with Later, when it is destroyed before. At most 10,000 of the titles
    /// are listed; they are shown as plain text.
    RemovalDialog(const RemovalQuestion &question, std::function<void(RemovalDecision)> handler,
                  QWidget *parent);
    /// Decides for Later if the user has not decided.
    ~RemovalDialog() override;

    /// Returns the list of the notes for a terminal, one indented line for each of at most 10,000.
    static QStringList notes(const RemovalQuestion &question);
    /// Returns the question for a terminal, one line for each note, and how it is decided there.
    static QStringList lines(const RemovalQuestion &question);

    /// Closes the dialog and calls the handler. Escape, and closing the window, decide for Later.
    void done(int result) override;

private:
    void decide(RemovalDecision decision);
    /// Calls the handler with the decision unless it was called.
    void callHandler();

    RemovalDecision m_decision = RemovalDecision::Later;
    std::function<void(RemovalDecision)> m_handler;
};
