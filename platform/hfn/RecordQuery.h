#pragma once

#include <QByteArray>
#include <QString>

/// What is looked for among the records of all workshifts. An empty field asks for nothing.
struct RecordQuery {
    QString words;     ///< each has to stand in the visible text (SearchWords)
    QString equipment; ///< each word has to stand in the substations, lines, bays and equipment of the text
    QByteArray departmentKey; ///< of the workshift
    QByteArray workerKey;     ///< the author
    int status = -1;          ///< RecordStatus; -1: any
    double from = 0;          ///< recordTime, the bound included; 0: from the beginning
    double to = 0;            ///< the bound left out; 0: to the end
    int limit = 500;          ///< so many at most, the newest
};
