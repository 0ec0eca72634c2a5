#include "Controller/Preferences/QVSyncBookmarkManagerDataSource.h"

#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>

#include "Host/QVSyncPlugin.h"
#include "Host/SyncLog.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/PathComponents.h"
#include "Platform/Interface/PlainText.h"
#include "Platform/Interface/RequiredChild.h"
#include "Platform/Interface/TableView.h"
#include "Platform/Interface/Workspace.h"

namespace {

QString pathOf(const QVariant &row) {
    return row.toMap().value(QStringLiteral("path")).toString();
}

QWidget *makeBookmarkCell(TableView &tableView, const QString &identifier, QObject *owner,
                          const QVariantMap &row) {
    QWidget *view = tableView.makeViewWithIdentifier(identifier, owner);
    requiredChild<QLabel>(*view, QStringLiteral("imageView"))
        .setPixmap(row.value(QStringLiteral("image")).value<QPixmap>());
    auto &textField = requiredChild<QLabel>(*view, QStringLiteral("textField"));
    textField.setText(PlainText::message(row.value(QStringLiteral("name")).toString()));
    view->setAccessibleName(textField.text());
    view->setAccessibleDescription(PlainText::message(pathOf(row)));
    // A name that is cut short would show itself.
    const QString toolTip = PlainText::toolTip(pathOf(row));
    textField.setToolTip(toolTip);
    view->setToolTip(toolTip);
    return view;
}

}  // namespace

void QVSyncBookmarkManagerDataSource::awakeFromNib() {
    setTableContents({});
    for (const QString &path : QVSyncPlugin::plugin()->bookmarkDictionaryKeys()) {
        insertDictionaryForPath(path);
    }
}

void QVSyncBookmarkManagerDataSource::setTableContents(const QVariantList &rows) {
    m_tableContents = rows;
    KeyValue::announce<&QVSyncBookmarkManagerDataSource::tableContentsChanged>(this);
}

void QVSyncBookmarkManagerDataSource::setCanRemove(bool canRemove) {
    m_canRemove = canRemove;
    KeyValue::announce<&QVSyncBookmarkManagerDataSource::canRemoveChanged>(this);
}

QVariantMap QVSyncBookmarkManagerDataSource::dictionaryForPath(const QString &path) const {
    const QString name = PathComponents::withoutExtension(PathComponents::last(path));
    const int side = QApplication::style()->pixelMetric(QStyle::PM_SmallIconSize);
    return {{QStringLiteral("image"), Workspace::iconForFile(path).pixmap(QSize(side, side))},
            {QStringLiteral("name"), name},
            {QStringLiteral("path"), path}};
}

bool QVSyncBookmarkManagerDataSource::containsRow(const QVariantMap &row) const {
    return std::any_of(m_tableContents.begin(), m_tableContents.end(),
                       [&](const QVariant &other) { return pathOf(other) == pathOf(row); });
}

void QVSyncBookmarkManagerDataSource::insertDictionaryForPath(const QString &path) {
    requireParameter(!path.isNull(), "_path != nil",
                     "QVSyncBookmarkManagerDataSource::insertDictionaryForPath",
                     "Controller/Preferences/QVSyncBookmarkManagerDataSource", 58);
    const QVariantMap row = dictionaryForPath(path);
    if (!containsRow(row)) {
        m_tableContents.append(row);
    }
}

void QVSyncBookmarkManagerDataSource::removeDictionaryForPath(const QString &path) {
    m_tableContents.removeIf([&](const QVariant &row) { return pathOf(row) == path; });
}

void QVSyncBookmarkManagerDataSource::tableViewAddBookmarksObject(TableView *tableView,
                                                                  const QString &path) {
    QVSyncPlugin::plugin()->bookmarkURL(Url::fileURL(path));
    insertDictionaryForPath(path);
    tableView->reloadData();
}

void QVSyncBookmarkManagerDataSource::tableViewRemoveBookmarksObject(TableView *tableView,
                                                                     const QString &path) {
    QVSyncPlugin::plugin()->removeBookmarkForURL(Url::fileURL(path));
    removeDictionaryForPath(path);
    tableView->reloadData();
}

int QVSyncBookmarkManagerDataSource::numberOfRowsInTableView(TableView * /*tableView*/) {
    return static_cast<int>(m_tableContents.size());
}

QWidget *QVSyncBookmarkManagerDataSource::tableViewViewForTableColumnRow(
    TableView *tableView, const QString &columnIdentifier, int row) {
    syncLog().verbose(
        QStringLiteral("Requesting view for column %1 at row %2").arg(columnIdentifier).arg(row));
    const QVariantMap contents = m_tableContents.value(row).toMap();
    QWidget *view = nullptr;
    if (row < numberOfRowsInTableView(tableView) &&
        columnIdentifier == QLatin1StringView("BookmarkCell")) {
        view = makeBookmarkCell(*tableView, columnIdentifier, this, contents);
    }
    syncLog().verbose(
        QStringLiteral("Returning view %1 for column %2 at row %3")
            .arg(view ? view->objectName() : QStringLiteral("(null)"), columnIdentifier)
            .arg(row));
    return view;
}

void QVSyncBookmarkManagerDataSource::tableViewSelectionDidChange(TableView *tableView) {
    setCanRemove(!tableView->selectionIndexes().empty());
}
