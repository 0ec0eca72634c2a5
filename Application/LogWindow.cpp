#include "Application/LogWindow.h"

#include <QtCore/QSet>
#include <QtCore/QTimer>
#include <QtGui/QAction>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeView>
#include <QtWidgets/QVBoxLayout>

#include "Application/CloseKeys.h"
#include "Application/EventLog.h"
#include "Application/LogFilter.h"
#include "Application/WindowSize.h"
#include "Application/WrappingDelegate.h"

namespace {

/// In widths of a letter.
constexpr int WindowWidth = 180;
constexpr int NameWidth = 16;
constexpr int MinimumTextWidth = 45;
constexpr int LinesOfWindow = 32;

}  // namespace

LogWindow::LogWindow(EventLog *log, QWidget *parent)
    : QWidget(parent, Qt::Window),
      m_log(log),
      m_filter(new LogFilter(this)),
      m_view(new QTreeView),
      m_databases(new QComboBox),
      m_locations(new QComboBox) {
    setWindowTitle(tr("Log"));
    resize(WindowSize::of(*this, WindowWidth, LinesOfWindow));
    m_filter->setSourceModel(m_log);
    makeView();
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(makeControls());
    layout->addWidget(m_view);
    updateChoices(0);
    CloseKeys::add(*this);
    connect(m_log, &EventLog::modelReset, this, [this] { updateChoices(0); });
    connect(m_log, &EventLog::rowsInserted, this,
            [this](const QModelIndex &, int first) { updateChoices(first); });
    connect(m_filter, &LogFilter::rowsInserted, m_view, &QTreeView::scrollToBottom);
    QTimer::singleShot(0, m_view, &QTreeView::scrollToBottom);
}

void LogWindow::makeView() {
    m_view->setAccessibleName(tr("Log entries"));
    m_view->setModel(m_filter);
    m_view->setRootIsDecorated(false);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setAlternatingRowColors(true);
    m_view->setWordWrap(true);
    m_view->setItemDelegateForColumn(EventLog::Text, new WrappingDelegate(m_view));
    QHeaderView *header = m_view->header();
    header->setStretchLastSection(false);
    for (int column = 0; column < EventLog::Text; ++column) {
        header->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    }
    for (const int column : {EventLog::Database, EventLog::Location}) {
        header->setSectionResizeMode(column, QHeaderView::Interactive);
        header->resizeSection(column, fontMetrics().averageCharWidth() * NameWidth);
    }
    // A narrow window shows it without scrolling.
    header->moveSection(EventLog::Text, EventLog::Time + 1);
    // The heights of the rows depend on the width of the text.
    auto *layoutTimer = new QTimer(this);
    layoutTimer->setSingleShot(true);
    connect(layoutTimer, &QTimer::timeout, m_view, &QTreeView::doItemsLayout);
    connect(header, &QHeaderView::sectionResized, layoutTimer,
            [this, layoutTimer](int section, int before, int now) {
                if (section != EventLog::Text) {
                    fitText();
                } else if (before != now) {
                    layoutTimer->start();
                }
            });
    m_view->viewport()->installEventFilter(this);
}

bool LogWindow::eventFilter(QObject *object, QEvent *event) {
    if (object == m_view->viewport() && event->type() == QEvent::Resize) {
        fitText();
    }
    return QWidget::eventFilter(object, event);
}

void LogWindow::fitText() {
    QHeaderView *header = m_view->header();
    const int others = header->length() - header->sectionSize(EventLog::Text);
    header->resizeSection(EventLog::Text,
                          std::max(fontMetrics().averageCharWidth() * MinimumTextWidth,
                                   m_view->viewport()->width() - others));
}

QHBoxLayout *LogWindow::makeControls() {
    auto *controls = new QHBoxLayout;
    const auto add = [&](const QString &title, QComboBox *choice) {
        auto *label = new QLabel(title);
        label->setBuddy(choice);
        choice->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        choice->setMaximumWidth(2 * NameWidth * fontMetrics().averageCharWidth());
        controls->addWidget(label);
        controls->addWidget(choice);
    };
    m_databases->addItem(tr("All"));
    m_locations->addItem(tr("All"));
    add(tr("&Database:"), m_databases);
    add(tr("&Location:"), m_locations);
    connect(m_databases, &QComboBox::currentIndexChanged, this, [this] {
        m_filter->setDatabase(m_databases->currentIndex() == 0 ? QString()
                                                               : m_databases->currentText());
    });
    connect(m_locations, &QComboBox::currentIndexChanged, this, [this] {
        m_filter->setLocation(m_locations->currentIndex() == 0 ? QString()
                                                               : m_locations->currentText());
    });
    controls->addStretch();
    auto *copyButton = new QPushButton(tr("&Copy"));
    copyButton->setToolTip(tr("Copy the selected entries, or all if none is selected."));
    connect(copyButton, &QPushButton::clicked, this, &LogWindow::copy);
    controls->addWidget(copyButton);
    auto *copyAction = new QAction(this);
    copyAction->setShortcut(QKeySequence::Copy);
    connect(copyAction, &QAction::triggered, this, &LogWindow::copy);
    m_view->addAction(copyAction);
    return controls;
}

void LogWindow::updateChoices(int first) {
    QSet<QString> databases;
    QSet<QString> locations;
    for (int row = first; row < m_log->rowCount(); ++row) {
        databases.insert(m_log->index(row, EventLog::Database).data().toString());
        locations.insert(m_log->index(row, EventLog::Location).data().toString());
    }
    updateChoice(m_databases, databases.values());
    updateChoice(m_locations, locations.values());
}

void LogWindow::updateChoice(QComboBox *choice, const QStringList &names) {
    for (const QString &name : names) {
        if (!name.isEmpty() && choice->findText(name, Qt::MatchExactly) < 1) {
            choice->addItem(name);
        }
    }
}

void LogWindow::copy() const {
    QModelIndexList rows = m_view->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    if (rows.isEmpty()) {
        for (int row = 0; row < m_filter->rowCount(); ++row) {
            rows.append(m_filter->index(row, 0));
        }
    }
    QGuiApplication::clipboard()->setText(m_filter->text(rows));
}
