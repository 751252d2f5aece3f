#include "SignatureLines.h"

#include "AdminText.h"
#include "Fields.h"
#include "LogbookFields.h"
#include "ShiftBook.h"

#include <algorithm>

namespace
{
/// The fields that the journal changes without a change of what was signed.
const char* const freeFields[] = {Field::VisaWorkerKey, Field::SecondMarkWorkerKey, Field::secondMarkTime,
                                  Field::status};

/// What became of the row since the change.
QString since(const RowChange& change, const QVector<RowChange>& changes)
{
    RowChange last = change;
    for (const RowChange& other : changes)
        if (other.table == change.table)
            last = other;
    if (last.event == RowChange::Removed)
        return QStringLiteral("строки больше нет");
    last.before = change.after;
    QStringList changed;
    for (const int place : last.differences())
        if (!std::any_of(std::begin(freeFields), std::end(freeFields),
                         [&](const char* field) { return last.fields.at(place) == field; }))
            changed.append(RowChange::title(last.fields.at(place)));
    QString text = changed.isEmpty()
                       ? QStringLiteral("подписанный текст стоит без изменений")
                       : QStringLiteral("с тех пор изменено: ") + changed.join(QStringLiteral(", "));
    if (change.table == "LogbookRecords" && last.is(Field::status).toInt() == StatusDeleted)
        text += QStringLiteral(", запись зачёркнута");
    return text;
}
} // namespace

QString SignatureLines::of(const RowChange& change, const QVector<RowChange>& changes)
{
    const RowChange::Signature& signature = change.signature;
    if (signature.state == RowChange::Signature::NotNeeded)
        return QString();
    const QString line =
        signature.state == RowChange::Signature::Signed
            ? QStringLiteral("%1 (%2), %3; %4")
                  .arg(AdminText::printable(signature.person), AdminText::printable(signature.login),
                       ShiftBook::shown(signature.time), since(change, changes))
            : signature.lack();
    return QStringLiteral("    Подпись «%1»: %2\n").arg(signature.meaning, line);
}
