#include "Application/EventLog.h"

#include <QtCore/QLocale>

#include "Platform/Interface/PlainText.h"

void EventLog::append(const QString &title, const QString &info) {
    if (m_entries.size() >= Limit) {
        beginRemoveRows({}, 0, 0);
        m_entries.removeFirst();
        endRemoveRows();
    }
    const auto row = static_cast<int>(m_entries.size());
    beginInsertRows({}, row, row);
    m_entries.append({QDateTime::currentDateTime(), title, info});
    endInsertRows();
}

int EventLog::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

int EventLog::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : 3;
}

QVariant EventLog::data(const QModelIndex &index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
            return textAt(index);
        case Qt::ToolTipRole:
            return PlainText::toolTip(textAt(index));
        default:
            return {};
    }
}

QString EventLog::textAt(const QModelIndex &index) const {
    const Entry &entry = m_entries.at(index.row());
    switch (index.column()) {
        case 0:
            return QLocale().toString(entry.time, QLocale::ShortFormat);
        case 1:
            return entry.title;
        default:
            return entry.info;
    }
}

QVariant EventLog::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
        case 0:
            return tr("Time");
        case 1:
            return tr("From");
        default:
            return tr("What happened");
    }
}
