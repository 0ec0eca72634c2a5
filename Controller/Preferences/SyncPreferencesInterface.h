#pragma once

/// Registers the pane's forms, and the classes and value transformers that they name, with Nib,
/// QVListView and ValueTransformer. Must be called on the main thread before a pane is created.
/// Idempotent. Loads no form. The registrations last until the program ends, so the plug-in must
/// not be unloaded afterwards.
void registerSyncPreferencesInterface();
