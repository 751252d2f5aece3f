#include "DemoState.h"

#include "StoreAdmin.h"

namespace
{
const char heading[] = "vrk-demo 1";

QString folder()
{
    return QStringLiteral("demo");
}
QString name()
{
    return QStringLiteral("journal");
}
} // namespace

bool DemoState::read(Store* store)
{
    QByteArray content;
    StoreError missing;
    if (!store->file(folder(), name(), &content, &missing))
        return false;
    const QList<QByteArray> words = content.simplified().split(' ');
    if (words.size() != 4 || words[0] + ' ' + words[1] != heading)
        return false;
    bool isNumber = false;
    bool isEnd = false;
    number = words[2].toLongLong(&isNumber);
    end = words[3].toLongLong(&isEnd);
    return isNumber && isEnd;
}

bool DemoState::write(const QString& url, StoreError* error) const
{
    // The file is a separate change in the log.
    const qint64 own = number < 0 ? number : number + 1;
    const QByteArray content =
        QByteArray(heading) + '\n' + QByteArray::number(own) + '\n' + QByteArray::number(end) + '\n';
    return StoreAdmin::putFile(url, folder(), name(), content, error);
}
