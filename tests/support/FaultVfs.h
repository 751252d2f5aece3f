#pragma once

/// Lets SQLite's file operations of this process fail at will, so that tests can walk through all places where a disk
/// may give out. Once installed it stays; without an armed fault it passes everything on.
namespace FaultVfs
{
enum Operation { Read, Write, Sync };

void install();
/// The operation number \a n (1 is the next one) of this kind, and with \a lasting all after it, give the engine's
/// result \a code.
void arm(Operation operation, int n, int code, bool lasting = false);
/// Stops failing; true when the fault had come to pass.
bool disarm();
} // namespace FaultVfs
