#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <optional>

/// What the command line asks for.
struct LaunchOptions {
    /// The profile's folder; the user's own where none is named.
    QString profile;
    /// Where to write a picture of the panel; empty: nowhere.
    QString screenshot;
    /// Whether to print the profile.
    bool describe = false;
    /// "light", "dark", or empty for what the desktop has.
    QString appearance;
    /// Whether the profile is to be sandboxed from now on; absent: as it was.
    std::optional<bool> sandboxed;
    /// Whether there is nothing to show a window on.
    bool hasNoDisplay = false;

    /// Whether the program does its work without opening a window.
    bool isBatch() const { return describe || hasNoDisplay || !screenshot.isEmpty(); }

    /// Reads the command line and the environment. Ends the program for --help, and for options
    /// that make no sense, after saying so.
    static LaunchOptions parse(const QStringList &arguments);
};
