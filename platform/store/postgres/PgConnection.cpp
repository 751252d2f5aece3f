#include "PgConnection.h"

#include "PgAddress.h"
#include "StoreErrors.h"

#include <algorithm>
#include <poll.h>
#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>
#include <sys/epoll.h>
#include <thread>
#include <unistd.h>

namespace
{
const char tooLate[] = "Запрос к серверу «%1» не уложился в отведённое время.";
constexpr int longestNapMs = 50;        // between two calls of the progress function
constexpr int shortestConnectMs = 2000; // with a short request deadline there is still time to sign in
constexpr int cachedStatements = 200;
constexpr int lowestVersion = 150000;

QString placeOf(const QString& address)
{
    const QUrl url(address);
    const QString host = url.host().isEmpty()
                             ? QUrlQuery(url).queryItemValue(QStringLiteral("host"), QUrl::FullyDecoded)
                             : url.host();
    return (host.isEmpty() ? QStringLiteral("localhost") : host) + url.path();
}

} // namespace

// Connecting

PgConnection::PgConnection(const QString& url, int deadlineMs, const Instead& instead)
    : m_url(url.toUtf8()),
      m_sslMode(PgAddress::sslMode(url)),
      m_instead(instead),
      m_place(placeOf(url)),
      m_deadlineMs(deadlineMs),
      m_limitMs(deadlineMs),
      m_epoll(epoll_create1(EPOLL_CLOEXEC))
{
    startDeadline(m_deadlineMs);
}

PgConnection::~PgConnection()
{
    drop();
    ::close(m_epoll);
}

std::unique_ptr<PgConnection> PgConnection::withPassword(const QByteArray& password, int deadlineMs) const
{
    Instead instead = m_instead;
    instead.password = password;
    return std::make_unique<PgConnection>(QString::fromUtf8(m_url), deadlineMs, instead);
}

int PgConnection::connectMs() const
{
    return std::max(m_deadlineMs, shortestConnectMs);
}

void PgConnection::drop()
{
    m_attempt.reset();
    if (m_pg)
        PQfinish(m_pg);
    m_pg = nullptr;
    m_isOpen = false;
    m_prepared.clear();
}

PgAttempt* PgConnection::attempt()
{
    if (m_attempt)
        return m_attempt.get();
    // Settings before the address are defaults; those after it override the address.
    QVector<PgAttempt::Setting> settings{{"application_name", "vrk"},   {"keepalives_idle", "10"},
                                         {"keepalives_interval", "5"},  {"keepalives_count", "3"},
                                         {"tcp_user_timeout", "15000"}, {"dbname", m_url},
                                         {"client_encoding", "UTF8"}};
    const auto addInstead = [&](const char* name, const QByteArray& value) {
        if (!value.isEmpty())
            settings.append({name, value});
    };
    addInstead("dbname", m_instead.database);
    addInstead("user", m_instead.login);
    addInstead("password", m_instead.password);
    addInstead("sslmode", m_sslMode);
    m_attempt = std::make_unique<PgAttempt>(settings);
    watch(m_attempt->descriptor());
    return m_attempt.get();
}

bool PgConnection::connect(int waitMs, StoreError* error)
{
    if (m_isOpen)
        return true;
    QElapsedTimer waited;
    waited.start();
    while (
        !attempt()->wait(static_cast<int>(std::clamp<qint64>(waitMs - waited.elapsed(), 0, longestNapMs)))) {
        if (waited.hasExpired(waitMs)) {
            *error = lostError(QString::fromUtf8("Соединение устанавливается."));
            return false;
        }
        if (m_progress)
            m_progress();
    }
    m_pg = m_attempt->take();
    m_attempt.reset();
    if (PQstatus(m_pg) == CONNECTION_OK)
        return finishConnecting(error);
    *error = connectError();
    drop();
    return false;
}

StoreError PgConnection::connectError() const
{
    QString detail = QString::fromUtf8(PQerrorMessage(m_pg)).trimmed();
    detail.remove(QRegularExpression(QStringLiteral("\n[^\n]*:  \\w+, \\w+\\.c:\\d+")));
    const QString state = QRegularExpression(QStringLiteral(":  ([0-9A-Z]{5}): ")).match(detail).captured(1);
    StoreError error = lostError(detail);
    if (m_pg && PQconnectionNeedsPassword(m_pg)) {
        error.code = StoreError::Password;
        error.text = QString::fromUtf8("Сервер «%1» спрашивает пароль.").arg(m_place);
    } else if (state.startsWith(QLatin1String("28"))) {
        error.code = state == QLatin1String("28P01") ? StoreError::Password : StoreError::Refused;
        error.text = QString::fromUtf8("Сервер «%1» не принял имя или пароль.").arg(m_place);
    } else if (state == QLatin1String("3D000")) {
        error.code = StoreError::Missing;
        error.text = QString::fromUtf8("Сервер работает, но базы «%1» на нём нет.").arg(m_place);
    } else if (PgAddress::isAboutProof(detail)) {
        error.text = QString::fromUtf8("Сервер «%1» не доказал, что он тот самый. Чего не хватает, скажет "
                                       "vrk-admin doctor.")
                         .arg(m_place);
    }
    return error;
}

