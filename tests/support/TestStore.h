#pragma once

#include "MDArray.h"
#include "Store.h"

#include <QByteArray>
#include <QTemporaryDir>
#include <QVariant>
#include <type_traits>
#include <vector>

/// A temporary store filled with a small standard journal under readable keys. The set is made once a
/// process, through the store like any other rows, and copied for each object; it disappears with the object.
/// Code page Windows-1251, time zone Europe/Moscow. `now()` is the second in which the set was made.
///
/// Logins (table Users), key "USER_<LOGIN>":
/// - ivanov: WORKER_IVANOV in DEP_CDS, group 5, Иванов Иван Иванович; opened SHIFT_CDS_OPEN
/// - petrov: WORKER_PETROV in DEP_CDS, group 4, Петров Пётр Петрович; crew of SHIFT_CDS_OPEN
/// - sidorova: WORKER_SIDOROVA in DEP_CDS, group 5; chief, not in the shift; right ADMINISTRATOR
/// - smirnov: WORKER_SMIRNOV_ZAR in DEP_ZAR, group 0, opened SHIFT_ZAR_OPEN; WORKER_SMIRNOV_ODS in DEP_ODS; right
///   ADMINISTRATOR_OPERLOG_LOCAL
/// - kuznetsov: WORKER_KUZNETSOV in DEP_CDS, deleted; author of a record of the past shift
/// - viewer: a login without a worker
///
/// Organizations: ORG_CENTER (type TYPE_CENTER), ORG_NETS (type TYPE_NETS). Departments: DEP_ODS "ОДС" of
/// ORG_CENTER (no open shift), DEP_CDS "ЦДС" and below it DEP_ZAR "Заречная диспетчерская группа" of
/// ORG_NETS. Shifts: TIMETABLE_CDS_DAY 08:00-20:00, TIMETABLE_CDS_NIGHT 20:00-08:00, TIMETABLE_ZAR_DAY.
/// DEP_ODS has none. Roles: ROLE_CDS_SENIOR, ROLE_CDS_DISPATCHER, ROLE_ZAR; WorkerRoles: WROLE_IVANOV_1
/// (senior), WROLE_IVANOV_2 (dispatcher), WROLE_PETROV (dispatcher), WROLE_SMIRNOV.
///
/// Workshifts: SHIFT_CDS_PAST (24 hours, closed by WORKER_IVANOV, ends where the next begins), SHIFT_CDS_OPEN
/// (from 6 hours ago, 24 hours, so always over midnight), SHIFT_ZAR_OPEN (from 2 hours ago, 12 hours). Crew:
/// CREW_CDS_1 WORKER_IVANOV, CREW_CDS_2 WORKER_PETROV, CREW_ZAR_1 WORKER_SMIRNOV_ZAR, CREW_PAST_1
/// WORKER_IVANOV, CREW_PAST_2 WORKER_KUZNETSOV (opening), CREW_PAST_3 WORKER_PETROV (taking over, opening
/// false).
///
/// Records of SHIFT_CDS_OPEN, from the oldest (author; status; what is special):
/// - REC_OPENING (WORKER_IVANOV; 0): made from TPL_OPEN; comment COM_UNREAD
/// - REC_MESSAGE (WORKER_IVANOV; 0): ReceiverWorkerKey WORKER_SMIRNOV_ZAR, direction 1
/// - REC_REPLACED (WORKER_IVANOV; 2): made from TPL_ORDER, struck out
/// - REC_SUCCESSOR (WORKER_IVANOV; 0): OriginRecordKey REC_REPLACED, executionTime
/// - REC_ORDER (WORKER_PETROV; 0): made from TPL_ORDER, not executed; comment COM_READ
/// - REC_TRIP (WORKER_PETROV; 0): first marker, visa of WORKER_SIDOROVA, FILE_TEXT, FILE_IMAGE
/// - REC_DRAFT_IVANOV (WORKER_IVANOV; 1)
/// - REC_DRAFT_PETROV (WORKER_PETROV; 1)
///
/// Elsewhere: REC_PAST_1 (WORKER_IVANOV, comment COM_PAST), REC_PAST_2 (WORKER_KUZNETSOV) in SHIFT_CDS_PAST,
/// REC_ZAR (WORKER_SMIRNOV_ZAR) in SHIFT_ZAR_OPEN. Comments: COM_UNREAD of WORKER_PETROV, COM_READ of
/// WORKER_IVANOV, COM_PAST of WORKER_SIDOROVA (unread). Files: FILE_TEXT "осциллограмма.txt", FILE_IMAGE
/// "фото опоры № 12.png".
///
/// Template categories: CAT_COMMON and its child CAT_COMMON_SUB (common), CAT_NETS (type TYPE_NETS), CAT_CDS
/// (DEP_CDS), CAT_ZAR (DEP_ZAR). Templates: TPL_OPEN (open_wshift), TPL_CLOSE (close_wshift) in CAT_COMMON;
/// TPL_ORDER (time_exec, second_mark, command) in CAT_COMMON_SUB; TPL_TRIP (first_mark) in CAT_NETS; TPL_TEXT
/// (fixed words) in CAT_CDS. Parameter tree: PARCAT_MAIN with parameters PAR_TEXT and PAR_LIST. Equipment:
/// EQ_SUBSTATION "ПС 110 кВ Заречная", below it EQ_BAY; EQ_LINE "ВЛ 110 кВ Полевая – Заречная".
class TestStore
{
public:
    enum Content {
        Standard, ///< the journal described above
        Empty     ///< the schema, without rows
    };

