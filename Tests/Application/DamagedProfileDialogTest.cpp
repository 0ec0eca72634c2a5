#include "Application/DamagedProfileDialog.h"

#include <QtCore/QTranslator>
#include <QtGui/QDesktopServices>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include "Application/Interface/SyncPlugIn.h"
#include "Support/EventTimeout.h"
#include "Support/FaultyFileSystem.h"
#include "Support/ShownTexts.h"
#include "Support/TestApplication.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"

/// What a damaged profile opens, with the real sync plug-in and real keys.
class DamagedProfileDialogTest : public QObject {
    Q_OBJECT
private:
    TestApplication m_application;
    std::unique_ptr<QTemporaryDir> m_folder;
    /// What a file manager was asked to show.
    QUrl m_shownFolder;

    QString profile() const { return m_folder->filePath(QStringLiteral("Profile")); }
    QString file() const { return profile() + QStringLiteral("/profile.sqlite"); }

    /// Makes a profile, and a backup of it.
    void makeProfile(bool hasBackup) const {
        QPluginLoader loader(QStringLiteral(VELMORA_SYNC_PLUG_IN));
        auto *sync = qobject_cast<SyncPlugIn *>(loader.instance());
        QVERIFY(sync);
        QVERIFY(sync->openProfile(profile(), ProfileUse::Edit, FirstContents::Welcome));
        sync->closeProfile();
        QVERIFY(loader.unload());
        if (hasBackup) {
            QVERIFY(QDir(profile()).mkdir(QStringLiteral("Backups")));
            QVERIFY(QFile::copy(file(), profile() + QStringLiteral("/Backups/2026-11-21.sqlite")));
        }
    }
    void damage(bool hasBackup) const {
        makeProfile(hasBackup);
        QFile damaged(file());
        QVERIFY(damaged.open(QIODevice::ReadWrite));
        damaged.write(QByteArray(20000, 'x'));
    }

    struct Result {
        bool isReplaced = false;
        QString text;
        QStringList buttons;
        /// What prevents the user from reading the texts.
        QStringList unreadable;
        Expected<void> opened;
        qsizetype databases = 0;
        /// What "velmora verify" finds in the new profile.
        QString problems;
    };

    /// Presses the button whose title begins with `title` by the keyboard, or Escape if there is
    /// none.
    static void press(QMessageBox *box, const QString &title) {
        for (QAbstractButton *button : box->buttons()) {
            if (button->text().remove(u'&').startsWith(title)) {
                button->setFocus();
                QTest::keyClick(button, Qt::Key_Space);
                return;
            }
        }
        QTest::keyClick(box, Qt::Key_Escape);
    }

    /// Opens the window as the program does, and presses each of the `buttons`.
    Result run(const QStringList &buttons) const {
        Result result;
        QPluginLoader loader(QStringLiteral(VELMORA_SYNC_PLUG_IN));
        auto *sync = qobject_cast<SyncPlugIn *>(loader.instance());
        const Expected<void> refused =
            sync->openProfile(profile(), ProfileUse::Edit, FirstContents::Welcome);
        if (refused || !sync->canReplaceProfile(refused.error())) {
            return result;
        }
        QTimer::singleShot(0, qApp, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            result.text = box->text() + u' ' + box->informativeText();
            for (const QAbstractButton *button : box->buttons()) {
                result.buttons.append(button->text());
            }
            std::ignore = QTest::qWaitFor(
                [&] {
                    result.unreadable = ShownTexts::problems(*box);
                    return result.unreadable.isEmpty();
                },
                EventTimeout);
            for (const QString &title : buttons) {
                press(box, title);
            }
        });
        result.isReplaced = DamagedProfileDialog::run(*sync, profile(), refused.error());
        if (result.isReplaced) {
            result.opened = sync->openProfile(profile(), ProfileUse::Edit, FirstContents::Welcome);
            result.databases = sync->library() ? sync->library()->knownDatabases().size() : 0;
            VerificationReport report = sync->verify(VerificationMode::Report);
            // The new profile has not synchronized yet.
            report.parts.resize(1);
            result.problems = Verification::problems(report).join(u'\n');
        }
        sync->closeProfile();
        loader.unload();
        return result;
    }

    QStringList damagedFiles() const {
        QStringList files;
        QDirIterator each(profile() + QStringLiteral("/Damaged Profiles"), QDir::Files,
                          QDirIterator::Subdirectories);
        while (each.hasNext()) {
            files.append(QFileInfo(each.next()).fileName());
        }
        return files;
    }

