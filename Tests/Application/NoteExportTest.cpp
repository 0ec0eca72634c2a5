#include "Application/NoteExport.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>

#include "Support/TestMain.h"

/// Notes are exported to files that other programs read.
class NoteExportTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    const Note m_shed{.UUID = QStringLiteral("1"),
                      .title = QStringLiteral("Shed *new*\nroof"),
                      .text = QStringLiteral("# Paint\n\u2028it “blue”."),
                      .modified = QDateTime({2026, 11, 22}, {12, 30}, Qt::UTC)};
    const Note m_empty{.UUID = QStringLiteral("2"), .title = QStringLiteral("Empty")};

    static QByteArray contentsOf(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private Q_SLOTS:
    void aNoteIsAPageOfMarkdown() {
        QCOMPARE(QString::fromUtf8(NoteExport::markdown({.notes = {m_shed}})),
                 QStringLiteral("# Shed \\*new\\* roof\n\n# Paint\n\u2028it “blue”.\n"));
    }

    void aDatabaseIsAPageWithAChapterForEachNote() {
        QCOMPARE(QString::fromUtf8(NoteExport::markdown(
                     {.database = QStringLiteral("Garden"), .notes = {m_shed, m_empty}})),
                 QStringLiteral("# Garden\n\n## Shed \\*new\\* roof\n\n# Paint\n\u2028it “blue”.\n"
                                "\n## Empty\n"));
    }

    void jsonHoldsTheNotesExactly() {
        const QJsonObject object =
            QJsonDocument::fromJson(NoteExport::json({.database = QStringLiteral("Garden"),
                                                      .notes = {m_shed, m_empty}}))
                .object();
        QCOMPARE(object.value(QStringLiteral("database")).toString(), QStringLiteral("Garden"));
        const QJsonArray notes = object.value(QStringLiteral("notes")).toArray();
        QCOMPARE(notes.size(), 2);
        const QJsonObject shed = notes.first().toObject();
        QCOMPARE(shed.value(QStringLiteral("identifier")).toString(), m_shed.UUID);
        QCOMPARE(shed.value(QStringLiteral("title")).toString(), m_shed.title);
        QCOMPARE(shed.value(QStringLiteral("text")).toString(), m_shed.text);
        QCOMPARE(shed.value(QStringLiteral("modified")).toString(),
                 QStringLiteral("2026-11-22T12:30:00.000Z"));
    }

    void theNameOfTheFileChoosesTheFormat() {
        const NoteExport::Contents contents{.notes = {m_shed}};
        for (const char *name : {"note.md", "note", "note.JSON"}) {
            const QString path = m_folder.filePath(QLatin1StringView(name));
            QVERIFY(NoteExport::write(contents, path));
            QCOMPARE(contentsOf(path), path.endsWith(QStringLiteral("JSON"))
                                           ? NoteExport::json(contents)
                                           : NoteExport::markdown(contents));
        }
    }

    void theNameMayHaveAPeriod() {
        const QString usualHome = qEnvironmentVariable("HOME");
        // A home without a folder for documents.
        qputenv("HOME", m_folder.path().toUtf8());
        QTimer::singleShot(0, qApp, [] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            dialog->selectNameFilter(dialog->nameFilters().last());
            Q_EMIT dialog->filterSelected(dialog->nameFilters().last());
            static_cast<QDialog *>(dialog)->accept();
        });
        NoteExport::ask({.database = QStringLiteral("Plan 2.0"), .notes = {m_shed}}, nullptr);
        qputenv("HOME", usualHome.toUtf8());
        QVERIFY(contentsOf(m_folder.filePath(QStringLiteral("Plan 2.0.json"))).startsWith('{'));
    }

    void aFileThatCannotBeWrittenIsNamedAndStaysAsItWas() {
        const QString path = QStringLiteral("/dev/null/note.md");
        const Expected<void> written = NoteExport::write({.notes = {m_shed}}, path);
        QVERIFY(!written);
        QCOMPARE(written.error().localizedDescription,
                 QStringLiteral("The file “/dev/null/note.md” could not be written. Choose another "
                                "folder."));
        QVERIFY(!written.error().localizedFailureReason.isEmpty());
    }
};

VELMORA_TEST(NoteExportTest)
#include "NoteExportTest.moc"
