#include "ChainHash.h"

void ChainHash::begin(const QByteArray& before, const Head& head)
{
    add(before);
    add(QByteArray::number(head.number));
    add(head.batchKey);
    add(head.login);
    add(head.loader ? "loader" : "person");
    add(QByteArray::number(head.time, 'g', 17));
}

// Each part is preceded by its length, so that different parts cannot give the same bytes.
void ChainHash::add(const QByteArray& part)
{
    m_hash.raw(QByteArray::number(part.size()) + ':').raw(part);
}
