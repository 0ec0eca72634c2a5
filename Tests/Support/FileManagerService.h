#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>

/// The part of a file manager on a session bus that selects files in a window. Serves while it
/// exists.
class FileManagerService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    /// Raises std::runtime_error if it cannot serve on the bus.
    explicit FileManagerService(const QString &busAddress);
    ~FileManagerService() override;

    /// The URLs of the files that it was asked to show, in order.
    const QStringList &shownFiles() const { return m_shownFiles; }

public Q_SLOTS:
    void ShowItems(const QStringList &URLs, const QString &startupId);

Q_SIGNALS:
    void shown();

private:
    QStringList m_shownFiles;
};
