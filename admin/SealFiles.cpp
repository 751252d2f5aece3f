#include "SealFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace
{
bool fail(const QString& text, StoreError* error)
{
    *error = {StoreError::BadRequest, text, QString()};
    return false;
}
} // namespace

SealFiles::SealFiles(const QString& key) : m_key(key)
{
    const QString credentials = qEnvironmentVariable("CREDENTIALS_DIRECTORY");
    if (m_key.isEmpty())
        m_key = credentials.isEmpty()
                    ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                          QStringLiteral("/vrk-logbook/seal.key")
                    : credentials + QStringLiteral("/vrk-seal");
}

QString SealFiles::formerFile() const
{
    return m_key + QStringLiteral(".former");
}

HeadBook SealFiles::heads() const
{
    const QString state = qEnvironmentVariable("STATE_DIRECTORY");
    return HeadBook(state.isEmpty() ? m_key + QStringLiteral(".heads")
                                    : state + QStringLiteral("/seal.heads"));
}

bool SealFiles::create(const QByteArray& name, StoreError* error) const
{
    if (!VerifierKey::isName(name))
        return fail(QStringLiteral("Имя ключа не может быть пустым и содержать пробелы или «+»."), error);
    QDir().mkpath(QFileInfo(m_key).absolutePath());
    QString failure;
    return SealKey::create(m_key, name, &failure) || fail(failure, error);
}

bool SealFiles::replace(StoreError* error) const
{
    QString failure;
    const auto present = SealKey::load(m_key, &failure);
    if (!present)
        return fail(failure, error);
    if (QFile::exists(formerFile()))
        return fail(QStringLiteral("Прежний ключ ещё подписывает: сначала удалите %1").arg(formerFile()),
                    error);
    if (!QFile::rename(m_key, formerFile()))
        return fail(QStringLiteral("Файл «%1» нельзя переименовать.").arg(m_key), error);
    if (SealKey::create(m_key, present->verifier().name(), &failure))
        return true;
    QFile::rename(formerFile(), m_key);
    return fail(failure, error);
}

bool SealFiles::load(std::vector<std::unique_ptr<SealKey>>* keys, StoreError* error) const
{
    if (!QFile::exists(m_key))
        return fail(QStringLiteral("Ключа «%1» нет. Создайте его: vrk-admin seal URL --init").arg(m_key),
                    error);
    for (const QString& file : {m_key, formerFile()}) {
        if (file != m_key && !QFile::exists(file))
            continue;
        QString failure;
        keys->push_back(SealKey::load(file, &failure));
        if (!keys->back())
            return fail(failure, error);
    }
    return true;
}
