#include "StoreAdmin.h"
#include "EpochHistory.h"

#include "CodePage.h"
#include "LongWork.h"
#include "PostgresAdmin.h"
#include "PostgresDoctor.h"
#include "SchemaScript.h"
#include "SqliteAdmin.h"
#include "SqliteConnection.h"
#include "SqliteWal.h"
#include "StoreErrors.h"
#include "StoreUrl.h"

#include <QFileInfo>
#include <QTimeZone>

namespace
{
constexpr int deadlineOfFilesMs = 60000; // they may be large

/// Calls the operation of the address's engine; false for any other address, with the reason in \a error. An
/// operation takes the file of a store or the address of a server first, and the error last.
template <class Result, class... Declared, class... Arguments>
Result dispatch(Result (*onSqlite)(const QString&, Declared...),
                Result (*onPostgres)(const QString&, Declared...), const QString& url, StoreError* error,
                Arguments&&... arguments)
{
    const StoreUrl parsed(url);
    *error = parsed.error();
    if (*error)
        return Result();
    return parsed.engine == StoreUrl::Sqlite ? onSqlite(parsed.file, arguments..., error)
                                             : onPostgres(url, arguments..., error);
}

/// The remedy for a store in a file that cannot be opened.
QString cureOf(const StoreError& error, const QString& file)
{
    if (error.code == StoreError::TooOld)
        return QString::fromUtf8("Выполните vrk-admin upgrade.");
    if (error.code == StoreError::TooNew)
        return QString::fromUtf8("Установите программу той же версии, что и хранилище.");
    if (error.code == StoreError::NotAStore && SqliteWal(file).isForeign())
        return QString::fromUtf8(
            "Верните копию: vrk-admin restore URL КОПИЯ. Если копия уже на месте хранилища, сначала "
            "переименуйте её. Прежние файлы останутся рядом.");
    return QString::fromUtf8("Проверьте адрес и права на файл и его папку.");
}

/// Why no copy can be made under a name: it must be new, in a writable folder.
StoreError obstacleTo(const QString& copy)
{
    const QFileInfo target(copy);
    const QString folder = target.absolutePath();
    if (target.exists() || target.isSymLink())
        return StoreErrors::make(StoreError::BadRequest, StoreErrors::existingFile, copy);
    if (!QFileInfo(folder).isDir())
        return StoreErrors::make(StoreError::Missing, "Папки «%1» для копии нет.", folder);
    if (!QFileInfo(folder).isWritable())
        return StoreErrors::make(StoreError::ReadOnly, StoreErrors::closedFolder, folder);
    return StoreError();
}

bool loadEpochs(const QString& url, EpochHistory* epochs, StoreError* error)
{
    const auto store = Store::open(url, {}, error);
    const auto log = store ? store->evidence(Store::Access::Read, error) : nullptr;
    return log && epochs->load(*log);
}
} // namespace

int StoreAdmin::schemaVersion()
{
    return SchemaScript::version;
}

std::unique_ptr<Store> StoreAdmin::openLoader(const QString& url, StoreError* error, int deadlineMs)
{
    Store::Options options;
    options.loader = true;
    options.deadlineMs = deadlineMs;
    return Store::open(url, options, error);
}

bool StoreAdmin::init(const QString& url, const QByteArray& codecName, const QByteArray& timeZone,
                      StoreError* error, const Filling& filling)
{
    if (!CodePage::create(codecName))
        return StoreErrors::raise(error, StoreError::BadRequest, "Кодировка «%1» не поддерживается.",
                                  QString::fromLatin1(codecName));
    if (!QTimeZone(timeZone).isValid())
        return StoreErrors::raise(error, StoreError::BadRequest, "Часовой пояс «%1» неизвестен.",
                                  QString::fromLatin1(timeZone));
    const std::function<bool()> isFilled = [&] {
        const auto store = filling ? openLoader(url, error, deadlineOfFilesMs) : nullptr;
        return !filling || (store && filling(store.get(), error));
    };
    return dispatch(SqliteAdmin::init, PostgresAdmin::init, url, error, codecName, timeZone, isFilled);
}

int StoreAdmin::version(const QString& url, StoreError* error)
{
    const int found = dispatch(SqliteAdmin::version, PostgresAdmin::version, url, error);
    return *error ? -1 : found;
}

bool StoreAdmin::upgrade(const QString& url, StoreError* error)
{
    return dispatch(SqliteAdmin::upgrade, PostgresAdmin::upgrade, url, error);
}

bool StoreAdmin::rebuildSearch(const QString& url, StoreError* error)
{
    const LongWork work("Составление указателя поиска");
    return dispatch(SqliteAdmin::rebuildSearch, PostgresAdmin::rebuildSearch, url, error);
}

