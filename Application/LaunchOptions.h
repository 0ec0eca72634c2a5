#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <chrono>
#include <optional>

#include "Application/Interface/FirstContents.h"
#include "Application/ShellCommand.h"

/// The command line and environment, parsed. A value; parsing opens nothing and does not check
/// whether paths exist.
struct LaunchOptions {
    /// Path of the profile folder; never empty. By default the user's application data folder.
    QString profile;
    /// Path of the image file of Sync Preferences to write; empty if none is requested. The
    /// extension determines the format.
    QString screenshot;
    /// Whether to print the profile as JSON.
    bool describe = false;
    /// Whether to verify the profile and its sync stores, and whether to repair what is damaged.
    /// The latter only together with `verify`.
    bool verify = false;
    bool repair = false;
    /// Whether to print the result of `verify`, or of the command "status", as JSON; set only
    /// together with one of them.
    bool json = false;
    /// What to do with the profile; never set together with the other tasks.
    std::optional<ShellCommand> command;
    /// The maximum duration of the command.
    std::chrono::seconds timeout{0};
    /// How a new profile begins, without a question; empty if that is not stated.
    std::optional<FirstContents> begin;
    /// Whether to open Sync Preferences in any case.
    bool preferences = false;
    /// "light", "dark", or empty for the desktop's colors.
    QString appearance;
    /// Whether the profile is sandboxed from now on; empty leaves the setting unchanged. Never set
    /// together with `verify`.
    std::optional<bool> sandboxed;
    /// Whether no display server is available (no DISPLAY, WAYLAND_DISPLAY or QT_QPA_PLATFORM) and
    /// no option selects a platform plug-in that needs none.
    bool hasNoDisplay = false;

    /// Returns whether the program works without opening a window.
    bool isBatch() const {
        return command || verify || describe || hasNoDisplay || !screenshot.isEmpty();
    }

    /// Parses the command line and the environment. `arguments` includes the program's name; the
    /// options that QApplication reads are passed over. Exits the process for --help and --version.
    /// Also if an option or argument is invalid or options exclude each other: then with a message
    /// that says so, and with EXIT_FAILURE, or with ShellResult::NotDone if there is a command. A
    /// QCoreApplication must exist, and the translations be installed; no window system is needed.
    static LaunchOptions parse(const QStringList &arguments);
};
