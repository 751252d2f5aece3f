#include "HistoryMemory.h"

#include "EpochHistory.h"
#include "HashTiles.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
const QString what = QStringLiteral("what");

QString now()
{
    return QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
}

QString words(const char* text)
{
    return QString::fromUtf8(text);
}

/// An end of a log for a person.
QString shown(const QByteArray& epoch, qint64 number, const QByteArray& chain)
{
    return words("транзакция %1, цепочка %2, эпоха %3")
        .arg(number)
        .arg(QString::fromLatin1(chain.left(8).toHex()), QString::fromUtf8(epoch.left(8)));
}

QString shown(const LogHead& head)
{
    return words("печать %1, эпоха %2")
        .arg(QString::fromLatin1(head.onPaper()), QString::fromUtf8(head.epoch.left(8)));
}

QString shown(const QVector<VerifierKey>& keys)
{
    QStringList texts;
    for (const VerifierKey& key : keys)
        texts << QString::fromUtf8(key.text());
    return words("ключ ") + (texts.isEmpty() ? words("не назван") : texts.join(QStringLiteral(", ")));
}

QByteArray bytes(const QJsonObject& entry, const char* name)
{
    return entry.value(QLatin1String(name)).toString().toUtf8();
}

QString text(const QJsonObject& entry, const char* name)
{
    return entry.value(QLatin1String(name)).toString();
}
} // namespace

// The file: one JSON object a line.

bool HistoryMemory::fail(const QString& reason)
{
    m_errorText = reason;
    return false;
}

void HistoryMemory::forget()
{
    const qint64 read = m_read;
    *this = HistoryMemory(m_file);
    m_read = read;
}

void HistoryMemory::load()
{
    m_errorText.clear();
    QFile file(m_file);
    if (file.size() < m_read) { // it was replaced: what it says now counts
        m_read = 0;
        forget();
    }
    if (!file.exists())
        return;
    if (!file.open(QIODevice::ReadOnly) || !file.seek(m_read)) {
        fail(file.errorString());
        return;
    }
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        if (line.endsWith('\n')) // the last one may be unfinished
            m_read += line.size();
        take(QJsonDocument::fromJson(line).object()); // a line that a power cut has shortened is empty
    }
}

void HistoryMemory::take(const QJsonObject& entry)
{
    const QString kind = text(entry, "what");
    if (kind == QLatin1String("key")) {
        const VerifierKey key = VerifierKey::parse(bytes(entry, "key"));
        if (key.isValid() && !isKnown(key))
            m_keys.append(key);
    } else if (kind == QLatin1String("head")) {
        if (const SignedNote note(bytes(entry, "note")); note.isValid())
            m_heads.append(note.head());
    } else if (kind == QLatin1String("end")) {
        m_ends.append({bytes(entry, "epoch"), bytes(entry, "number").toLongLong(),
                       QByteArray::fromBase64(bytes(entry, "chain"))});
    } else if (kind == QLatin1String("followed")) {
        m_kept = {bytes(entry, "epoch"), bytes(entry, "number").toLongLong(),
                  QByteArray::fromBase64(bytes(entry, "chain"))};
        return; // it was not compared with the history: by itself it is no acquaintance
    } else if (kind == QLatin1String("restored")) {
        m_restored = bytes(entry, "epoch");
    } else if (kind == QLatin1String("alarm")) {
        m_alarm = {entry.value(QLatin1String("other")).toBool() ? OtherStore : Altered, text(entry, "text"),
                   text(entry, "remembered"), text(entry, "found"), text(entry, "time")};
    } else if (kind == QLatin1String("confirmed")) {
        forget();
        return;
    } else {
        return;
    }
    m_isMet = true;
}

