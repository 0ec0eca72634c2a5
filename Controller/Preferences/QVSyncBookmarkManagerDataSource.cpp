#include "Controller/Preferences/QVSyncBookmarkManagerDataSource.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>
#include <algorithm>

#include "Host/QVSyncPlugin.h"
#include "Host/SyncLog.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/PathComponents.h"
#include "Platform/Interface/Contrast.h"
#include "Platform/Interface/ListPalette.h"
#include "Platform/Interface/PlainText.h"
#include "Platform/Interface/RequiredChild.h"
#include "Platform/Interface/TableView.h"
#include "Platform/Interface/Workspace.h"

namespace {

QString pathOf(const QVariant &row) {
    return row.toMap().value(QStringLiteral("path")).toString();
}

bool isSeen(const QImage &picture, const QColor &ground) {
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor shown = Contrast::blended(picture.pixelColor(x, y), ground);
            if (Contrast::ratio(shown, ground) >= Contrast::OfOutline) {
                return true;
            }
        }
    }
    return false;
}

/// Returns `picture` with a line around what it shows.
QPixmap outlined(const QPixmap &picture, const QColor &color) {
    QPixmap line = picture;
    {
        QPainter painter(&line);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(line.rect(), color);
    }
    QPixmap result(picture.size() + QSize(2, 2) * picture.devicePixelRatio());
    result.setDevicePixelRatio(picture.devicePixelRatio());
    result.fill(Qt::transparent);
    QPainter painter(&result);
    for (const QPoint &place : {QPoint(0, 1), QPoint(2, 1), QPoint(1, 0), QPoint(1, 2)}) {
        painter.drawPixmap(place, line);
    }
    painter.drawPixmap(1, 1, picture);
    return result;
}

/// Returns the icon as it is, or with an outline if it can hardly be seen on the ground of a list.
QPixmap visibleIcon(const QPixmap &icon) {
    const QPalette list = ListPalette::normal();
    return isSeen(icon.toImage(), list.color(QPalette::Window))
               ? icon
               : outlined(icon, Contrast::outline(list));
}

QWidget *makeBookmarkCell(TableView &tableView, const QString &identifier, QObject *owner,
                          const QVariantMap &row) {
    QWidget *view = tableView.makeViewWithIdentifier(identifier, owner);
    requiredChild<QLabel>(*view, QStringLiteral("imageView"))
        .setPixmap(visibleIcon(row.value(QStringLiteral("image")).value<QPixmap>()));
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

int QVSyncBookmarkManagerDataSource::rowOfPath(const QString &path) const {
    const auto found = std::find_if(m_tableContents.begin(), m_tableContents.end(),
                                    [&](const QVariant &row) { return pathOf(row) == path; });
    return found == m_tableContents.end() ? -1 : static_cast<int>(found - m_tableContents.begin());
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
