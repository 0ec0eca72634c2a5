#pragma once

#include <QtCore/QPointer>
#include <QtCore/QVariantList>
#include <QtGui/QAccessible>
#include <QtWidgets/QTableWidget>

#include "Platform/KeyValue/IndexSet.h"
#include "Platform/KeyValue/KeyValue.h"

class QAbstractButton;
class TableViewDelegate;

/// A table whose columns have identifiers but no titles. Its rows come either from the key
/// `content`, each showing the value at `contentKey`, or from a delegate that makes a view for each
/// cell. A row of the content shows the first 500 characters of its text, on one line, or on two if
/// the text of any row has further lines. Must be used on the main thread.
class PLATFORM_EXPORT TableView : public QTableWidget {
    Q_OBJECT
    /// One column for each identifier. A new table has one column with an empty identifier. Must be
    /// set before reloadData().
    Q_PROPERTY(QStringList columnIdentifiers READ columnIdentifiers WRITE setColumnIdentifiers)
    /// The objects of the rows. Setting it keeps the selected rows by position and does not
    /// announce them: an ArrayController announces the positions of the selected objects
    /// afterwards. O(n).
    Q_PROPERTY(QVariantList content READ content WRITE setContent)
    /// The key path of a row's text. "self", the default, is the object itself. Must be set before
    /// the content.
    Q_PROPERTY(QString contentKey MEMBER m_contentKey)
    /// Shown before the text of each row. Must be set before the content.
    Q_PROPERTY(QIcon rowIcon WRITE setRowIcon READ rowIcon)
    /// What assistive technologies say of each row of the content whose text has only one line;
    /// further lines of a text are its description. Must be set before the content.
    Q_PROPERTY(QString rowDescription MEMBER m_rowDescription)
    /// The key path of a boolean of a row's object. If it is not empty, each row has a check box
    /// that shows the value and sets it. Must be set before the content.
    Q_PROPERTY(QString checkKey MEMBER m_checkKey)
    /// Name of the value transformer that converts a row's object to its text. If empty,
    /// `contentKey` is used. Must be set before the content.
    Q_PROPERTY(QString textTransformer MEMBER m_textTransformer)
    /// Name of the value transformer that converts a row's object to its icon, a QPixmap. If empty,
    /// `rowIcon` is used. Must be set before the content.
    Q_PROPERTY(QString iconTransformer MEMBER m_iconTransformer)
    /// The object name of the button in the same window that the key Delete clicks; empty if there
    /// is none.
    Q_PROPERTY(QString removeButton MEMBER m_removeButton)
    /// The name of the first selected row; empty if none is selected. Announced also when its row
    /// gets another content.
    Q_PROPERTY(QString selectedName READ selectedName NOTIFY selectedNameChanged)
    /// The selected rows. Rows out of range are ignored; setting an equal set has no effect. A
    /// change, also one by the user, calls the delegate and is announced.
    Q_PROPERTY(IndexSet selectionIndexes READ selectionIndexes WRITE setSelectionIndexes NOTIFY
                   selectionIndexesChanged)
public:
    /// An empty table whose rows can be selected but not edited.
    explicit TableView(QWidget *parent = nullptr);

    QStringList columnIdentifiers() const { return m_columnIdentifiers; }
    void setColumnIdentifiers(const QStringList &identifiers);
    QVariantList content() const { return m_content; }
    /// See the property. Raises an AssertionFailure if an object has no key `contentKey`.
    void setContent(const QVariantList &content);
    QIcon rowIcon() const { return m_rowIcon; }
    void setRowIcon(const QIcon &icon) { m_rowIcon = icon; }
    IndexSet selectionIndexes() const;
    void setSelectionIndexes(const IndexSet &indexes);

    /// Sets the delegate that provides the cells instead of `content`; null removes it. Not owned.
    /// It may be destroyed before the table if neither reloadData() nor a change of the selection
    /// follows. Call reloadData() afterwards.
    void setTableDelegate(TableViewDelegate *delegate);
    TableViewDelegate *tableDelegate() const { return m_delegate; }
    /// Reads all rows from the delegate again; without a delegate, removes all rows. Keeps the
    /// selected rows by position; if some of them no longer exist, announces the selection. Views
    /// that the delegate returns again are reused; replaced ones are deleted from the event loop.
    /// O(rows times columns).
    void reloadData();
    /// Returns a view for the cell that the delegate is asked for: the view shown there, if it was
    /// made from the same form for the same owner, otherwise a new one of the form named
    /// `identifier` with `owner` as the form's owner. The delegate must return it for that cell;
    /// the table owns it then. Raises an AssertionFailure if there is no such form.
    QWidget *makeViewWithIdentifier(const QString &identifier, QObject *owner);

    /// Returns the row that was clicked last or triggered with the space bar; -1 if the last click
    /// was below the rows. May be past the end after the rows changed.
    int clickedRow() const { return m_clickedRow; }
    /// Returns the first selected row, or -1 if none is selected.
    int selectedRow() const;
    QString selectedName() const { return nameOfRow(selectedRow()); }
    /// Returns what assistive technologies call the row; empty if there is none.
    QString nameOfRow(int row) const;
    /// Returns the button named `removeButton`; null if there is none.
    QAbstractButton *buttonThatRemoves() const;

Q_SIGNALS:
    /// Emitted when the table is clicked, on a row or below the rows, and when the space bar is
    /// pressed on a row. clickedRow() is set by then.
    void action();
    /// Emitted after the delegate was called.
    void selectionIndexesChanged();
    void selectedNameChanged();

protected:
    void changeEvent(QEvent *event) override;
    /// These two notify assistive technologies of rows instead of cells, see AccessibleTable.
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    /// Moves between rows, also with Home and End.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void selectReachedRow(const QKeyEvent &event);
    /// Reports an event of the item of a row.
    void announceRow(int row, QAccessible::Event event);
    /// Returns the height of a row with its lines of text, an icon and a check box.
    int heightOfRow() const;
    QString textOf(const QVariant &object) const;
    /// Sets what assistive technologies say of a row with this item.
    void describe(QTableWidgetItem &item) const;
    /// Shows the value at `checkKey` in the row's check box.
    void showCheck(QTableWidgetItem *item, const QVariant &object) const;
    /// Sets the value at `checkKey` as the user has changed it, and shows the one it has then.
    void itemDidChange(QTableWidgetItem *item);
    QIcon iconOf(const QVariant &object) const;
    /// Gets the view of one cell from the delegate and shows it.
    void reloadCell(int row, int column);
    void selectionDidChange();
    void paintViews();

    QStringList m_columnIdentifiers;
    QVariantList m_content;
    QString m_contentKey = QStringLiteral("self");
    QIcon m_rowIcon;
    QString m_rowDescription;
    QString m_checkKey;
    QString m_textTransformer;
    QString m_iconTransformer;
    QString m_removeButton;
    TableViewDelegate *m_delegate = nullptr;
    int m_clickedRow = -1;
    /// The view of the cell that is being reloaded; null otherwise.
    QPointer<QWidget> m_reusableView;
    bool m_isRebuilding = false;
};
