#pragma once

#include <QtWidgets/QDialog>

#include "Application/Interface/QuestionPresenter.h"

/// The question whether a synchronization may remove many notes, with a list of them. Deletes
/// itself when it is closed. Must be used on the main thread.
class RemovalDialog : public QDialog {
    Q_OBJECT
public:
    /// `handler` is called once, when the dialog is closed or destroyed.
    RemovalDialog(const RemovalQuestion &question, std::function<void(RemovalDecision)> handler,
                  QWidget *parent);
    /// Decides for Later if the user has not decided.
    ~RemovalDialog() override;

    void done(int result) override;

private:
    void decide(RemovalDecision decision);
    void callHandler();

    RemovalDecision m_decision = RemovalDecision::Later;
    std::function<void(RemovalDecision)> m_handler;
};
