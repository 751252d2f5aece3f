#include "StoreUrl.h"

#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>

namespace
{
/// The password and the colon before it.
const QRegularExpression& passwordInAuthority()
{
    static const QRegularExpression expression(QStringLiteral("(?<=://)([^:/@]*)\\K:[^@/]*(?=@)"));
    return expression;
}
} // namespace

StoreUrl::StoreUrl(const QString& address) : url(address)
{
    const QString sqlite = QStringLiteral("sqlite://");
    if (url.startsWith(sqlite + QLatin1Char('/'))) {
        engine = Sqlite;
        file = QUrl::fromPercentEncoding(url.mid(sqlite.size()).toUtf8());
    } else if (url.startsWith(QLatin1String("postgresql://")) ||
               url.startsWith(QLatin1String("postgres://"))) {
        engine = PostgreSql;
    }
}

QString StoreUrl::shown() const
{
    static const QRegularExpression inQuery(QStringLiteral("([?&]password=)[^&]*"));
    return QString(url).remove(passwordInAuthority()).replace(inQuery, QStringLiteral("\\1***"));
}

QString StoreUrl::withoutPassword() const
{
    static const QRegularExpression first(QStringLiteral("\\?password=[^&]*&?"));
    static const QRegularExpression later(QStringLiteral("&password=[^&]*"));
    QString kept =
        QString(url).remove(passwordInAuthority()).remove(later).replace(first, QStringLiteral("?"));
    if (kept.endsWith(QLatin1Char('?')))
        kept.chop(1);
    return kept;
}

QString StoreUrl::login() const
{
    if (engine != PostgreSql)
        return QString();
    const QUrl parsed(url);
    return parsed.userName().isEmpty()
               ? QUrlQuery(parsed).queryItemValue(QStringLiteral("user"), QUrl::FullyDecoded)
               : parsed.userName();
}

StoreError StoreUrl::error() const
{
    if (engine != None)
        return StoreError();
    return {StoreError::BadUrl,
            QString::fromUtf8("Адрес хранилища «%1» не понят: ожидается sqlite:///путь/к/файлу или "
                              "postgresql://сервер/база.")
                .arg(shown()),
            QString()};
}
