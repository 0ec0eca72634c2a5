#include <malloc.h>
#include <QtCore/QEventLoop>
#include <QtCore/QUuid>
#include <QtWidgets/QListWidget>
#include <algorithm>
#include <vector>

#include "Application/EventLog.h"
#include "Application/MainWindow.h"
#include "Application/NotesList.h"
#include "Benchmarks/Benchmark.h"
#include "Host/InboxUUID.h"
#include "Support/PeakMemory.h"
#include "Support/StallMeter.h"
#include "Support/TestHost.h"

using Benchmark::require;

namespace {

constexpr double LongestBlock = 16;
constexpr double LargestMemory = 500;
constexpr int Few = 1'000;
constexpr int Some = 10'000;
constexpr int Many = 100'000;
constexpr int VeryMany = 1'000'000;
constexpr int NotesAtOnce = 2'000;
constexpr qint64 FirstDate = 1'700'000'000'000;
constexpr qsizetype Mebibyte = 1 << 20;

double medianOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

/// A computer whose inbox has many notes and is synchronized with a folder, and another one.
class Computers {
public:
    /// Adds `count` notes to the inbox.
    explicit Computers(int count, const QString &text = QStringLiteral("What the note says.\n")) {
        m_address = m_host.makeSyncStore(QStringLiteral("Store"));
        if (count > Many) {
            m_host.leaveUnverified("it would take minutes");
        }
        addNotes(count, text);
        addLocation();
    }

    void addNotes(int count, const QString &text = QStringLiteral("What the note says.\n")) {
        const auto database = m_host.library().synchronizedDatabase(InboxUUID);
        for (int first = 0; first < count; first += NotesAtOnce) {
            Transaction transaction;
            for (int i = first; i < std::min(count, first + NotesAtOnce); ++i) {
                transaction.operations.append(
                    Operation::make(QUuid::createUuid().toString(QUuid::WithoutBraces),
                                    QStringLiteral("Note %1").arg(i), text, FirstDate + i, {}));
            }
            require(m_host.engine().profile().write(
                [&] { return database->log().merge(transaction); }));
        }
        // No window must read again what has just been written.
        static_cast<void>(database->log().takeChangedPositions());
    }

    void goToOther() {
        m_window.reset();
        m_state.reset();
        m_host.goToComputer(QStringLiteral("Other"));
        addLocation();
    }

    void synchronize() const {
        QEventLoop loop;
        m_host.engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {m_state}, [&] { loop.quit(); });
        loop.exec();
    }

    /// Makes a window that shows the first rows of the inbox, and returns the CPU time of the main
    /// thread for that, in milliseconds.
    double makeWindow() {
        m_window.reset();
        const double start = Benchmark::threadNanoseconds();
        m_window = std::make_unique<MainWindow>(&m_host.library(), &m_log, m_host.directory());
        m_window->show();
        settle();
        return (Benchmark::threadNanoseconds() - start) / 1e6;
    }
    double medianOfWindows() {
        std::vector<double> times;
        for (int i = 0; i < 9; ++i) {
            times.push_back(makeWindow());
        }
        return medianOf(times);
    }

    /// Shows the inbox, until all rows are there.
    void show() {
        makeWindow();
        awaitRows(countOfNotes());
    }

    /// Shows an empty database instead, then the inbox again, until all rows are there. Returns the
    /// longest work of the main thread for the latter, in milliseconds.
    double showAgain() {
        auto *databases = m_window->findChild<QListWidget *>(QStringLiteral("databases"));
        require(m_host.library().createDatabase(QStringLiteral("Empty")));
        databases->setCurrentRow(databases->count() - 1);
        settle();
        const qint64 count = countOfNotes();
        StallMeter meter;
        databases->setCurrentRow(0);
        awaitRows(count);
        return static_cast<double>(meter.longestWork());
    }

    void save(const QString &text) {
        Note note{.title = QStringLiteral("Title"), .text = text};
        require(m_host.inbox()->saveNote(note));
    }