private Q_SLOTS:
    void initTestCase() {
        FaultyFileSystem::install();
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    }
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void theCopyIsRestored() {
        damage(true);
        const Result result = run({QStringLiteral("Restore")});
        QVERIFY(result.isReplaced);
        QVERIFY(result.opened);
        QCOMPARE(result.databases, 3);
        QVERIFY2(result.text.contains(file()), qPrintable(result.text));
        QVERIFY2(result.text.contains(QStringLiteral("21 November 2026")), qPrintable(result.text));
        QVERIFY2(result.buttons.contains(QStringLiteral("&Restore the Backup of 21/11/2026")),
                 qPrintable(result.buttons.join(u'|')));
        QCOMPARE(result.problems, QString());
        QCOMPARE(damagedFiles(), QStringList{QStringLiteral("profile.sqlite")});
    }

    void everyTextCanBeRead_data() {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<int>("size");
        for (const QLocale::Language language : {QLocale::English, QLocale::German}) {
            for (const int size : {10, 18}) {
                QTest::addRow("%s, %d pt", qPrintable(QLocale::languageToString(language)), size)
                    << QLocale(language) << size;
            }
        }
    }
    void everyTextCanBeRead() {
        QFETCH(const QLocale, locale);
        QFETCH(const int, size);
        damage(true);
        const QFont usual = QApplication::font();
        QFont font = usual;
        font.setPointSize(size);
        QApplication::setFont(font);
        QTranslator german;
        QVERIFY(german.load(QStringLiteral(":/Velmora/Translations/Velmora_de.qm")));
        if (locale.language() == QLocale::German) {
            QCoreApplication::installTranslator(&german);
        }
        const Result result = run({QStringLiteral("none")});
        QApplication::setFont(usual);
        QCOMPARE(result.buttons.size(), 4);
        QCOMPARE(result.unreadable.join(u'\n'), QString());
    }

    void aProfileWithoutExamplesIsBegun() {
        damage(true);
        const Result result = run({QStringLiteral("Start from")});
        QVERIFY(result.isReplaced);
        QVERIFY(result.opened);
        QCOMPARE(result.databases, 1);
        QCOMPARE(result.problems, QString());
        QCOMPARE(damagedFiles(), QStringList{QStringLiteral("profile.sqlite")});
    }

    void aFileThatCannotBeReadIsReplacedLikewise_data() {
        QTest::addColumn<int>("firstRead");
        QTest::addColumn<QString>("button");
        QTest::addColumn<qsizetype>("databases");
        for (const int read : {1, 8}) {
            QTest::addRow("copy, read %d", read)
                << read << QStringLiteral("Restore") << qsizetype{3};
            QTest::addRow("new, read %d", read)
                << read << QStringLiteral("Start from") << qsizetype{1};
        }
    }
    void aFileThatCannotBeReadIsReplacedLikewise() {
        QFETCH(int, firstRead);
        QFETCH(QString, button);
        QFETCH(qsizetype, databases);
        makeProfile(true);
        const FaultyFileSystem disk(file(), firstRead);
        const Result result = run({button});
        QVERIFY(disk.hasFailed());
        QVERIFY(result.isReplaced);
        QVERIFY(result.opened);
        QCOMPARE(result.databases, databases);
        QCOMPARE(result.problems, QString());
        QCOMPARE(result.buttons.size(), 4);
        QVERIFY2(result.text.contains(QStringLiteral("cannot be read, because its disk")),
                 qPrintable(result.text));
        QVERIFY2(!result.text.contains(QStringLiteral("damaged.")), qPrintable(result.text));
        QCOMPARE(damagedFiles(), QStringList{QStringLiteral("profile.sqlite")});
    }

    void withoutACopyOnlyTheOtherChoicesAreOffered() {
        damage(false);
        const Result result = run({QStringLiteral("none")});
        QVERIFY(!result.isReplaced);
        QCOMPARE(result.buttons.size(), 3);
        QVERIFY(damagedFiles().isEmpty());
        QVERIFY(!QFileInfo::exists(profile() + QStringLiteral("/Damaged Profiles")));
    }

    void copiesThatCannotBeReadAreNamed() {
        damage(false);
        QFile obstacle(profile() + QStringLiteral("/Backups"));
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        const Result result = run({QStringLiteral("Quit")});
        QVERIFY(!result.isReplaced);
        QCOMPARE(result.buttons.size(), 3);
        QVERIFY2(result.text.contains(obstacle.fileName()), qPrintable(result.text));
        QVERIFY2(result.text.contains(QStringLiteral("cannot be read")), qPrintable(result.text));
        QVERIFY2(!result.text.contains(QStringLiteral("no copy")), qPrintable(result.text));
    }

    void quittingLeavesTheProfileAsItIs() {
        damage(true);
        const QByteArray before = contentsOf(file());
        QVERIFY(!run({QStringLiteral("Quit")}).isReplaced);
        QCOMPARE(contentsOf(file()), before);
    }

    void showingTheFolderKeepsTheWindowOpen() {
        damage(true);
        const QString scheme = QStringLiteral("file");
        QDesktopServices::setUrlHandler(scheme, this, "takeShownFolder");
        const Result result = run({QStringLiteral("Show Folder"), QStringLiteral("Quit")});
        QTRY_COMPARE(m_shownFolder, QUrl::fromLocalFile(m_folder->path()));
        QDesktopServices::unsetUrlHandler(scheme);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!result.isReplaced);
        QVERIFY(!result.text.isEmpty());
    }

public Q_SLOTS:
    void takeShownFolder(const QUrl &folder) { m_shownFolder = folder; }

private:
    static QByteArray contentsOf(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

VELMORA_TEST(DamagedProfileDialogTest)
#include "DamagedProfileDialogTest.moc"
