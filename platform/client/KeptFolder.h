#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

/// A folder of small files that belong to the process that holds their locks. When a process has ended, the
/// next one that looks takes over its files. Anyone with write access to the folder may plant entries
/// there, so links, devices, files of other users and files with other names are ignored. Own files are
/// readable only by the user, and a written file is complete on the disk.
class KeptFolder
{
public:
    struct File {
        QByteArray id;
        QByteArray bytes;
    };

    /// Creates the folder when it is first needed.
    explicit KeptFolder(const QString& path);
    /// Releases its files: they stay for the next process.
    ~KeptFolder();
    KeptFolder(const KeptFolder&) = delete;
    KeptFolder& operator=(const KeptFolder&) = delete;

    /// Locks the files that belong to no living process, and returns them.
    QVector<File> takeOver();
    /// Writes or replaces a file of this process; \a id is 32 upper-case hexadecimal digits. False on
    /// failure; the file is then unchanged.
    bool write(const QByteArray& id, const QByteArray& bytes);
    /// Removes a file of this process; also true if there is none.
    bool remove(const QByteArray& id);
    /// Why the last operation failed, for the user.
    QString errorText() const { return m_errorText; }

private:
    bool open();
    bool openStep(int parent, const QByteArray& name, int* folder);
    void clearAway(const QByteArray& name);
    bool takeFile(const QByteArray& id, File* file);
    bool fail(int error);

    QString m_path;
    int m_folder = -1;
    QHash<QByteArray, int> m_locks; ///< descriptors of the files of this process
    QString m_errorText;
};
