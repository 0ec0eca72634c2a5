#include "Engine/Synchronization/CleanSession.h"
#include "Support/Failure.h"
#include "Support/SessionTestCase.h"

/// Bits of a note change in the profile's file, which SQLite does not notice.
class DamagedNoteTest : public SessionTestCase {
    Q_OBJECT
private:
    static inline const QString Title = QStringLiteral("a letter");

    /// Changes a bit of the text `text` in the file of the profile while it is closed.
    void flipABitOf(const QByteArray &text) {
        const QString path = m_host->directory() + QStringLiteral("/profile.sqlite");
        m_host->goToComputer(QStringLiteral("Other"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QByteArray contents = file.readAll();
        const qsizetype at = contents.lastIndexOf(text);
        QVERIFY(at >= 0);
        contents[at + text.size() / 2] = static_cast<char>(contents[at + text.size() / 2] ^ 1);
        QVERIFY(file.seek(0));
        QCOMPARE(file.write(contents), contents.size());
        file.close();
        m_host->goToComputer(QStringLiteral("Profile"));
    }

    void damage(const QString &assignment, const QString &title = Title) {
        QVERIFY(profile().run(
            QStringLiteral("UPDATE operations SET %1 WHERE title = ?").arg(assignment), {title}));
    }

    QStringList texts() {
        QStringList texts;
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (const Note &note : notes) {
            texts.append(note.title + u'=' + note.text);
        }
        texts.sort();
        return texts;
    }

    /// Verifies the profile, which finds the damage, and returns what it says.
    QStringList verify() {
        return Verification::problems(m_host->engine().verify(VerificationMode::Report));
    }

    template <class Session>
    QList<Error> problems() {
        Session session = newSession<Session>();
        MemoryStore store(m_blobs);
        const Expected<void> result = runSession(session, store);
        return result ? session.problems().kept() : QList{result.error()};
    }

    static QStringList textsOf(const QList<Error> &problems) {
        QStringList texts;
        for (const Error &problem : problems) {
            texts.append(problem.localizedDescription);
        }
        return texts;
    }

    /// Deletes or damages the record in the store that contains the note.
    void loseRecordOf(const QString &title, bool isDeleted) {
        const QByteArray text = "\"title\":\"" + title.toUtf8() + '"';
        const auto found = std::find_if(m_blobs.begin(), m_blobs.end(), [&](const auto &blob) {
            return blob.second.contains(text);
        });
        QVERIFY(found != m_blobs.end());
        if (isDeleted) {
            m_blobs.erase(found);
        } else {
            found->second.replace(text, "\"title\":\"damaged\"");
        }
    }

    QStringList textsOnAnotherComputer() {
        m_host->goToComputer(QStringLiteral("Third"));
        if (!run<SyncSession>()) {
            return {};
        }
        const QStringList found = texts();
        m_host->goToComputer(QStringLiteral("Profile"));
        return found;
    }

private Q_SLOTS:
    void init() { beginWithNotes({Title, QStringLiteral("b")}); }
    void cleanup() { m_host.reset(); }

    void aChangedBitIsReportedAndReadAgain_data() {
        QTest::addColumn<int>("length");
        QTest::addRow("in the row") << 0;
        QTest::addRow("in the rest of a long text") << 100'000;
    }
    void aChangedBitIsReportedAndReadAgain() {
        QFETCH(int, length);
        Note note{{},
                  QStringLiteral("long"),
                  QString(length, u'x') + QStringLiteral("a rare word in it"),
                  {}};
        QVERIFY(m_host->inbox()->saveNote(note));
        QVERIFY(run<SyncSession>());
        const QStringList before = texts();
        flipABitOf("a rare word in it");
        QVERIFY(texts() != before);
        const QStringList found = verify();
        QCOMPARE(found.size(), 1);
        QVERIFY2(found.first().contains(QStringLiteral("“long”")), qPrintable(found.first()));
        const QList<Error> repaired = problems<SyncSession>();
        QCOMPARE(repaired.size(), 1);
        QVERIFY(isEngineError(repaired.first(), EngineErrorCode::RecordRepaired));
        QVERIFY(repaired.first().localizedDescription.contains(QStringLiteral("“long”")));
        QCOMPARE(texts(), before);
        QVERIFY(problems<SyncSession>().isEmpty());
        verifySound();
    }

    void whateverIsDamagedIsReadAgain_data() {
        QTest::addColumn<QString>("assignment");
        QTest::addRow("title") << QStringLiteral("title = 'A letter'");
        QTest::addRow("text") << QStringLiteral("text = ''");
        QTest::addRow("invalid text") << QStringLiteral("text = CAST(x'61ff62' AS TEXT)");
        QTest::addRow("date") << QStringLiteral("modified = 5");
        QTest::addRow("note") << QStringLiteral("note_uuid = 'x'");
        QTest::addRow("salt") << QStringLiteral("salt = x'00'");
        QTest::addRow("identifier") << QStringLiteral("digest = randomblob(length(digest))");
        QTest::addRow("superseded") << QStringLiteral("supersedes = randomblob(16)");
    }
    void whateverIsDamagedIsReadAgain() {
        QFETCH(QString, assignment);
        const QStringList before = texts();
        damage(assignment);
        QCOMPARE(verify().size(), 1);
        QCOMPARE(problems<SyncSession>().size(), 1);
        QCOMPARE(texts(), before);
        verifySound();
        // Nothing is kept twice.
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (const Note &note : notes) {
            const auto versions = m_host->inbox()->earlierVersions(note).value();
            for (const NoteVersion &version : versions) {
                QVERIFY(m_host->inbox()->noteOfVersion(version)->text != note.text);
            }
        }
    }

    void aNoteWithADamagedIdentifierIsReplacedByItsLaterEdit() {
        m_host->goToComputer(QStringLiteral("Third"));
        QVERIFY(run<SyncSession>());
        Note edited = m_host->inbox()->notes().value().first();
        edited.text = QStringLiteral("edited elsewhere");
        QVERIFY(m_host->inbox()->saveNote(edited));
        QVERIFY(run<SyncSession>());
        const QStringList expected = texts();
        m_host->goToComputer(QStringLiteral("Profile"));
        damage(QStringLiteral("digest = randomblob(length(digest))"), edited.title);
        QCOMPARE(verify().size(), 1);
        QCOMPARE(problems<SyncSession>().size(), 1);
        QCOMPARE(texts(), expected);
        verifySound();
        QCOMPARE(m_host->inbox()->earlierVersions(edited).value().size(), 1);
    }

    /// As if the pages with their rows were those of an earlier state.
    void whatIsMissingIsReadAgainAfterTheStart_data() {
        QTest::addColumn<QString>("missing");
        QTest::addColumn<int>("problems");
        QTest::addRow("notes") << QStringLiteral("operations") << 3;
        // The note that was edited is read with its former text before it is superseded again.
        QTest::addRow("superseded identifiers") << QStringLiteral("superseded") << 1;
    }
    void whatIsMissingIsReadAgainAfterTheStart() {
        QFETCH(QString, missing);
        QFETCH(int, problems);
        Note note{{}, QStringLiteral("c"), QStringLiteral("c"), {}};
        for (int edit = 0; edit < 2; ++edit) {
            QVERIFY(m_host->inbox()->saveNote(note));
            QVERIFY(run<SyncSession>());
            note.text += QStringLiteral(" edited");
        }
        const QStringList before = texts();
        QVERIFY(profile().run(QStringLiteral("DELETE FROM ") + missing));
        m_host->restart();
        const QList<Error> found = this->problems<SyncSession>();
        QCOMPARE(found.size(), problems);
        for (const Error &each : found) {
            QVERIFY(isEngineError(each, EngineErrorCode::RecordRepaired));
        }
        QCOMPARE(texts(), before);
        QVERIFY(this->problems<SyncSession>().isEmpty());
        verifySound();
        QCOMPARE(textsOnAnotherComputer(), before);
    }

    /// The profile has lost a note, and the store has lost the record that contains it.
    void whatIsLostEverywhereIsReportedUntilItReturns_data() {
        QTest::addColumn<bool>("isDeleted");
        QTest::addColumn<bool>("isCompared");
        QTest::addColumn<bool>("isCleaned");
        QTest::addRow("damaged record") << false << true << false;
        QTest::addRow("damaged record, found by chance") << false << false << false;
        QTest::addRow("damaged record, after cleaning up") << false << false << true;
        QTest::addRow("deleted record") << true << true << false;
        QTest::addRow("deleted record, no comparison") << true << false << false;
        QTest::addRow("deleted record, after cleaning up") << true << false << true;
    }
    void whatIsLostEverywhereIsReportedUntilItReturns() {
        QFETCH(bool, isDeleted);
        QFETCH(bool, isCompared);
        QFETCH(bool, isCleaned);
        m_host->goToComputer(QStringLiteral("Third"));
        QVERIFY(run<SyncSession>());
        m_host->goToComputer(QStringLiteral("Profile"));
        const QStringList before = texts();
        QVERIFY(run<SyncSession>());
        QVERIFY(profile().run(QStringLiteral("DELETE FROM operations WHERE title = ?"), {Title}));
        if (isCompared) {
            m_host->restart();
        }
        QCOMPARE(verify().size(), 1);
        if (isCleaned) {
            QVERIFY(run<CleanSession>());
        }
        loseRecordOf(Title, isDeleted);
        const QString lost = QStringLiteral("lost changes of notes");
        QCOMPARE(textsOf(problems<SyncSession>()).filter(lost).size(), 1);
        QVERIFY(textsOf(problems<SyncSession>()).filter(lost).isEmpty());
        QCOMPARE(verify().size(), 1);
        m_host->restart();
        QCOMPARE(textsOf(problems<SyncSession>()).filter(lost).size(), 1);
        QVERIFY2(verify().value(0).contains(QStringLiteral("has lost: 1. ")),
                 qPrintable(verify().value(0)));
        m_host->goToComputer(QStringLiteral("Third"));
        QVERIFY(run<SyncSession>());
        m_host->goToComputer(QStringLiteral("Profile"));
        QVERIFY(textsOf(problems<SyncSession>()).filter(lost).isEmpty());
        QCOMPARE(texts(), before);
        verifySound();
    }

    void aRepairReportsWhatIsLostEverywhereForTheLastTime() {
        QVERIFY(profile().run(QStringLiteral("DELETE FROM operations WHERE title = ?"), {Title}));
        loseRecordOf(Title, true);
        QVERIFY(run<SyncSession>());
        QCOMPARE(verify().size(), 1);
        SyncSession repair(profile(), m_host->library(), subject(),
                           RecordVerification::Extent::All);
        MemoryStore store(m_blobs);
        QVERIFY(runSession(repair, store));
        const QString lost = QStringLiteral("lost changes of notes");
        QCOMPARE(textsOf(repair.problems().kept()).filter(lost).size(), 1);
        m_host->restart();
        QCOMPARE(textsOf(problems<SyncSession>()), QStringList());
        verifySound();
    }

    void aDamagedListOfWhatARecordContainsIsNoLoss_data() {
        QTest::addColumn<bool>("isCleaned");
        QTest::addRow("compared") << false;
        QTest::addRow("after cleaning up") << true;
    }
    void aDamagedListOfWhatARecordContainsIsNoLoss() {
        QFETCH(bool, isCleaned);
        const QStringList before = texts();
        QVERIFY(profile().run(
            QStringLiteral("UPDATE known_transactions SET operations ="
                           " randomblob(length(operations))"
                           " WHERE name = (SELECT min(name) FROM known_transactions)")));
        QCOMPARE(verify().size(), 1);
        if (isCleaned) {
            QVERIFY(run<CleanSession>());
        } else {
            m_host->restart();
        }
        QCOMPARE(textsOf(problems<SyncSession>()), QStringList());
        QCOMPARE(texts(), before);
        verifySound();
        QCOMPARE(textsOnAnotherComputer(), before);
    }

    /// The record that would disprove the loss is gone.
    void aBitThatFlipsInTheListOfARecordThatIsGoneIsNoLoss_data() {
        QTest::addColumn<int>("bit");
        for (const int bit : {0, 7, 70, 127}) {
            QTest::addRow("bit %d", bit) << bit;
        }
    }
    void aBitThatFlipsInTheListOfARecordThatIsGoneIsNoLoss() {
        QFETCH(int, bit);
        QVERIFY(run<SyncSession>());
        const QStringList before = texts();
        const QString known =
            QStringLiteral("(SELECT max(name) FROM known_transactions WHERE operations <> x'')");
        QByteArray list = profile()
                              .value(QStringLiteral("SELECT operations FROM known_transactions"
                                                    " WHERE name = %1")
                                         .arg(known))
                              .value()
                              .toByteArray();
        list[bit / 8] = static_cast<char>(list[bit / 8] ^ (1 << bit % 8));
        QVERIFY(profile().run(
            QStringLiteral("UPDATE known_transactions SET operations = ? WHERE name = %1")
                .arg(known),
            {list}));
        m_blobs.clear();
        QCOMPARE(textsOf(problems<SyncSession>()).filter(QStringLiteral("lost")), QStringList());
        QCOMPARE(verify().filter(QStringLiteral("lost")), QStringList());
        QVERIFY(problems<SyncSession>().isEmpty());
        QCOMPARE(texts(), before);
        verifySound();
        QCOMPARE(textsOnAnotherComputer(), before);
    }

    void aDamagedNoteThatNoLocationHasIsNamedAndNotSentUntilItIsEdited() {
        saveNote(QStringLiteral("unsent"));
        saveNote(QStringLiteral("other"));
        damage(QStringLiteral("text = 'damaged'"), QStringLiteral("unsent"));
        for (int i = 0; i < 2; ++i) {
            const QList<Error> told = problems<SyncSession>();
            QCOMPARE(told.size(), 1);
            QVERIFY(told.first().localizedDescription.contains(QStringLiteral("“unsent”")));
            QVERIFY(verify().first().contains(QStringLiteral("“unsent”")));
        }
        QCOMPARE(textsOnAnotherComputer(),
                 (QStringList{QStringLiteral("a letter=a letter"), QStringLiteral("b=b"),
                              QStringLiteral("other=other")}));
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (Note note : notes) {
            QVERIFY(m_host->inbox()->saveNote(note));
        }
        verifySound();
        QVERIFY(textsOnAnotherComputer().contains(QStringLiteral("unsent=damaged")));
    }

    void aNameThatIsNotValidIsToBeReplaced() {
        const auto database = m_host->addDatabase(QStringLiteral("Projects"));
        QVERIFY(
            profile().run(QStringLiteral("UPDATE operations SET title = ' '"
                                         " WHERE note_uuid = '' AND title = 'Projects'")));
        MemoryStore store(m_blobs);
        const StoreSession::Subject subject{database->UUID(), database->name(),
                                            QStringLiteral("store")};
        SyncSession refused(profile(), m_host->library(), subject);
        QVERIFY(runSession(refused, store));
        QCOMPARE(refused.problems().count(), 1);
        QVERIFY(refused.problems().kept().first().localizedDescription.contains(
            QStringLiteral("Rename the database")));
        QVERIFY(m_host->library().renameDatabase(database, QStringLiteral("Plans")));
        SyncSession renamed(profile(), m_host->library(), subject);
        QVERIFY(runSession(renamed, store));
        QVERIFY(renamed.problems().kept().isEmpty());
        QCOMPARE(Verification::problems(profile(), m_host->library(), subject, store),
                 QStringList());
    }

    /// As if the page with its row were that of an earlier state.
    void aSupersededNoteThatHasReturnedMovesToTheEarlierVersions() {
        Note note = m_host->inbox()->notes().value().first();
        QVERIFY(profile().run(QStringLiteral("CREATE TABLE page AS SELECT * FROM operations")));
        note.text = QStringLiteral("edited");
        QVERIFY(m_host->inbox()->saveNote(note));
        QVERIFY(run<SyncSession>());
        const QStringList before = texts();
        QVERIFY(
            profile().run(QStringLiteral("INSERT INTO operations SELECT * FROM page WHERE id NOT IN"
                                         " (SELECT id FROM operations)")));
        QVERIFY(profile().run(QStringLiteral("DROP TABLE page")));
        QVERIFY(profile().run(QStringLiteral("DELETE FROM versions")));
        m_host->restart();
        QVERIFY(texts() != before);
        QCOMPARE(verify().size(), 1);
        QVERIFY(run<SyncSession>());
        QCOMPARE(texts(), before);
        QCOMPARE(m_host->inbox()->earlierVersions(note).value().size(), 1);
        verifySound();
    }

    void cleaningUpKeepsTheOnlySoundCopy() {
        const QStringList before = texts();
        damage(QStringLiteral("text = 'damaged'"));
        QCOMPARE(problems<CleanSession>().size(), 1);
        QCOMPARE(textsOnAnotherComputer(), before);
        // What cleaning up has found is read again.
        damage(QStringLiteral("text = 'damaged'"));
        QCOMPARE(problems<CleanSession>().size(), 1);
        QCOMPARE(problems<SyncSession>().size(), 1);
        QCOMPARE(texts(), before);
        QVERIFY(problems<CleanSession>().isEmpty());
        verifySound();
        QCOMPARE(textsOnAnotherComputer(), before);
    }

    void aDamagedRecordDoesNotRepairADamagedNote() {
        damage(QStringLiteral("text = 'damaged'"));
        for (auto &[name, record] : m_blobs) {
            if (name.startsWith(QStringLiteral("transactions/"))) {
                record.replace("a letter", "a Letter");
            }
        }
        QCOMPARE(verify().size(), 1);
        QVERIFY(!problems<SyncSession>().isEmpty());
        QVERIFY(texts().contains(QStringLiteral("a letter=damaged")));
        QVERIFY(verify().first().contains(QStringLiteral("“a letter”")));
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (Note note : notes) {
            QVERIFY(m_host->inbox()->saveNote(note));
        }
        QVERIFY(run<SyncSession>());
        verifySound();
    }
};

VELMORA_TEST(DamagedNoteTest)
#include "DamagedNoteTest.moc"
