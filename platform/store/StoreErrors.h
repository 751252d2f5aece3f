#pragma once

#include "StoreError.h"

/// The errors that both engines report in the same words. A place is the store as the user knows it: its
/// file or its address.
namespace StoreErrors
{
/// An error whose text contains "%1" and "%2".
StoreError make(StoreError::Code code, const char* text, const QString& first = QString(),
                const QString& second = QString());
/// Sets the error; always false.
bool raise(StoreError* error, StoreError::Code code, const char* text, const QString& first = QString(),
           const QString& second = QString());

/// No error if a store whose schema has the version \a found can be used.
StoreError version(int found, const QString& place);
StoreError noFile(const QString& folder, const QString& name);
/// The history of changes continues neither in the store nor in its log.
StoreError otherHistory(const QString& place);
StoreError shorterLog(const QString& place);

constexpr char related[] = "Строка связана с другими строками, или строки, на которую она ссылается, нет.";
constexpr char sameKey[] = "Строка с таким ключом уже есть.";
constexpr char onlyReading[] = "Запрос может только читать данные.";
constexpr char notUnderstood[] = "Хранилище не может выполнить запрос.";
constexpr char internal[] = "Внутренняя ошибка хранилища «%1».";
constexpr char oneSelect[] = "Запрос должен состоять из одной выборки.";
constexpr char noLogin[] = "Пользователь «%1» не найден.";
constexpr char noPasswords[] = "Хранилище не спрашивает паролей.";
constexpr char noRow[] = "Такой строки в хранилище нет.";
constexpr char existingFile[] = "Файл «%1» уже существует.";
constexpr char closedFolder[] = "В папку «%1» нельзя записать копию.";
} // namespace StoreErrors
