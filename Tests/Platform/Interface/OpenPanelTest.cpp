#include "Platform/Interface/OpenPanel.h"

#include <QtGui/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QPushButton>

#include "Support/TestMain.h"

class OpenPanelTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<OpenPanel> m_panel;

    QString path(const char *name) const { return m_folder->filePath(QLatin1StringView(name)); }
    QPushButton *openButton() const {
        return m_panel->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open);
    }
    QLineEdit *nameField() const {
        return m_panel->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    }
    /// Makes the entry of that name the current one, as a click does.
    void choose(const char *name) {
        auto *list = m_panel->findChild<QListView *>(QStringLiteral("listView"));
        const auto index = [=] {
            const QModelIndexList found =
                list->model()->match(list->model()->index(0, 0, list->rootIndex()), Qt::DisplayRole,
                                     QLatin1StringView(name), 1, Qt::MatchExactly);
            return found.value(0);
        };
        QTRY_VERIFY(index().isValid());
        list->setCurrentIndex(index());
    }

private Q_SLOTS:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
        QFile file(path("file"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        m_panel = std::make_unique<OpenPanel>(QStringLiteral("Which?"), nullptr);
        m_panel->setDirectory(m_folder->path());
        m_panel->open();
    }
    void cleanup() { m_panel.reset(); }

    void theMessageIsShown() { QCOMPARE(m_panel->windowTitle(), QStringLiteral("Which?")); }

    void aFolderOrAFileIsChosenByItsName_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("folder") << QByteArray("folder");
        QTest::newRow("file") << QByteArray("file");
    }
    void aFolderOrAFileIsChosenByItsName() {
        QFETCH(QByteArray, name);
        choose(name.constData());
        QVERIFY(openButton()->isEnabled());
        QTest::mouseClick(openButton(), Qt::LeftButton);
        QVERIFY(!m_panel->isVisible());
        QCOMPARE(m_panel->result(), 1);
        QCOMPARE(m_panel->URL(), Url::fileURL(path(name.constData())));
    }

    void theNameOfAChosenFolderIsShown() {
        choose("folder");
        QCOMPARE(nameField()->text(), QStringLiteral("folder"));
    }

    void noFileCanBeDeleted() {
        choose("file");
        QTest::keyClick(m_panel->findChild<QListView *>(QStringLiteral("listView")),
                        Qt::Key_Delete);
        m_panel->findChild<QAction *>(QStringLiteral("qt_delete_action"))->trigger();
        QVERIFY(QFile::exists(path("file")));
        QCOMPARE(QApplication::activeModalWidget(), m_panel.get());
    }

    void aMissingFileIsNotChosen() {
        nameField()->setText(QStringLiteral("missing"));
        QMetaObject::invokeMethod(m_panel.get(), "accept");
        QVERIFY(m_panel->isVisible());
    }
};

VELMORA_TEST(OpenPanelTest)
#include "OpenPanelTest.moc"
