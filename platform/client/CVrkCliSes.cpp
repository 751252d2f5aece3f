#include "CVrkCliSes_p.h"

#include "EvidenceLog.h"
#include "GenGuid32.h"
#include "LogHead.h"
#include "MDRValues.h"

#include <QDebug>
#include <QTextCodec>

namespace
{
const MDRFieldDescr fileFields[] = {
    {"folder", 100, mdr_TChar},
    {"name", 100, mdr_TChar},
    {"size", 0, mdr_TInt32},
    {"content", 0, mdr_TBlob},
};
constexpr int fileMissing = 1; ///< return code of "FileGet"

QByteArray packedFile(const QByteArray& folder, const QByteArray& name, const QByteArray& content)
{
    CRowBatch file(fileFields, 4);
    MDRData* row = MDARecNew(file.array);
    file.SetValF(row, "folder", MDRValue::text(folder));
    file.SetValF(row, "name", MDRValue::text(name));
    file.SetValF(row, "size", MDRValue::number(content.size()));
    file.SetValF(row, "content", MDRValue::text(content, mdr_TBlob));
    file.RecPost(row);
    return HFNArrayPack(file.array);
}

/// Reads a blob through the session's store. It may outlive the session; then it reads nothing.
class SessionBlob : public MDRBlobSource
{
public:
    SessionBlob(CVrkCliSes* session, const QByteArray& table, const QByteArray& field, const QByteArray& key)
        : m_session(session), m_table(table), m_field(field), m_key(key)
    {
    }
    bool read(QByteArray& bytes) const override
    {
        return m_session && m_session->readBlob(m_table, m_field, m_key, &bytes);
    }

private:
    QPointer<CVrkCliSes> m_session;
    QByteArray m_table;
    QByteArray m_field;
    QByteArray m_key;
};
} // namespace

CVrkCliSes::CVrkCliSes(std::unique_ptr<Store> store, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>())
{
    d->q = this;
    d->store = std::move(store);
    d->zone = ProcessZone::hold(d->store->timeZone());
    d->store->setProgress([this] { d->strip.tick(); });
    d->feed = std::make_unique<ChangeFeed>(d->store.get());
    connectFeed();
}

CVrkCliSes::~CVrkCliSes() = default;

bool CVrkCliSes::Private::fail(const char* function, const StoreError& error, const QString& what, bool write,
                               const QByteArray& table)
{
    lastError = error.text;
    qWarning().noquote() << function << error.text << error.detail << what;
    if ((error.code == StoreError::Lost || error.code == StoreError::Unsettled) && connected) {
        setConnected(false);
        if (started)
            feed->reportLost(error);
    }
    emit q->requestFailed(write, QString::fromUtf8(table), error.text);
    return false;
}

StoreError CVrkCliSes::Private::noLink()
{
    return {StoreError::Lost, tr("Нет связи с сервером."), QString()};
}

QTextCodec* CVrkCliSes::codec() const
{
    return d->store->codec();
}

Store* CVrkCliSes::store() const
{
    return d->store.get();
}

bool CVrkCliSes::isConnected() const
{
    return d->connected;
}

QString CVrkCliSes::caution() const
{
    return d->store->caution();
}

bool CVrkCliSes::isBusy() const
{
    return d->requests > 0;
}

QString CVrkCliSes::lastErrorText() const
{
    return d->lastError;
}

template <class Ask>
MDArray* CVrkCliSes::Private::request(const char* function, const QString& what, Ask ask)
{
    StoreError error = noLink();
    MDArray* answer = nullptr;
    if (connected) {
        Request running(this);
        error.clear();
        answer = ask(&error);
    }
    if (answer)
        lastError.clear();
    else
        fail(function, error, what);
    return answer;
}

MDArray* CVrkCliSes::SqlRequest(const char* sql)
{
    return d->request(Q_FUNC_INFO, QString::fromUtf8(sql),
                      [&](StoreError* error) { return d->store->select(QByteArray(sql), error); });
}

MDArray* CVrkCliSes::SearchRecords(const RecordQuery& query)
{
    return d->request(Q_FUNC_INFO, query.words,
                      [&](StoreError* error) { return d->store->search(query, error); });
}

int CVrkCliSes::OperationRights(const char* right)
{
    if (!d->connected)
        return 0;
    Private::Request request(d.get());
    return d->store->hasRight(QByteArray(right)) ? 1 : 0;
}

