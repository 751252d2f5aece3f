#include "DemoKey.h"

#include <QCryptographicHash>

QByteArray demoKey(const QString& name)
{
    return QCryptographicHash::hash(name.toUtf8(), QCryptographicHash::Md5).toHex().toUpper();
}
