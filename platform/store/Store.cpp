#include "MDRValues.h"
#include "PostgresStore.h"
#include "SqliteStore.h"
#include "StoreErrors.h"
#include "StoreUrl.h"

std::unique_ptr<Store> Store::open(const QString& url, const Options& options, StoreError* error)
{
    const StoreUrl parsed(url);
    if (parsed.engine == StoreUrl::Sqlite)
        return SqliteStore::open(parsed.file, options, error);
    if (parsed.engine == StoreUrl::PostgreSql)
        return PostgresStore::open(url, options, error);
    *error = parsed.error();
    return nullptr;
}

QByteArray Store::literal(const QByteArray& text)
{
    return "'" + QByteArray(text).replace("'", "''") + "'";
}

bool Store::provePassword(const QString& /*password*/, StoreError* error)
{
    return StoreErrors::raise(error, StoreError::Refused, StoreErrors::noPasswords);
}

int Store::longestShift()
{
    StoreError error;
    CMDArray answer;
    answer = select("SELECT seconds FROM LongestShift", &error);
    MDRVar value;
    if (!answer.array ||
        MDRGetVal(MDRFldByNum(answer.array, 0), MDARec(answer.array, 0, 0), &value) != mdr_Ok)
        return 0;
    return value.value.number;
}
