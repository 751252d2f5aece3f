#pragma once

class Store;

/// Writes the journal described in TestStore.h into an empty store; its times are relative to \a now.
void writeStandardJournal(Store* loader, double now);
