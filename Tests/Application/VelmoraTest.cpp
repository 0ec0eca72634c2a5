#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>

#include "Support/EventTimeout.h"
#include "Support/Languages.h"
#include "Support/TestMain.h"

/// Runs the program itself, as a user or a script would.
class VelmoraTest : public QObject {
    Q_OBJECT

    struct Run {
        int exitCode = -1;
        QByteArray output;
        QByteArray errors;
    };

    QTemporaryDir m_folder;
    /// Whether writeProfile() has written something unusable.
    bool m_isWritten = false;

    QString profile() const { return m_folder.filePath(QStringLiteral("profile")); }

    Run run(const QStringList &arguments, const QStringList &without = {},
            const QString &language = QStringLiteral("en")) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_folder.path());
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeFolder());
        environment.insert(QStringLiteral("LANGUAGE"), language);
        for (const QString &name : without) {
            environment.remove(name);
        }
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(VELMORA), arguments);
        Run result;
        if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit) {
            result.exitCode = process.exitCode();
        }
        result.output = process.readAllStandardOutput();
        result.errors = process.readAllStandardError();
        return result;
    }

    std::unique_ptr<QProcess> start(const QStringList &arguments) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_folder.path());
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeFolder());
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment);
        process->start(QStringLiteral(VELMORA),
                       QStringList{QStringLiteral("--profile"), profile()} + arguments);
        return process;
    }

    QString runtimeFolder() const { return m_folder.filePath(QStringLiteral("run")); }

    void makeRuntimeFolder() const {
        QDir(runtimeFolder()).removeRecursively();
        QDir().mkdir(runtimeFolder());
        QFile::setPermissions(runtimeFolder(),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// Starts the program with its windows and waits until other starts find it.
    std::unique_ptr<QProcess> startWindows() const {
        makeRuntimeFolder();
        auto process = start({QStringLiteral("--begin"), QStringLiteral("examples")});
        const QDir folder(runtimeFolder());
        if (!QTest::qWaitFor(
                [&] {
                    return !folder
                                .entryList({QStringLiteral("velmora-*")},
                                           QDir::System | QDir::Files)
                                .isEmpty();
                },
                EventTimeout)) {
            qWarning("%s", process->readAllStandardError().constData());
        }
        return process;
    }

    /// Ends the program as a session does.
    static void terminate(QProcess &process) {
        process.terminate();
        QVERIFY(process.waitForFinished(EventTimeout));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
    }

    static QByteArray contents(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Returns whether a margin of one color surrounds all that is in `picture`.
    static bool hasFreeEdges(const QImage &picture) {
        constexpr int Margin = 12;
        const QRect inside =
            picture.rect().marginsRemoved(QMargins(Margin, Margin, Margin, Margin));
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (!inside.contains(x, y) && picture.pixel(x, y) != picture.pixel(0, 0)) {
                    return false;
                }
            }
        }
        return true;
    }

    void writeProfile(const QByteArray &bytes) {
        m_isWritten = true;
        QVERIFY(QDir().mkpath(profile()));
        QFile file(profile() + QStringLiteral("/profile.sqlite"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

private Q_SLOTS:
    void init() {
        QDir(profile()).removeRecursively();
        m_isWritten = false;
    }
    void cleanup() {
        // Of an unusable profile a test says itself what is left.
        if (!m_isWritten && QFileInfo::exists(profile())) {
            const Run verified =
                run({QStringLiteral("--profile"), profile(), QStringLiteral("verify")});
            QVERIFY2(verified.exitCode == 0, (verified.output + verified.errors).constData());
        }
    }

    void outputThatCannotBeWrittenIsAnError_data() {
        QTest::addColumn<QString>("command");
        for (const char *command : {"--describe", "verify", "status"}) {
            QTest::addRow("%s", command) << QString::fromLatin1(command);
        }
    }
    void outputThatCannotBeWrittenIsAnError() {
        QFETCH(QString, command);
        QCOMPARE(
            run({QStringLiteral("--profile"), profile(), QStringLiteral("--describe")}).exitCode,
            0);
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_folder.path());
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeFolder());
        process.setProcessEnvironment(environment);
        process.setStandardOutputFile(QStringLiteral("/dev/full"));
        process.start(QStringLiteral(VELMORA), {QStringLiteral("--profile"), profile(), command});
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitCode(), 1);
        const QByteArray errors = process.readAllStandardError();
        QVERIFY2(errors.contains("The output could not be written.") && errors.contains("space"),
                 errors.constData());
    }

    void aFreshProfileHoldsWhatTheFirstStartShows() {
        const Run first =
            run({QStringLiteral("--profile"), profile(), QStringLiteral("--describe")});
        QCOMPARE(first.exitCode, 0);
        const QJsonObject description = QJsonDocument::fromJson(first.output).object();
        const QJsonArray databases = description[QStringLiteral("databases")].toArray();
        QCOMPARE(databases.size(), 3);
        QVERIFY(databases[0][QStringLiteral("inbox")].toBool());
        for (const int i : {1, 2}) {
            QVERIFY(databases[i][QStringLiteral("open")].toBool());
            QVERIFY(databases[i][QStringLiteral("notes")].toInt() >= 2);
        }
        const QJsonArray locations = description[QStringLiteral("locations")].toArray();
        QCOMPARE(locations.size(), 1);
        QCOMPARE(locations[0][QStringLiteral("type")].toString(),
                 QStringLiteral("Local Sync Store"));
        const QJsonObject state = locations[0][QStringLiteral("states")][0].toObject();
        QVERIFY(state[QStringLiteral("enabled")].toBool());
        QVERIFY(state[QStringLiteral("lastSynced")].isNull());
        QVERIFY(state[QStringLiteral("schedule")].isNull());

        const Run second =
            run({QStringLiteral("--profile"), profile(), QStringLiteral("--describe")});
        QCOMPARE(second.output, first.output);
    }

    void aPictureIsDrawnWithoutADisplay_data() {
        QTest::addColumn<QString>("language");
        const QStringList languages = QStringList(QStringLiteral("en")) + Languages::translated();
        for (const QString &language : languages) {
            QTest::addRow("%s", qPrintable(language)) << language;
        }
    }
    void aPictureIsDrawnWithoutADisplay() {
        QFETCH(QString, language);
        const QString file = m_folder.filePath(QStringLiteral("panel.png"));
        const Run drawn =
            run({QStringLiteral("--profile"), profile(), QStringLiteral("--screenshot"), file},
                {QStringLiteral("DISPLAY"), QStringLiteral("WAYLAND_DISPLAY"),
                 QStringLiteral("QT_QPA_PLATFORM")},
                language);
        QCOMPARE(drawn.exitCode, 0);
        QVERIFY(drawn.output.isEmpty());
        const QImage picture(file);
        QVERIFY2(picture.width() >= 920 && picture.height() >= 600,
                 qPrintable(QDebug::toString(picture.size())));
        QVERIFY2(hasFreeEdges(picture), "There is a scroll bar, or something is cut off.");
    }

    void pictureAndDescriptionCanBeAskedForTogether() {
        const QString file = m_folder.filePath(QStringLiteral("both.png"));
        const Run both = run({QStringLiteral("--describe"), QStringLiteral("--screenshot"), file,
                              QStringLiteral("--profile"), profile()});
        QCOMPARE(both.exitCode, 0);
        QVERIFY(!QImage(file).isNull());
        QVERIFY(QJsonDocument::fromJson(both.output).isObject());
    }

    void darkColorsCanBeAskedFor() {
        const QString file = m_folder.filePath(QStringLiteral("dark.png"));
        QCOMPARE(run({QStringLiteral("--profile"), profile(), QStringLiteral("--screenshot"), file,
                      QStringLiteral("--appearance"), QStringLiteral("dark")})
                     .exitCode,
                 0);
        QVERIFY(QImage(file).pixelColor(2, 2).lightness() < 100);
    }

    void withoutAnyDisplayItSaysSoAndDrawsAndDescribes() {
        const Run headless = run({QStringLiteral("--profile"), profile()},
                                 {QStringLiteral("DISPLAY"), QStringLiteral("WAYLAND_DISPLAY"),
                                  QStringLiteral("QT_QPA_PLATFORM")});
        QCOMPARE(headless.exitCode, 0);
        const QList<QByteArray> lines = headless.output.split('\n');
        QVERIFY(lines[0].startsWith("There is no display"));
        QVERIFY(!QImage(QString::fromUtf8(lines[1])).isNull());
        QVERIFY(
            QJsonDocument::fromJson(headless.output.mid(headless.output.indexOf('{'))).isObject());
    }

    void anUnusableProfileEndsInWordsAndIsLeftUntouched_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("word");
        QByteArray newer("SQLite format 3");
        newer.resize(4096, '\0');
        newer[16] = 0x10;  // pages of 4,096 bytes
        newer[18] = newer[19] = 1;
        newer[63] = 0x7F;
        QTest::newRow("no database") << QByteArray(5000, 'x') << QByteArray("profile.sqlite");
        QTest::newRow("newer version") << newer << QByteArray("profile.sqlite");
    }

    void anUnusableProfileEndsInWordsAndIsLeftUntouched() {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, word);
        writeProfile(bytes);
        const Run refused =
            run({QStringLiteral("--profile"), profile(), QStringLiteral("--describe")});
        QCOMPARE(refused.exitCode, 1);
        QVERIFY2(refused.errors.contains(word), refused.errors.constData());
        QVERIFY(refused.output.isEmpty());
        QCOMPARE(contents(profile() + QStringLiteral("/profile.sqlite")), bytes);
        QCOMPARE(QDir(profile()).entryList(QDir::Files),
                 QStringList{QStringLiteral("profile.sqlite")});
    }

    void whatDoesNotFitTogetherIsNamed_data() {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QList<QByteArray>>("words");
        QTest::addColumn<int>("exitCode");
        const auto row = [](const QString &options, const QList<QByteArray> &words, int exitCode) {
            QTest::newRow(qPrintable(options)) << options.split(u' ') << words << exitCode;
        };
        row(QStringLiteral("sync --describe"), {"--describe", "sync"}, 2);
        row(QStringLiteral("check Home --json"), {"--json", "check"}, 2);
        row(QStringLiteral("status --removals keep"), {"--removals", "status"}, 2);
        row(QStringLiteral("verify --begin empty"), {"--begin", "verify"}, 2);
        row(QStringLiteral("--repair"), {"--repair", "verify"}, 1);
        row(QStringLiteral("--timeout 9"), {"--timeout", "sync|status|check"}, 1);
        row(QStringLiteral("synchronise"), {"synchronise", "verify|sync|status|check"}, 2);
        row(QStringLiteral("check"), {"check", "location"}, 2);
        row(QStringLiteral("status Home"), {"status", "Home"}, 2);
    }
    void whatDoesNotFitTogetherIsNamed() {
        QFETCH(const QStringList, options);
        QFETCH(const QList<QByteArray>, words);
        const Run refused = run(QStringList{QStringLiteral("--profile"), profile()} + options);
        QTEST(refused.exitCode, "exitCode");
        for (const QByteArray &word : words) {
            QVERIFY2(refused.errors.contains(word), refused.errors.constData());
        }
        QVERIFY(!QFile::exists(profile()));
    }

    void aPictureThatCannotBeWrittenIsAnError() {
        const Run refused =
            run({QStringLiteral("--profile"), profile(), QStringLiteral("--screenshot"),
                 QStringLiteral("/no/such/folder/panel.png")});
        QCOMPARE(refused.exitCode, 1);
        QVERIFY(refused.errors.contains("/no/such/folder/panel.png"));
    }

    void theSandboxSettingIsStored() {
        const auto isSandboxed = [this](const QStringList &options) {
            const Run described = run(
                QStringList{QStringLiteral("--profile"), profile(), QStringLiteral("--describe")} +
                options);
            return QJsonDocument::fromJson(described.output)[QStringLiteral("sandboxed")];
        };
        QCOMPARE(isSandboxed({}), QJsonValue(false));
        QCOMPARE(isSandboxed({QStringLiteral("--sandboxed"), QStringLiteral("on")}),
                 QJsonValue(true));
        QCOMPARE(isSandboxed({}), QJsonValue(true));
        QCOMPARE(isSandboxed({QStringLiteral("--sandboxed"), QStringLiteral("off")}),
                 QJsonValue(false));
        QCOMPARE(isSandboxed({}), QJsonValue(false));
    }

    void twoFirstStartsAtOnceMakeOneProfile() {
        for (int round = 0; round < 40; ++round) {
            QVERIFY(QDir(profile()).removeRecursively());
            const auto first = start({QStringLiteral("--describe")});
            const auto second = start({QStringLiteral("--describe")});
            for (const auto &process : {first.get(), second.get()}) {
                QVERIFY(process->waitForFinished(60000));
                QCOMPARE(process->exitCode(), 0);
            }
            const QByteArray described = first->readAllStandardOutput();
            QVERIFY(QJsonDocument::fromJson(described).isObject());
            QCOMPARE(second->readAllStandardOutput(), described);
        }
    }

    void twoFirstStartsWithWindowsAtOnceMakeOneProfile() {
        makeRuntimeFolder();
        const auto one = start({QStringLiteral("--begin"), QStringLiteral("examples")});
        const auto other = start({QStringLiteral("--begin"), QStringLiteral("examples")});
        const auto hasEnded = [](const QProcess &process) {
            return process.state() == QProcess::NotRunning;
        };
        QVERIFY(QTest::qWaitFor([&] { return hasEnded(*one) || hasEnded(*other); }, EventTimeout));
        QProcess &second = hasEnded(*one) ? *one : *other;
        QProcess &first = hasEnded(*one) ? *other : *one;
        const QByteArray errors = second.readAllStandardError();
        QVERIFY2(second.exitStatus() == QProcess::NormalExit && second.exitCode() == 0,
                 errors.constData());
        QCOMPARE(first.state(), QProcess::Running);
        QCOMPARE(run({QStringLiteral("--profile"), profile()}).exitCode, 0);
        terminate(first);
        const Run described =
            run({QStringLiteral("--profile"), profile(), QStringLiteral("--describe")});
        QCOMPARE(
            QJsonDocument::fromJson(described.output)[QStringLiteral("databases")].toArray().size(),
            3);
    }

    void aDescriptionBesideAFirstStartMakesTheSameProfile() {
        for (int round = 0; round < 5; ++round) {
            QVERIFY(QDir(profile()).removeRecursively());
            const auto description = start({QStringLiteral("--describe")});
            const auto windows = startWindows();
            QTRY_COMPARE(description->state(), QProcess::NotRunning);
            QCOMPARE(description->exitCode(), 0);
            const Run described =
                run({QStringLiteral("--profile"), profile(), QStringLiteral("--describe")});
            QCOMPARE(description->readAllStandardOutput(), described.output);
            QCOMPARE(windows->state(), QProcess::Running);
            terminate(*windows);
        }
    }

    void aSecondStartRaisesTheFirstWindow() {
        const auto first = startWindows();
        const Run second = run({QStringLiteral("--profile"), profile()});
        QCOMPARE(second.exitCode, 0);
        QVERIFY2(second.errors.isEmpty(), second.errors.constData());
        QCOMPARE(first->state(), QProcess::Running);
        terminate(*first);
    }

    void aProfileInUseIsDescribedBesideTheProgram() {
        const auto first = startWindows();
        const Run described =
            run({QStringLiteral("--profile"), profile(), QStringLiteral("--describe")});
        QCOMPARE(described.exitCode, 0);
        QVERIFY(QJsonDocument::fromJson(described.output).isObject());
        const Run refused =
            run({QStringLiteral("--profile"), profile(), QStringLiteral("--describe"),
                 QStringLiteral("--sandboxed"), QStringLiteral("on")});
        QCOMPARE(refused.exitCode, 1);
        QVERIFY2(refused.errors.contains("in use"), refused.errors.constData());
        terminate(*first);
    }

    void aPictureOfAProfileInUseIsDrawnBesideTheProgram() {
        const auto first = startWindows();
        const QString file = m_folder.filePath(QStringLiteral("beside.png"));
        const Run drawn =
            run({QStringLiteral("--profile"), profile(), QStringLiteral("--screenshot"), file});
        QCOMPARE(drawn.exitCode, 0);
        QVERIFY(QImage(file).width() >= 700);
        QCOMPARE(first->state(), QProcess::Running);
        terminate(*first);
    }

    void theProfileOfAKilledProcessIsFree() {
        const auto first = startWindows();
        first->kill();
        QVERIFY(first->waitForFinished());
        terminate(*startWindows());
    }

    void itsVersionIsPrinted() {
        const Run version = run({QStringLiteral("--version")});
        QCOMPARE(version.exitCode, 0);
        QCOMPARE(version.output.trimmed(), QByteArray("Velmora " VELMORA_VERSION));
    }

    void optionsOfQtAreAccepted() {
        const QString picture = m_folder.filePath(QStringLiteral("reversed.png"));
        const Run reversed =
            run({QStringLiteral("--profile"), profile(), QStringLiteral("--screenshot"), picture,
                 QStringLiteral("-reverse"), QStringLiteral("-style"), QStringLiteral("windows"),
                 QStringLiteral("--qwindowtitle=Notes"), QStringLiteral("-session"),
                 QStringLiteral("1"), QStringLiteral("-platform"), QStringLiteral("offscreen")});
        QVERIFY2(reversed.exitCode == 0, reversed.errors);
        QVERIFY(QFile::exists(picture));
        // What follows two dashes is no option, and others are still refused.
        const Run argument = run({QStringLiteral("--"), QStringLiteral("-reverse")});
        QCOMPARE(argument.exitCode, 2);
        QCOMPARE(run({QStringLiteral("-reversed")}).exitCode, 1);
    }

    void unknownOptionsAreRefused() {
        QVERIFY(run({QStringLiteral("--nonsense")}).exitCode > 0);
        QVERIFY(run({QStringLiteral("stray")}).exitCode > 0);
    }

    void aWrongValueIsNamed_data() {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QByteArray>("values");
        QTest::addColumn<int>("exitCode");
        const std::tuple<const char *, const char *, int> mistakes[] = {
            {"--appearance pink", "light|dark", 1},
            {"--appearance ", "light|dark", 1},
            {"--sandboxed ", "on|off", 1},
            {"--sandboxed perhaps", "on|off", 1},
            {"--sandboxed ON", "on|off", 1},
            {"--begin full", "empty|examples", 1},
            {"sync --removals all", "keep|remove", 2},
            {"sync --timeout 0", "seconds", 2},
            {"status --timeout soon", "seconds", 2}};
        for (const auto &[line, values, exitCode] : mistakes) {
            QTest::newRow(line) << QByteArray(line) << QByteArray(values) << exitCode;
        }
    }
    void aWrongValueIsNamed() {
        QFETCH(const QByteArray, line);
        QFETCH(const QByteArray, values);
        QFETCH(const int, exitCode);
        const QByteArrayList words = line.split(' ');
        QStringList arguments;
        for (const QByteArray &word : words) {
            arguments.append(QString::fromUtf8(word));
        }
        const Run refused = run(arguments);
        QCOMPARE(refused.exitCode, exitCode);
        for (const QByteArray &part :
             {words.at(words.size() - 2), "“" + words.constLast() + "”", values}) {
            QVERIFY2(refused.errors.contains(part), refused.errors);
        }
        QCOMPARE(refused.output, QByteArray());
    }
};

VELMORA_TEST(VelmoraTest)
#include "VelmoraTest.moc"
