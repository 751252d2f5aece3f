#include "ChangeText.h"

#include "CMDArray.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "HfnTime.h"
#include "KeyNames.h"
#include "LogbookFields.h"
#include "MarkedText.h"
#include "Row.h"
#include "TemplateText.h"
#include "WordDiff.h"

#include <QLocale>

namespace
{
constexpr int longestText = 20000;    // shown of one value
constexpr int longestStored = 200000; // read of one template text
constexpr int longestPart = 160;      // of equal text in a summary

QString tr(const char* text)
{
    return CVrkCliMod::tr(text);
}

bool turnsDirection(QChar character)
{
    const ushort code = character.unicode();
    return (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069) || code == 0x200e ||
           code == 0x200f;
}

QString bytes(const QVariantMap& content)
{
    return tr("%1 байт, SHA-256 %2")
        .arg(QLocale().toString(content.value(QStringLiteral("length")).toLongLong()),
             content.value(QStringLiteral("sha256")).toString());
}

QString statusName(int status)
{
    return status == StatusApproved ? tr("утверждена")
           : status == StatusDraft  ? tr("черновик")
                                    : tr("удалена");
}

/// The middle of a long equal passage is left out.
QString shortened(const QString& text)
{
    return text.size() <= 2 * longestPart
               ? text
               : text.left(longestPart) + QStringLiteral(" … ") + text.right(longestPart);
}

QString html(const QVector<WordDiff::Piece>& pieces, TemplateText::Looks looks)
{
    QString all;
    for (const WordDiff::Piece& piece : pieces)
        all += MarkedText::passage(piece.text, piece.isSame ? TemplateText::Looks() : looks);
    return all;
}

QString signatureParagraph(const QString& text)
{
    return text.isEmpty() ? text
                          : QStringLiteral("<p>") + MarkedText::passage(text, TemplateText::Italic) +
                                QStringLiteral("</p>");
}

/// Keys that only place the row, and values that say nothing where there was no row.
bool isSilent(const RowChange& change, const QByteArray& field, const QString& before, const QString& after)
{
    if (field == Field::KeyLink.name)
        return true;
    if (change.event == RowChange::Changed)
        return false;
    return field == Field::ShiftKey.name || field == Field::RecordKey.name ||
           field == Field::WorkshiftKey.name || before == after;
}

const TemplateText::Looks removedLook = TemplateText::StruckOut;
const TemplateText::Looks insertedLook = TemplateText::Looks(TemplateText::Bold) | TemplateText::Underlined;
} // namespace

bool ChangeText::load(CVrkCliMod* module, const KeyNames* names)
{
    m_names = names;
    CMDArray users;
    users = module->session()->SqlRequest("SELECT * FROM Users");
    for (int i = 0; users.array && i < users.RecCount(); ++i) {
        const Row row(MDARec(users.array, 0, i));
        m_persons.insert(row.text(Field::login, module->session()->codec()),
                         row.text(Field::name_, module->session()->codec()));
    }
    return users.array != nullptr;
}

QString ChangeText::who(const RowChange& change) const
{
    if (change.isAdministrator)
        return tr("администратор (%1)").arg(visible(change.login));
    const QString name = m_persons.value(change.login);
    return name.isEmpty() ? visible(change.login)
                          : QStringLiteral("%1 (%2)").arg(visible(name), visible(change.login));
}

QString ChangeText::signature(const RowChange& change) const
{
    const RowChange::Signature& signature = change.signature;
    if (signature.state == RowChange::Signature::NotNeeded)
        return QString();
    return tr("Подпись «%1»: %2")
        .arg(signature.meaning,
             signature.state == RowChange::Signature::Signed
                 ? QStringLiteral("%1 (%2), %3")
                       .arg(visible(signature.person), visible(signature.login), time(signature.time))
                 : signature.lack());
}

QString ChangeText::time(double time)
{
    const QDateTime moment = HfnTime_to_DateTime(time, -1);
    return moment.isValid() ? moment.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")) : QStringLiteral("—");
}

