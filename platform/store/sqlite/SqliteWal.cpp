#include "SqliteWal.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <QUrl>
#include <sqlite3.h>

namespace
{
constexpr int headerLength = 32;
constexpr int frameHeaderLength = 24;
constexpr int smallestPage = 512;
constexpr int largestPage = 65536;
constexpr int lockMs = 15000;
constexpr quint32 magic = 0x377F0682; // its last bit is the byte order of the checksums

quint32 number(const char* bytes)
{
    return qFromBigEndian<quint32>(bytes);
}

/// The running checksum of a SQLite log.
struct Checksum {
    quint32 first = 0;
    quint32 second = 0;
    bool isBigEndian = false;

    void add(const char* bytes, int length)
    {
        for (int i = 0; i + 8 <= length; i += 8) {
            first += word(bytes + i) + second;
            second += word(bytes + i + 4) + first;
        }
    }
    bool equals(const char* bytes) const { return first == number(bytes) && second == number(bytes + 4); }

private:
    quint32 word(const char* bytes) const
    {
        return isBigEndian ? qFromBigEndian<quint32>(bytes) : qFromLittleEndian<quint32>(bytes);
    }
};

/// The two marks on a page of LogMark: a leaf of a table with one row of two blobs. Empty for any other
/// page.
QByteArray marksOn(const char* page, int length)
{
    static const QByteArray rowHead("\x44\x01\x04\x00\x4C\x4C", 6); // lengths and types of one row numbered 1
    constexpr int cellPointer = 8;
    const int cell = qFromBigEndian<quint16>(page + cellPointer);
    const int marks = cell + rowHead.size();
    if (page[0] != 0x0D || qFromBigEndian<quint16>(page + 3) != 1 ||
        marks + 2 * SqliteWal::markLength > length ||
        QByteArray::fromRawData(page + cell, rowHead.size()) != rowHead)
        return QByteArray();
    return QByteArray(page + marks, 2 * SqliteWal::markLength);
}

/// A connection that leaves the log unchanged when it is closed.
class Onlooker
{
public:
    Onlooker(const QString& file, int flags, const QByteArray& parameters)
    {
        const QByteArray uri = "file:" + QUrl::toPercentEncoding(file, "/") + parameters;
        if (sqlite3_open_v2(uri.constData(), &m_db, flags | SQLITE_OPEN_URI, nullptr) == SQLITE_OK)
            sqlite3_db_config(m_db, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
        sqlite3_busy_timeout(m_db, lockMs);
    }
    ~Onlooker() { sqlite3_close(m_db); }
    Onlooker(const Onlooker&) = delete;
    Onlooker& operator=(const Onlooker&) = delete;

    sqlite3* handle() const { return m_db; }
    int run(const char* sql) { return sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr) & 0xFF; }

private:
    sqlite3* m_db = nullptr;
};
} // namespace

bool SqliteWal::isFilled() const
{
    return QFileInfo(of(m_file)).size() > headerLength;
}

QByteArray SqliteWal::ownMark() const
{
    // An immutable file is read without its log.
    Onlooker look(m_file, SQLITE_OPEN_READONLY, "?immutable=1");
    QByteArray mark;
    sqlite3_stmt* row = nullptr;
    sqlite3_prepare_v2(look.handle(), "SELECT present FROM LogMark", -1, &row, nullptr);
    if (row && sqlite3_step(row) == SQLITE_ROW && sqlite3_column_bytes(row, 0) == markLength)
        mark = QByteArray(static_cast<const char*>(sqlite3_column_blob(row, 0)), markLength);
    sqlite3_finalize(row);
    return mark;
}

QVector<QByteArray> SqliteWal::marks() const
{
    QVector<QByteArray> all;
    QFile log(of(m_file));
    if (!log.open(QIODevice::ReadOnly))
        return all;
    const QByteArray header = log.read(headerLength);
    if (header.size() < headerLength || (number(header.constData()) & ~1U) != magic)
        return all;
    Checksum sum;
    sum.isBigEndian = (number(header.constData()) & 1U) != 0;
    sum.add(header.constData(), frameHeaderLength);
    const quint32 pageLength = number(header.constData() + 8);
    if (!sum.equals(header.constData() + frameHeaderLength) || pageLength < smallestPage ||
        pageLength > largestPage)
        return all;

    const int length = static_cast<int>(pageLength);
    QByteArray open; // the transaction whose frames are being read
    for (;;) {
        const QByteArray frame = log.read(frameHeaderLength + length);
        if (frame.size() < frameHeaderLength + length || frame.mid(8, 8) != header.mid(16, 8))
            return all; // the end, or remains of a former log
        sum.add(frame.constData(), 8);
        sum.add(frame.constData() + frameHeaderLength, length);
        if (!sum.equals(frame.constData() + 16))
            return all;
        // Recognised by its content: in a copy the page may have another number.
        const QByteArray found = marksOn(frame.constData() + frameHeaderLength, length);
        if (!found.isEmpty())
            open = found;
        if (number(frame.constData() + 4) == 0 || open.isEmpty())
            continue;
        if (all.isEmpty())
            all.append(open.left(markLength));
        all.append(open.mid(markLength));
        open.clear();
    }
}

bool SqliteWal::seemsForeign() const
{
    const QByteArray own = ownMark();
    if (own.isEmpty())
        return false; // an older store, or a file that a crash has left in the middle of an upgrade
    const QVector<QByteArray> known = marks();
    return !known.isEmpty() && !known.contains(own);
}

bool SqliteWal::isForeign() const
{
    if (!isFilled() || !seemsForeign())
        return false;
    // File and log of a store in use may change between the two reads. While nobody can write they do not
    // change.
    Onlooker guard(m_file, SQLITE_OPEN_READWRITE, QByteArray());
    return guard.run("BEGIN IMMEDIATE") != SQLITE_BUSY && seemsForeign();
}
