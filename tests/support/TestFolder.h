#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

/// The template of a temporary folder, in memory if the system has such a folder: tests would otherwise
/// mostly wait for the disk.
inline QString testFolderTemplate()
{
    const QFileInfo memory(QStringLiteral("/dev/shm"));
    const bool isUsable = memory.isDir() && memory.isWritable();
    return (isUsable ? memory.filePath() : QDir::tempPath()) + QStringLiteral("/vrk-test-XXXXXX");
}
