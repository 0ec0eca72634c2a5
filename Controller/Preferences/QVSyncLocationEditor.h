#pragma once

#include <functional>
#include <memory>

#include "Host/QVSyncLocation.h"
#include "Platform/Interface/WindowController.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Platform/KeyValue/SharedPointer.h"

/// Edits one sync location in a sheet; the result is the location's new URL. Each kind of location
/// has a subclass, named like its form. Must be used on the main thread. Shared ownership: the
/// caller must keep an editor until its completion handler is called. Whether the new URL is usable
/// is not checked here; the first access of the location finds out.
class QVSyncLocationEditor : public WindowController,
                             public std::enable_shared_from_this<QVSyncLocationEditor> {
    Q_OBJECT
    /// The location being edited, which the caller has created; never null. Changes are visible
    /// immediately, also if the user cancels later.
    Q_PROPERTY(std::shared_ptr<QVSyncLocation> location READ location WRITE setLocation NOTIFY
                   locationChanged)
    /// Whether the sheet has a Cancel button; false by default.
    Q_PROPERTY(bool shouldShowCancelButton READ shouldShowCancelButton WRITE
                   setShouldShowCancelButton NOTIFY shouldShowCancelButtonChanged)
public:
    /// Called with 1 if the user accepted, or 0 if the user cancelled. It may release the editor
    /// and show other sheets.
    using CompletionHandler = std::function<void(qint64 result)>;

    std::shared_ptr<QVSyncLocation> location() const { return m_location; }
    /// `location` must not be null. Subclasses that show it do not follow this once their window is
    /// loaded, except through bindings.
    void setLocation(const std::shared_ptr<QVSyncLocation> &location);
    bool shouldShowCancelButton() const { return m_shouldShowCancelButton; }
    /// Set by runLocationEditorModalForWindow(). A sheet without the button ends by accepting only.
    void setShouldShowCancelButton(bool shouldShow);

    /// Shows the sheet on the window of `parentWindow` and returns at once. `handler`, which may be
    /// empty, is called once on the main thread after the sheet has closed. Raises an
    /// AssertionFailure if `parentWindow` is null. The handler is called from within the slot that
    /// closes the sheet, and not at all if the editor is destroyed while the sheet is shown. Must
    /// not be called again while the sheet is shown.
    virtual void runLocationEditorModalForWindow(QWidget *parentWindow, bool showCancelButton,
                                                 CompletionHandler handler);

public Q_SLOTS:
    /// Close the sheet and call the completion handler. The handler may release the editor, so it
    /// may be destroyed when this returns. Calling them again has no effect. Cancelling does not
    /// restore the location. `sender` is not used.
    virtual void acceptModalSheet(QObject *sender);
    virtual void cancelModalSheet(QObject *sender);

Q_SIGNALS:
    /// Emitted each time the value is set, even if it stays equal.
    void locationChanged();
    void shouldShowCancelButtonChanged();

protected:
    /// For subclasses. `location` must not be null.
    QVSyncLocationEditor(const QString &windowNibName,
                         const std::shared_ptr<QVSyncLocation> &location);

    /// Sets the handler that finish() calls, at most once. Empty is allowed. For subclasses that
    /// show no sheet.
    void setCompletionHandler(CompletionHandler handler);
    /// Cancels if there is a Cancel button or no field was changed; otherwise has no effect.
    void leaveSheet() override;

private:
    /// Closes the sheet and calls the completion handler with `result`.
    void finish(int result);

    std::shared_ptr<QVSyncLocation> m_location;
    bool m_shouldShowCancelButton = false;
    /// The values when the sheet was shown.
    QVariantList m_firstValues;
    /// Empty after it was called.
    CompletionHandler m_completionHandler;
};
