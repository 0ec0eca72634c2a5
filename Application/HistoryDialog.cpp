#include "Application/HistoryDialog.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QSplitter>
#include <algorithm>

#include "Application/CountText.h"
#include "Application/Guide.h"
#include "Application/LineAlignment.h"
#include "Application/NoteVersionsList.h"
#include "Application/NoteVersionsModel.h"
#include "Application/PresentIfFailed.h"
#include "Application/WindowSize.h"
#include "Platform/Foundation/DateText.h"
#include "Platform/Interface/HeightKeeper.h"
#include "Platform/Interface/MessageBox.h"
#include "Platform/Interface/PlainText.h"

namespace {

constexpr int MostDays = 3650;
/// How long notes are restored before the window is drawn again.
constexpr std::chrono::milliseconds RestoringDuration(50);
constexpr int MostMegabytes = 100000;
/// A changed list is read that far to find the selected versions again, which takes a fraction of a
/// second.
constexpr int MostRowsReadAgain = 20 * NoteVersionsModel::RowsAtOnce;

}  // namespace

HistoryDialog::HistoryDialog(NoteLibrary *library, const std::shared_ptr<NoteDatabase> &database,
                             const Note &note, QWidget *parent)
    : QDialog(parent),
      m_library(library),
      m_database(database),
      m_note(note),
      m_versions(new NoteVersionsModel(
          {tr("Title"), tr("When"), tr("Change")},
          [this](const VersionsPart &part) { return read(part); },
          [this](const NoteVersion &version) { return textsOf(version); }, this)),
      m_list(new NoteVersionsList(m_versions)),
      m_text(new QPlainTextEdit),
      m_explanation(PlainText::label()),
      m_restoreButton(new QPushButton(tr("&Restore"))),
      m_days(new QSpinBox),
      m_megabytes(new QSpinBox) {
    setWindowTitle(isOfNote() ? tr("Earlier Versions") : tr("Deleted Notes"));
    setWindowModality(Qt::WindowModal);
    resize(WindowSize::of(*this, 110, 32));
    new HeightKeeper(this);
    makeWidgets();
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &HistoryDialog::showText);
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { m_restoreButton->setEnabled(m_list->selectionModel()->hasSelection()); });
    connect(m_restoreButton, &QPushButton::clicked, this, &HistoryDialog::restore);
    connect(m_database.get(), &NoteDatabase::notesChanged, this, &HistoryDialog::showVersions);
    showVersions();
}

void HistoryDialog::makeWidgets() {
    m_list->setAccessibleName(windowTitle());
    m_list->header()->setStretchLastSection(true);
    alignLines(*m_text);
    m_text->setAccessibleName(tr("Text"));
    m_text->setReadOnly(true);
    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_list);
    splitter->addWidget(m_text);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setText(tr("&Close"));
    // Some themes have a dark one, which is not visible on dark colors.
    buttons->button(QDialogButtonBox::Close)->setIcon({});
    buttons->addButton(m_restoreButton, QDialogButtonBox::ActionRole);
    m_restoreButton->setEnabled(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_explanation);
    layout->addWidget(splitter, 1);
    layout->addWidget(makeLimits());
    layout->addLayout(Guide::rowWithHelp(Guide::NotesPage, buttons));
    // Tab would pass over Close, which was created first and stands last.
    setTabOrder(m_restoreButton, buttons->button(QDialogButtonBox::Close));
}

QWidget *HistoryDialog::makeLimits() {
    m_days->setRange(1, MostDays);
    const auto showUnit = [this](int days) {
        m_days->setSuffix(translateCount("HistoryDialog", " days", " day", days));
    };
    connect(m_days, &QSpinBox::valueChanged, this, showUnit);
    showUnit(m_days->value());
    m_days->setAccessibleName(
        tr("Number of days for which deleted notes and earlier versions are kept"));
    m_megabytes->setRange(1, MostMegabytes);
    m_megabytes->setSuffix(tr(" MB"));
    m_megabytes->setAccessibleName(tr("Space for deleted notes and earlier versions"));
    const Expected<HistoryLimits> limits = m_library->historyLimits();
    if (limits) {
        m_days->setValue(limits->days);
        m_megabytes->setValue(limits->megabytes);
    } else {
        NSApp()->presentError(limits.error());
    }
    m_shownLimits = shownLimits();
    for (QSpinBox *box : {m_days, m_megabytes}) {
        box->setEnabled(limits.has_value());
        // Scrolling over it is no decision.
        box->setFocusPolicy(Qt::StrongFocus);
        box->installEventFilter(this);
    }
    auto *label = new QLabel(tr("&Keep deleted notes and earlier versions for"));
    label->setBuddy(m_days);
    auto *widget = new QWidget;
    auto *layout = new QHBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(m_days);
    layout->addWidget(new QLabel(tr("and up to")));
    layout->addWidget(m_megabytes);
    layout->addStretch();
    return widget;
}