    /// Returns the CPU time of the main thread for another text of one note, in milliseconds.
    double edit() {
        const auto inbox = m_host.inbox();
        const qint64 middle = countOfNotes() / 2 + ++m_edits;
        const QList<NoteRow> rows = inbox->rows(middle, 1).value();
        Note note = inbox->completeNote(rows.first().note).value();
        note.text += QStringLiteral("More.\n");
        settle();
        const double start = Benchmark::threadNanoseconds();
        require(inbox->saveNote(note));
        settle();
        return (Benchmark::threadNanoseconds() - start) / 1e6;
    }
    double medianOfEdits() {
        std::vector<double> times;
        for (int i = 0; i < 25; ++i) {
            times.push_back(edit());
        }
        return medianOf(times);
    }

    /// Returns the CPU time of the process for a synchronization, in milliseconds.
    double timeOfSynchronization() const {
        settle();
        const double start = Benchmark::processorNanoseconds();
        synchronize();
        settle();
        return (Benchmark::processorNanoseconds() - start) / 1e6;
    }
    /// The mean, since not all synchronizations verify the same number of bytes.
    double meanOfIdle() const {
        constexpr int count = 50;
        double sum = 0;
        for (int i = 0; i < count; ++i) {
            sum += timeOfSynchronization();
        }
        return sum / count;
    }

    qint64 countOfNotes() const {
        return m_host.library().synchronizedDatabase(InboxUUID)->log().countOfNotes().value();
    }

private:
    void awaitRows(qint64 count) const {
        const auto *notes = m_window->findChild<NotesList *>();
        while (notes->count() < count) {
            QCoreApplication::processEvents(QEventLoop::AllEvents);
        }
        settle();
    }
    static void settle() {
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::processEvents(QEventLoop::AllEvents);
        }
    }
    void addLocation() {
        const auto location = m_host.addLocation(m_address);
        m_state = m_host.addState(location, m_host.inbox());
        m_state->setEnabled(true);
        m_host.save();
    }

    mutable TestHost m_host;
    QString m_address;
    std::shared_ptr<QVSyncState> m_state;
    EventLog m_log;
    std::unique_ptr<MainWindow> m_window;
    int m_edits = 0;
};

/// Values of one database.
struct Values {
    double edit = 0;
    double idle = 0;
    double editSent = 0;
    /// Resident, in megabytes, while the notes are shown.
    double memory = 0;
};

Values measure(int notes) {
    Computers computers(notes);
    computers.synchronize();
    Values values;
    values.idle = computers.meanOfIdle();
    computers.show();
    values.edit = computers.medianOfEdits();
    computers.synchronize();
    // The mean, since about every seventh merges small records.
    constexpr int count = 28;
    for (int i = 0; i < count; ++i) {
        static_cast<void>(computers.edit());
        values.editSent += computers.timeOfSynchronization() / count;
    }
    values.memory = static_cast<double>(PeakMemory::value("VmRSS")) / 1024;
    return values;
}

void compareSizes(Benchmark::Report &report) {
    const Values few = measure(Few);
    const Values some = measure(Some);
    const Values many = measure(Many);
    const auto add = [&](const QString &name, double Values::*value, double target) {
        report.add({name,
                    many.*value,
                    few.*value,
                    QStringLiteral("ms"),
                    target,
                    {{Few, few.*value}, {Some, some.*value}, {Many, many.*value}}});
    };
    add(QStringLiteral("Saved edit in 100,000 notes, main thread / in 1,000"), &Values::edit, 1.5);
    add(QStringLiteral("Idle synchronization of 100,000 notes, CPU / of 1,000"), &Values::idle,
        1.5);
    add(QStringLiteral("Synchronized edit in 100,000 notes, CPU / in 1,000"), &Values::editSent,
        1.5);
    const auto unit = QStringLiteral("ms");
    report.add({QStringLiteral("Idle synchronization of 100,000 notes, CPU / 5 ms"), many.idle, 5,
                unit, 1.0});
    report.add({QStringLiteral("Saved edit in 100,000 notes, main thread / 10 ms"), many.edit, 10,
                unit, 1.0});
}

