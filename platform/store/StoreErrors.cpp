#include "StoreErrors.h"

#include "SchemaScript.h"

StoreError StoreErrors::make(StoreError::Code code, const char* text, const QString& first,
                             const QString& second)
{
    const QString whole = QString::fromUtf8(text);
    // Both at once, because the first may contain "%2".
    if (whole.contains(QLatin1String("%2")))
        return {code, whole.arg(first, second), QString()};
    return {code, QString(whole).replace(QLatin1String("%1"), first), QString()};
}

bool StoreErrors::raise(StoreError* error, StoreError::Code code, const char* text, const QString& first,
                        const QString& second)
{
    *error = make(code, text, first, second);
    return false;
}

StoreError StoreErrors::version(int found, const QString& place)
{
    if (found > SchemaScript::version)
        return {
            StoreError::TooNew,
            QString::fromUtf8("Хранилище «%1» создано более новой программой: нужна версия схемы %2, а эта "
                              "программа знает версию %3.")
                .arg(place)
                .arg(found)
                .arg(SchemaScript::version),
            QString()};
    if (found < SchemaScript::version)
        return {StoreError::TooOld,
                QString::fromUtf8("Хранилище «%1» версии %2 нужно обновить до версии %3: vrk-admin upgrade.")
                    .arg(place)
                    .arg(found)
                    .arg(SchemaScript::version),
                QString()};
    return StoreError();
}

StoreError StoreErrors::noFile(const QString& folder, const QString& name)
{
    return {StoreError::NoSuchRow, QString::fromUtf8("В хранилище нет файла «%1/%2».").arg(folder, name),
            QString()};
}

StoreError StoreErrors::otherHistory(const QString& place)
{
    return make(StoreError::NotAStore, "Хранилище «%1» заменено другим: данные нужно загрузить заново.",
                place);
}

StoreError StoreErrors::shorterLog(const QString& place)
{
    return make(StoreError::NotAStore,
                "Журнал изменений хранилища «%1» начинается позже: данные нужно загрузить заново.", place);
}
