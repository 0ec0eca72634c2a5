#pragma once

#include <QtCore/QStringList>
#include <functional>

#include "Application/Interface/InterfaceExport.h"

/// A question that the user accepts or refuses. A value.
struct Question {
    /// The question, as a whole sentence.
    QString text;
    /// What helps to decide; plain text, may have several lines. Both texts may contain names from
    /// outside and must be shown as plain text.
    QString details;
    /// The titles of the two buttons.
    QString acceptTitle;
    QString refuseTitle;
    /// A code that the user compares with that of another computer; empty if there is none. It is
    /// shown large, and such a question comes to the front.
    QString code = {};
};

/// The question whether a synchronization may remove many notes. A value.
struct RemovalQuestion {
    /// The name of the database.
    QString database;
    /// The title of the location that removes the notes.
    QString location;
    /// The titles of the notes that would be removed; may contain empty ones.
    QStringList titles;
    /// Number of notes in the database.
    qint64 total = 0;
};

/// What happens to the notes of a RemovalQuestion.
enum class RemovalDecision {
    /// They stay, also on the other computers.
    Keep,
    Remove,
    /// Nothing is synchronized; the next synchronization asks again.
    Later,
};

/// Asks the user questions for the sync plug-in. The application object of an application that can
/// show them is also a QuestionPresenter. Must be used on the main thread.
class INTERFACE_EXPORT QuestionPresenter {
public:
    virtual ~QuestionPresenter();

    /// Withdraws a question: closes it if it is still shown, which refuses it. Idempotent.
    using Withdrawal = std::function<void()>;

    /// Shows `question` and returns at once. `handler` is called once, on the main thread, after
    /// this call has returned, with true if the user accepted; closing the question refuses it. If
    /// the program ends before, the question is not answered and `handler` not called. The returned
    /// function is never empty.
    virtual Withdrawal ask(const Question &question,
                           std::function<void(bool accepted)> handler) = 0;
    /// Shows `question` with the list of the notes and returns at once. `handler` is called once,
    /// on the main thread, after this call has returned; closing the question decides for Later.
    virtual void askAboutRemoval(const RemovalQuestion &question,
                                 std::function<void(RemovalDecision)> handler) = 0;

    /// Returns the application object, NSApp(), if it presents questions; otherwise null, as before
    /// its creation and after its end. Not owned.
    static QuestionPresenter *ofApplication();
};