QString PgConnection::caution() const
{
    return m_isOpen ? PgAddress::caution(PQhost(m_pg), m_sslMode, isEncrypted()) : QString();
}

bool PgConnection::finishConnecting(StoreError* error)
{
    m_isOpen = true;
    m_hasUsedPassword = PQconnectionUsedPassword(m_pg) != 0;
    watch(PQsocket(m_pg));
    PQsetnonblocking(m_pg, 1);
    if (PQserverVersion(m_pg) < lowestVersion) {
        *error = {
            StoreError::TooOld,
            QString::fromUtf8("Сервер «%1» слишком старый: нужен PostgreSQL 15 или новее.").arg(m_place),
            QString::number(PQserverVersion(m_pg))};
        drop();
        return false;
    }
    m_clock.start();
    // The server ends what its client has abandoned. None of our statements is worth JIT compilation.
    const QByteArray limit = QByteArray::number(m_deadlineMs + 5000);
    if (exec("SET search_path = public; SET client_min_messages = warning; SET jit = off; "
             "SET statement_timeout = " +
                 limit + "; SET idle_in_transaction_session_timeout = " + limit + "; LISTEN vrk_changes",
             error))
        return true;
    drop(); // a connection without LISTEN is useless
    return false;
}

void PgConnection::watch(int descriptor)
{
    // Closing the previous descriptor has removed it.
    epoll_event event = {};
    event.events = EPOLLIN;
    if (descriptor >= 0)
        epoll_ctl(m_epoll, EPOLL_CTL_ADD, descriptor, &event);
}

// Statements

bool PgConnection::wait(short events, qint64 untilMs, const QElapsedTimer& clock)
{
    for (;;) {
        const qint64 left = untilMs - clock.elapsed();
        pollfd entry = {PQsocket(m_pg), events, 0};
        const int ready = ::poll(&entry, 1, static_cast<int>(std::clamp<qint64>(left, 0, longestNapMs)));
        if (ready > 0)
            return true;
        if (left <= 0)
            return false;
        if (m_progress)
            m_progress();
    }
}

PgResult PgConnection::collect(bool wasSent, StoreError* error)
{
    m_state.clear();
    m_constraint.clear();
    PgResult last;
    PgResult failed;
    bool isAlive = wasSent;
    bool isInTime = true;
    while (isAlive) {
        const int unsent = PQflush(m_pg);
        if (unsent == 0 && PQisBusy(m_pg) == 0) {
            PGresult* result = PQgetResult(m_pg);
            if (!result)
                break;
            const ExecStatusType status = PQresultStatus(result);
            (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK ? last : failed) = PgResult(result);
            continue;
        }
        isInTime = wait(static_cast<short>(unsent > 0 ? POLLIN | POLLOUT : POLLIN), m_limitMs, m_clock);
        isAlive = unsent >= 0 && isInTime && PQconsumeInput(m_pg) == 1;
    }
    if (isAlive && PQstatus(m_pg) == CONNECTION_OK && last && !failed)
        return last;
    if (!isInTime) {
        StoreErrors::raise(error, StoreError::Lost, tooLate, m_place);
        cancel();
        drop();
        return nothing();
    }
    if (!isAlive || PQstatus(m_pg) != CONNECTION_OK || !failed) {
        *error = lostError(QString::fromUtf8(PQerrorMessage(m_pg)).trimmed());
        drop();
        return nothing();
    }
    m_state = PQresultErrorField(failed.handle(), PG_DIAG_SQLSTATE);
    m_constraint = PQresultErrorField(failed.handle(), PG_DIAG_CONSTRAINT_NAME);
    *error =
        errorOf(m_state, QString::fromUtf8(PQresultErrorField(failed.handle(), PG_DIAG_MESSAGE_PRIMARY)));
    return nothing();
}

PgResult PgConnection::run(const QByteArray& sql, const PgValues& values, StoreError* error)
{
    if (!m_isOpen) {
        *error = lostError(QString());
        return nothing();
    }
    QVector<Oid> types;
    QVector<const char*> data;
    QVector<int> lengths;
    QVector<int> formats;
    for (const PgValues::Value& value : values.m_values) {
        types.append(value.type);
        data.append(value.bytes.isNull() ? nullptr : value.bytes.constData());
        lengths.append(value.bytes.size());
        formats.append(1);
    }
    return collect(PQsendQueryParams(m_pg, sql.constData(), types.size(), types.constData(), data.constData(),
                                     lengths.constData(), formats.constData(), 1) == 1,
                   error);
}

