#pragma once

#include "CVrkCliSes.h"

/// The batches that are sent while this exists are one transaction: written by commit(), dropped without it.
class WriteBlock
{
public:
    explicit WriteBlock(CVrkCliSes* session) : m_session(session) { session->BlockBeg(); }
    ~WriteBlock()
    {
        if (m_session)
            m_session->BlockEnd(false, nullptr);
    }
    WriteBlock(const WriteBlock&) = delete;
    WriteBlock& operator=(const WriteBlock&) = delete;

    /// Writes the batches; false if nothing was written. Call it once.
    bool commit()
    {
        CVrkCliSes* session = m_session;
        m_session = nullptr;
        return session->BlockEnd(true, nullptr);
    }

private:
    CVrkCliSes* m_session;
};
