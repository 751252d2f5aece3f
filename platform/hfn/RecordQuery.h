#pragma once

#include <QByteArray>
#include <QString>

/// Search criteria for the records of all workshifts. An empty field is no condition.
struct RecordQuery {
    QString words;            ///< words, phrases and exclusions for the visible text (SearchWords)
    QString equipment;        ///< the same for the substations, lines, bays and equipment of the text
    QByteArray departmentKey; ///< of the workshift
    QByteArray workerKey;     ///< the author
    int status = -1;          ///< RecordStatus; -1: any
    double from = 0;          ///< recordTime, inclusive; 0: from the beginning
    double to = 0;            ///< exclusive; 0: to the end
    int limit = 500;          ///< maximum number of records; the newest are returned
};
