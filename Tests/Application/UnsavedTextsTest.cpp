#include "Application/UnsavedTexts.h"

#include <sys/syscall.h>

#include <cerrno>

#include "Support/FailingSystemCall.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

class UnsavedTextsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aTextThatCannotBeFlushedIsNotKept() {
        TestHost host;
        const Note note{.UUID = QStringLiteral("u"), .title = QStringLiteral("t"), .text = {}};
        Expected<void> kept;
        runWithFailingSystemCall(SYS_fsync, ENOSPC, [&] {
            kept = UnsavedTexts(host.directory()).keep(QStringLiteral("d"), note);
        });
        QVERIFY(!kept);
        QVERIFY(files(host.directory()).isEmpty());
        QVERIFY(UnsavedTexts(host.directory()).keep(QStringLiteral("d"), note));
        QCOMPARE(files(host.directory()).size(), 1);
    }

    void textsAreFoundThroughASymbolicLink() {
        TestHost host;
        const QString link = QFileInfo(host.directory()).path() + QStringLiteral("/link");
        QVERIFY(QFile::link(host.directory(), link));
        Note note{{}, QStringLiteral("t"), QStringLiteral("old"), {}};
        QVERIFY(host.inbox()->saveNote(note));
        note.text = QStringLiteral("typed");
        QVERIFY(UnsavedTexts(link).keep(host.inbox()->UUID(), note));
        QCOMPARE(UnsavedTexts(host.directory()).restore(host.library()),
                 QStringList{QStringLiteral("t")});
        QCOMPARE(host.inbox()->notes().value().first().text, QStringLiteral("typed"));
        QVERIFY(files(host.directory()).isEmpty());
    }

private:
    static QStringList files(const QString &folder) {
        return QDir(folder).entryList({QStringLiteral("unsaved-*")});
    }
};

VELMORA_TEST(UnsavedTextsTest)
#include "UnsavedTextsTest.moc"