    explicit TestStore(Content content = Standard);
    ~TestStore();
    TestStore(const TestStore&) = delete;
    TestStore& operator=(const TestStore&) = delete;

    /// The engine of this test run: PostgreSQL if VRK_TEST_ENGINE=postgresql, with a private server for the
    /// process, otherwise SQLite.
    static bool isSqlite();
    /// Of the SQLite file.
    QString path() const;
    /// On a server, the address of its administrator, who may sign in as anybody.
    QString url() const;
    /// On a server: from now on \a login needs this password, and clients of this store sign in with it.
    void givePassword(const QString& login, const QString& password);
    QString passwordOf(const QString& login) const { return m_passwords.value(login); }
    /// Leaves the originals on a server for the other programs of a run (PrivateCluster::originals).
    static void leaveOriginals();
    /// The second in which the standard set was made, as HfnTime.
    static double now();

    /// A store on the file with this login signed in; any number of them. Any failure ends the program.
    std::unique_ptr<Store> open(const QString& login, const Store::Options& options = Store::Options()) const;
    /// The same in the role of imports, to which no rule of the journal applies.
    std::unique_ptr<Store> openLoader() const;

    /// Reads with a separate raw connection; one list for each row, texts as QString, blobs as QByteArray.
    /// The word rowid is the order in which the rows of a table were inserted, on both engines.
    QVector<QVariantList> rows(const QString& sql) const;
    /// The first column of the first row; invalid without a row.
    QVariant value(const QString& sql) const;
    /// Runs statements on a raw connection, without the store; the engine's message, empty for success.
    QString exec(const QString& sql) const;

    /// Drops tables with all references to them; the engine's message, empty for success.
    QString dropTables(const QStringList& tables) const;
    /// From now on the database refuses this operation (INSERT, UPDATE, DELETE) on a table, with the text "broken".
    QString refuse(const QString& operation, const QString& table) const;
    /// Reverses refuse().
    QString permit(const QString& operation, const QString& table) const;

    /// A field and its value: texts as literals in UTF-8, as QString, or as bytes of the code page; nullptr is null.
    struct Field {
        template <class T>
        Field(const char* fieldName, const T& fieldValue) : name(fieldName)
        {
            if constexpr (std::is_same_v<T, std::nullptr_t>)
                return;
            else if constexpr (std::is_convertible_v<T, const char*> && !std::is_same_v<T, QByteArray>)
                value = QString::fromUtf8(fieldValue);
            else
                value = fieldValue;
        }
        const char* name;
        QVariant value;
    };
    using Fields = std::vector<Field>;
    /// Writes one row: texts as QString or bytes of the code page, an invalid QVariant is null. The fields
    /// get the user mark, the key does not.
    static bool write(Store* store, const char* table, MDRFlag flag, const QByteArray& key,
                      const Fields& fields = {}, StoreError* error = nullptr);
    /// A row of several that are written in one transaction.
    struct Row {
        const char* table;
        MDRFlag flag;
        QByteArray key;
        Fields fields;
    };
    static bool write(Store* store, const std::vector<Row>& rows, StoreError* error = nullptr);
    /// The value of a field of the first record of an answer, texts as QString; invalid when null or without
    /// a record.
    static QVariant field(const MDArray* array, const char* name, int position = 0);

    /// Bytes of the code page and back.
    static QByteArray bytes(const QString& text);
    static QString text(const QByteArray& bytes);

private:
    QTemporaryDir m_folder;
    QString m_database;
    QHash<QString, QString> m_passwords; ///< by login
};
