#pragma once

#include <QtCore/QMetaProperty>
#include <atomic>
#include <functional>

/// Calls a function for each signal that announces a property of an object, while it exists. Also
/// for properties that a host adds. Must be used on the main thread.
class NotifyWatch : public QObject {
    Q_OBJECT
public:
    /// `sender` is not owned, and may be destroyed before this object. `property` is its name,
    /// which is not kept. `noted`, which must not be empty, is called within the signal if that is
    /// emitted on the main thread. Throws Checking::NotOffered if `sender` lacks the property, or a
    /// signal for it.
    NotifyWatch(const QObject &sender, const char *property, std::function<void()> noted);
    /// Returns whether a signal was emitted on another thread, for which `noted` is not called.
    bool wasNotedElsewhere() const { return m_isNotedElsewhere; }

private Q_SLOTS:
    /// Connected directly, so that it runs on the thread of the signal.
    void note();

private:
    const std::function<void()> m_noted;
    std::atomic<bool> m_isNotedElsewhere = false;
};