bool HistoryMemory::append(const QVector<QJsonObject>& entries)
{
    QByteArray lines;
    for (const QJsonObject& entry : entries)
        lines += QJsonDocument(entry).toJson(QJsonDocument::Compact) + '\n';
    if (lines.isEmpty())
        return true;
    const QString folder = QFileInfo(m_file).absolutePath();
    QDir().mkpath(folder);
    ::chmod(QFile::encodeName(folder).constData(), 0700);
    const int file = ::open(QFile::encodeName(m_file).constData(),
                            O_RDWR | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0)
        return fail(qt_error_string(errno));
    // A power cut or a full disk may have left a part of a line.
    char last = '\n';
    const off_t end = ::lseek(file, 0, SEEK_END);
    if (end > 0 && ::pread(file, &last, 1, end - 1) == 1 && last != '\n')
        lines.prepend('\n');
    const bool isWritten =
        ::write(file, lines.constData(), size_t(lines.size())) == lines.size() && ::fsync(file) == 0;
    const int error = errno;
    ::close(file);
    return isWritten || fail(error == 0 ? words("нет места") : qt_error_string(error));
}

// The comparison.

void HistoryMemory::raise(Report* report, Finding finding, const QString& reason, const QString& remembered,
                          const QString& found) const
{
    *report = {finding, reason, remembered, found, now()};
}

HistoryMemory::Report HistoryMemory::alarm()
{
    load();
    return m_alarm;
}

bool HistoryMemory::confirm(const QString& administrator, const QString& user)
{
    if (!append({{{what, QStringLiteral("confirmed")},
                  {QStringLiteral("time"), now()},
                  {QStringLiteral("administrator"), administrator},
                  {QStringLiteral("user"), user}}}))
        return false;
    load();
    return true;
}

QJsonObject HistoryMemory::endEntry(const char* kind, const End& end)
{
    return {{what, QLatin1String(kind)},
            {QStringLiteral("epoch"), QString::fromUtf8(end.epoch)},
            {QStringLiteral("number"), QString::number(end.number)},
            {QStringLiteral("chain"), QString::fromLatin1(end.chain.toBase64())}};
}

QJsonObject HistoryMemory::alarmEntry(const Report& report)
{
    return {{what, QStringLiteral("alarm")},         {QStringLiteral("other"), report.finding == OtherStore},
            {QStringLiteral("text"), report.text},   {QStringLiteral("remembered"), report.remembered},
            {QStringLiteral("found"), report.found}, {QStringLiteral("time"), report.time}};
}

HistoryMemory::Report HistoryMemory::takeBreak(const QByteArray& epoch, qint64 number,
                                               const QByteArray& expected, const QByteArray& found)
{
    Report report = alarm();
    if (report.isAlarm())
        return report;
    raise(
        &report, Altered,
        words(
            "Транзакция %1 не продолжает историю, которую это рабочее место видело до неё: записанное раньше "
            "изменили, вынули или вставили.")
            .arg(number),
        shown(epoch, number, expected), shown(epoch, number, found));
    m_alarm = report; // also if it cannot be written
    append({alarmEntry(report)});
    return report;
}

void HistoryMemory::follow(const QByteArray& epoch, qint64 number, const QByteArray& chain)
{
    // A server's feed also names its database and timeline, behind a full stop: they are not in the log.
    if (!chain.isEmpty())
        m_followed = {epoch.split('.').constFirst(), number, chain};
}

void HistoryMemory::keepFollowed()
{
    if (alarm().isAlarm() || !m_isMet || m_followed.number == 0 || m_followed == m_kept ||
        m_ends.contains(m_followed))
        return;
    append({endEntry("followed", m_followed)});
}

