#include "TestStore.h"

#include "GenGuid32.h"
#include "MDRValues.h"
#include "PgConnection.h"
#include "PostgresAdmin.h"
#include "PrivateCluster.h"
#include "StandardJournal.h"
#include "StoreAdmin.h"
#include "TableCatalog.h"
#include "TestFolder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTextCodec>
#include <QUrl>
#include <sqlite3.h>

namespace
{
QTextCodec* codec()
{
    static QTextCodec* const found = QTextCodec::codecForName("Windows-1251");
    return found;
}

QString urlOf(const QString& file)
{
    return QStringLiteral("sqlite://") + QString::fromLatin1(QUrl::toPercentEncoding(file, "/"));
}

void require(bool done, const StoreError& error)
{
    if (!done)
        qFatal("the store of the tests failed: %s (%s)", qPrintable(error.text), qPrintable(error.detail));
}

std::unique_ptr<Store> openAs(const QString& url, const QString& login, const Store::Options& options)
{
    StoreError error;
    std::unique_ptr<Store> store = Store::open(url, options, &error);
    require(store != nullptr, error);
    StoreLogin user;
    require(login.isEmpty() || store->signIn(login, &user, &error), error);
    return store;
}

bool isPostgres()
{
    static const bool chosen = qgetenv("VRK_TEST_ENGINE") == "postgresql";
    return chosen;
}

/// The files or databases that are copied for each test, created on first use.
struct Originals {
    QTemporaryDir folder{testFolderTemplate()};
    double now = 0;