Expected<QList<NoteVersion>> HistoryDialog::read(const VersionsPart &part) const {
    return isOfNote() ? m_database->earlierVersions(m_note, part) : m_database->deletedNotes(part);
}

void HistoryDialog::showVersions() {
    // Each restored note changes the list. It is read once, after the last one.
    if (!m_toRestore.isEmpty()) {
        return;
    }
    const QSet<qint64> selected = selectedVersions();
    const QModelIndex before = m_list->currentIndex();
    const qint64 current = before.isValid() ? m_versions->version(before.row()).identifier : 0;
    // At its end it would go on reading.
    m_list->scrollToTop();
    if (!presentIfFailed(m_versions->reload())) {
        return;
    }
    adjustColumns();
    m_list->setCurrentIndex(m_versions->index(0, 0));
    selectAgain(selected, current);
    m_explanation->setText(explanation());
    showText();
}

QSet<qint64> HistoryDialog::selectedVersions() const {
    QSet<qint64> identifiers;
    const QModelIndexList rows = m_list->selectionModel()->selectedRows();
    for (const QModelIndex &row : rows) {
        identifiers.insert(m_versions->version(row.row()).identifier);
    }
    return identifiers;
}

void HistoryDialog::selectAgain(const QSet<qint64> &selected, qint64 current) {
    if (selected.isEmpty()) {
        return;
    }
    const qint64 last = *std::min_element(selected.begin(), selected.end());
    QItemSelection found;
    QModelIndex currentRow;
    for (int row = 0; row < m_versions->rowCount(); ++row) {
        const qint64 identifier = m_versions->version(row).identifier;
        if (identifier < last) {
            break;
        }
        const QModelIndex index = m_versions->index(row, 0);
        if (selected.contains(identifier)) {
            found.select(index, index.siblingAtColumn(m_versions->columnCount() - 1));
            currentRow = identifier == current || !currentRow.isValid() ? index : currentRow;
        }
        if (row + 1 == m_versions->rowCount() && row < MostRowsReadAgain) {
            m_versions->readMore();
        }
    }
    if (!found.isEmpty()) {
        m_list->selectionModel()->setCurrentIndex(currentRow, QItemSelectionModel::NoUpdate);
        m_list->selectionModel()->select(found, QItemSelectionModel::ClearAndSelect);
        m_list->scrollTo(currentRow);
    }
}

void HistoryDialog::adjustColumns() {
    m_list->resizeColumnToContents(1);
    const int gap = 2 * fontMetrics().averageCharWidth();
    m_list->setColumnWidth(1, m_list->columnWidth(1) + gap);
    m_list->setColumnWidth(0, width() / 3);
}

QString HistoryDialog::explanation() const {
    if (m_versions->rowCount() > 0) {
        return isOfNote() ? tr("A restored version replaces the note, whose present text "
                               "is then kept here.")
                          : tr("Restored notes are synchronized again. They then also "
                               "return on your other computers.");
    }
    return isOfNote() ? tr("No earlier versions of this note are kept.")
                      : PlainText::message(
                            tr("No deleted notes of “%1” are kept.").arg(m_database->name()));
}

QStringList HistoryDialog::textsOf(const NoteVersion &version) const {
    const QString title = PlainText::message(version.title).simplified();
    return {title.isEmpty() ? tr("Untitled") : title, DateText::shortDate(version.ended),
            changeText(version)};
}

