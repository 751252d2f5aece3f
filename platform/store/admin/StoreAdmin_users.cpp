#include "Fields.h"
#include "GenGuid32.h"
#include "MDRValues.h"
#include "PostgresAdmin.h"
#include "PostgresSealer.h"
#include "StoreAdmin.h"
#include "StoreErrors.h"
#include "StoreUrl.h"
#include "TableCatalog.h"

#include <algorithm>
#include <QTextCodec>

namespace
{
/// The first field of every row of a select: keys, logins and names of rights.
QVector<QByteArray> column(Store& store, const QByteArray& sql, StoreError* error)
{
    QVector<QByteArray> values;
    CMDArray answer;
    answer = store.select(sql, error);
    for (int i = 0; answer.array && i < answer.RecCount(); ++i) {
        MDRVar value;
        MDRGetVal(MDRFldByNum(answer.array, 0), MDARec(answer.array, 0, i), &value);
        values.append(MDRValue::copy(value));
    }
    return values;
}

bool write(Store& store, const char* table, const CRowBatch& batch, StoreError* error)
{
    return store.apply({{table, batch.array}}, GenGuid32(), error);
}

CRowBatch batchOf(const char* table)
{
    const QVector<MDRFieldDescr> fields = TableCatalog::table(table)->descriptors();
    return CRowBatch(fields.constData(), fields.size());
}

bool noSuchLogin(const QString& login, StoreError* error)
{
    if (!*error)
        StoreErrors::raise(error, StoreError::NoSuchRow, StoreErrors::noLogin, login);
    return false;
}

QByteArray userKey(Store& store, const QString& login, bool deletedToo, StoreError* error)
{
    QByteArray sql = "SELECT KeyLink FROM Users WHERE login = " + Store::literal(login.toUtf8());
    if (!deletedToo)
        sql += " AND coalesce(deleted_, 0) = 0";
    return column(store, sql, error).value(0);
}
} // namespace

StoreError StoreAdmin::loginError(const QString& login)
{
    if (login.trimmed().isEmpty())
        return StoreErrors::make(StoreError::BadRequest, "Имя для входа не задано.");
    if (std::any_of(login.begin(), login.end(), [](QChar sign) { return sign.isSpace() || !sign.isPrint(); }))
        return StoreErrors::make(StoreError::BadRequest,
                                 "В имени для входа «%1» есть пробел: его пишут одним словом.", login);
    return StoreError();
}

bool StoreAdmin::addUser(const QString& url, const QString& login, const QString& name, StoreError* error)
{
    *error = loginError(login);
    if (*error)
        return false;
    const auto store = openLoader(url, error);
    if (!store)
        return false;
    if (!userKey(*store, login, false, error).isEmpty())
        return StoreErrors::raise(error, StoreError::BadRequest, "Пользователь «%1» уже есть.", login);
    if (*error || !admit(url, login, true, error))
        return false;
    // A login that was removed is restored as the same person.
    const QByteArray former = userKey(*store, login, true, error);
    CRowBatch batch = batchOf("Users");
    MDRData* row =
        batch.newRow(former.isEmpty() ? ROW_INSERT : ROW_UPDATE, former.isEmpty() ? GenGuid32() : former);
    const QByteArray loginBytes = store->codec()->fromUnicode(login);
    const QByteArray nameBytes = store->codec()->fromUnicode(name);
    batch.SetValF(row, Field::login, MDRValue::text(loginBytes));
    batch.SetValF(row, Field::name_, MDRValue::text(nameBytes));
    batch.SetValF(row, Field::deleted_, MDRValue::boolean(false));
    batch.RecPost(row);
    return write(*store, "Users", batch, error);
}

