#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

class CVrkCliSes;
class KeyNames;

/// The comments on records and the files attached to them, as a page shows them below the text of the record.
class RecordNotes
{
public:
    struct Note {
        QString label; ///< what it is: a comment with its author and time, a file with its size
        QString text;  ///< the comment, or the name of the file without marks that change the direction
        QByteArray fileKey = QByteArray(); ///< empty for a comment
    };

    /// Neither is owned.
    RecordNotes(CVrkCliSes* session, const KeyNames* names) : m_session(session), m_names(names) {}

    /// Reads those of the records with these keys; false if the store does not answer.
    bool load(const QVector<QByteArray>& records);
    /// The comments of a record by their time, then its files by their names.
    QVector<Note> of(const QByteArray& record) const { return m_notes.value(record); }

    /// "12 КБ": in steps of a tenth from a megabyte on.
    static QString sizeText(qint64 bytes);

private:
    bool loadComments(const QByteArray& records);
    bool loadFiles(const QByteArray& records);

    CVrkCliSes* m_session;
    const KeyNames* m_names;
    QHash<QByteArray, QVector<Note>> m_notes; ///< by record
};
