#pragma once

class Store;

/// Writes the journal that TestStore.h tells into an empty store; \a now is the second that its times hang on.
void writeStandardJournal(Store* loader, double now);