bool StoreAdmin::setLongestShift(const QString& url, int seconds, StoreError* error)
{
    return dispatch(SqliteAdmin::changeProperty, PostgresAdmin::changeProperty, url, error,
                    QByteArray("longestShift"), QByteArray::number(seconds));
}

bool StoreAdmin::check(const QString& url, QVector<Finding>* findings, StoreError* error)
{
    findings->clear();
    return dispatch(SqliteAdmin::check, PostgresAdmin::check, url, error, findings);
}

bool StoreAdmin::checkSchema(const QString& url, QVector<Finding>* findings, StoreError* error)
{
    findings->clear();
    return dispatch(SqliteAdmin::checkSchema, PostgresAdmin::checkSchema, url, error, findings);
}

QVector<StoreAdmin::Symptom> StoreAdmin::examine(const QString& url)
{
    StoreError error = StoreUrl(url).error();
    if (!error && StoreUrl(url).engine == StoreUrl::PostgreSql)
        return PostgresDoctor::examine(url);
    QVector<Finding> findings;
    if (!error && check(url, &findings, &error))
        error.clear();
    QVector<Symptom> symptoms;
    if (error)
        symptoms.append({error.text, cureOf(error, StoreUrl(url).file)});
    else if (QFileInfo file(StoreUrl(url).file);
             !file.isWritable() || !QFileInfo(file.absolutePath()).isWritable())
        symptoms.append(
            {QString::fromUtf8("Хранилище «%1» доступно только для просмотра.").arg(file.filePath()),
             QString::fromUtf8("Чтобы вести журнал, разрешите запись в файл и в его папку.")});
    for (const Finding& finding : findings)
        symptoms.append(
            {finding.text, QString::fromUtf8("Разберите вывод vrk-admin check; при порче файла верните "
                                             "копию, сделанную vrk-admin backup.")});
    return symptoms;
}

int StoreAdmin::endRunaways(const QString& url, int seconds, StoreError* error)
{
    if (StoreUrl(url).engine == StoreUrl::PostgreSql)
        return PostgresAdmin::endRunaways(url, seconds, error);
    StoreErrors::raise(error, StoreError::BadUrl, "Запросы завершает только сервер PostgreSQL.");
    return -1;
}

bool StoreAdmin::backup(const QString& url, const QString& copy, StoreError* error)
{
    *error = obstacleTo(copy);
    if (*error)
        return false;
    // Under another name until it is complete and checked, so that a partial copy is never mistaken for a
    // complete one.
    const QString draft = copy + QStringLiteral(".part");
    const bool isDone = dispatch(SqliteAdmin::backup, PostgresAdmin::backup, url, error, draft);
    if (isDone && QFile::rename(draft, copy))
        return true;
    SqliteConnection::removeFile(draft); // also what belongs to it
    return isDone && StoreErrors::raise(error, StoreError::ReadOnly, "Файл «%1» нельзя создать.", copy);
}

bool StoreAdmin::restore(const QString& url, const QString& copy, const QString& replaced, QStringList* notes,
                         StoreError* error)
{
    notes->clear();
    EpochHistory epochs;
    if (!replaced.isEmpty()) {
        if (!loadEpochs(replaced, &epochs, error))
            return false;
    } else if (const StoreUrl place(url); place.engine == StoreUrl::Sqlite && QFileInfo::exists(place.file)) {
        StoreError failure;
        if (!loadEpochs(url, &epochs, &failure)) {
            epochs = EpochHistory();
            notes->append(
                QString::fromUtf8("Прежнее хранилище прочесть не удалось: печати, которые сделаны в нём "
                                  "после возврата копии, проверка назовёт чужими. %1")
                    .arg(failure.text));
        }
    }
    return dispatch(SqliteAdmin::restore, PostgresAdmin::restore, url, error, copy, epochs, notes);
}

bool StoreAdmin::putFile(const QString& url, const QString& folder, const QString& name,
                         const QByteArray& content, StoreError* error)
{
    const auto store = openLoader(url, error, deadlineOfFilesMs);
    // Without bytes the file would be removed.
    return store && store->writeFile(folder, name, content.isNull() ? QByteArray("") : content, error);
}

QStringList StoreAdmin::files(const QString& url, StoreError* error)
{
    return dispatch(SqliteAdmin::files, PostgresAdmin::files, url, error);
}

bool StoreAdmin::removeFile(const QString& url, const QString& folder, const QString& name, StoreError* error)
{
    const auto store = openLoader(url, error, deadlineOfFilesMs);
    return store && store->writeFile(folder, name, QByteArray(), error);
}
