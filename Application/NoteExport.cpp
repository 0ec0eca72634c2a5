#include "Application/NoteExport.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtCore/QSaveFile>
#include <QtCore/QStandardPaths>
#include <QtWidgets/QFileDialog>

#include "Application/PresentIfFailed.h"

namespace NoteExport {
namespace {

const QString JsonSuffix = QStringLiteral("json");
const QString MarkdownSuffix = QStringLiteral("md");
constexpr int LongestFileName = 60;

QString tr(const char *text) {
    return QCoreApplication::translate("NoteExport", text);
}

/// Returns a heading with `text` on one line.
QString heading(int level, const QString &text) {
    static const QRegularExpression markup(QStringLiteral(R"(([\\`*_\[\]<>#|~&]))"));
    return QString(level, u'#') + u' ' +
           text.simplified().replace(markup, QStringLiteral("\\\\1")) + u'\n';
}

/// Returns a name for a file, without what file systems and shells take for something else.
QString fileName(const NoteExport::Contents &contents) {
    static const QRegularExpression unusual(QStringLiteral(R"([\p{C}/\\:*?"<>|])"));
    QString name = contents.database.isEmpty() && !contents.notes.isEmpty()
                       ? contents.notes.first().title
                       : contents.database;
    name = name.left(LongestFileName).replace(unusual, QStringLiteral("-")).simplified();
    while (name.startsWith(u'.')) {
        name.remove(0, 1);
    }
    return name.isEmpty() ? tr("Notes") : name;
}

/// Returns the user's documents, or the home folder if there are none.
QString folder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

/// Gives the chosen name another suffix. A default suffix alone would not be added to a name with a
/// period, such as “Plan 2.0”.
void replaceSuffix(QFileDialog &dialog, const QString &suffix) {
    const QString before = u'.' + dialog.defaultSuffix();
    const QString name = QFileInfo(dialog.selectedFiles().value(0)).fileName();
    dialog.setDefaultSuffix(suffix);
    if (name.endsWith(before)) {
        dialog.selectFile(name.chopped(before.size()) + u'.' + suffix);
    }
}

}  // namespace
}  // namespace NoteExport

QByteArray NoteExport::markdown(const Contents &contents) {
    QStringList parts;
    if (!contents.database.isEmpty()) {
        parts.append(heading(1, contents.database));
    }
    for (const Note &note : contents.notes) {
        parts.append(heading(contents.database.isEmpty() ? 1 : 2, note.title));
        if (!note.text.isEmpty()) {
            parts.append(note.text + u'\n');
        }
    }
    return parts.join(u'\n').toUtf8();
}

QByteArray NoteExport::json(const Contents &contents) {
    QJsonArray notes;
    for (const Note &note : contents.notes) {
        notes.append(QJsonObject{
            {QStringLiteral("identifier"), note.UUID},
            {QStringLiteral("title"), note.title},
            {QStringLiteral("text"), note.text},
            {QStringLiteral("modified"), note.modified.toUTC().toString(Qt::ISODateWithMs)}});
    }
    QJsonObject object{{QStringLiteral("notes"), notes}};
    if (!contents.database.isEmpty()) {
        object.insert(QStringLiteral("database"), contents.database);
    }
    return QJsonDocument(object).toJson();
}

Expected<void> NoteExport::write(const Contents &contents, const QString &file) {
    const bool isJson = QFileInfo(file).suffix().compare(JsonSuffix, Qt::CaseInsensitive) == 0;
    const QByteArray bytes = isJson ? json(contents) : markdown(contents);
    QSaveFile destination(file);
    if (!destination.open(QIODevice::WriteOnly) || destination.write(bytes) != bytes.size() ||
        !destination.commit()) {
        return failure(
            {.localizedDescription =
                 tr("The file “%1” could not be written. Choose another folder.").arg(file),
             .localizedFailureReason = destination.errorString()});
    }
    return {};
}

void NoteExport::ask(const Contents &contents, QWidget *parent) {
    QFileDialog dialog(parent, tr("Export"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    const QStringList filters{QStringLiteral("Markdown (*.%1)").arg(MarkdownSuffix),
                              QStringLiteral("JSON (*.%1)").arg(JsonSuffix)};
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(MarkdownSuffix);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString &filter) {
        replaceSuffix(dialog, filter == filters.last() ? JsonSuffix : MarkdownSuffix);
    });
    dialog.setDirectory(folder());
    dialog.selectFile(fileName(contents) + u'.' + MarkdownSuffix);
    if (dialog.exec() == QDialog::Accepted) {
        presentIfFailed(write(contents, dialog.selectedFiles().value(0)));
    }
}
