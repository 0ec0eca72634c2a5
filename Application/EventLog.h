#pragma once

#include <QtCore/QAbstractTableModel>
#include <QtCore/QDateTime>

/// The application's log: what happened, newest last. Lives as long as the application; main
/// thread.
class EventLog : public QAbstractTableModel {
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    void append(const QString &title, const QString &info);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Entry {
        QDateTime time;
        QString title;
        QString info;
    };

    QString textAt(const QModelIndex &index) const;

    QList<Entry> m_entries;
};
