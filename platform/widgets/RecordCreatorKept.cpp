#include "RecordCreatorKept.h"

#include "TemplateText.h"

#include <QCoreApplication>

namespace
{
constexpr int lettersOfCaption = 60;
constexpr int lettersRead = 2000; ///< for the caption, which does not need the whole of a long text

void put(KeptTexts::Values* values, const QString& name, const RecordDraft& draft)
{
    values->insert(name + QStringLiteral("html"), draft.html);
    values->insert(name + QStringLiteral("eventTime"), QString::number(draft.eventTime, 'g', 17));
    values->insert(name + QStringLiteral("firstMark"), QString::number(draft.firstMark, 'g', 17));
    values->insert(name + QStringLiteral("receiver"), QString::fromUtf8(draft.receiverKey));
    values->insert(name + QStringLiteral("direction"), QString::number(draft.direction));
    values->insert(name + QStringLiteral("status"), QString::number(draft.status));
}

RecordDraft get(const KeptTexts::Values& values, const QString& name)
{
    RecordDraft draft;
    draft.html = values.value(name + QStringLiteral("html"));
    draft.eventTime = values.value(name + QStringLiteral("eventTime")).toDouble();
    draft.firstMark = values.value(name + QStringLiteral("firstMark")).toDouble();
    draft.receiverKey = values.value(name + QStringLiteral("receiver")).toUtf8();
    draft.direction = values.value(name + QStringLiteral("direction")).toInt();
    draft.status = values.value(name + QStringLiteral("status")).toInt();
    return draft;
}

QString caption(const RecordDraft& draft)
{
    QString text = TemplateText::plain(draft.html.left(lettersRead)).simplified();
    if (text.size() > lettersOfCaption)
        text = text.left(lettersOfCaption - 1) + QChar(0x2026);
    return QCoreApplication::translate("RecordCreatorDialog", "запись «%1»").arg(text);
}
} // namespace

KeptTexts::Values RecordCreatorDialog::Kept::values() const
{
    KeptTexts::Values values;
    values.insert(QStringLiteral("caption"), caption(draft));
    values.insert(QStringLiteral("create"), QString::number(create ? 1 : 0));
    values.insert(QStringLiteral("key"), QString::fromUtf8(key));
    values.insert(QStringLiteral("template"), templateKey);
    values.insert(QStringLiteral("attempted"), QString::number(attempted ? 1 : 0));
    put(&values, QString(), draft);
    if (attempted)
        put(&values, QStringLiteral("sent."), sent);
    return values;
}

RecordCreatorDialog::Kept RecordCreatorDialog::Kept::read(const KeptTexts::Text& text)
{
    Kept kept;
    kept.create = text.values.value(QStringLiteral("create")).toInt() != 0;
    kept.key = text.values.value(QStringLiteral("key")).toUtf8();
    kept.templateKey = text.values.value(QStringLiteral("template"));
    kept.attempted = text.values.value(QStringLiteral("attempted")).toInt() != 0;
    kept.draft = get(text.values, QString());
    kept.sent = get(text.values, QStringLiteral("sent."));
    return kept;
}