bool StoreAdmin::removeUser(const QString& url, const QString& login, StoreError* error)
{
    const auto store = openLoader(url, error);
    if (!store)
        return false;
    const QByteArray key = userKey(*store, login, false, error);
    if (key.isEmpty())
        return noSuchLogin(login, error);
    CRowBatch batch = batchOf("Users");
    MDRData* row = batch.newRow(ROW_UPDATE, key);
    batch.SetValF(row, Field::deleted_, MDRValue::boolean(true));
    batch.RecPost(row);
    return write(*store, "Users", batch, error) &&
           (StoreUrl(url).engine != StoreUrl::PostgreSql || PostgresAdmin::lockRole(url, login, error));
}

bool StoreAdmin::setPassword(const QString& url, const QString& login, const QString& password,
                             StoreError* error)
{
    const auto store = openLoader(url, error);
    if (!store)
        return false;
    const bool isServer = StoreUrl(url).engine == StoreUrl::PostgreSql;
    bool isSealer = false;
    if (isServer && !PostgresSealer::isAdmitted(url, login, &isSealer, error))
        return false;
    if (!isSealer && userKey(*store, login, false, error).isEmpty())
        return noSuchLogin(login, error);
    if (isServer)
        return PostgresAdmin::setPassword(url, login, password, error);
    return StoreErrors::raise(error, StoreError::BadRequest, "В этом хранилище входят без пароля.");
}

bool StoreAdmin::mayLoad(Store& store, const QString& url)
{
    if (StoreUrl(url).engine != StoreUrl::PostgreSql)
        return true;
    StoreError error;
    // Any row is the answer no; a store without logins has no accounts but those of administrators.
    return column(store,
                  "SELECT KeyLink FROM Users WHERE NOT pg_has_role(session_user, 'vrk_loader', 'MEMBER')",
                  &error)
        .isEmpty();
}

bool StoreAdmin::admitSealer(const QString& url, const QString& login, bool admitted, StoreError* error)
{
    *error = loginError(login);
    if (!*error && StoreUrl(url).engine != StoreUrl::PostgreSql)
        StoreErrors::raise(error, StoreError::BadRequest,
                           "Хранилище в файле опечатывает тот, кому система разрешает писать в файл.");
    return !*error &&
           (admitted ? PostgresSealer::admit(url, login, error) : PostgresSealer::dismiss(url, login, error));
}

bool StoreAdmin::admit(const QString& url, const QString& login, bool admitted, StoreError* error)
{
    if (StoreUrl(url).engine != StoreUrl::PostgreSql)
        return true;
    return admitted ? PostgresAdmin::addRole(url, login, error) : PostgresAdmin::lockRole(url, login, error);
}

bool StoreAdmin::grant(const QString& url, const QString& login, const QByteArray& right, bool given,
                       StoreError* error)
{
    const auto store = openLoader(url, error);
    if (!store)
        return false;
    const QByteArray user = userKey(*store, login, false, error);
    if (user.isEmpty())
        return noSuchLogin(login, error);
    const QByteArray present =
        column(*store,
               "SELECT KeyLink FROM UserRights WHERE UserKey = " + Store::literal(user) +
                   " AND rightName = " + Store::literal(right),
               error)
            .value(0);
    if (*error)
        return false;
    if (present.isEmpty() != given)
        return true; // already in the wanted state
    CRowBatch batch = batchOf("UserRights");
    MDRData* row = batch.newRow(given ? ROW_INSERT : ROW_DELETE, given ? GenGuid32() : present);
    if (given) {
        batch.SetValF(row, Field::UserKey, MDRValue::text(user));
        batch.SetValF(row, Field::rightName, MDRValue::text(right));
    }
    batch.RecPost(row);
    return write(*store, "UserRights", batch, error);
}

QVector<QByteArray> StoreAdmin::rights(const QString& url, const QString& login, StoreError* error)
{
    const auto store = openLoader(url, error);
    if (!store)
        return {};
    const QByteArray user = userKey(*store, login, false, error);
    if (user.isEmpty()) {
        noSuchLogin(login, error);
        return {};
    }
    return column(*store,
                  "SELECT rightName FROM UserRights WHERE UserKey = " + Store::literal(user) +
                      " ORDER BY rightName",
                  error);
}
