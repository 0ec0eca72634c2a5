#include "Support/ShownName.h"

#include <QtGui/QAction>
#include <QtGui/QTextDocument>
#include <QtGui/QTextDocumentFragment>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>

const QString ShownName::Hostile =
    QStringLiteral("<img src=\"file:&#47;&#47;&#47;dev&#47;null\"> <b>x &name");

ShownName::ShownName(const QString &name) : m_name(name) {
    for (const QWidget *widget : QApplication::allWidgets()) {
        lookAt(*widget);
    }
}

bool ShownName::isToolTipOf(const QString &toolTip, const QString &text) {
    return (Qt::mightBeRichText(toolTip) ? QTextDocumentFragment::fromHtml(toolTip).toPlainText()
                                         : toolTip) == text;
}

void ShownName::add(const QObject &place, bool isMisread) {
    const QString description = QStringLiteral("%1 %2").arg(
        QLatin1StringView(place.metaObject()->className()), place.objectName());
    m_places.append(description);
    if (isMisread) {
        m_misreadPlaces.append(description);
    }
}

void ShownName::lookAtToolTip(const QObject &place, const QString &toolTip) {
    if (toolTip.contains(m_name)) {
        add(place, Qt::mightBeRichText(toolTip));
    } else if (QTextDocumentFragment::fromHtml(toolTip).toPlainText().contains(m_name)) {
        add(place, false);
    }
}

void ShownName::lookAt(const QWidget &widget) {
    lookAtToolTip(widget, widget.toolTip());
    if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
        if (label->text().contains(m_name)) {
            add(widget, label->textFormat() != Qt::PlainText);
        }
    } else if (const auto *button = qobject_cast<const QAbstractButton *>(&widget)) {
        if (button->text().contains(m_name)) {
            add(widget, true);
        }
    } else if (const auto *box = qobject_cast<const QGroupBox *>(&widget)) {
        if (box->title().contains(m_name)) {
            add(widget, true);
        }
    } else if (const auto *field = qobject_cast<const QLineEdit *>(&widget)) {
        if (field->text().contains(m_name)) {
            add(widget, false);
        }
    } else if (const auto *text = qobject_cast<const QPlainTextEdit *>(&widget)) {
        if (text->toPlainText().contains(m_name)) {
            add(widget, false);
        }
    } else if (const auto *view = qobject_cast<const QAbstractItemView *>(&widget)) {
        lookAt(*view);
    }
    for (const QAction *action : widget.actions()) {
        if (action->text().contains(m_name)) {
            add(*action, true);
        }
    }
}

void ShownName::lookAt(const QAbstractItemView &view) {
    const QAbstractItemModel *model = view.model();
    for (int row = 0; model && row < model->rowCount(); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            if (index.data().toString().contains(m_name)) {
                add(view, false);
            }
            lookAtToolTip(view, index.data(Qt::ToolTipRole).toString());
        }
    }
}
