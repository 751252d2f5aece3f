#include "StoreUrl.h"

#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>

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
    static const QRegularExpression inAuthority(QStringLiteral("^(\\w+://[^:/@]*):[^@/]*@"));
    static const QRegularExpression inQuery(QStringLiteral("([?&]password=)[^&]*"));
    return QString(url)
        .replace(inAuthority, QStringLiteral("\\1@"))
        .replace(inQuery, QStringLiteral("\\1***"));
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
