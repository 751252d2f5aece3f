#include "ChainFollower.h"

void ChainFollower::begin(const ChainHash::Head& head, const QByteArray& chain)
{
    end();
    m_number = head.number;
    m_chain = chain;
    m_hash.begin(m_position->chain, head);
}

void ChainFollower::add(const QByteArray& table, const QByteArray& key, qint64 event,
                        const QByteArray& oldRow, const QByteArray& newRow)
{
    m_hash.add(table);
    m_hash.add(key);
    m_hash.add(QByteArray::number(event));
    m_hash.add(oldRow);
    m_hash.add(newRow);
}

void ChainFollower::end()
{
    if (m_number == 0)
        return;
    const bool isKnown = !m_position->chain.isEmpty() || m_position->number == 0;
    const QByteArray expected = m_hash.result();
    const bool continues = m_number == m_position->number + 1 && m_chain == expected;
    if (isKnown && !continues && m_position->broken.number == 0)
        m_position->broken = {m_number, expected, m_chain};
    m_position->number = m_number;
    m_position->chain = m_chain;
    m_number = 0;
}
