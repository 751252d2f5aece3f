#include "PgAddress.h"

#include <algorithm>
#include <arpa/inet.h>
#include <libpq-fe.h>
#include <memory>
#include <QHash>
#include <QList>

namespace
{
/// The options written in an address.
QHash<QByteArray, QByteArray> writtenOptions(const QString& url)
{
    QHash<QByteArray, QByteArray> written;
    const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> all(
        PQconninfoParse(url.toUtf8().constData(), nullptr), PQconninfoFree);
    for (const PQconninfoOption* option = all.get(); option && option->keyword; ++option)
        if (option->val && *option->val)
            written.insert(option->keyword, option->val);
    return written;
}

bool isLoopback(const QByteArray& address)
{
    in_addr four = {};
    in6_addr six = {};
    if (inet_pton(AF_INET, address.constData(), &four) == 1)
        return ntohl(four.s_addr) >> 24 == IN_LOOPBACKNET;
    return inet_pton(AF_INET6, address.constData(), &six) == 1 && IN6_IS_ADDR_LOOPBACK(&six);
}
} // namespace

bool PgAddress::isThisMachine(const QByteArray& host)
{
    const QByteArray name = host.trimmed().toLower();
    return name.isEmpty() || name.startsWith('/') || name.startsWith('@') || name == "localhost" ||
           name.endsWith(".localhost") || name == "localhost.localdomain" || name == "ip6-localhost" ||
           isLoopback(name);
}

QByteArray PgAddress::sslMode(const QString& url)
{
    const QHash<QByteArray, QByteArray> written = writtenOptions(url);
    if (written.contains("sslmode"))
        return written.value("sslmode");
    // If both are given, the number is the address to connect to, and the name is the one in the
    // certificate.
    QByteArray hosts = written.value("hostaddr", written.value("host"));
    if (hosts.isEmpty())
        hosts = qgetenv(qEnvironmentVariableIsEmpty("PGHOSTADDR") ? "PGHOST" : "PGHOSTADDR");
    const QList<QByteArray> all = hosts.split(',');
    const bool isHere = std::all_of(all.begin(), all.end(), isThisMachine);
    const bool isElsewhere =
        hosts.isEmpty() && (written.contains("service") || qEnvironmentVariableIsSet("PGSERVICE"));
    return isHere && !isElsewhere ? QByteArray() : QByteArray("verify-full");
}

QString PgAddress::caution(const QByteArray& host, const QByteArray& sslMode, bool isEncrypted)
{
    if (isThisMachine(host) || sslMode.isEmpty() || sslMode == "verify-full")
        return QString();
    if (!isEncrypted)
        return QString::fromUtf8("связь не шифруется (sslmode=%1)").arg(QString::fromLatin1(sslMode));
    return QString::fromUtf8("сервер не проверен (sslmode=%1)").arg(QString::fromLatin1(sslMode));
}

bool PgAddress::isAboutProof(const QString& words)
{
    // In the machine's language.
    for (const char* word : {"certificate", "сертификат", "SSL"})
        if (words.contains(QString::fromUtf8(word), Qt::CaseInsensitive))
            return true;
    return false;
}