    Originals()
    {
        if (isPostgres() && readNow())
            return; // the shared cluster has them already
        now = static_cast<double>(QDateTime::currentSecsSinceEpoch());
        StoreError error;
        for (const auto content : {TestStore::Empty, TestStore::Standard}) {
            const QString url =
                isPostgres() ? PrivateCluster::shared().url(database(content)) : urlOf(file(content));
            require(StoreAdmin::init(url, "Windows-1251", "Europe/Moscow", &error), error);
            if (content == TestStore::Standard) {
                Store::Options options;
                options.loader = true;
                const auto store = openAs(url, QString(), options);
                writeStandardJournal(store.get(), now);
                for (const StoreLogin& login : isPostgres() ? store->logins() : QVector<StoreLogin>())
                    require(PostgresAdmin::addRole(url, login.login, &error), error);
            }
        }
    }
    static QString nowFile() { return PrivateCluster::originals() + QLatin1String("/now"); }
    bool readNow()
    {
        QFile file(nowFile());
        if (file.open(QIODevice::ReadOnly))
            now = file.readAll().toDouble();
        return now > 0;
    }
    QString file(TestStore::Content content) const { return folder.filePath(database(content)); }
    static QString database(TestStore::Content content)
    {
        return content == TestStore::Empty ? QStringLiteral("empty") : QStringLiteral("standard");
    }
};

const Originals& originals()
{
    static const Originals made;
    return made;
}

void require(const QString& refusal)
{
    if (!refusal.isEmpty())
        qFatal("the server of the tests refused: %s", qPrintable(refusal));
}

QVariant columnOf(const PgResult& rows, int row, int column)
{
    if (rows.isNull(row, column))
        return QVariant();
    switch (PQftype(rows.handle(), column)) {
    case 16: // boolean and the whole numbers
    case 20:
    case 21:
    case 23:
        return rows.integer(row, column);
    case 701:
        return rows.real(row, column);
    case 17:
        return rows.bytes(row, column);
    default:
        return QString::fromUtf8(rows.bytes(row, column));
    }
}

QVector<QVariantList> postgresRows(const QString& url, const QString& sql)
{
    StoreError error;
    PgConnection link(url, 30000);
    require(link.connect(link.connectMs(), &error), error);
    const PgResult rows = link.run(sql.toUtf8(), &error);
    require(bool(rows), error);
    QVector<QVariantList> all;
    for (int i = 0; i < rows.rows(); ++i) {
        QVariantList row;
        for (int column = 0; column < rows.columns(); ++column)
            row.append(columnOf(rows, i, column));
        all.append(row);
    }
    return all;
}

/// A raw connection that reads without the store.
class RawConnection
{
public:
    explicit RawConnection(const QString& file)
    {
        sqlite3_open_v2(file.toUtf8().constData(), &m_db, SQLITE_OPEN_READWRITE, nullptr);
        sqlite3_busy_timeout(m_db, 5000);
    }
    ~RawConnection() { sqlite3_close(m_db); }
    RawConnection(const RawConnection&) = delete;
    RawConnection& operator=(const RawConnection&) = delete;
    sqlite3* handle() const { return m_db; }

private:
    sqlite3* m_db = nullptr;
};

QVariant columnOf(sqlite3_stmt* row, int column)
{
    const char* data = static_cast<const char*>(sqlite3_column_blob(row, column));
    const int length = sqlite3_column_bytes(row, column);
    switch (sqlite3_column_type(row, column)) {
    case SQLITE_INTEGER:
        return static_cast<qlonglong>(sqlite3_column_int64(row, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(row, column);
    case SQLITE_TEXT:
        return QString::fromUtf8(data, length);
    case SQLITE_BLOB:
        return length > 0 ? QByteArray(data, length) : QByteArray("");
    default:
        return QVariant();
    }
}
} // namespace

void TestStore::leaveOriginals()
{
    const QByteArray now = QByteArray::number(static_cast<qint64>(originals().now));
    PrivateCluster::leaveOriginals();
    QFile file(Originals::nowFile());
    if (!file.open(QIODevice::WriteOnly) || file.write(now) != now.size())
        qFatal("%s cannot be written", qPrintable(file.fileName()));
}

TestStore::TestStore(Content content) : m_folder(testFolderTemplate())
{
    if (isPostgres()) {
        static int count = 0;
        m_database = QStringLiteral("journal%1").arg(++count);
        const QString from = originals().database(content);
        require(PrivateCluster::shared().exec(
            QStringLiteral("CREATE DATABASE %1 TEMPLATE %2 STRATEGY file_copy").arg(m_database, from)));
    } else if (!QFile::copy(originals().file(content), path())) {
        qFatal("the store of the tests cannot be copied");
    }
}

TestStore::~TestStore()
{
    if (isPostgres())
        require(
            PrivateCluster::shared().exec(QStringLiteral("DROP DATABASE %1 WITH (FORCE)").arg(m_database)));
}

bool TestStore::isSqlite()
{
    return !isPostgres();
}

QString TestStore::path() const
{
    return m_folder.filePath(QStringLiteral("journal.vrk"));
}

QString TestStore::url() const
{
    return isPostgres() ? PrivateCluster::shared().url(m_database) : urlOf(path());
}

double TestStore::now()
{
    return originals().now;
}

void TestStore::givePassword(const QString& login, const QString& password)
{
    const QString failure = exec(QStringLiteral("ALTER ROLE %1 LOGIN PASSWORD '%2'").arg(login, password));
    if (!failure.isEmpty())
        qFatal("%s", qPrintable(failure));
    PrivateCluster::shared().requirePasswords();
    m_passwords.insert(login, password);
}

std::unique_ptr<Store> TestStore::open(const QString& login, const Store::Options& options) const
{
    return openAs(url(), login, options);
}

std::unique_ptr<Store> TestStore::openLoader() const
{
    Store::Options options;
    options.loader = true;
    return openAs(url(), QString(), options);
}

QVector<QVariantList> TestStore::rows(const QString& sql) const
{
    if (isPostgres()) {
        const QString entry =
            QStringLiteral("(SELECT max(entry) FROM ChangeLog WHERE rowKey = KeyLink AND event = 601)");
        return postgresRows(url(), QString(sql).replace(QLatin1String("rowid"), entry));
    }
    const RawConnection raw(path());
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(raw.handle(), sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
        qFatal("%s: %s", sqlite3_errmsg(raw.handle()), qPrintable(sql));
    QVector<QVariantList> all;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        QVariantList row;
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            row.append(columnOf(statement, i));
        all.append(row);
    }
    sqlite3_finalize(statement);
    return all;
}

QVariant TestStore::value(const QString& sql) const
{
    return rows(sql).value(0).value(0);
}

QString TestStore::exec(const QString& sql) const
{
    if (isPostgres())
        return PrivateCluster::shared().exec(sql, m_database);
    const RawConnection raw(path());
    sqlite3_exec(raw.handle(), "PRAGMA foreign_keys = ON", nullptr, nullptr, nullptr);
    const int code = sqlite3_exec(raw.handle(), sql.toUtf8().constData(), nullptr, nullptr, nullptr);
    return code == SQLITE_OK ? QString() : QString::fromUtf8(sqlite3_errmsg(raw.handle()));
}

QString TestStore::dropTables(const QStringList& tables) const
{
    QString sql = isPostgres() ? QString() : QStringLiteral("PRAGMA foreign_keys = OFF;");
    for (const QString& table : tables)
        sql += QStringLiteral("DROP TABLE %1%2;")
                   .arg(table, isPostgres() ? QStringLiteral(" CASCADE") : QString());
    return exec(sql);
}

QString TestStore::refuse(const QString& operation, const QString& table) const
{
    const QString sql =
        isPostgres()
            ? QStringLiteral(
                  "CREATE FUNCTION broken_%1() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER AS $$ BEGIN "
                  "PERFORM vrk_refuse('broken'); RETURN NULL; END $$; "
                  "CREATE TRIGGER broken_%1 BEFORE %1 ON %2 EXECUTE FUNCTION broken_%1()")
            : QStringLiteral("CREATE TRIGGER broken_%1 BEFORE %1 ON %2 BEGIN SELECT RAISE(ABORT, "
                             "'broken'); END");
    return exec(sql.arg(operation, table));
}

QString TestStore::permit(const QString& operation, const QString& table) const
{
    const QString sql = isPostgres()
                            ? QStringLiteral("DROP TRIGGER broken_%1 ON %2; DROP FUNCTION broken_%1()")
                            : QStringLiteral("DROP TRIGGER broken_%1");
    return exec(isPostgres() ? sql.arg(operation, table) : sql.arg(operation));
}

namespace
{
/// An array with one row.
std::unique_ptr<CRowBatch> batchOf(const TestStore::Row& row)
{
    const CatalogTable* known = TableCatalog::table(row.table);
    if (!known)
        qFatal("no table %s", row.table);
    const QVector<MDRFieldDescr> descriptors = known->descriptors();
    auto batch = std::make_unique<CRowBatch>(descriptors.constData(), descriptors.size());
    MDRData* record = batch->newRow(row.flag, row.key);
    for (const auto& [name, value] : row.fields) {
        const int index = known->fieldIndex(name);
        if (index < 0)
            qFatal("no field %s in %s", name, row.table);
        const QByteArray text =
            value.type() == QVariant::ByteArray ? value.toByteArray() : TestStore::bytes(value.toString());
        MDRVar var = MDRValue::null();
        switch (value.isValid() ? known->fields.at(index).type : mdr_TNone) {
        case mdr_TNone:
            break;
        case mdr_TDouble:
            var = MDRValue::real(value.toDouble());
            break;
        case mdr_TChar:
        case mdr_TMemo:
        case mdr_TBlob:
            var = MDRValue::text(text);
            break;
        default:
            var = MDRValue::number(value.toInt());
        }
        batch->SetValF(record, name, var);
    }
    batch->RecPost(record);
    return batch;
}
} // namespace

bool TestStore::write(Store* store, const char* table, MDRFlag flag, const QByteArray& key,
                      const Fields& fields, StoreError* error)
{
    return write(store, {{table, flag, key, fields}}, error);
}

bool TestStore::write(Store* store, const std::vector<Row>& rows, StoreError* error)
{
    std::vector<std::unique_ptr<CRowBatch>> batches;
    std::vector<StoreWrite> writes;
    for (const Row& row : rows) {
        batches.push_back(batchOf(row));
        writes.push_back({row.table, batches.back()->array});
    }
    StoreError ignored;
    return store->apply(writes, GenGuid32(), error ? error : &ignored);
}

QVariant TestStore::field(const MDArray* array, const char* name, int position)
{
    const MDRField* handle = MDRFldByName(array, name);
    const MDRData* record = MDARec(array, 0, position);
    MDRVar value;
    if (!handle || !record || MDRGetVal(handle, record, &value) != mdr_Ok || value.isNull)
        return QVariant();
    switch (value.type) {
    case mdr_TDouble:
        return value.value.real;
    case mdr_TBlob:
        return QByteArray(value.value.text.data, value.value.text.length);
    case mdr_TChar:
    case mdr_TMemo:
        return text(QByteArray(value.value.text.data, value.value.text.length));
    default:
        return value.value.number;
    }
}

QByteArray TestStore::bytes(const QString& text)
{
    return codec()->fromUnicode(text);
}

QString TestStore::text(const QByteArray& bytes)
{
    return codec()->toUnicode(bytes);
}
