#pragma once

#include <QtGlobal>

#include <functional>

/// A piece of an administrator's operation that may take minutes, as long as it exists. Without a listener it costs
/// nothing. One thread.
class LongWork
{
public:
    /// Called when work begins, advances and ends. \a name is in the user's words (UTF-8), null at the end; \a total is
    /// 0 if nobody knows how much there is.
    using Listener = std::function<void(const char* name, qint64 done, qint64 total)>;
    /// Replaces the listener of the process; an empty one ends listening.
    static void listen(Listener listener);

    explicit LongWork(const char* name, qint64 total = 0);
    ~LongWork();
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;
    void advance(qint64 done) const;

private:
    const char* m_name;
    qint64 m_total;
};