QString HistoryDialog::changeText(const NoteVersion &version) const {
    if (version.place.isEmpty()) {
        return isOfNote() ? tr("Replaced on this computer") : tr("Deleted on this computer");
    }
    return (isOfNote() ? tr("Replaced by a synchronization with “%1”")
                       : tr("Deleted by a synchronization with “%1”"))
        .arg(version.place);
}

void HistoryDialog::showText() {
    const QModelIndex current = m_list->currentIndex();
    if (!current.isValid()) {
        m_text->clear();
        return;
    }
    const Expected<Note> note = m_database->noteOfVersion(m_versions->version(current.row()));
    m_text->setPlainText(PlainText::page(note ? note->text : note.error().localizedDescription));
}

void HistoryDialog::restore() {
    if (!m_toRestore.isEmpty()) {
        return;
    }
    QModelIndexList rows = m_list->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QList<NoteVersion> chosen;
    for (const QModelIndex &row : std::as_const(rows)) {
        chosen.append(m_versions->version(row.row()));
    }
    m_toRestore = chosen;
    // The first version of the new list is selected next.
    m_list->selectionModel()->reset();
    restoreNext();
}

void HistoryDialog::restoreNext() {
    const QDeadlineTimer end(RestoringDuration);
    // The last one stays if several versions of one note are chosen.
    while (!m_toRestore.isEmpty() && !end.hasExpired()) {
        const Expected<Note> note = restoreVersion(m_toRestore.takeLast());
        if (!note) {
            m_toRestore.clear();
            showVersions();
            NSApp()->presentError(note.error());
            return;
        }
        Q_EMIT restored(*note);
    }
    if (!m_toRestore.isEmpty()) {
        QTimer::singleShot(0, this, &HistoryDialog::restoreNext);
    }
}

Expected<Note> HistoryDialog::restoreVersion(const NoteVersion &version) {
    return m_database->noteOfVersion(version).and_then([this](Note note) -> Expected<Note> {
        if (isOfNote()) {
            note.UUID = m_note.UUID;
            note.revision = m_note.revision;
        } else {
            // The note may have come back with an edit that was not seen.
            note.revision = NoRevision;
        }
        note.modified = QDateTime::currentDateTime();
        if (Expected<void> saved = m_database->saveNote(note); !saved) {
            return failure(saved.error());
        }
        m_note.revision = isOfNote() ? note.revision : QString();
        return note;
    });
}

bool HistoryDialog::eventFilter(QObject *object, QEvent *event) {
    if (event->type() == QEvent::Wheel && !static_cast<QWidget *>(object)->hasFocus()) {
        event->ignore();
        return true;
    }
    return QDialog::eventFilter(object, event);
}

HistoryLimits HistoryDialog::shownLimits() const {
    return {m_days->value(), m_megabytes->value()};
}

void HistoryDialog::saveLimits() {
    Expected<HistoryLimits> limits = m_library->historyLimits();
    if (!limits) {
        NSApp()->presentError(limits.error());
        return;
    }
    // A limit that cannot be shown stays as it is.
    if (m_days->value() != m_shownLimits.days) {
        limits->days = m_days->value();
    }
    if (m_megabytes->value() != m_shownLimits.megabytes) {
        limits->megabytes = m_megabytes->value();
    }
    const Expected<qint64> exceeding = m_library->countOfVersionsBeyond(*limits);
    if (!exceeding) {
        NSApp()->presentError(exceeding.error());
    } else if (*exceeding == 0 || isRemovalWanted(*exceeding)) {
        presentIfFailed(m_library->setHistoryLimits(*limits));
    }
}

bool HistoryDialog::isRemovalWanted(qint64 count) {
    MessageBox box(
        QMessageBox::Warning,
        translateCount("HistoryDialog",
                       "The new limits remove %1 deleted notes and earlier versions.",
                       "The new limits remove %1 deleted note or earlier version.", count)
            .arg(QLocale().toString(count)),
        tr("What is removed cannot be restored any more. If you keep it, the limits stay as they "
           "were."),
        this);
    QPushButton *remove = box.addButton(tr("&Remove"), QMessageBox::DestructiveRole);
    box.setDefaultButton(box.addButton(tr("&Keep"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == remove;
}

void HistoryDialog::done(int result) {
    m_toRestore.clear();
    if (shownLimits() != m_shownLimits) {
        saveLimits();
    }
    QDialog::done(result);
}