/// What an import of notes into a profile costs that shows them, in milliseconds and megabytes.
struct Import {
    double block = 0;
    double work = 0;
    double memory = 0;
    /// The longest work when the notes are shown in a window that is there.
    double shown = 0;
    /// The CPU time of making a window that shows them.
    double window = 0;
};

Import importOf(int count) {
    Computers computers(count);
    computers.synchronize();
    computers.goToOther();
    computers.show();
    malloc_trim(0);
    Import import;
    StallMeter meter;
    const PeakMemory memory;
    computers.synchronize();
    if (computers.countOfNotes() < count) {
        qFatal("notes were lost");
    }
    import.block = static_cast<double>(meter.longest());
    import.work = static_cast<double>(meter.longestWork());
    import.memory = static_cast<double>(memory.growth());
    import.shown = computers.showAgain();
    import.window = computers.medianOfWindows();
    return import;
}

/// Adds rows of imports of `counts` notes, the last of which is compared with the reference.
void addImports(Benchmark::Report &report, const QList<int> &counts, const QString &what) {
    const double emptyWindow = Computers(0).medianOfWindows();
    QList<Import> imports;
    for (const int count : counts) {
        imports.append(importOf(count));
    }
    const auto add = [&](const QString &name, double Import::*value, double reference,
                         const QString &unit, double target) {
        QList<Benchmark::Point> points;
        for (qsizetype i = 0; i < counts.size(); ++i) {
            points.append({double(counts[i]), imports[i].*value});
        }
        report.add({what + name, imports.last().*value, reference, unit, target, points});
    };
    const auto unit = QStringLiteral("ms");
    add(QStringLiteral(" imported, longest block / 16 ms"), &Import::block, LongestBlock, unit,
        1.0);
    add(QStringLiteral(" imported, longest work of the main thread / 16 ms"), &Import::work,
        LongestBlock, unit, 1.0);
    add(QStringLiteral(" imported, more memory / 500 MB"), &Import::memory, LargestMemory,
        QStringLiteral("MB"), 1.0);
    add(QStringLiteral(" shown, longest work of the main thread / 16 ms"), &Import::shown,
        LongestBlock, unit, 1.0);
    add(QStringLiteral(" in a new window, main thread / without notes"), &Import::window,
        emptyWindow, unit, 1.5);
}

void measureImports(Benchmark::Report &report) {
    addImports(report, {Few, Some, Many}, QStringLiteral("100,000 notes"));
}

/// Returns the longest work of the main thread while `count` notes are written to a location, in
/// milliseconds: one that is new, or one that the profile has recorded to lack them.
double longestWorkOfUpload(int count, bool isNew) {
    Computers computers(isNew ? count : 0);
    if (!isNew) {
        computers.synchronize();
        computers.addNotes(count);
    }
    StallMeter meter;
    computers.synchronize();
    return static_cast<double>(meter.longestWork());
}

void measureUploads(Benchmark::Report &report) {
    for (const bool isNew : {true, false}) {
        QList<Benchmark::Point> points;
        for (const int count : {Few, Some, Many}) {
            points.append({double(count), longestWorkOfUpload(count, isNew)});
        }
        const QString what = isNew ? QStringLiteral("First upload of 100,000 notes")
                                   : QStringLiteral("100,000 new notes written");
        report.add({what + QStringLiteral(", longest work of the main thread / 16 ms"),
                    points.last().value, LongestBlock, QStringLiteral("ms"), 1.0, points});
    }
}

void measureVeryManyImported(Benchmark::Report &report) {
    addImports(report, {VeryMany}, QStringLiteral("1,000,000 notes"));
}

void measureVeryMany(Benchmark::Report &report) {
    const Values few = measure(Few);
    malloc_trim(0);
    const Values veryMany = measure(VeryMany);
    const auto unit = QStringLiteral("ms");
    report.add({QStringLiteral("Saved edit in 1,000,000 notes, main thread / in 1,000"),
                veryMany.edit, few.edit, unit, 1.5});
    report.add({QStringLiteral("Idle synchronization of 1,000,000 notes, CPU / of 1,000"),
                veryMany.idle, few.idle, unit, 1.5});
    report.add({QStringLiteral("Synchronized edit in 1,000,000 notes, CPU / in 1,000"),
                veryMany.editSent, few.editSent, unit, 1.5});
    report.add({QStringLiteral("Resident memory with 1,000,000 notes shown / 500 MB"),
                veryMany.memory, LargestMemory, QStringLiteral("MB"), 1.0});
}

