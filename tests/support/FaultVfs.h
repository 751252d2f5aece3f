#pragma once

/// Makes SQLite's file operations of this process fail on request, so that tests can walk through all
/// places where a disk may fail. Once installed it stays; without an armed fault it passes everything on.
namespace FaultVfs
{
enum Operation { Read, Write, Sync };

void install();
/// The \a n-th operation of this kind (1 is the next one), and with \a lasting all after it, return the
/// engine's result \a code.
void arm(Operation operation, int n, int code, bool lasting = false);
/// Stops failing; true if the fault has happened.
bool disarm();
} // namespace FaultVfs
