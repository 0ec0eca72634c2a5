#include "Controller/Preferences/QVFolderLocationEditor.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QPushButton>

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/PackagePanel.h"
#include "Support/AnnouncementRecorder.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Umask.h"

namespace {

/// Does `act` once the panel is up.
void inPanel(const std::function<void(PackagePanel &)> &act) {
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
        if (auto *panel = qobject_cast<PackagePanel *>(QApplication::activeModalWidget())) {
            timer->deleteLater();
            act(*panel);
        }
    });
    timer->start(0);
}

void confirm(PackagePanel &panel) {
    QMetaObject::invokeMethod(&panel, "accept");
}

}  // namespace

class QVFolderLocationEditorTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::shared_ptr<QVSyncLocation> m_location;
    std::shared_ptr<QVFolderLocationEditor> m_editor;
    QList<qint64> m_results;

    QVSyncLocationEditor::CompletionHandler recordResult() {
        return [this](qint64 result) { m_results.append(result); };
    }
    QString path(const QString &name) const { return m_folder->filePath(name); }
    void createPackage(const QString &typedName) {
        inPanel([=, this](PackagePanel &panel) {
            panel.setDirectory(m_folder->path());
            panel.selectFile(typedName);
            confirm(panel);
        });
        m_editor->createFolderWithCompletionHandler(recordResult());
    }
    template <class Widget>
    Widget *part(const char *name) {
        return m_editor->window()->findChild<Widget *>(QLatin1StringView(name));
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_folder = std::make_unique<QTemporaryDir>();
        m_location = m_host->newLocation(Url());
        m_editor = QVFolderLocationEditor::editorWithSyncLocation(m_location);
        m_results.clear();
    }
    void cleanup() {
        m_editor.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_location.reset();
        m_host.reset();
    }

    void aNewPackageHoldsItsTwoFoldersAndNothingElse() {
        const Umask umask(0);
        createPackage(QStringLiteral("Work.qvSyncStore"));
        const QString package = path(QStringLiteral("Work.qvSyncStore"));
        QCOMPARE(QDir(package).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList({QStringLiteral("databases"), QStringLiteral("transactions")}));
        for (const char *folder : {"", "/databases", "/transactions"}) {
            QCOMPARE(permissionsOf(package + QLatin1StringView(folder)), 0700U);
        }
        QCOMPARE(m_location->URL(), Url::fileURL(package));
        QCOMPARE(m_results, QList<qint64>{1});
        QVERIFY(m_host->application().presentedErrors().isEmpty());
    }

    void aFreeNameInTheUsersDocumentsIsSuggested() {
        const QByteArray config = qgetenv("XDG_CONFIG_HOME");
        qputenv("XDG_CONFIG_HOME", m_folder->path().toUtf8());
        QFile directories(path(QStringLiteral("user-dirs.dirs")));
        QVERIFY(directories.open(QIODevice::WriteOnly));
        directories.write("XDG_DOCUMENTS_DIR=\"" + m_folder->path().toUtf8() + "\"\n");
        directories.close();
        for (const char *name : {"Notes.qvSyncStore", "Notes 2.qvSyncStore"}) {
            inPanel(&confirm);
            m_editor->createFolderWithCompletionHandler(recordResult());
            QCOMPARE(m_location->URL(), Url::fileURL(path(QLatin1StringView(name))));
        }
        inPanel([=, this](PackagePanel &panel) {
            QCOMPARE(panel.directory().path(), m_folder->path());
            panel.reject();
        });
        m_editor->selectFolderWithCompletionHandler(recordResult());
        config.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", config);
        QVERIFY(m_host->application().presentedErrors().isEmpty());
    }

    void thePanelAppendsTheExtensionItself() {
        createPackage(QStringLiteral("Work"));
        QCOMPARE(m_location->URL(), Url::fileURL(path(QStringLiteral("Work.qvSyncStore"))));
        createPackage(QStringLiteral("Other.txt"));
        QCOMPARE(m_location->URL(), Url::fileURL(path(QStringLiteral("Other.txt.qvSyncStore"))));
    }

    void theExtensionIsAppendedBesideAFolderOfTheTypedName() {
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("Work")));
        createPackage(QStringLiteral("Work"));
        QCOMPARE(m_location->URL(), Url::fileURL(path(QStringLiteral("Work.qvSyncStore"))));
        QCOMPARE(m_results, QList<qint64>{1});
    }

    void theExtensionIsAppendedBesideAFolderOfTheTypedPath() {
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("Work")));
        inPanel([=, this](PackagePanel &panel) {
            panel.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))
                ->setText(path(QStringLiteral("Work")));
            confirm(panel);
            QVERIFY(!panel.isVisible());
        });
        m_editor->createFolderWithCompletionHandler(recordResult());
        QCOMPARE(m_location->URL(), Url::fileURL(path(QStringLiteral("Work.qvSyncStore"))));
    }

    void thePanelForAnExistingPackageListsFoldersOnly() {
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
        QFile file(path(QStringLiteral("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        inPanel([=, this](PackagePanel &panel) {
            panel.setDirectory(m_folder->path());
            const auto *list = panel.findChild<QListView *>(QStringLiteral("listView"));
            const auto count = [=] { return list->model()->rowCount(list->rootIndex()); };
            QTRY_VERIFY(count() > 0);
            QCOMPARE(count(), 1);
            QCOMPARE(panel.fileMode(), QFileDialog::Directory);
            panel.reject();
        });
        m_editor->selectFolderWithCompletionHandler(recordResult());
    }

    void thePanelsButtonSaysWhatItDoes() {
        const auto hasButton = [](const PackagePanel &panel,
                                  QDialogButtonBox::StandardButton which) {
            return panel.findChild<QDialogButtonBox *>()->button(which) != nullptr;
        };
        inPanel([=](PackagePanel &panel) {
            QVERIFY(panel.testOption(QFileDialog::DontUseNativeDialog));
            QVERIFY(hasButton(panel, QDialogButtonBox::Save));
            panel.reject();
        });
        m_editor->createFolderWithCompletionHandler(recordResult());
        inPanel([=](PackagePanel &panel) {
            QVERIFY(hasButton(panel, QDialogButtonBox::Open));
            panel.reject();
        });
        m_editor->selectFolderWithCompletionHandler(recordResult());
    }

    void aFolderTypedWithASlashIsEntered() {
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("Work")));
        inPanel([=, this](PackagePanel &panel) {
            panel.setDirectory(m_folder->path());
            panel.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))
                ->setText(QStringLiteral("Work/"));
            confirm(panel);
            QVERIFY(panel.isVisible());
            QCOMPARE(panel.directory().path(), path(QStringLiteral("Work")));
            panel.reject();
        });
        m_editor->createFolderWithCompletionHandler(recordResult());
        QVERIFY(m_results.isEmpty());
    }

    void theHostIsAskedToKeepAccessToAPackage() {
        createPackage(QStringLiteral("Work"));
        QCOMPARE(m_host->engine().plugin().bookmarkDictionaryKeys(),
                 QStringList{path(QStringLiteral("Work.qvSyncStore"))});
    }

    void savingOverAFolderPresentsAnErrorAndCallsTheHandler() {
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("Work.qvSyncStore")));
        createPackage(QStringLiteral("Work.qvSyncStore"));
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        const Error error = m_host->application().presentedErrors().constFirst();
        QVERIFY(error.localizedDescription.contains(path(QStringLiteral("Work.qvSyncStore"))));
        QVERIFY(!error.localizedFailureReason.isEmpty());
        QVERIFY(m_location->URL().isNil());
        QCOMPARE(m_results, QList<qint64>{1});
        // Nothing further is made after the first failure.
        QVERIFY(QDir(path(QStringLiteral("Work.qvSyncStore"))).isEmpty());
        QVERIFY(m_host->engine().plugin().bookmarkDictionaryKeys().isEmpty());
    }

    void aFailureLeavesTheLocationAsItWas() {
        const Url before = Url::fileURL(QStringLiteral("/before.qvSyncStore"));
        m_location->setURL(before);
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("Work.qvSyncStore")));
        createPackage(QStringLiteral("Work.qvSyncStore"));
        QCOMPARE(m_location->URL(), before);
    }

    void foldersAboveAreNotMade() {
        createPackage(QStringLiteral("missing/Work.qvSyncStore"));
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QVERIFY(!QFileInfo::exists(path(QStringLiteral("missing"))));
        QCOMPARE(m_results, QList<qint64>{1});
    }

    void cancellingThePanelsCallsNothing() {
        inPanel([](PackagePanel &panel) { panel.reject(); });
        m_editor->createFolderWithCompletionHandler(recordResult());
        inPanel([](PackagePanel &panel) { panel.reject(); });
        m_editor->selectFolderWithCompletionHandler(recordResult());
        QVERIFY(m_results.isEmpty());
        QVERIFY(m_location->URL().isNil());
        QVERIFY(m_host->engine().plugin().bookmarkDictionaryKeys().isEmpty());
    }

    void anExistingPackageIsTakenByItsExtensionAlone() {
        const QString package = path(QStringLiteral("Empty.qvSyncStore"));
        QVERIFY(QDir().mkdir(package));
        inPanel([=, this](PackagePanel &panel) {
            panel.setDirectory(m_folder->path());
            panel.selectFile(package);
            confirm(panel);
        });
        m_editor->selectFolderWithCompletionHandler(recordResult());
        QCOMPARE(m_location->URL(), Url::fileURL(package));
        QCOMPARE(m_host->engine().plugin().bookmarkDictionaryKeys(), QStringList{package});
        QCOMPARE(m_results, QList<qint64>{1});
    }

    void aFolderWithoutTheExtensionIsEnteredAndNotChosen() {
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("plain")));
        inPanel([=, this](PackagePanel &panel) {
            panel.setDirectory(m_folder->path());
            panel.selectFile(path(QStringLiteral("plain")));
            confirm(panel);
            QVERIFY(panel.isVisible());
            QCOMPARE(panel.directory().path(), path(QStringLiteral("plain")));
            panel.reject();
        });
        m_editor->selectFolderWithCompletionHandler(recordResult());
        QVERIFY(m_results.isEmpty());
    }

    void aPackageThatDoesNotExistIsNotChosen() {
        inPanel([=, this](PackagePanel &panel) {
            panel.setDirectory(m_folder->path());
            panel.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))
                ->setText(path(QStringLiteral("Missing.qvSyncStore")));
            confirm(panel);
            QVERIFY(panel.isVisible());
            panel.reject();
        });
        m_editor->selectFolderWithCompletionHandler(recordResult());
        QVERIFY(m_results.isEmpty());
        QVERIFY(m_location->URL().isNil());
    }

    void theSheetShowsThePackageThatItsButtonsMake() {
        QWidget parent;
        m_editor->runLocationEditorModalForWindow(&parent, true, recordResult());
        QVERIFY(m_editor->window()->isVisible());
        QVERIFY(part<QLineEdit>("packageField")->text().isEmpty());
        QVERIFY(!part<QPushButton>("acceptButton")->isEnabled());
        inPanel([=, this](PackagePanel &panel) {
            panel.setDirectory(m_folder->path());
            panel.selectFile(QStringLiteral("Work"));
            confirm(panel);
        });
        part<QPushButton>("createFolderButton")->click();
        QCOMPARE(part<QLineEdit>("packageField")->text(), path(QStringLiteral("Work.qvSyncStore")));
        QVERIFY(m_results.isEmpty());
        QVERIFY(part<QPushButton>("acceptButton")->isEnabled());
        const QPointer<QWidget> window = m_editor->window();
        part<QPushButton>("acceptButton")->click();
        QVERIFY(!window->isVisible());
        QCOMPARE(m_results, QList<qint64>{1});
    }

    void cancelClosesTheSheetWithResult0() {
        QWidget parent;
        m_editor->runLocationEditorModalForWindow(&parent, true, recordResult());
        part<QPushButton>("cancelButton")->click();
        QVERIFY(!m_editor->window()->isVisible());
        QCOMPARE(m_results, QList<qint64>{0});
    }

    void escapeLeavesASheetUnlessThatLosesAChange() {
        QWidget parent;
        m_editor->runLocationEditorModalForWindow(&parent, false, recordResult());
        QVERIFY(part<QPushButton>("cancelButton")->isHidden());
        auto *field = part<QLineEdit>("packageField");
        const QString first = field->text();
        field->setText(QStringLiteral("Other"));
        QTest::keyClick(m_editor->window(), Qt::Key_Escape);
        QVERIFY(m_editor->window()->isVisible());
        field->setText(first);
        QTest::keyClick(m_editor->window(), Qt::Key_Escape);
        QVERIFY(!m_editor->window()->isVisible());
        QCOMPARE(m_results, QList<qint64>{0});
    }

    void escapeCancelsWhereThereIsACancelButton() {
        QWidget parent;
        m_editor->runLocationEditorModalForWindow(&parent, true, recordResult());
        part<QLineEdit>("packageField")->setText(QStringLiteral("Other"));
        QTest::keyClick(m_editor->window(), Qt::Key_Escape);
        QVERIFY(!m_editor->window()->isVisible());
        QCOMPARE(m_results, QList<qint64>{0});
    }

    void theSheetIsModalToItsParentWindowOnly() {
        QWidget parent;
        auto *view = new QWidget(&parent);
        m_editor->runLocationEditorModalForWindow(view, true, recordResult());
        QCOMPARE(m_editor->window()->parentWidget(), &parent);
        QCOMPARE(m_editor->window()->windowModality(), Qt::WindowModal);
        QVERIFY(m_results.isEmpty());
    }

    void theHandlerIsCalledOnce() {
        QWidget parent;
        m_editor->runLocationEditorModalForWindow(&parent, true, recordResult());
        m_editor->cancelModalSheet(nullptr);
        m_editor->acceptModalSheet(nullptr);
        QCOMPARE(m_results, QList<qint64>{0});
    }

    void theHandlerMayReleaseTheEditor() {
        QWidget parent;
        m_editor->runLocationEditorModalForWindow(&parent, true,
                                                  [this](qint64) { m_editor.reset(); });
        part<QPushButton>("cancelButton")->click();
        QVERIFY(!m_editor);
    }

    void anAbsentWindowIsAProgrammingError() {
        try {
            m_editor->runLocationEditorModalForWindow(nullptr, true, recordResult());
            QFAIL("nothing was raised");
        } catch (const AssertionFailure &failure) {
            QCOMPARE(failure.message(),
                     QStringLiteral("Invalid parameter not satisfying: parentWindow != nil"));
            QCOMPARE(failure.sourceFile(),
                     QStringLiteral("Controller/Preferences/QVSyncLocationEditor"));
            QCOMPARE(failure.line(), 33);
        }
    }
};

VELMORA_TEST(QVFolderLocationEditorTest)
#include "QVFolderLocationEditorTest.moc"
