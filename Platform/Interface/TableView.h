#pragma once

#include <QtCore/QPointer>
#include <QtCore/QVariantList>
#include <QtWidgets/QTableWidget>

#include "Platform/KeyValue/IndexSet.h"
#include "Platform/KeyValue/KeyValue.h"

class TableViewDelegate;

/// A table of rows, whose columns have identifiers but no titles. Its rows come either from the key
/// `content`, each showing the value at `contentKey`, or from a delegate that makes a view for
/// each cell. Main thread.
class PLATFORM_EXPORT TableView : public QTableWidget {
    Q_OBJECT
    /// One column for each; there is one without a name unless they are set.
    Q_PROPERTY(QStringList columnIdentifiers READ columnIdentifiers WRITE setColumnIdentifiers)
    /// The objects of the rows. Setting it keeps the selected rows by their position and announces
    /// nothing, as an ArrayController expects that puts the selection on the same objects then.
    Q_PROPERTY(QVariantList content READ content WRITE setContent)
    /// "self", which is the object itself, unless it is set before the content.
    Q_PROPERTY(QString contentKey MEMBER m_contentKey)
    /// Shown before the text of each row; set before the content.
    Q_PROPERTY(QIcon rowIcon WRITE setRowIcon READ rowIcon)
    /// Names of value transformers that make a row's text and its icon, a QPixmap, of its object;
    /// set before the content. Where they are empty `contentKey` and `rowIcon` say what is shown.
    Q_PROPERTY(QString textTransformer MEMBER m_textTransformer)
    Q_PROPERTY(QString iconTransformer MEMBER m_iconTransformer)
    Q_PROPERTY(IndexSet selectionIndexes READ selectionIndexes WRITE setSelectionIndexes NOTIFY
                   selectionIndexesChanged)
public:
    explicit TableView(QWidget *parent = nullptr);

    QStringList columnIdentifiers() const { return m_columnIdentifiers; }
    void setColumnIdentifiers(const QStringList &identifiers);
    QVariantList content() const { return m_content; }
    void setContent(const QVariantList &content);
    QIcon rowIcon() const { return m_rowIcon; }
    void setRowIcon(const QIcon &icon) { m_rowIcon = icon; }
    IndexSet selectionIndexes() const;
    void setSelectionIndexes(const IndexSet &indexes);

    /// Not owned; it takes the place of the content. May go before the table.
    void setTableDelegate(TableViewDelegate *delegate) { m_delegate = delegate; }
    TableViewDelegate *tableDelegate() const { return m_delegate; }
    /// Asks the delegate for all rows again. Keeps the selected rows by their position.
    void reloadData();
    /// Returns a view for the cell that the delegate is asked for: the one that is there if it was
    /// made in the same way, otherwise a new one from the form named `identifier` with `owner`.
    QWidget *makeViewWithIdentifier(const QString &identifier, QObject *owner);

    /// The row that was clicked last, or chosen with the space bar; -1 beside the rows.
    int clickedRow() const { return m_clickedRow; }
    /// The first of the selected rows, -1 for none.
    int selectedRow() const;

Q_SIGNALS:
    /// The table was clicked, on a row or beside them; or the space bar was pressed on a row.
    void action();
    void selectionIndexesChanged();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QString textOf(const QVariant &object) const;
    QIcon iconOf(const QVariant &object) const;
    void reloadCell(int row, int column);
    void selectionDidChange();
    void paintViews();

    QStringList m_columnIdentifiers;
    QVariantList m_content;
    QString m_contentKey = QStringLiteral("self");
    QIcon m_rowIcon;
    QString m_textTransformer;
    QString m_iconTransformer;
    TableViewDelegate *m_delegate = nullptr;
    int m_clickedRow = -1;
    /// What the cell that is being made anew shows.
    QPointer<QWidget> m_reusableView;
    bool m_isRebuilding = false;
};