bool HistoryMemory::check(EvidenceLog& log, const QByteArray& published, Report* report)
{
    *report = alarm();
    if (report->isAlarm())
        return true;
    EpochHistory epochs;
    End present;
    if (!epochs.load(log) || !log.end(&present.number, &present.epoch) ||
        !log.chainOf(present.number, &present.chain))
        return false;
    QVector<QJsonObject> news;
    if (!m_isMet)
        report->finding = FirstSeen;
    else if (knowsEpochs(epochs, report) && !compareEnds(log, epochs, present, report))
        return false;
    if (!report->isAlarm() && !compareHeads(log, epochs, published, present, report, &news))
        return false;
    if (report->isAlarm()) {
        news = {alarmEntry(*report)};
    } else {
        if (report->finding == Restored)
            news.append({{what, QStringLiteral("restored")},
                         {QStringLiteral("epoch"), QString::fromUtf8(present.epoch)},
                         {QStringLiteral("text"), report->text},
                         {QStringLiteral("time"), report->time}});
        const bool isKnown = std::any_of(m_ends.cbegin(), m_ends.cend(), [&](const End& end) {
            return end.epoch == present.epoch && end.number == present.number;
        });
        if (!isKnown)
            news.append(endEntry("end", present));
    }
    append(news);
    return true;
}

bool HistoryMemory::knowsEpochs(const EpochHistory& epochs, Report* report) const
{
    QByteArray missing;
    bool isAnyKnown = false;
    const auto see = [&](const QByteArray& epoch) {
        if (epochs.endOf(epoch) < 0)
            missing = epoch;
        else
            isAnyKnown = true;
    };
    for (const End& end : m_ends)
        see(end.epoch);
    for (const LogHead& head : m_heads)
        see(head.epoch);
    if (missing.isEmpty())
        return true;
    const QString former = words("эпоха %1").arg(QString::fromUtf8(missing));
    const QString present = words("эпоха %1").arg(QString::fromUtf8(epochs.current()));
    if (isAnyKnown)
        raise(report, Altered,
              words("История хранилища вернулась к тому, что было до возврата копии: её продолжения, которое "
                    "видело это рабочее место, больше нет."),
              former, present);
    else
        raise(
            report, OtherStore,
            words("По этому адресу теперь другое хранилище: с тем, которое видело это рабочее место, у него "
                  "нет общей истории."),
            former, present);
    return false;
}

bool HistoryMemory::compareEnd(EvidenceLog& log, const End& end, const End& present, Report* report) const
{
    QByteArray chain;
    if (!log.chainOf(end.number, &chain))
        return false;
    if (chain != end.chain)
        raise(report, Altered,
              words("История хранилища до транзакции %1 не та, которую видело это рабочее место: записанное "
                    "изменили, вынули или вставили.")
                  .arg(end.number),
              shown(end.epoch, end.number, end.chain), shown(present.epoch, end.number, chain));
    return true;
}

bool HistoryMemory::compareEnds(EvidenceLog& log, const EpochHistory& epochs, const End& present,
                                Report* report) const
{
    End last; // of those that must be contained
    const auto see = [&](const End& end, End* largest) {
        if (end.number <= epochs.endOf(end.epoch)) {
            if (end.number > largest->number)
                *largest = end;
        } else if (end.epoch == present.epoch && !report->isAlarm()) {
            raise(report, Altered,
                  words("Журнал изменений хранилища стал короче, чем его видело это рабочее место."),
                  shown(end.epoch, end.number, end.chain),
                  shown(present.epoch, present.number, present.chain));
        }
    };
    for (const End& end : m_ends)
        see(end, &last);
    // Each by itself: an end that the feed has read must not hide one that was compared.
    End kept;
    End followed;
    see(m_kept, &kept);
    see(m_followed, &followed);
    for (const End& end : {last, kept, followed})
        if (end.number > 0 && !report->isAlarm() && !compareEnd(log, end, present, report))
            return false;
    if (report->isAlarm())
        return true;
    const bool isSeen = std::any_of(m_ends.cbegin(), m_ends.cend(),
                                    [&](const End& end) { return end.epoch == present.epoch; });
    if (isSeen || m_restored == present.epoch || epochs.changes().isEmpty())
        return true;
    const EpochHistory::Change& restore = epochs.changes().constLast();
    raise(report, Restored,
          words("Хранилище возвращено из копии: %1, %2. Записанное после копии могло пропасть: журнал "
                "продолжается с транзакции %3.")
              .arg(QDateTime::fromSecsSinceEpoch(qint64(restore.time))
                       .toString(QStringLiteral("dd.MM.yyyy hh:mm")),
                   QString::fromUtf8(restore.login))
              .arg(restore.number),
          QString(), shown(present.epoch, present.number, present.chain));
    return true;
}

