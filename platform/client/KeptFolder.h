#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

/// A folder of small files that belong to the process that has them locked: a file whose process has ended is taken
/// over by the next one that looks. Whoever else may write into the folder can plant there what he likes: links,
/// devices, files of other users and of other names are passed over. Its own files are readable to the user alone, and
/// a file that was written is on the disk as a whole.
class KeptFolder
{
public:
    struct File {
        QByteArray id;
        QByteArray bytes;
    };

    /// Makes the folder when it is first needed.
    explicit KeptFolder(const QString& path);
    /// Gives its files up: they stay for the next process.
    ~KeptFolder();
    KeptFolder(const KeptFolder&) = delete;
    KeptFolder& operator=(const KeptFolder&) = delete;

    /// Locks the files that no living process has, and returns them.
    QVector<File> takeOver();
    /// Writes or replaces a file of this process; \a id is 32 upper-case hexadecimal digits. False when it could not;
    /// the file is as it was then.
    bool write(const QByteArray& id, const QByteArray& bytes);
    /// Removes a file of this process; true when there is none.
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