/// A note of 8 MiB costs eight times as much as one of 1 MiB.
void measureLargeNote(Benchmark::Report &report) {
    const auto timeOfText = [](qsizetype size) {
        std::vector<double> times;
        for (int i = 0; i < 5; ++i) {
            Computers computers(0);
            double start = Benchmark::processorNanoseconds();
            computers.save(QString(size, u'x'));
            computers.synchronize();
            double time = Benchmark::processorNanoseconds() - start;
            computers.goToOther();
            start = Benchmark::processorNanoseconds();
            computers.synchronize();
            time += Benchmark::processorNanoseconds() - start;
            times.push_back(time / 1e6);
        }
        return medianOf(times);
    };
    const double one = timeOfText(Mebibyte);
    const double largest = timeOfText(Operation::NoteLimit - Mebibyte / 8);
    report.add({QStringLiteral("Note of 8 MiB there and into another profile / eight of 1 MiB"),
                largest,
                8 * one,
                QStringLiteral("ms"),
                1.0,
                {{Mebibyte, one}, {Operation::NoteLimit, largest}}});
}

/// CPU times of the synchronization of several databases that are in one store, in milliseconds.
struct TimesOfStore {
    double first = 0;
    double idle = 0;
};

TimesOfStore timesOfStore(int databases) {
    TestHost host;
    const auto location = host.addLocation();
    QList<std::shared_ptr<QVSyncState>> states;
    for (int i = 0; i < databases; ++i) {
        const auto database = host.addDatabase(QStringLiteral("Database %1").arg(i));
        Note note{.title = QStringLiteral("Title"), .text = QStringLiteral("Text")};
        require(database->saveNote(note));
        states.append(host.addState(location, database));
        states.last()->setEnabled(true);
    }
    host.save();
    const auto synchronize = [&] {
        const double start = Benchmark::processorNanoseconds();
        QEventLoop loop;
        host.engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            states, [&] { loop.quit(); });
        loop.exec();
        return (Benchmark::processorNanoseconds() - start) / 1e6;
    };
    TimesOfStore times;
    times.first = synchronize();
    times.idle = medianOf({synchronize(), synchronize(), synchronize()});
    return times;
}

void measureManyDatabases(Benchmark::Report &report) {
    constexpr int few = 100;
    constexpr int many = 1000;
    const TimesOfStore smaller = timesOfStore(few);
    const TimesOfStore larger = timesOfStore(many);
    const auto add = [&](const QString &name, double TimesOfStore::*value) {
        report.add({name,
                    larger.*value,
                    smaller.*value * many / few,
                    QStringLiteral("ms"),
                    1.2,
                    {{few, smaller.*value}, {many, larger.*value}}});
    };
    add(QStringLiteral("1,000 databases written to a store / ten times 100"), &TimesOfStore::first);
    add(QStringLiteral("Idle synchronization of 1,000 databases / ten times 100"),
        &TimesOfStore::idle);
}

const Benchmark::Suite databases(QStringLiteral("many databases"), &measureManyDatabases);
const Benchmark::Suite sizes(QStringLiteral("large databases"), &compareSizes);
const Benchmark::Suite imports(QStringLiteral("large imports"), &measureImports);
const Benchmark::Suite uploads(QStringLiteral("large uploads"), &measureUploads);
const Benchmark::Suite note(QStringLiteral("large note"), &measureLargeNote);
const Benchmark::Suite veryManyImported(QStringLiteral("very large imports"),
                                        &measureVeryManyImported, Benchmark::Duration::Long);
const Benchmark::Suite veryMany(QStringLiteral("very large databases"), &measureVeryMany,
                                Benchmark::Duration::Long);

}  // namespace