QString ChangeText::visible(const QString& text)
{
    QString shown;
    const int end = qMin(text.size(), longestText);
    shown.reserve(end);
    for (int i = 0; i < end; ++i) {
        const QChar character = text.at(i);
        if (turnsDirection(character) ||
            (character.category() == QChar::Other_Control && character != QLatin1Char('\n')))
            shown += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
        else
            shown += character;
    }
    if (text.size() > longestText)
        shown += tr(" … (показано %1 знаков из %2)").arg(longestText).arg(text.size());
    return shown;
}

QString ChangeText::name(const QByteArray& field, const QString& text) const
{
    if (field.endsWith("WorkerKey"))
        return m_names->workerName(text.toUtf8());
    return field == Field::DepartmentKey.name ? m_names->departmentName(text.toUtf8()) : QString();
}

QString ChangeText::value(const QByteArray& field, const QVariant& value) const
{
    if (!value.isValid())
        return QStringLiteral("—");
    if (field == Field::fileData.name)
        return bytes(value.toMap());
    if (field == Field::status.name)
        return statusName(value.toInt());
    if (field == Field::direction.name)
        return value.toInt() == DirectionLeft    ? QStringLiteral("←")
               : value.toInt() == DirectionRight ? QStringLiteral("→")
                                                 : QStringLiteral("—");
    if (field == Field::opening.name || field == Field::deleted_.name)
        return value.toBool() ? tr("да") : tr("нет");
    if (field.endsWith("Time") || field == Field::createdAt.name)
        return value.toDouble() > 0 ? time(value.toDouble()) : QStringLiteral("—");
    const QString text = value.toString();
    if (field == Field::html.name && text.size() <= longestStored)
        return visible(TemplateText::plain(text));
    const QString named = name(field, text);
    return visible(named.isEmpty() ? text : named);
}

ChangeText::Sides ChangeText::sides(const RowChange& change) const
{
    Sides sides;
    for (const int i : change.differences()) {
        const QByteArray& field = change.fields.at(i);
        QString before = value(field, change.before.value(i));
        QString after = value(field, change.after.value(i));
        if (isSilent(change, field, before, after))
            continue;
        QString title = RowChange::title(field);
        if (before == after) { // hidden properties of a template text
            before = visible(change.before.value(i).toString());
            after = visible(change.after.value(i).toString());
            title += tr(" с разметкой");
        }
        const bool isChange = change.event == RowChange::Changed;
        const WordDiff::Sides both =
            isChange ? WordDiff::of(before, after) : WordDiff::Sides{{{before, true}}, {{after, true}}};
        const QString head = MarkedText::passage(title + QStringLiteral(": "), TemplateText::Italic);
        if (change.event != RowChange::Inserted)
            sides.before +=
                QStringLiteral("<p>") + head + html(both.before, removedLook) + QStringLiteral("</p>");
        if (change.event != RowChange::Removed)
            sides.after +=
                QStringLiteral("<p>") + head + html(both.after, insertedLook) + QStringLiteral("</p>");
    }
    sides.after += signatureParagraph(signature(change));
    return sides;
}

QString ChangeText::summary(const RowChange& change) const
{
    QString all;
    for (const int i : change.differences()) {
        const QByteArray& field = change.fields.at(i);
        const QString before = value(field, change.before.value(i)).left(longestText / 10);
        const QString after = value(field, change.after.value(i)).left(longestText / 10);
        if (isSilent(change, field, before, after))
            continue;
        all += QStringLiteral("<p>") +
               MarkedText::passage(RowChange::title(field) + QStringLiteral(": "), TemplateText::Italic);
        if (change.event != RowChange::Changed)
            all += MarkedText::passage(shortened(change.event == RowChange::Removed ? before : after), {});
        else
            all += MarkedText::passage(shortened(before), removedLook) +
                   MarkedText::passage(QStringLiteral(" → "), {}) +
                   MarkedText::passage(shortened(after), insertedLook);
        all += QStringLiteral("</p>");
    }
    return all + signatureParagraph(signature(change));
}
