#include "Application/RunningInstance.h"

#include "Support/TestMain.h"

class RunningInstanceTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    QByteArray m_runtimeFolderBefore;

    /// Makes a folder below the test's the runtime folder.
    void useRuntimeFolder(const QString &name) {
        const QString path = m_folder.filePath(name);
        QVERIFY(QDir().mkpath(path));
        QVERIFY(
            QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        qputenv("XDG_RUNTIME_DIR", path.toUtf8());
    }

private Q_SLOTS:
    void initTestCase() { m_runtimeFolderBefore = qgetenv("XDG_RUNTIME_DIR"); }
    void cleanup() { qputenv("XDG_RUNTIME_DIR", m_runtimeFolderBefore); }

    void aSocketThatIsLeftOverIsReplaced() {
        useRuntimeFolder(QStringLiteral("runtime"));
        RunningInstance first(m_folder.path());
        QVERIFY(first.listen());
        RunningInstance second(m_folder.path());
        QVERIFY(second.listen());
    }

    void aSocketThatCannotBeUsedIsReported() {
        // A socket's path has at most 107 bytes.
        useRuntimeFolder(QString(120, u'x'));
        RunningInstance instance(m_folder.path());
        const Expected<void> listening = instance.listen();
        QVERIFY(!listening);
        QVERIFY(listening.error().localizedDescription.contains(m_folder.path()));
    }
};

VELMORA_TEST(RunningInstanceTest)
#include "RunningInstanceTest.moc"
