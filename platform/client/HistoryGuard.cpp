#include "HistoryGuard.h"

#include "CVrkCliSes.h"
#include "EvidenceLog.h"
#include "HistoryMemory.h"
#include "SignIn.h"
#include "Store.h"

#include <QCryptographicHash>
#include <QDebug>

namespace
{
constexpr int lookMs = 10 * 60 * 1000;
constexpr int againMs = 1000; // when a request was running

QString fileOf(const QString& folder, const QString& url)
{
    const QByteArray name =
        QCryptographicHash::hash(SignIn::storeOf(url).toUtf8(), QCryptographicHash::Sha256).toHex();
    return folder + QLatin1Char('/') + QString::fromLatin1(name.left(32));
}

HistoryGuard::Alarm shown(const HistoryMemory::Report& report)
{
    return report.isAlarm() ? HistoryGuard::Alarm{report.text, report.remembered, report.found, report.time}
                            : HistoryGuard::Alarm();
}
} // namespace

HistoryGuard::HistoryGuard(CVrkCliSes* session, const QString& folder, const QString& url, QObject* parent)
    : QObject(parent),
      m_session(session),
      m_url(SignIn::withoutPassword(url)),
      m_memory(std::make_unique<HistoryMemory>(fileOf(folder, url)))
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &HistoryGuard::look);
    const auto lookSoon = [this] { m_timer.start(0); };
    connect(session, &CVrkCliSes::historyChanged, this, lookSoon);
    connect(session, &CVrkCliSes::connectionChanged, this, lookSoon);
    connect(session, &CVrkCliSes::connectionChanged, this, [this](bool isConnected) {
        if (!isConnected)
            m_memory->keepFollowed(); // the program may end before the link is back
    });
    connect(session, &CVrkCliSes::changesRead, this,
            [this](const QByteArray& epoch, qint64 number, const QByteArray& chain) {
                m_memory->follow(epoch, number, chain);
            });
    connect(session, &CVrkCliSes::chainBroken, this, &HistoryGuard::takeBreak);
    lookSoon();
}

HistoryGuard::~HistoryGuard()
{
    m_memory->keepFollowed();
}

void HistoryGuard::look()
{
    m_timer.start(lookMs);
    if (!m_session || !m_session->isConnected())
        return;
    if (m_session->isBusy()) {
        m_timer.start(againMs);
        return;
    }
    StoreError error;
    QByteArray keys;
    HistoryMemory::Report report;
    Store* store = m_session->store();
    const bool isAnswered = store->file(QStringLiteral("evidence"), QStringLiteral("keys"), &keys, &error) ||
                            error.code == StoreError::NoSuchRow;
    const auto log = isAnswered ? store->evidence(Store::Access::Read, &error) : nullptr;
    if (!log || !m_memory->check(*log, keys, &report)) {
        qWarning().noquote() << Q_FUNC_INFO << error.text << error.detail;
        return;
    }
    setAlarm(shown(report));
    if (report.finding == HistoryMemory::Restored)
        emit noticed(report.text);
    if (const QString reason = m_memory->errorText(); reason != m_toldError) {
        m_toldError = reason;
        if (!reason.isEmpty())
            emit noticed(tr("История хранилища не запоминается на этом рабочем месте: %1.").arg(reason));
    }
}

void HistoryGuard::takeBreak(const QByteArray& epoch, qint64 number, const QByteArray& expected,
                             const QByteArray& found)
{
    setAlarm(shown(m_memory->takeBreak(epoch, number, expected, found)));
}

void HistoryGuard::setAlarm(const Alarm& alarm)
{
    if (alarm.text == m_alarm.text && alarm.time == m_alarm.time)
        return;
    m_alarm = alarm;
    emit changed();
}

bool HistoryGuard::wantsPassword() const
{
    return SignIn::isServer(m_url);
}

bool HistoryGuard::confirm(const QString& login, const QString& password, const QString& user,
                           QString* reason)
{
    StoreError error;
    Store::Options options;
    options.login = login;
    options.password = password;
    StoreLogin administrator;
    const auto store = Store::open(m_url, options, &error);
    if (!store || !store->signIn(login, &administrator, &error)) {
        *reason = error.text;
        return false;
    }
    if (!store->hasRight("ADMINISTRATOR")) {
        *reason = tr("%1 не администратор журнала.").arg(administrator.name);
        return false;
    }
    if (!m_memory->confirm(login, user)) {
        *reason = tr("Подтверждение не записано: %1.").arg(m_memory->errorText());
        return false;
    }
    setAlarm(Alarm());
    look();
    return true;
}
