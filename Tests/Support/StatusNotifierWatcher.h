#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>

/// The part of a desktop on a session bus that shows the icons of programs (StatusNotifierItem),
/// and chooses from their menus. Serves while it exists. Must be used on the main thread.
class StatusNotifierWatcher : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered CONSTANT)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion CONSTANT)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)
public:
    /// Raises std::runtime_error if it cannot serve on the bus.
    explicit StatusNotifierWatcher(const QString &busAddress);
    ~StatusNotifierWatcher() override;

    bool isHostRegistered() const { return true; }
    int protocolVersion() const { return 0; }
    /// The services of the icons that were registered.
    QStringList items() const { return m_items; }
    /// Returns the entries in the menu of the latest icon that are visible, without marks of
    /// shortcuts.
    QStringList menu() const;
    /// Chooses the entry `title`. Returns whether there is one.
    bool choose(const QString &title) const;

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString &service) { m_items.append(service); }

Q_SIGNALS:
    void StatusNotifierItemRegistered(const QString &service);

private:
    /// Returns the visible entries with their identifiers.
    QList<std::pair<int, QString>> entries() const;

    QStringList m_items;
};
