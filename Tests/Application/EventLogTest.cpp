#include "Application/EventLog.h"

#include <sys/syscall.h>

#include <QtGui/QClipboard>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeView>
#include <cerrno>

#include "Application/LogWindow.h"
#include "Support/FailingSystemCall.h"
#include "Support/FileSizeLimit.h"
#include "Support/ShownName.h"
#include "Support/TestMain.h"

class EventLogTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;

    QString path() const { return LogFile::pathInProfile(m_folder->path()); }
    QByteArray contents() const {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QByteArray &contents) const {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }
    static QString text(const EventLog &log, int row, int column = EventLog::Text) {
        return log.index(row, column).data().toString();
    }
    static LogEntry job(QVJobReport::Outcome outcome, const QString &database,
                        const QString &location) {
        const QDateTime start(QDate(2026, 3, 4), QTime(10, 0));
        return LogEntry::of({.outcome = outcome,
                             .database = database,
                             .location = location,
                             .started = start,
                             .ended = start.addMSecs(1200),
                             .received = 3,
                             .sent = 2,
                             .text = database + QStringLiteral(" text")});
    }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void theOldestEventsMakeRoomForNewOnes() {
        EventLog log;
        for (int i = 0; i < EventLog::Limit + 5; ++i) {
            log.append(QStringLiteral("Sync:"), QString::number(i));
        }
        QCOMPARE(log.rowCount(), EventLog::Limit);
        QCOMPARE(text(log, 0), QStringLiteral("5"));
        QCOMPARE(text(log, EventLog::Limit - 1), QString::number(EventLog::Limit + 4));
    }

    void itIsKeptForTheNextStart() {
        {
            EventLog log;
            log.append(QStringLiteral("Profile:"), QStringLiteral("before the file was open"));
            QVERIFY(log.open(path()));
            log.append(job(QVJobReport::Outcome::Failed, QStringLiteral("Projects"),
                           QStringLiteral("Home")));
            log.append(QStringLiteral("Sync:"), ShownName::Hostile);
        }
        QCOMPARE(QFile::permissions(path()) &
                     (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
                 QFile::Permissions());
        EventLog log;
        QVERIFY(log.open(path()));
        QCOMPARE(log.rowCount(), 3);
        QCOMPARE(text(log, 0), QStringLiteral("Profile: before the file was open"));
        QCOMPARE(text(log, 2), ShownName::Hostile);
        QCOMPARE(text(log, 1, EventLog::Outcome), QStringLiteral("Failed"));
        QVERIFY(!log.index(1, EventLog::Outcome).data(Qt::DecorationRole).value<QIcon>().isNull());
        QCOMPARE(text(log, 1, EventLog::Duration), QStringLiteral("1.2 s"));
        QCOMPARE(text(log, 1, EventLog::Database), QStringLiteral("Projects"));
        QCOMPARE(text(log, 1, EventLog::Location), QStringLiteral("Home"));
        QCOMPARE(text(log, 1, EventLog::Changes), QStringLiteral("3 received, 2 sent"));
    }

    void theFileIsBoundedAndKeepsTheNewest() {
        const QString longText(LogFile::Limit / 200, u'x');
        int count = 0;
        {
            EventLog log;
            QVERIFY(log.open(path()));
            qint64 largest = 0;
            while (contents().size() >= largest) {
                largest = contents().size();
                log.append({}, QString::number(count++) + longText);
                QVERIFY(contents().size() <= LogFile::Limit);
            }
        }
        EventLog log;
        QVERIFY(log.open(path()));
        QVERIFY(log.rowCount() > 10 && log.rowCount() < count);
        QVERIFY(text(log, log.rowCount() - 1).startsWith(QString::number(count - 1)));
        QVERIFY(QFile::permissions(path()) ==
                (QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser));
    }

    void damagedLinesAreCounted() {
        write(
            QByteArrayLiteral("{\"time\":1,\"text\":\"first\"}\n\0\xff{}\n[1]\n"
                              "{\"time\":\"x\",\"text\":1}\n{\"time\":2,\"text\":\"torn"));
        const auto isCount = [](const QString &text) {
            return text.startsWith(QStringLiteral("Lines of the log file")) &&
                   text.contains(QStringLiteral(": 4. "));
        };
        {
            EventLog log;
            QVERIFY(log.open(path()));
            QCOMPARE(log.rowCount(), 2);
            QVERIFY2(isCount(text(log, 1)), qPrintable(text(log, 1)));
            log.append({}, QStringLiteral("second"));
        }
        EventLog log;
        QVERIFY(log.open(path()));
        QCOMPARE(log.rowCount(), 3);
        QCOMPARE(text(log, 1), QStringLiteral("second"));
        QVERIFY2(isCount(text(log, 2)), qPrintable(text(log, 2)));
    }

    void aFileThatIsNoneOfTheUserIsRefused() {
        QVERIFY(QFile::link(QStringLiteral("/dev/null"), path()));
        EventLog log;
        const Expected<void> opened = log.open(path());
        QVERIFY(!opened);
        QVERIFY(opened.error().localizedDescription.contains(path()));
        log.append({}, QStringLiteral("kept in memory"));
        QCOMPARE(log.rowCount(), 1);
    }

    void aFullDiskIsReportedOnce() {
        EventLog log;
        QVERIFY(log.open(path()));
        {
            const FileSizeLimit full(10);
            log.append({}, QStringLiteral("lost"));
            log.append({}, QStringLiteral("lost, too"));
        }
        log.append({}, QStringLiteral("saved"));
        QCOMPARE(log.rowCount(), 4);
        QVERIFY(text(log, 1).contains(path()));
        EventLog next;
        QVERIFY(next.open(path()));
        // Of the lost lines, the beginning of one is there.
        QCOMPARE(next.rowCount(), 2);
        QCOMPARE(text(next, 0), QStringLiteral("saved"));
        QVERIFY(text(next, 1).contains(path()));
    }

    void aFileThatCannotBeShortenedGetsItsEntriesAllTheSame() {
        write(QByteArray(LogFile::Limit - 100, 'x') + '\n');
        LogFile file;
        QVERIFY(file.open(path()));
        const LogEntry entry{.time = QDateTime::currentDateTime(), .text = QString(1000, u'y')};
        Expected<void> first;
        Expected<void> next;
        runWithFailingSystemCall(SYS_fsync, ENOSPC, [&] {
            first = file.append(entry);
            next = file.append(entry);
        });
        QVERIFY(!first);
        QVERIFY(next);
        qsizetype count = 2;
        QCOMPARE(contents().count('\n'), count + 1);
        while (contents().size() > LogFile::Limit / 2) {
            QVERIFY(file.append(entry));
            ++count;
            QVERIFY(count <= LogFile::Limit / 1000);
        }
        // The first line is removed.
        QCOMPARE(contents().count('\n'), count);
    }

    void theWindowFiltersWrapsAndCopies() {
        EventLog log;
        for (const char *database : {"Projects", "Recipes"}) {
            for (const char *location : {"Home", "Server"}) {
                log.append(job(QVJobReport::Outcome::Succeeded, QString::fromLatin1(database),
                               QString::fromLatin1(location)));
            }
        }
        log.append({}, QString(40, u'x') + QStringLiteral(" word").repeated(100));
        LogWindow window(&log);
        window.show();
        auto *view = window.findChild<QTreeView *>();
        const QAbstractItemModel &shown = *view->model();
        QCOMPARE(shown.rowCount(), 5);
        // A name that is too long for its column.
        QCOMPARE(view->textElideMode(), Qt::ElideRight);
        const int oneLine = view->visualRect(shown.index(0, EventLog::Text)).height();
        QTRY_VERIFY(view->visualRect(shown.index(4, EventLog::Text)).height() > 2 * oneLine);

        const auto choices = window.findChildren<QComboBox *>();
        QCOMPARE(choices.size(), 2);
        choices[0]->setCurrentText(QStringLiteral("Projects"));
        QCOMPARE(shown.rowCount(), 2);
        choices[1]->setCurrentText(QStringLiteral("Server"));
        QCOMPARE(shown.rowCount(), 1);
        window.findChild<QPushButton *>()->click();
        const QString copied = QGuiApplication::clipboard()->text();
        QVERIFY2(copied.startsWith(QStringLiteral("Succeeded\t")), qPrintable(copied));
        QVERIFY2(copied.endsWith(QStringLiteral(
                     "\t1.2 s\tProjects\tServer\t3 received, 2 sent\tProjects text")),
                 qPrintable(copied));
        choices[0]->setCurrentIndex(0);
        choices[1]->setCurrentIndex(0);
        QCOMPARE(shown.rowCount(), 5);
    }

    void keysCloseTheWindow() {
        EventLog log;
        LogWindow window(&log);
        for (const QKeySequence &keys :
             {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::ControlModifier | Qt::Key_W)}) {
            window.show();
            window.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&window));
            QTest::keySequence(&window, keys);
            QVERIFY(!window.isVisible());
        }
    }

    void theTextHasRoomInEveryWindow() {
        EventLog log;
        log.append(
            job(QVJobReport::Outcome::Failed, QStringLiteral("Projects"), QStringLiteral("Home")));
        LogWindow window(&log);
        window.show();
        const auto *view = window.findChild<QTreeView *>();
        const QHeaderView *header = view->header();
        window.resize(300, 300);
        const int room = 40 * view->fontMetrics().averageCharWidth();
        QTRY_VERIFY(header->length() > view->viewport()->width());
        QVERIFY(header->sectionSize(EventLog::Text) > room);
        // Without scrolling, only the outcome and the time are before it.
        QCOMPARE(header->visualIndex(EventLog::Text), EventLog::Time + 1);
        window.resize(3000, 300);
        QTRY_COMPARE(header->length(), view->viewport()->width());
        QVERIFY(header->sectionSize(EventLog::Text) > 2 * room);
    }
};

VELMORA_TEST(EventLogTest)
#include "EventLogTest.moc"
