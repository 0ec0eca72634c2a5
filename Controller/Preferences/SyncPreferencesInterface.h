#pragma once

/// Registers the pane's forms, and the classes and value transformers that they name. Must be
/// called on the main thread before a pane is created. Idempotent. The registrations last until the
/// program ends, so the plug-in must not be unloaded afterwards.
void registerSyncPreferencesInterface();