bool CVrkCliSes::PacketExec(const char* name, const unsigned char* data, int length, HFNCliParam** result)
{
    if (!result)
        return false;
    *result = nullptr;
    const QByteArray argument =
        data && length > 0 ? QByteArray(reinterpret_cast<const char*>(data), length) : QByteArray();
    const QString text = codec()->toUnicode(argument);
    if (qstrcmp(name, "FileGet") != 0) {
        const StoreError unknown{StoreError::BadRequest, tr("Неизвестный запрос к серверу."), QString()};
        return d->fail(Q_FUNC_INFO, unknown, QString::fromUtf8(name));
    }

    const QString folder = text.section(QLatin1Char(';'), 0, 0);
    const QString file = text.section(QLatin1Char(';'), 1);
    QByteArray content;
    StoreError error = Private::noLink();
    bool found = false;
    if (d->connected) {
        Private::Request request(d.get());
        error.clear();
        found = d->store->file(folder, file, &content, &error);
    }
    if (found) {
        *result = d->give(HFNCliParam::answer(
            0, packedFile(codec()->fromUnicode(folder), codec()->fromUnicode(file), content)));
    } else if (!error || error.code == StoreError::NoSuchRow) {
        *result = d->give(HFNCliParam::answer(fileMissing, QByteArray()));
    } else {
        return d->fail(Q_FUNC_INFO, error, text);
    }
    d->lastError.clear();
    return true;
}

bool CVrkCliSes::writeFile(const QString& folder, const QString& name, const QByteArray& content)
{
    StoreError error = Private::noLink();
    bool written = false;
    if (d->connected) {
        Private::Request request(d.get());
        error.clear();
        written = d->store->writeFile(folder, name, content, &error);
    }
    if (!written)
        return d->fail(Q_FUNC_INFO, error, folder + QLatin1Char(';') + name, true);
    d->lastError.clear();
    return true;
}

bool CVrkCliSes::WaitResult(HFNCliParam** result, int)
{
    return result && *result;
}

HFNCliParam* CVrkCliSes::Private::give(HFNCliParam* answer)
{
    given.emplace(answer, answer);
    return answer;
}

void CVrkCliSes::PrmFree(HFNCliParam* block)
{
    d->given.erase(block);
}

int CVrkCliSes::openBlocks() const
{
    return static_cast<int>(d->given.size());
}

double CVrkCliSes::GetHfnTime()
{
    double time = 0;
    if (d->connected) {
        Private::Request request(d.get());
        time = d->store->serverTime();
    }
    if (time > 0) {
        d->serverTime = time;
        d->sinceServerTime.start();
        return time;
    }
    if (d->serverTime > 0) {
        const qint64 seconds = d->sinceServerTime.elapsed() / 1000;
        return d->serverTime + static_cast<double>(seconds);
    }
    return static_cast<double>(QDateTime::currentSecsSinceEpoch());
}

QDateTime CVrkCliSes::HfnTimeToSesTime()
{
    return HfnTimeToSesTime(GetHfnTime());
}

QDateTime CVrkCliSes::HfnTimeToSesTime(double time)
{
    return HfnTime_to_DateTime(time, -1);
}

bool CVrkCliSes::hasPassword() const
{
    return d->store->hasPassword();
}

bool CVrkCliSes::provePassword(const QString& password)
{
    // A wrong password says nothing of the session's own link, so it is no failed request.
    StoreError error = Private::noLink();
    if (d->connected) {
        Private::Request request(d.get());
        error.clear();
        d->store->provePassword(password, &error);
    }
    d->lastError = error.text;
    return !error;
}

QString CVrkCliSes::sealOnPaper()
{
    StoreError ignored;
    const auto log = d->store->evidence(Store::Access::Read, &ignored);
    QByteArray note;
    if (!log || !log->newestHead(&note))
        return QString();
    const SignedNote newest(note);
    return newest.isValid() ? QString::fromLatin1(newest.head().onPaper()) : QString();
}

int CVrkCliSes::longestShift()
{
    if (!d->connected)
        return 0;
    Private::Request request(d.get());
    return d->store->longestShift();
}

bool CVrkCliSes::readBlob(const QByteArray& table, const QByteArray& field, const QByteArray& key,
                          QByteArray* bytes)
{
    StoreError error = Private::noLink();
    bool found = false;
    if (d->connected) {
        Private::Request request(d.get());
        error.clear();
        found = d->store->blob(table, field, key, bytes, &error);
    }
    if (!found)
        return d->fail(Q_FUNC_INFO, error, QString::fromUtf8(table + '.' + field + ' ' + key));
    d->lastError.clear();
    return true;
}

std::shared_ptr<const MDRBlobSource> CVrkCliSes::blobSource(const QByteArray& table, const QByteArray& field,
                                                            const QByteArray& key)
{
    return std::make_shared<SessionBlob>(this, table, field, key);
}
