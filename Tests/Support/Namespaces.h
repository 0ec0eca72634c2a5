#pragma once

/// The user that a process becomes in a user namespace of its own.
enum class NamespaceUser {
    Same,  ///< Its own id. Programs that it starts have no privileges.
    Root   ///< Root, as which it can start programs that need privileges in the namespace.
};

/// The exit code of a test that cannot run on this system; CTest then reports it as skipped.
inline constexpr int CannotRunExitCode = 77;

/// Returns true if `enterNamespaces` would succeed with these arguments; otherwise `errno` is the
/// reason. Must be called while the process has one thread.
bool areNamespacesAllowed(int flags, NamespaceUser user);

/// Exits the process with CannotRunExitCode, after writing the reason to standard error, unless
/// `areNamespacesAllowed` returns true.
void requireNamespaces(int flags, NamespaceUser user);

/// Moves this process into the new namespaces `flags` (CLONE_NEWNS, CLONE_NEWNET), with private
/// mounts. An unprivileged process also gets a user namespace, in which it is `user`. Must be
/// called while the process has one thread. If the system does not allow it, the function writes
/// the reason to standard error and exits the process with CannotRunExitCode.
void enterNamespaces(int flags, NamespaceUser user);
