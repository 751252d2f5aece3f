#include "LogSignature.h"

#include "ChangeRow.h"
#include "Fields.h"
#include "TableCatalog.h"

#include <QHash>

namespace
{
/// The values of one field in a row before its change and after it.
struct Change {
    Change(const LoggedRow& row, const char* field)
        : place(TableCatalog::table(row.table)->fieldIndex(field)), former(row.oldRow), present(row.newRow)
    {
    }
    QByteArray was() const { return former.text(place); }
    QByteArray is() const { return present.text(place); }
    bool wasZero() const { return former.raw(place) == "0"; }
    bool isZero() const { return present.raw(place) == "0"; }

    int place;
    ChangeRow former;
    ChangeRow present;
};

QByteArray ofRecord(const LoggedRow& row)
{
    const Change visa(row, Field::VisaWorkerKey);
    if (visa.was() != visa.is())
        return visa.is().isEmpty() ? "visaRemoved" : "visa";
    const Change status(row, Field::status);
    if (status.wasZero() == status.isZero())
        return QByteArray();
    return status.isZero() ? "approval" : "cancellation";
}

QByteArray ofWorkshift(const LoggedRow& row)
{
    const Change closer(row, Field::CloseWorkerKey);
    return closer.was().isEmpty() && !closer.is().isEmpty() ? "closing" : QByteArray();
}
} // namespace

bool LogSignature::isBeginning(const LoggedRow& row)
{
    return row.table == "StoreProperties" && row.key == "signatures" && row.event == 601;
}

QByteArray LogSignature::meaningOf(const LoggedRow& row)
{
    if (row.event == 603)
        return QByteArray();
    return row.table == "LogbookRecords"      ? ofRecord(row)
           : row.table == "LogbookWorkshifts" ? ofWorkshift(row)
                                              : QByteArray();
}

bool LogSignature::read(const LoggedRow& row, LogSignature* signature)
{
    if (row.table != tableName || row.event != 601)
        return false;
    const ChangeRow values(row.newRow);
    int place = 1; // behind the key
    signature->meaning = values.text(place++);
    signature->login = values.text(place++);
    signature->person = values.text(place++);
    signature->time = values.number(place++);
    signature->table = values.text(place++);
    signature->key = values.text(place++);
    signature->rowHash = values.text(place);
    return true;
}

bool LogSignature::fits(const LoggedTransaction& transaction, const LoggedRow& row) const
{
    return login == transaction.login && row.table == table && row.key == key && meaningOf(row) == meaning &&
           LogLeaf::ofRow(row).bytes().toHex() == rowHash;
}

QString LogSignature::words(const QByteArray& meaning)
{
    static const QHash<QByteArray, const char*> all = {{"visa", "виза"},
                                                       {"visaRemoved", "снятие визы"},
                                                       {"approval", "утверждение"},
                                                       {"cancellation", "отмена записи"},
                                                       {"closing", "закрытие смены"}};
    const char* known = all.value(meaning);
    return known ? QString::fromUtf8(known) : QString::fromUtf8(meaning);
}
