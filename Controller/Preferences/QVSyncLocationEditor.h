#pragma once

#include <functional>
#include <memory>

#include "Host/QVSyncLocation.h"
#include "Platform/Interface/WindowController.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Platform/KeyValue/SharedPointer.h"

/// Edits one sync location in a sheet; what comes out is the location's new URL. Each kind of
/// location has a subclass, whose nib bears its name. Main thread. Always shared; whoever runs an
/// editor keeps it until the completion handler has run.
class QVSyncLocationEditor : public WindowController,
                             public std::enable_shared_from_this<QVSyncLocationEditor> {
    Q_OBJECT
    /// Shared with the caller, who has made it.
    Q_PROPERTY(std::shared_ptr<QVSyncLocation> location READ location WRITE setLocation NOTIFY
                   locationChanged)
    /// Whether the sheet offers Cancel.
    Q_PROPERTY(bool shouldShowCancelButton READ shouldShowCancelButton WRITE
                   setShouldShowCancelButton NOTIFY shouldShowCancelButtonChanged)
public:
    /// Gets 1 when the person has accepted, 0 when they have cancelled.
    using CompletionHandler = std::function<void(qint64 result)>;

    std::shared_ptr<QVSyncLocation> location() const { return m_location; }
    void setLocation(const std::shared_ptr<QVSyncLocation> &location);
    bool shouldShowCancelButton() const { return m_shouldShowCancelButton; }
    void setShouldShowCancelButton(bool shouldShow);

    /// Shows the sheet on the window of `parentWindow` and returns at once; `handler` is called
    /// once, when the sheet has closed. An absent window is a programming error.
    virtual void runLocationEditorModalForWindow(QWidget *parentWindow, bool showCancelButton,
                                                 CompletionHandler handler);

public Q_SLOTS:
    /// Close the sheet and call the completion handler. The editor may be gone afterwards.
    virtual void acceptModalSheet(QObject *sender);
    virtual void cancelModalSheet(QObject *sender);

Q_SIGNALS:
    void locationChanged();
    void shouldShowCancelButtonChanged();

protected:
    QVSyncLocationEditor(const QString &windowNibName,
                         const std::shared_ptr<QVSyncLocation> &location);

    void setCompletionHandler(CompletionHandler handler);
    /// As Cancel, where there is a Cancel button.
    void leaveSheet() override;

private:
    void finish(int result);

    std::shared_ptr<QVSyncLocation> m_location;
    bool m_shouldShowCancelButton = false;
    CompletionHandler m_completionHandler;
};
