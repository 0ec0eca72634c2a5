#pragma once

#include <QtCore/QMetaProperty>
#include <functional>

/// Calls a function for each signal that announces a property of an object, while it exists. For
/// properties that a host adds. Must be used on the main thread.
class NotifyWatch : public QObject {
    Q_OBJECT
public:
    /// `sender` is not owned, and `noted` is called on the main thread. Throws
    /// Checking::NotOffered if `sender` lacks the property, or a signal for it.
    NotifyWatch(const QObject &sender, const char *property, std::function<void()> noted);

private Q_SLOTS:
    void note() { m_noted(); }

private:
    const std::function<void()> m_noted;
};
