#pragma once

#include "CMDArray.h"
#include "LogbookFields.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

class QTextCodec;
struct MDRRecordType;

/// The values of a journal record that its author can set, apart from any array.
struct RecordDraft {
    QString html;           ///< the filled template
    double eventTime = 0;   ///< HfnTime
    double firstMark = 0;   ///< 0: none
    QByteArray receiverKey; ///< counterpart; empty: none
    int direction = DirectionNone;
    int status = StatusDraft;

    /// Reads the record; fields that it lacks keep their present values.
    void read(const MDRData* record, const QTextCodec* codec);
    /// Takes over the marked fields of a change event's row.
    void readMarked(const MDRRecordType& type, const MDRData& record, const QTextCodec* codec);
    /// Sets and marks the fields in which this differs from \a before; false when it differs in none. The status is
    /// none of them: only approval and deletion change it.
    bool writeChanges(CMDArray& rows, MDRData* row, const RecordDraft& before, const QTextCodec* codec) const;
    /// Sets and marks html, times, counterpart and direction.
    void writeAll(CMDArray& rows, MDRData* row, const QTextCodec* codec) const;
    /// What differs, in the user's words: "текст", "время события", "корреспондент", "направление".
    QStringList differences(const RecordDraft& other) const;

    /// The template has a first marker, so that the record bears the time of the event as its first mark.
    static QString firstMarker(const QString& html);
};
