#pragma once

#include "DemoStore.h"
#include "MDRValues.h"
#include "Store.h"
#include "StoreAdmin.h"

#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

inline qint64 at(const char* text)
{
    return QDateTime::fromString(QLatin1String(text), QStringLiteral("dd.MM.yyyy hh:mm")).toSecsSinceEpoch();
}

/// The demo journal in a separate file; rows are read through the store.
class DemoFile
{
public:
    QString path() const { return m_folder.filePath(QStringLiteral("demo.sqlite")); }
    QString url() const { return QStringLiteral("sqlite://") + path(); }

    /// Rows of a select, all columns, texts decoded.
    QVector<QVariantList> rows(const QString& sql) const
    {
        StoreError error;
        Store::Options options;
        options.loader = true;
        const std::unique_ptr<Store> store = Store::open(url(), options, &error);
        if (!store)
            qFatal("%s", qPrintable(error.text));
        CMDArray answer;
        answer = store->select(sql.toUtf8(), &error);
        if (!answer.array)
            qFatal("%s %s", qPrintable(error.text), qPrintable(sql));
        QVector<QVariantList> rows;
        for (int i = 0; i < answer.RecCount(); ++i) {
            QVariantList row;
            for (int f = 0; f < MDAFldCount(answer.array); ++f) {
                MDRVar value;
                MDRGetVal(MDRFldByNum(answer.array, f), MDARec(answer.array, 0, i), &value);
                if (value.isNull)
                    row << QVariant();
                else if (value.type == mdr_TBlob)
                    row << MDRValue::copy(value);
                else if (MDRValue::isText(value))
                    row << store->codec()->toUnicode(MDRValue::copy(value));
                else if (value.type == mdr_TDouble)
                    row << value.value.real;
                else
                    row << value.value.number;
            }
            rows << row;
        }
        return rows;
    }
    QVariant value(const QString& sql) const { return rows(sql).value(0).value(0); }
    int count(const QString& from) const
    {
        return value(QStringLiteral("SELECT count(*) FROM ") + from).toInt();
    }

    /// Faults and notes of a check, one a line.
    QString findings() const
    {
        QVector<StoreAdmin::Finding> found;
        StoreError error;
        if (!StoreAdmin::check(url(), &found, &error))
            return error.text;
        QStringList lines;
        for (const StoreAdmin::Finding& finding : found)
            lines << finding.text;
        return lines.join(QLatin1Char('\n'));
    }

    DemoStore::State state(qint64 now) const
    {
        DemoStore::State state = DemoStore::State::Foreign;
        StoreError error;
        if (!DemoStore::state(url(), now, &state, &error))
            qFatal("%s", qPrintable(error.text));
        return state;
    }

private:
    QTemporaryDir m_folder;
};

inline void fill(const DemoFile& demo, qint64 now)
{
    StoreError error;
    QVERIFY2(DemoStore::fill(demo.url(), now, &error),
             qPrintable(error.text + QLatin1Char(' ') + error.detail));
}

/// A select of the key of the open shift that tells the story, in brackets.
const char storyShift[] =
    "(SELECT W.KeyLink FROM LogbookWorkshifts AS W JOIN Departments AS D ON D.KeyLink = "
    "W.DepartmentKey WHERE D.name_ = 'ЦДС' AND coalesce(W.CloseWorkerKey, '') = '')";

/// "FROM" clause: the records of that shift that meet a condition.
inline QString inStory(const char* condition)
{
    return QStringLiteral("LogbookRecords WHERE ShiftKey = %1 AND %2")
        .arg(QString::fromUtf8(storyShift), QString::fromUtf8(condition));
}
