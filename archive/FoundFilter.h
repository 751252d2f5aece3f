#pragma once

#include "VrkTableFilterRow.h"

#include <QByteArray>
#include <QSet>
#include <QStringList>

class QTextCodec;

/// Which of the found records are shown. All conditions that are set must hold.
class FoundFilter : public VrkTableFilterRow
{
    Q_OBJECT

public:
    struct Conditions {
        QString text;         ///< parts of words, in any order
        QByteArray workerKey; ///< the author; empty for any
        QString marker;       ///< path of its picture; empty for any
        QString equipment;    ///< as a parameter names it; empty for any
        bool isMarked = false;
        bool isUndone = false; ///< without approval, execution time or second marker
        bool hasFiles = false;

        bool isAny() const
        {
            return !text.trimmed().isEmpty() || !workerKey.isEmpty() || !marker.isEmpty() ||
                   !equipment.isEmpty() || isMarked || isUndone || hasFiles;
        }
    };

    using VrkTableFilterRow::VrkTableFilterRow;
    void setCodec(const QTextCodec* codec) { m_codec = codec; }
    /// The records that have files, for hasFiles.
    void setRecordsWithFiles(const QSet<QByteArray>& keys) { m_withFiles = keys; }
    /// Every proxy that uses the rule filters again.
    void setConditions(const Conditions& conditions);
    bool isAcceptRow(const CMDArray* array, MDRData* record) const override;

private:
    const QTextCodec* m_codec = nullptr;
    Conditions m_conditions;
    QStringList m_parts;
    QSet<QByteArray> m_withFiles;
};
