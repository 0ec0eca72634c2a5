#pragma once

#include <QtCore/QHash>
#include <chrono>
#include <memory>

#include "Controller/Preferences/QVSynchronizationSelection.h"
#include "Host/QVSyncStoreCheck.h"

/// Checks locations: when the user asks for it, and each location that was added, once. The row
/// shows that a check runs, and then its error. An object of the pane's form. Must be used on the
/// main thread.
class LocationCheck : public QObject {
    Q_OBJECT
    /// The row of the location that was added last; may be null. Setting it starts a check.
    Q_PROPERTY(std::shared_ptr<QVSynchronizationSelection> addedSelection READ addedSelection WRITE
                   setAddedSelection)
    /// The rows of the list. Only written: reading it returns an empty list.
    Q_PROPERTY(QList<std::shared_ptr<QVSynchronizationSelection>> selections READ selections WRITE
                   setSelections)
    /// The result of the last check, in words for the user; empty if there is none or its row is no
    /// longer in the list.
    Q_PROPERTY(QString text READ text NOTIFY textChanged)
    /// Whether there is such a result.
    Q_PROPERTY(bool shown READ isShown NOTIFY textChanged)
public:
    /// A check that takes longer ends with an error. Longer than the user may take to confirm the
    /// pairing of two computers.
    static constexpr std::chrono::milliseconds DefaultTimeout = std::chrono::minutes(3);

    using Selection = std::shared_ptr<QVSynchronizationSelection>;

    using QObject::QObject;
    /// Cancels the checks that are running.
    ~LocationCheck() override;

    /// Null if none was set or the row is gone.
    Selection addedSelection() const { return m_addedSelection.lock(); }
    /// Starts a check of the location, whose error is shown in the row only. Null has no effect.
    void setAddedSelection(const Selection &selection);
    QList<Selection> selections() const { return {}; }
    /// Empties the text if its row is not among `selections`. Checks that are running go on.
    void setSelections(const QList<Selection> &selections);
    QString text() const { return m_text; }
    bool isShown() const { return !m_text.isEmpty(); }
    /// Sets the timeout of later checks, which must be positive.
    void setTimeout(std::chrono::milliseconds timeout) { m_timeout = timeout; }

    /// Starts a check, whose error is also presented. Has no effect while the row's location is
    /// being read. `selection` must not be null.
    Q_SLOT void check(const std::shared_ptr<QVSynchronizationSelection> &selection);

Q_SIGNALS:
    /// Emitted when the text was set, for both keys.
    void textChanged();

private:
    /// Whether an error is presented, or only shown in the row.
    enum class Presentation { Presented, Shown };
    struct Run {
        std::weak_ptr<QVSynchronizationSelection> selection;
        Presentation presentation;
        /// Null if the host's stores offer no check, so that it is only read.
        std::shared_ptr<PZFuture> future;
    };

    /// Starts a check unless the row's location is being read. `selection` must not be null.
    void start(const Selection &selection, Presentation presentation);
    /// Starts to check the store or, if it offers no check, to read its databases.
    void read(quint64 run, const Selection &selection);
    /// Ends the check `run` unless it has ended.
    void finish(quint64 run, const QVSyncStoreCheck &found);
    /// Sets the text, which is about the row `selection`. It is removed when the error of that row
    /// is set again and when a synchronization begins.
    void setText(const Selection &selection, const QString &text);

    std::weak_ptr<QVSynchronizationSelection> m_addedSelection;
    std::chrono::milliseconds m_timeout = DefaultTimeout;
    quint64 m_lastRun = 0;
    QHash<quint64, Run> m_runs;
    QString m_text;
    /// The row that the text is about.
    std::weak_ptr<QVSynchronizationSelection> m_textSelection;
    QMetaObject::Connection m_textOutdated;
    QMetaObject::Connection m_synchronizationBegan;
};