PgResult PgConnection::prepared(const QByteArray& sql, const PgValues& values, StoreError* error)
{
    if (!m_isOpen) {
        *error = lostError(QString());
        return nothing();
    }
    QVector<const char*> data;
    QVector<int> lengths;
    QVector<int> formats;
    QVector<Oid> types;
    // The types belong to the statement: a null has the type of its column.
    QByteArray key = sql;
    for (const PgValues::Value& value : values.m_values) {
        types.append(value.type);
        key += ' ' + QByteArray::number(value.type);
        data.append(value.bytes.isNull() ? nullptr : value.bytes.constData());
        lengths.append(value.bytes.size());
        formats.append(1);
    }
    QByteArray name = m_prepared.value(key);
    if (name.isEmpty()) {
        if (m_prepared.size() >= cachedStatements)
            return run(sql, values, error);
        name = "s" + QByteArray::number(m_prepared.size());
        if (!collect(
                PQsendPrepare(m_pg, name.constData(), sql.constData(), types.size(), types.constData()) == 1,
                error))
            return nothing();
        m_prepared.insert(key, name);
    }
    return collect(PQsendQueryPrepared(m_pg, name.constData(), data.size(), data.constData(),
                                       lengths.constData(), formats.constData(), 1) == 1,
                   error);
}

bool PgConnection::exec(const QByteArray& script, StoreError* error)
{
    if (!m_isOpen) {
        *error = lostError(QString());
        return false;
    }
    return bool(collect(PQsendQuery(m_pg, script.constData()) == 1, error));
}

PgResult PgConnection::describeCursor(const char* cursor, StoreError* error)
{
    return collect(PQsendDescribePortal(m_pg, cursor) == 1, error);
}

void PgConnection::cancel()
{
    // A cancel request opens another connection, which a frozen server would not answer: do not wait for
    // it.
    if (PGcancel* request = PQgetCancel(m_pg)) {
        std::thread([request] {
            char message[256];
            PQcancel(request, message, sizeof message);
            PQfreeCancel(request);
        }).detach();
    }
}

bool PgConnection::takeNotifications(bool* any)
{
    if (!m_isOpen)
        return false;
    if (PQconsumeInput(m_pg) == 0 || PQstatus(m_pg) != CONNECTION_OK) {
        drop();
        return false;
    }
    while (PGnotify* notification = PQnotifies(m_pg)) {
        *any = true;
        PQfreemem(notification);
    }
    return true;
}

QByteArray PgConnection::passwordHash(const QString& login, const QString& password) const
{
    char* hash = PQencryptPasswordConn(m_pg, password.toUtf8().constData(), login.toUtf8().constData(),
                                       "scram-sha-256");
    const QByteArray kept(hash);
    PQfreemem(hash);
    return password.isEmpty() ? QByteArray() : kept;
}

QByteArray PgConnection::databaseOf(const QString& url)
{
    PQconninfoOption* options = PQconninfoParse(url.toUtf8().constData(), nullptr);
    QByteArray database;
    QByteArray user;
    for (const PQconninfoOption* option = options; option && option->keyword; ++option) {
        if (qstrcmp(option->keyword, "dbname") == 0)
            database = option->val;
        else if (qstrcmp(option->keyword, "user") == 0)
            user = option->val;
    }
    PQconninfoFree(options);
    return database.isEmpty() ? user : database;
}

// Errors

StoreError PgConnection::lostError(const QString& detail) const
{
    return {StoreError::Lost, QString::fromUtf8("Нет связи с сервером «%1».").arg(m_place), detail};
}

StoreError PgConnection::errorOf(const QByteArray& state, const QString& message) const
{
    const auto make = [&](StoreError::Code code, const char* text) {
        StoreError error = StoreErrors::make(code, text, m_place);
        error.detail = QStringLiteral("PostgreSQL %1: %2").arg(QString::fromLatin1(state), message);
        return error;
    };
    if (state == "VR001")
        return {StoreError::Refused, message, QString()}; // the rule's own text
    if (state == "23503")
        return make(StoreError::Refused, StoreErrors::related);
    if (state == "23505")
        return make(StoreError::BadRequest, StoreErrors::sameKey);
    if (state == "42501")
        return make(StoreError::Refused, "На сервере «%1» нет права на это действие.");
    if (state == "25006")
        return make(StoreError::BadRequest, StoreErrors::onlyReading);
    if (state == "57014")
        return make(StoreError::Lost, tooLate);
    if (state == "40001" || state == "40P01" || state == "55P03")
        return make(StoreError::Locked, "Другие рабочие места слишком долго меняют те же данные.");
    if (state == "53100")
        return make(StoreError::Full, "На диске сервера «%1» закончилось место.");
    if (state.startsWith("53") || state.startsWith("54"))
        return make(StoreError::TooLarge, "Серверу «%1» не хватает памяти для этих данных.");
    if (state.startsWith("57") || state.startsWith("08"))
        return make(StoreError::Lost, "Сервер «%1» останавливается или запускается.");
    if (state.startsWith("58") || state.startsWith("XX001") || state.startsWith("XX002"))
        return make(StoreError::Internal, "Сервер «%1» не может прочитать или записать свои файлы.");
    if (state.startsWith("0A") || state.startsWith('2') || state.startsWith("34") || state.startsWith("42") ||
        state.startsWith("44"))
        return make(StoreError::BadRequest, StoreErrors::notUnderstood);
    return make(StoreError::Internal, StoreErrors::internal);
}
