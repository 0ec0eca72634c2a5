#include "Platform/Interface/PackagePanel.h"

#include <QtGui/QAction>
#include <QtGui/QShortcut>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListView>
#include <QtWidgets/QToolButton>

#include "Support/TestMain.h"

class PackagePanelTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;

    static bool canCreateFolders(const PackagePanel &panel) {
        return panel.findChild<QToolButton *>(QStringLiteral("newFolderButton"))->isEnabled();
    }

private Q_SLOTS:
    void noFileCanBeDeleted_data() {
        QTest::addColumn<PackagePanel::Purpose>("purpose");
        QTest::newRow("save") << PackagePanel::Purpose::Save;
        QTest::newRow("open") << PackagePanel::Purpose::Open;
    }
    void noFileCanBeDeleted() {
        QFETCH(PackagePanel::Purpose, purpose);
        const QString path = m_folder.filePath(QStringLiteral("a"));
        QVERIFY(QDir().mkpath(path));
        PackagePanel panel(purpose, QStringLiteral("qvSyncStore"));
        panel.setDirectory(m_folder.path());
        panel.open();
        auto *list = panel.findChild<QListView *>(QStringLiteral("listView"));
        QTRY_COMPARE(list->model()->rowCount(list->rootIndex()), 1);
        list->setCurrentIndex(list->model()->index(0, 0, list->rootIndex()));
        list->setFocus();
        const auto *action = panel.findChild<QAction *>(QStringLiteral("qt_delete_action"));
        QVERIFY(!action->isVisible() || purpose == PackagePanel::Purpose::Open);
        bool isAsked = false;
        QTimer::singleShot(0, &panel, [&] {
            isAsked = QApplication::activeModalWidget() != &panel;
            if (isAsked) {
                QApplication::activeModalWidget()->close();
            }
        });
        QTest::keyClick(list, Qt::Key_Delete);
        QCoreApplication::processEvents();
        QVERIFY(!isAsked);
        QVERIFY(QDir(path).exists());
        QCOMPARE(canCreateFolders(panel), purpose == PackagePanel::Purpose::Save);
    }
};

VELMORA_TEST(PackagePanelTest)
#include "PackagePanelTest.moc"
