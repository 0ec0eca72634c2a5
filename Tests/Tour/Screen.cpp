#include "Tour/Screen.h"

#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTextBrowser>

namespace {

/// The title without the mark where Qt shows that something is not saved.
QString shownTitle(const QWidget &window) {
    return window.windowTitle().remove(QStringLiteral("[*]"));
}

constexpr int Margin = 24;
constexpr int TitleHeight = 28;
const QColor DesktopColor(0x6d, 0x83, 0x99);

/// The window that was raised last.
QPointer<QWidget> &frontWindow() {
    static QPointer<QWidget> window;
    return window;
}

const QWidget *root(const QWidget *window) {
    return window && window->parentWidget() ? root(window->parentWidget()->window()) : window;
}

bool isInFront(const QWidget *window) {
    const bool isQuestion = window->isModal() && !window->parentWidget();
    return isQuestion || root(window) == frontWindow();
}

int depth(const QWidget *widget) {
    return widget->parentWidget() ? 1 + depth(widget->parentWidget()) : 0;
}

/// Windows of a higher layer lie over those of a lower one.
QPair<int, int> layer(const QWidget *window) {
    const int popup = window->windowType() == Qt::Popup ? 2 : 0;
    return {popup + (isInFront(window) ? 1 : 0), depth(window)};
}

QString textOf(const QWidget *widget) {
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
        return button->text();
    }
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        return label->text();
    }
    return {};
}

bool isNamed(const QWidget *widget, const QString &name) {
    return widget->objectName() == name || widget->accessibleName() == name ||
           Screen::withoutMnemonic(textOf(widget)) == name;
}

QList<QWidget *> widgetsNamed(const QString &name, const QWidget *place) {
    QList<QWidget *> found;
    for (QWidget *widget : place->findChildren<QWidget *>()) {
        if (widget->isVisible() && widget->window() == place->window() && isNamed(widget, name)) {
            found.append(widget);
        }
    }
    return found;
}

QList<QLabel *> rowNames(const QString &list) {
    QList<QLabel *> names;
    const QWidget *view = Screen::widget(list);
    for (const char *label : {"rowName", "rowTitle"}) {
        names += view ? view->findChildren<QLabel *>(QLatin1StringView(label)) : QList<QLabel *>();
    }
    std::sort(names.begin(), names.end(), [view](const QLabel *left, const QLabel *right) {
        return left->mapTo(view, QPoint()).y() < right->mapTo(view, QPoint()).y();
    });
    return names;
}

QStringList itemTexts(const QAbstractItemModel &model) {
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            texts.append(model.index(row, column).data().toString());
        }
    }
    return texts;
}

QStringList textsOf(const QWidget *widget) {
    QStringList texts{textOf(widget), widget->windowTitle(), widget->toolTip()};
    if (const auto *field = qobject_cast<const QLineEdit *>(widget)) {
        texts.append(field->displayText());
    } else if (const auto *text = qobject_cast<const QPlainTextEdit *>(widget)) {
        texts.append(text->toPlainText());
    } else if (const auto *page = qobject_cast<const QTextBrowser *>(widget)) {
        texts.append(page->toPlainText());
    } else if (const auto *view = qobject_cast<const QAbstractItemView *>(widget)) {
        texts += view->model() ? itemTexts(*view->model()) : QStringList();
    }
    return texts;
}

void drawTitle(QPainter &painter, const QWidget &window, const QRect &bar) {
    painter.fillRect(bar, window.palette().color(QPalette::Mid));
    painter.setPen(window.palette().color(QPalette::WindowText));
    QFont font = window.font();
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(bar, Qt::AlignCenter, shownTitle(window));
}

/// With the bar that a desktop gives it.
QRect frameOf(const QWidget *window) {
    const QRect frame = window->geometry();
    return window->windowType() == Qt::Popup ? frame : frame.adjusted(0, -TitleHeight, 0, 0);
}

}  // namespace

QList<QWidget *> Screen::windows() {
    QList<QWidget *> windows;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowType() != Qt::ToolTip) {
            windows.append(window);
        }
    }
    std::stable_sort(windows.begin(), windows.end(), [](const QWidget *left, const QWidget *right) {
        return layer(left) < layer(right);
    });
    return windows;
}

QWidget *Screen::window(const QString &title) {
    for (QWidget *window : windows()) {
        // A window manager shows an asterisk, or nothing, in place of the mark.
        if (shownTitle(*window) == title) {
            return window;
        }
    }
    return nullptr;
}

void Screen::turnTo(QWidget *window) {
    // Remembered, since without a window manager the window under a closed sheet is not raised.
    frontWindow() = window;
    window->raise();
    window->activateWindow();
}

QWidget *Screen::widget(const QString &name, QWidget *parent) {
    QWidget *const only = parent ? parent : QApplication::activeModalWidget();
    QList<QWidget *> places = only ? QList{only} : windows();
    // The window in front first.
    std::reverse(places.begin(), places.end());
    for (const QWidget *place : places) {
        const QList<QWidget *> found = widgetsNamed(name, place);
        if (!found.isEmpty()) {
            return found.size() == 1 ? found.first() : nullptr;
        }
    }
    return nullptr;
}

QStringList Screen::rows(const QString &list) {
    QStringList rows;
    for (const QLabel *name : rowNames(list)) {
        rows.append(name->text());
    }
    return rows;
}

QWidget *Screen::row(const QString &list, const QString &name) {
    for (const QLabel *label : rowNames(list)) {
        if (label->text() == name) {
            return label->parentWidget();
        }
    }
    return nullptr;
}

QStringList Screen::texts() {
    QStringList texts;
    for (const QWidget *widget : QApplication::allWidgets()) {
        if (widget->isVisible()) {
            texts += textsOf(widget);
        }
    }
    return texts;
}

QImage Screen::picture(const QList<QWidget *> &stack) {
    QRect desktop;
    for (const QWidget *window : stack) {
        desktop |= frameOf(window);
    }
    desktop.adjust(-Margin, -Margin, Margin, Margin);
    QImage picture(desktop.size(), QImage::Format_RGB32);
    picture.fill(DesktopColor);
    QPainter painter(&picture);
    painter.translate(-desktop.topLeft());
    for (QWidget *window : stack) {
        const QRect frame = frameOf(window);
        drawTitle(painter, *window, QRect(frame.topLeft(), QSize(frame.width(), TitleHeight)));
        painter.drawPixmap(window->geometry().topLeft(), window->grab());
        painter.setPen(QColor(0, 0, 0, 0x60));
        painter.drawRect(frame.adjusted(-1, -1, 0, 0));
    }
    return picture;
}

QString Screen::withoutMnemonic(QString text) {
    return text.remove(u'&');
}
