#pragma once

#include "BusyStrip.h"
#include "ChangeFeed.h"
#include "CMDArray.h"
#include "CVrkCliSes.h"
#include "LogHistory.h"
#include "ProcessZone.h"
#include "Store.h"

#include <unordered_map>

/// Data that the parts of the session share.
struct CVrkCliSes::Private {
    /// A write that waits for the end of its block.
    struct Write {
        QByteArray table;
        std::unique_ptr<CMDArray> records;
    };

    /// Exists as long as a request runs.
    class Request
    {
    public:
        explicit Request(Private* session) : m_session(session)
        {
            if (m_session->requests++ == 0)
                m_session->strip.begin();
        }
        ~Request()
        {
            if (--m_session->requests == 0)
                m_session->strip.end();
        }
        Request(const Request&) = delete;
        Request& operator=(const Request&) = delete;

    private:
        Private* m_session;
    };

    /// Reports to log and user why a request failed and takes the session down if the link is lost. Always
    /// false.
    bool fail(const char* function, const StoreError& error, const QString& what, bool write = false,
              const QByteArray& table = QByteArray());
    /// The failure of every request while the session is down.
    static StoreError noLink();
    void setConnected(bool up);
    /// Finds out whether the write without an answer was done. False if the store cannot be reached.
    bool settle(StoreError* error);
    /// The answer of a reading request, or null after fail().
    template <class Ask>
    MDArray* request(const char* function, const QString& what, Ask ask);
    using ReadHistory = bool (LogHistory::*)(const QByteArray& key, QVector<RowChange>* changes);
    bool history(const char* function, ReadHistory read, const QByteArray& key, QVector<RowChange>* changes);
    bool apply(const char* function, const std::vector<StoreWrite>& writes);
    /// Registers the block as one that PrmFree frees.
    HFNCliParam* give(HFNCliParam* answer);

    CVrkCliSes* q = nullptr;
    std::unique_ptr<Store> store;
    std::shared_ptr<const ProcessZone> zone; ///< of the store
    std::unique_ptr<ChangeFeed> feed;        ///< destroyed before the store
    bool started = false;
    bool connected = true;
    bool polling = false;
    int requests = 0;
    BusyStrip strip;
    QString lastError;

    std::vector<Write> block;
    std::vector<std::size_t> blockStarts; ///< of the open blocks, the outermost first

    QByteArray unsettledKey;      ///< batch key of the write without an answer
    bool hasFailedWrites = false; ///< since the start

    std::vector<std::unique_ptr<HFNCliParam>> waiting;
    std::unordered_map<HFNCliParam*, std::unique_ptr<HFNCliParam>> given; ///< freed by PrmFree

    double serverTime = 0; ///< the server's time in its last answer
    QElapsedTimer sinceServerTime;
};
