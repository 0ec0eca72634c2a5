#include "Application/NoteVersionsModel.h"

#include <utility>

#include "Host/QVApplication.h"
#include "Platform/Interface/PlainText.h"

NoteVersionsModel::NoteVersionsModel(QStringList titles, Read read, Texts texts, QObject *parent)
    : QAbstractTableModel(parent),
      m_titles(std::move(titles)),
      m_read(std::move(read)),
      m_texts(std::move(texts)) {}

Expected<void> NoteVersionsModel::reload() {
    return m_read({.count = RowsAtOnce}).map([this](const QList<NoteVersion> &versions) {
        beginResetModel();
        m_versions = versions;
        m_isComplete = versions.size() < RowsAtOnce;
        endResetModel();
    });
}

int NoteVersionsModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_versions.size());
}

int NoteVersionsModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_titles.size());
}

QVariant NoteVersionsModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const QString text = PlainText::message(m_texts(m_versions.at(index.row())).at(index.column()));
    return role == Qt::DisplayRole ? text : PlainText::toolTip(text);
}

QVariant NoteVersionsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool isTitle = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isTitle ? m_titles.value(section) : QVariant();
}

Qt::ItemFlags NoteVersionsModel::flags(const QModelIndex &index) const {
    return QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
}

void NoteVersionsModel::readMore() {
    if (m_isComplete) {
        return;
    }
    const Expected<QList<NoteVersion>> more =
        m_read({.before = m_versions.last().identifier, .count = RowsAtOnce});
    m_isComplete = !more || more->size() < RowsAtOnce;
    if (!more) {
        NSApp()->presentError(more.error());
        return;
    }
    if (!more->isEmpty()) {
        const int first = rowCount();
        beginInsertRows({}, first, first + static_cast<int>(more->size()) - 1);
        m_versions.append(*more);
        endInsertRows();
    }
}
