#pragma once

#include <QtCore/QTemporaryDir>
#include <chrono>

#include "Host/QVHostPlugIn.h"
#include "HostCheck/HostDeadline.h"
#include "HostCheck/HostPromise.h"
#include "HostCheck/HostReport.h"
#include "Platform/Foundation/Expected.h"

/// Begins a host, checks every promise and ends it. Must be used on the main thread, in a program
/// that does nothing else: if a function of the host does not return in time, the process ends.
class HostRun {
public:
    /// `plugIn` is not owned. `limit` is the time for each promise, for beginning and for ending.
    /// The host keeps its files in an empty folder in `folder`, which is removed if the process
    /// ends.
    HostRun(QVHostPlugIn &plugIn, HostReport::Format format, std::chrono::seconds limit,
            QTemporaryDir &folder);

    /// Returns whether no promise is broken, or an error if the host cannot be begun or was built
    /// for another version of the interface, whose promises are others, or if not all of the report
    /// could be written. Blocks until the host has
    /// ended, and runs the event loop. Must be called once.
    Expected<bool> run();

private:
    /// Checks the promises in their order, each within the limit.
    void checkAll();
    /// Ends the host.
    void end();
    /// Reports that the host did not return from begin() or end(), or while `promise` was checked,
    /// and ends the process.
    [[noreturn]] void endWithout(const char *function);
    [[noreturn]] void endWithout(const HostPromise &promise);
    /// Says how long was waited.
    QString reason() const;

    QVHostPlugIn &m_plugIn;
    const std::chrono::seconds m_limit;
    QTemporaryDir &m_folder;
    HostReport m_report;
    HostDeadline m_deadline;
};
