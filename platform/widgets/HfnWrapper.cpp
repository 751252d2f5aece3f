#include "HfnWrapper.h"

#include "Fields.h"
#include "MDRValues.h"

#include <QStringList>
#include <QTextCodec>

namespace
{
QString text(const QTextCodec* codec, const CModelTable* table, const MDRData* record, const char* field)
{
    MDRVar value;
    table->data.GetVal(record, field, value);
    if (!MDRValue::hasText(value))
        return QString();
    const MDRVar::Text& bytes = value.value.text;
    return codec ? codec->toUnicode(bytes.data, bytes.length) : QString::fromUtf8(bytes.data, bytes.length);
}

void append(QString& name, const QString& part)
{
    if (part.isEmpty())
        return;
    if (!name.isEmpty())
        name += QLatin1Char(' ');
    name += part;
}

// Deliberate: a part that is empty but not null still gives its point.
QString initial(const QTextCodec* codec, const CModelTable* table, const MDRData* record, const char* field)
{
    MDRVar value;
    table->data.GetVal(record, field, value);
    if (!MDRValue::isText(value) || value.isNull)
        return QString();
    return text(codec, table, record, field).left(1) + QLatin1Char('.');
}

/// The surname, then first name and patronymic as \a part shows them.
QString workerName(const QTextCodec* codec, const CModelTable* workers, const QString& key,
                   decltype(initial)* part)
{
    const MDRData* worker = recordByKeyLink(workers, key.toUtf8().constData());
    if (!worker)
        return QString();
    QString name = text(codec, workers, worker, Field::lastName);
    append(name, part(codec, workers, worker, Field::firstName));
    append(name, part(codec, workers, worker, Field::patronymicName));
    return name;
}
} // namespace

QString HfnWrapper::nameOf(const QTextCodec* codec, const CModelTable* table, const QString& key)
{
    const MDRData* row = recordByKeyLink(table, key.toUtf8().constData());
    return row ? text(codec, table, row, Field::name_) : QString();
}

QString HfnWrapper::workerShortName(const QTextCodec* codec, CModelTable* workers, QString workerKey)
{
    return workerName(codec, workers, workerKey, initial);
}

QString HfnWrapper::workerFullName(const QTextCodec* codec, CModelTable* workers, QString workerKey)
{
    return workerName(codec, workers, workerKey, text);
}

QString HfnWrapper::workerRoles(const QTextCodec* codec, CModelTable* roles, CModelTable* workerRoles,
                                QString workerKey)
{
    QStringList names;
    if (!roles || !workerRoles || workerKey.isEmpty())
        return QString();
    const QByteArray key = workerKey.toUtf8();
    for (int i = 0; i < workerRoles->data.RecCount(); ++i) {
        const MDRData* row = MDARec(workerRoles->data.array, 0, i);
        MDRVar value;
        workerRoles->data.GetVal(row, Field::WorkerKey, value);
        if (MDRValue::bytes(value) != key)
            continue;
        const QString name = nameOf(codec, roles, text(nullptr, workerRoles, row, Field::RoleKey));
        if (!name.isEmpty())
            names.append(name);
    }
    names.sort(Qt::CaseInsensitive);
    return names.join(QLatin1Char('/'));
}
