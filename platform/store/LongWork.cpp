#include "LongWork.h"

#include <utility>

namespace
{
LongWork::Listener& listener()
{
    static LongWork::Listener present;
    return present;
}

void tell(const char* name, qint64 done, qint64 total)
{
    if (listener())
        listener()(name, done, total);
}
} // namespace

void LongWork::listen(Listener wanted)
{
    listener() = std::move(wanted);
}

LongWork::LongWork(const char* name, qint64 total) : m_name(name), m_total(total)
{
    tell(m_name, 0, m_total);
}

LongWork::~LongWork()
{
    tell(nullptr, 0, 0);
}

void LongWork::advance(qint64 done) const
{
    tell(m_name, done, m_total);
}
