#include "PostgresDoctor.h"

#include "PgConnection.h"
#include "PostgresAccess.h"
#include "PostgresSchema.h"

#include <cmath>
#include <QDateTime>

namespace
{
constexpr int deadlineMs = 15000;
constexpr double tolerableSeconds = 2; // difference between two clocks
constexpr int fewestReserved = 3;      // connections: an administrator, a backup, the watchdog

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// A setting and the value that it must have.
struct Setting {
    const char* name;
    const char* wanted;
    const char* fault;
};

const Setting settings[] = {
    {"server_encoding", "UTF8", "Кодировка базы не UTF8: часть знаков записать нельзя."},
    {"data_checksums", "on", "Сервер не проверяет контрольные суммы страниц: порчу диска никто не заметит."},
    {"fsync", "on", "Сервер не дожидается диска: при отключении питания записи пропадут."},
    {"full_page_writes", "on", "Сервер не защищён от страниц, записанных наполовину."},
    {"max_prepared_transactions", "0",
     "Сервер хранит подготовленные транзакции: одна забытая остановит запись для всех."},
    {"password_encryption", "scram-sha-256", "Пароли на сервере хранятся в устаревшем виде."},
};

QString cureOf(const Setting& setting)
{
    if (qstrcmp(setting.name, "server_encoding") == 0)
        return text("Создайте базу заново: vrk-admin init сделает её в кодировке UTF8.");
    if (qstrcmp(setting.name, "data_checksums") == 0)
        return text("Остановите сервер и выполните pg_checksums --enable для его каталога данных.");
    if (qstrcmp(setting.name, "max_prepared_transactions") == 0)
        return text(
            "Выполните на сервере: ALTER SYSTEM SET max_prepared_transactions = 0; и перезапустите его.");
    return text("Выполните на сервере: ALTER SYSTEM SET %1 = '%2'; SELECT pg_reload_conf();")
        .arg(QLatin1String(setting.name), QLatin1String(setting.wanted));
}

void lookAtSettings(PgConnection& link, QVector<StoreAdmin::Symptom>* symptoms)
{
    StoreError error;
    for (const Setting& setting : settings) {
        const PgResult value = link.run("SELECT current_setting($1)", PgValues().text(setting.name), &error);
        if (value && value.bytes(0, 0) != setting.wanted)
            symptoms->append({text(setting.fault), cureOf(setting)});
    }
}

void lookAtAccess(PgConnection& link, QVector<StoreAdmin::Symptom>* symptoms)
{
    StoreError error;
    if (!link.isLocal() && !link.isEncrypted())
        symptoms->append({text("Соединение с сервером не шифруется."),
                          text("Включите на сервере ssl = on и напишите в адресе sslmode=verify-full.")});
    else if (!link.caution().isEmpty())
        symptoms->append({text("Сервер не доказывает, что он тот самый: пароль может уйти чужому."),
                          text("Напишите в адресе sslmode=verify-full и положите сертификат вашего центра в "
                               "~/.postgresql/root.crt.")});
    // Only an administrator may read the access file; other logins notice its faults when they cannot
    // connect.
    const PgResult lines = link.run("SELECT line_number::integer, auth_method FROM pg_hba_file_rules "
                                    "WHERE error IS NULL AND type <> 'local' "
                                    "AND auth_method IN ('trust', 'password', 'md5')",
                                    &error);
    for (int i = 0; lines && i < lines.rows(); ++i)
        symptoms->append({text("Строка %1 файла доступа pg_hba.conf пускает способом «%2».")
                              .arg(lines.integer(i, 0))
                              .arg(QString::fromUtf8(lines.bytes(i, 1))),
                          text("Замените способ на scram-sha-256 и выполните SELECT pg_reload_conf();")});
    const PgResult faults =
        link.run("SELECT line_number::integer, error FROM pg_hba_file_rules WHERE error IS NOT NULL", &error);
    for (int i = 0; faults && i < faults.rows(); ++i)
        symptoms->append({text("В строке %1 файла доступа pg_hba.conf ошибка: %2.")
                              .arg(faults.integer(i, 0))
                              .arg(QString::fromUtf8(faults.bytes(i, 1))),
                          text("Исправьте строку и выполните SELECT pg_reload_conf();")});
}

/// The administrator and the watchdog must be able to connect when persons hold all other connections.
void lookAtReserve(PgConnection& link, QVector<StoreAdmin::Symptom>* symptoms)
{
    StoreError error;
    const PgResult reserved =
        link.run("SELECT current_setting('superuser_reserved_connections')::integer", &error);
    if (reserved && reserved.integer(0, 0) < fewestReserved)
        symptoms->append(
            {text("Для администратора и сторожа сервер держит соединений: %1, а нужно не меньше %2.")
                 .arg(reserved.integer(0, 0))
                 .arg(fewestReserved),
             text("Выполните на сервере: ALTER SYSTEM SET superuser_reserved_connections = 10; и "
                  "перезапустите его.")});
}

void lookAtClock(PgConnection& link, QVector<StoreAdmin::Symptom>* symptoms)
{
    StoreError error;
    const PgResult time = link.run("SELECT extract(epoch FROM clock_timestamp())::double precision", &error);
    const double here = static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000;
    const double difference = time ? time.real(0, 0) - here : 0;
    if (std::abs(difference) > tolerableSeconds)
        symptoms->append({text("Часы сервера и этой машины расходятся на %1 с.").arg(difference, 0, 'f', 0),
                          text("Включите сверку времени (systemd-timesyncd или chrony) на обеих машинах.")});
}

QString cureOfNoConnection(const StoreError& error)
{
    // libpq reports encryption problems only as text, in the machine's language.
    const auto tells = [&](const char* word) {
        return error.detail.contains(text(word), Qt::CaseInsensitive);
    };
    if (error.code == StoreError::Refused || error.code == StoreError::Password)
        return text("Проверьте имя и пароль и строку для этого имени в файле доступа pg_hba.conf.");
    if (error.code == StoreError::TooOld)
        return text("Обновите сервер до PostgreSQL 15 или новее.");
    if (error.code == StoreError::Missing)
        return text("Проверьте имя базы в адресе; новую базу с хранилищем создаст vrk-admin setup или "
                    "vrk-admin init, копию вернёт vrk-admin restore.");
    if (tells("certificate") || tells("сертификат"))
        return text(
            "Положите сертификат вашего центра в ~/.postgresql/root.crt и проверьте, чтобы имя из адреса "
            "стояло в сертификате сервера.");
    if (tells("SSL"))
        return text("Включите на сервере ssl = on.");
    return text("Проверьте, что сервер запущен, адрес верен и порт 5432 открыт.");
}
} // namespace

QVector<StoreAdmin::Symptom> PostgresDoctor::examine(const QString& url)
{
    PgConnection link(url, deadlineMs);
    StoreError error;
    if (!link.connect(link.connectMs(), &error)) {
        const QString what =
            error.detail.isEmpty() ? error.text : error.text + QLatin1Char(' ') + error.detail;
        return {{what, cureOfNoConnection(error)}};
    }
    QVector<StoreAdmin::Symptom> symptoms;
    lookAtAccess(link, &symptoms);
    lookAtSettings(link, &symptoms);
    lookAtReserve(link, &symptoms);
    lookAtClock(link, &symptoms);
    if (PostgresSchema::isOurs(link, &error))
        PostgresAccess::examine(link, &symptoms);
    else
        symptoms.append({error.text, error.code == StoreError::NotAStore
                                         ? text("Создайте хранилище: vrk-admin setup или vrk-admin init.")
                                         : text("Установите программу той же версии, что и хранилище.")});
    return symptoms;
}
