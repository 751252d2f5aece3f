#pragma once

#include "CMDArray.h"
#include "LogbookFields.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

class QTextCodec;
struct MDRRecordType;

/// The values of a journal record that its author can set, independent of any array.
struct RecordDraft {
    QString html;           ///< the filled template
    double eventTime = 0;   ///< HfnTime
    double firstMark = 0;   ///< 0: none
    QByteArray receiverKey; ///< counterpart; empty: none
    int direction = DirectionNone;
    int status = StatusDraft;

    /// Reads the record; a missing field does not change the value here.
    void read(const MDRData* record, const QTextCodec* codec);
    /// Reads the marked fields of a change event's row.
    void readMarked(const MDRRecordType& type, const MDRData& record, const QTextCodec* codec);
    /// Sets and marks the fields that differ from \a before; false if none does. The status is not
    /// included: only approval and deletion change it.
    bool writeChanges(CMDArray& rows, MDRData* row, const RecordDraft& before, const QTextCodec* codec) const;
    /// Sets and marks html, times, counterpart and direction.
    void writeAll(CMDArray& rows, MDRData* row, const QTextCodec* codec) const;
    /// These values, with those of \a theirs wherever they are still equal to \a before.
    RecordDraft mergedWith(const RecordDraft& theirs, const RecordDraft& before) const;
    /// The differences in the user's words: "текст", "время события", "корреспондент", "направление".
    QStringList differences(const RecordDraft& other) const;

    /// The first marker of the template, empty without one. With a marker, the time of the event is also
    /// the record's first mark.
    static QString firstMarker(const QString& html);
};
