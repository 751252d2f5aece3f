#include "Command.h"

#include "SitePlan.h"
#include "StoreAdmin.h"
#include "StoreUrl.h"

#include <QTimeZone>

namespace
{
/// The code page's canonical name; empty if it is not supported.
QByteArray offeredCodec(const QByteArray& name)
{
    for (const char* codec : {"Windows-1251", "UTF-8"})
        if (qstricmp(codec, name.constData()) == 0)
            return codec;
    return QByteArray();
}
} // namespace

Command::ExitCode Command::init(const QStringList& arguments, Streams& streams)
{
    QByteArray codec = "Windows-1251";
    QByteArray zone = QTimeZone::systemTimeZoneId();
    QString url;
    bool starter = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const bool hasValue = i + 1 < arguments.size();
        if (arguments[i] == QLatin1String("--codec") && hasValue)
            codec = arguments[++i].toUtf8();
        else if (arguments[i] == QLatin1String("--time-zone") && hasValue)
            zone = arguments[++i].toUtf8();
        else if (arguments[i] == QLatin1String("--starter"))
            starter = true;
        else if (url.isEmpty() && !arguments[i].startsWith(QLatin1Char('-')))
            url = arguments[i];
        else
            return WrongUsage;
    }
    if (url.isEmpty())
        return WrongUsage;

    StoreError error;
    const QByteArray offered = offeredCodec(codec);
    if (offered.isEmpty())
        return fail(streams, {StoreError::BadRequest,
                              QStringLiteral("Кодовой страницы «%1» нет: есть Windows-1251 и UTF-8.")
                                  .arg(QString::fromUtf8(codec)),
                              QString()});
    codec = offered;
    StoreAdmin::Filling filling;
    if (starter)
        filling = [](Store* store, StoreError* reason) { return SitePlan::starter().write(store, reason); };
    if (!StoreAdmin::init(url, codec, zone, &error, filling))
        return fail(streams, error);
    streams.out << QStringLiteral("Создано хранилище %1 (кодовая страница %2, часовой пояс %3)\n")
                       .arg(StoreUrl(url).shown(), QString::fromUtf8(codec), QString::fromUtf8(zone));
    return Success;
}
