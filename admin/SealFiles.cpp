#include "SealFiles.h"

#include <algorithm>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace
{
const QString keysFolder = QStringLiteral("evidence");
const QString keysName = QStringLiteral("keys");

bool fail(const QString& text, StoreError* error)
{
    *error = {StoreError::BadRequest, text, QString()};
    return false;
}

/// The lines of \a keys that are not among the lines of \a known.
QByteArray missing(const QByteArray& keys, const QByteArray& known)
{
    const QVector<VerifierKey> others = VerifierKey::parseAll(known);
    QByteArray lines;
    for (const VerifierKey& key : VerifierKey::parseAll(keys))
        if (std::none_of(others.begin(), others.end(),
                         [&](const VerifierKey& other) { return other.text() == key.text(); }))
            lines += key.text() + '\n';
    return lines;
}
} // namespace

SealFiles::SealFiles(const QString& key) : m_key(key)
{
    const QString credentials = qEnvironmentVariable("CREDENTIALS_DIRECTORY");
    if (!m_key.isEmpty())
        return;
    m_key = credentials.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                                        QStringLiteral("/vrk-logbook/seal.key")
                                  : credentials + QStringLiteral("/vrk-seal");
    // systemd names the files of a folder so.
    if (const QString ofFolder = m_key + QStringLiteral("_seal.key");
        !credentials.isEmpty() && QFile::exists(ofFolder))
        m_key = ofFolder;
}

QString SealFiles::formerFile() const
{
    return m_key + QStringLiteral(".former");
}

QString SealFiles::beside(const QString& what) const
{
    const QString state = qEnvironmentVariable("STATE_DIRECTORY");
    return (state.isEmpty() ? m_key : state + QStringLiteral("/seal")) + QLatin1Char('.') + what;
}

HeadBook SealFiles::heads() const
{
    return HeadBook(beside(QStringLiteral("heads")));
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

void SealFiles::takeBack() const
{
    QFile::remove(m_key);
    if (QFile::exists(formerFile()))
        QFile::rename(formerFile(), m_key);
}

bool SealFiles::published(Store* store, QByteArray* lines, StoreError* error)
{
    lines->clear();
    if (store->file(keysFolder, keysName, lines, error))
        return true;
    if (error->code != StoreError::NoSuchRow)
        return false;
    error->clear();
    return true;
}

bool SealFiles::publish(Store* store, const std::vector<std::unique_ptr<SealKey>>& keys,
                        StoreError* error) const
{
    QFile file(beside(QStringLiteral("keys")));
    QByteArray remembered;
    if (file.open(QIODevice::ReadOnly))
        remembered = file.readAll();
    file.close();
    QByteArray signing;
    for (const auto& key : keys)
        signing += key->verifier().text() + '\n';
    const QByteArray isNew = missing(signing, remembered);

    QByteArray lines;
    if (!published(store, &lines, error))
        return false;
    const QByteArray unknown = missing(remembered + isNew, lines);
    if (!unknown.isEmpty() && !store->writeFile(keysFolder, keysName, lines + unknown, error))
        return false;
    // If it cannot be written, the next seal tries again: the store has the key meanwhile.
    if (!isNew.isEmpty() && file.open(QIODevice::WriteOnly | QIODevice::Append))
        file.write(isNew);
    return true;
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
