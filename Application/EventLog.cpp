#include "Application/EventLog.h"

#include <QtCore/QLocale>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

#include "Host/QVJobLog.h"
#include "Platform/Foundation/DateText.h"
#include "Platform/Interface/PlainText.h"

namespace {

using JobOutcome = QVJobReport::Outcome;

constexpr int MillisecondsInSecond = 1000;

QString logText(const char *text) {
    return QCoreApplication::translate("EventLog", text);
}

QString wordFor(const LogEntry &entry) {
    if (!entry.outcome) {
        return {};
    }
    switch (*entry.outcome) {
        case JobOutcome::Succeeded:
            return logText("Succeeded");
        case JobOutcome::Partial:
            return logText("Partly");
        case JobOutcome::Failed:
            return logText("Failed");
        case JobOutcome::Stopped:
            break;
    }
    return logText("Stopped");
}

QIcon iconFor(const LogEntry &entry) {
    if (!entry.outcome) {
        return {};
    }
    switch (*entry.outcome) {
        case JobOutcome::Succeeded:
            return QApplication::style()->standardIcon(QStyle::SP_DialogApplyButton);
        case JobOutcome::Partial:
            return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
        case JobOutcome::Failed:
            return QApplication::style()->standardIcon(QStyle::SP_MessageBoxCritical);
        case JobOutcome::Stopped:
            break;
    }
    return QApplication::style()->standardIcon(QStyle::SP_DialogCancelButton);
}

/// Returns the duration of a job in seconds.
QString durationOf(const LogEntry &entry) {
    if (entry.duration < 0) {
        return {};
    }
    const double seconds = static_cast<double>(entry.duration) / MillisecondsInSecond;
    return logText("%1 s").arg(QLocale().toString(seconds, 'f', seconds < 10 ? 1 : 0));
}

QString changesOf(const LogEntry &entry) {
    return entry.duration < 0 || (entry.received == 0 && entry.sent == 0)
               ? QString()
               : logText("%1 received, %2 sent")
                     .arg(QString::number(entry.received), QString::number(entry.sent));
}

}  // namespace

Expected<void> EventLog::open(const QString &path) {
    Expected<QList<LogEntry>> earlier = m_file.open(path);
    if (!earlier) {
        return failure(earlier.error());
    }
    m_isOpen = true;
    const QList<LogEntry> present = m_entries;
    beginResetModel();
    m_entries = earlier->mid(std::max<qsizetype>(0, earlier->size() - Limit));
    endResetModel();
    for (const LogEntry &entry : present) {
        append(entry);
    }
    return {};
}

void EventLog::append(const QString &title, const QString &info) {
    // The other entries about synchronizations have no title either.
    const bool isSync = title.isEmpty() || title == QVJobLog::MessageTitle;
    append(LogEntry{.time = QDateTime::currentDateTime(),
                    .text = isSync ? info : title + u' ' + info});
}

void EventLog::append(const LogEntry &entry) {
    insert(entry);
    if (!m_isOpen) {
        return;
    }
    const Expected<void> saved = m_file.append(entry);
    if (!saved && m_isSaved) {
        insert({.time = QDateTime::currentDateTime(), .text = saved.error().localizedDescription});
    }
    m_isSaved = saved.has_value();
}

void EventLog::insert(const LogEntry &entry) {
    if (m_entries.size() >= Limit) {
        beginRemoveRows({}, 0, 0);
        m_entries.removeFirst();
        endRemoveRows();
    }
    const auto row = static_cast<int>(m_entries.size());
    beginInsertRows({}, row, row);
    m_entries.append(entry);
    endInsertRows();
}

int EventLog::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

int EventLog::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant EventLog::data(const QModelIndex &index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const LogEntry &entry = m_entries.at(index.row());
    switch (role) {
        case Qt::DisplayRole:
            return PlainText::message(textAt(entry, index.column()));
        case Qt::ToolTipRole:
            return PlainText::toolTip(textAt(entry, index.column()));
        case Qt::DecorationRole:
            return index.column() == Outcome ? QVariant(iconFor(entry)) : QVariant();
        default:
            return {};
    }
}

QString EventLog::textAt(const LogEntry &entry, int column) {
    switch (column) {
        case Outcome:
            return wordFor(entry);
        case Time:
            return DateText::shortDate(entry.time);
        case Duration:
            return durationOf(entry);
        case Database:
            return entry.database;
        case Location:
            return entry.location;
        case Changes:
            return changesOf(entry);
        default:
            return entry.text;
    }
}

QVariant EventLog::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
        case Outcome:
            return tr("Result");
        case Time:
            return tr("Time");
        case Duration:
            return tr("Duration");
        case Database:
            return tr("Database");
        case Location:
            return tr("Location");
        case Changes:
            return tr("Changes");
        default:
            return tr("What happened");
    }
}
