#include "StoreErrors.h"

#include "SchemaScript.h"

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
