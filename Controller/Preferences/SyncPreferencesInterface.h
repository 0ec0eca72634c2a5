#pragma once

/// Registers the pane's forms, and the classes and value transformers that they name. Called before
/// a pane is made; harmless when called again. Main thread.
void registerSyncPreferencesInterface();
