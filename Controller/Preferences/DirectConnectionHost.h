#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

/// The host field of the sheet of a direct connection: passes only host names that are valid, or
/// none, to the editor, so that the location keeps its address while the user types another one. An
/// object of the sheet's form. Must be used on the main thread.
class DirectConnectionHost : public QObject {
    Q_OBJECT
    /// The text of the field, bound both ways.
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    /// The host of the editor, bound both ways.
    Q_PROPERTY(QString host READ host WRITE setHost NOTIFY hostChanged)
    /// Whether the editor can accept the host that it has.
    Q_PROPERTY(bool editorAccepting READ isEditorAccepting WRITE setEditorAccepting)
    /// Why the sheet cannot be accepted, in words for the user; empty if it can.
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    /// Whether the sheet can be accepted.
    Q_PROPERTY(bool acceptable READ isAcceptable NOTIFY changed)
public:
    using QObject::QObject;

    QString text() const { return m_text; }
    /// Sets the text that the user has typed, and the host if nothing is wrong with the text, as
    /// with an empty one. Blanks at both ends do not count.
    void setText(const QString &text);
    QString host() const { return m_host; }
    /// Called by the binding when the editor's host changes. Replaces the text by it.
    void setHost(const QString &host);
    /// False until the binding has set it.
    bool isEditorAccepting() const { return m_isEditorAccepting; }
    void setEditorAccepting(bool isAccepting);
    /// These are computed at each call.
    QString problem() const;
    bool isAcceptable() const { return m_isEditorAccepting && !isWrong(); }

Q_SIGNALS:
    /// Emitted when the key has got the value of the other one, also if it is the same.
    void textChanged();
    void hostChanged();
    /// Emitted for the other keys when the text, the host or the editor's key was set.
    void changed();

private:
    /// Returns whether there is a text that is no host.
    bool isWrong() const;

    QString m_text;
    QString m_host;
    bool m_isEditorAccepting = false;
};
