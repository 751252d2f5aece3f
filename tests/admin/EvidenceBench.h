#pragma once

#include "AdminRun.h"
#include "HeadBook.h"
#include "TestStore.h"

#include <memory>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

/// A test of the evidence: a store with the standard journal, its administrator, seals and exports.
class EvidenceBench : public QObject
{
protected:
    /// A new store; to be called by init().
    void reset()
    {
        m_store = std::make_unique<TestStore>();
        m_admin = std::make_unique<AdminRun>();
        m_admin->url = m_store->url();
        m_folders = 0;
    }
    QString key() const { return m_admin->path(QStringLiteral("seal.key")); }
    QString book() const { return key() + QStringLiteral(".heads"); }
    int seal(const QStringList& more = {})
    {
        return m_admin->call("seal", more + QStringList{QStringLiteral("--key"), key()});
    }
    /// A file with the last head that left the store.
    QString lastHead()
    {
        QFile file(m_admin->path(QStringLiteral("head%1.txt").arg(++m_folders)));
        if (!file.open(QIODevice::WriteOnly) || file.write(HeadBook(book()).notes().constLast()) < 0)
            qFatal("a head cannot be written");
        return file.fileName();
    }
    /// The head of the last seal as it stands on paper.
    QString paper() const { return m_admin->out.section(QStringLiteral("Опечатано: "), -1).trimmed(); }
    void write(const char* html) const
    {
        StoreError error;
        const auto store = m_store->open(QStringLiteral("ivanov"));
        QVERIFY2(TestStore::write(store.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                                  {{"html", html}}, &error),
                 qPrintable(error.text + error.detail));
    }
    void write(const char* login, const char* table, const char* key, const TestStore::Fields& fields) const
    {
        StoreError error;
        const auto store = login ? m_store->open(QLatin1String(login)) : m_store->openLoader();
        QVERIFY2(TestStore::write(store.get(), table, ROW_UPDATE, key, fields, &error),
                 qPrintable(error.text + error.detail));
    }
    /// Exports into a new folder and runs its verifier; the exit code.
    int verify(const QStringList& exportOptions, const QStringList& options)
    {
        const QString folder = m_admin->path(QStringLiteral("out%1").arg(++m_folders));
        if (m_admin->call("export-evidence", QStringList{folder} + exportOptions) != Command::Success) {
            m_said = m_admin->err;
            return -1;
        }
        m_folder = folder;
        return verifyAgain(options);
    }
    int verifyAgain(const QStringList& options)
    {
        QProcess python;
        python.setProcessChannelMode(QProcess::MergedChannels);
        python.start(QStringLiteral("python3"),
                     QStringList{m_folder + QStringLiteral("/verify.py"), m_folder} + options);
        if (!python.waitForFinished(60000))
            return -2;
        m_said = QString::fromUtf8(python.readAll());
        return python.exitCode();
    }
    /// Over the file, or into a database of another name, whose address then is the store's.
    void restoreCopy(const QString& copy)
    {
        QStringList arguments{copy};
        if (!TestStore::isSqlite()) {
            static int databases = 0; // of the cluster, which outlives a test
            arguments << QStringLiteral("--replaces") << m_admin->url;
            m_admin->url = QString(m_store->url())
                               .replace(QRegularExpression(QStringLiteral("/(\\w+)(\\?|$)")),
                                        QStringLiteral("/restored_%1\\2").arg(++databases));
        }
        QVERIFY2(m_admin->call("restore", arguments) == 0, qPrintable(m_admin->err));
    }
    QString exported(const char* name) const
    {
        QFile file(m_folder + QLatin1Char('/') + QLatin1String(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<AdminRun> m_admin;
    QString m_folder;
    QString m_said; ///< by the verifier
    int m_folders = 0;
};
