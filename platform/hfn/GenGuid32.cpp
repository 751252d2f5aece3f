#include "GenGuid32.h"

#include <QRandomGenerator>

QByteArray GenGuid32()
{
    quint32 words[4];
    QRandomGenerator::system()->fillRange(words);
    return QByteArray(reinterpret_cast<const char*>(words), sizeof words).toHex().toUpper();
}