bool HistoryMemory::isKnown(const VerifierKey& key) const
{
    return std::any_of(m_keys.cbegin(), m_keys.cend(),
                       [&](const VerifierKey& known) { return known.text() == key.text(); });
}

void HistoryMemory::meetKeys(const SignedNote& note, const QVector<VerifierKey>& offered,
                             QVector<QJsonObject>* news)
{
    for (const VerifierKey& key : offered) {
        if (isKnown(key) || !note.signer({key}).isValid())
            continue;
        m_keys.append(key);
        news->append({{what, QStringLiteral("key")}, {QStringLiteral("key"), QString::fromUtf8(key.text())}});
    }
}

bool HistoryMemory::compareHeads(EvidenceLog& log, const EpochHistory& epochs, const QByteArray& published,
                                 const End& present, Report* report, QVector<QJsonObject>* news)
{
    // The newest remembered head that must be contained.
    LogHead last;
    for (const LogHead& head : qAsConst(m_heads))
        if (head.size <= epochs.endOf(head.epoch) && head.size >= last.size)
            last = head;
        else if (head.epoch == present.epoch && head.size > present.number) {
            raise(report, Altered,
                  words("Журнал изменений хранилища стал короче, чем его видело это рабочее место."),
                  shown(head), shown(present.epoch, present.number, present.chain));
            return true;
        }

    QMap<qint64, QByteArray> notes;
    if (!log.headsFrom(last.size, &notes))
        return false;
    const QVector<VerifierKey> offered = VerifierKey::parseAll(published);
    const QVector<VerifierKey> pinned = m_keys;
    if (m_keys.isEmpty() && !notes.isEmpty())
        meetKeys(SignedNote(notes.last()), offered, news);
    if (m_keys.isEmpty())
        return true; // never sealed, or by a key that nobody has named yet
    LogHead newest;
    bool isNewestSigned = true;
    for (const QByteArray& text : qAsConst(notes)) {
        const SignedNote note(text);
        isNewestSigned = note.signer(m_keys).isValid();
        if (!isNewestSigned)
            continue;
        newest = note.head();
        meetKeys(note, offered, news);
    }
    if (!isNewestSigned) {
        raise(
            report, Altered,
            words("Новую печать хранилища подписал ключ, которого это рабочее место не знает: ключ подменили "
                  "или сменили без общей подписи с прежним."),
            shown(pinned), shown(offered));
        return true;
    }
    const bool isOld = newest.size < last.size || newest.epoch.isEmpty();
    if (isOld && last.epoch != present.epoch)
        return true; // a copy may lack the last heads of the former epoch: the chain has been compared
    if (isOld || newest.size > present.number) {
        raise(report, Altered,
              isOld ? words("Печати, которую видело это рабочее место, в хранилище больше нет.")
                    : words("Журнал изменений хранилища короче, чем удостоверяет его печать."),
              isOld ? shown(last) : shown(newest), shown(present.epoch, present.number, present.chain));
        return true;
    }
    const HashTiles tiles(log, newest.size);
    const QVector<TreeHash> proof = tiles.consistency(last.size, newest.size);
    const bool isContained =
        last.size == 0 || MerkleTree::isConsistent(last.size, last.root, newest.size, newest.root, proof);
    const bool isRoot = tiles.root() == newest.root;
    if (!isContained || !isRoot || tiles.isBroken()) {
        raise(
            report, Altered,
            isContained && !isRoot
                ? words("Записанное в хранилище не сходится с его печатью.")
                : words("Хранилище не доказывает, что продолжает печать, которую видело это рабочее место."),
            shown(last), shown(newest));
        return true;
    }
    if (newest.size > last.size || newest.epoch != last.epoch)
        news->append({{what, QStringLiteral("head")},
                      {QStringLiteral("note"), QString::fromUtf8(notes.value(newest.size))}});
    return true;
}
