#include "ListParameterEditor.h"

#include "SuggestionModel.h"
#include "TextMatch.h"

#include <QLineEdit>

ListParameterEditor::ListParameterEditor(const ParameterSpec& spec, QWidget* parent)
    : SuggestedParameterEditor(spec, parent)
{
    line()->setPlaceholderText(tr("Значение из списка"));
    offer();
}

void ListParameterEditor::offer(const QString& more)
{
    QStringList values = spec().values;
    if (!more.isEmpty() && !values.contains(more))
        values << more;
    QVector<ReferenceItem> items;
    for (const QString& value : qAsConst(values)) {
        ReferenceItem item;
        item.text = value;
        item.folded = TextMatch::folded(value);
        items << item;
    }
    model()->setItems(items);
}

bool ListParameterEditor::isTaken() const
{
    return model()->itemByText(line()->text());
}

ParameterValue ListParameterEditor::value() const
{
    const ReferenceItem* item = model()->itemByText(line()->text());
    return item ? ParameterValue{item->text, key()} : ParameterValue();
}

void ListParameterEditor::setValue(const ParameterValue& value)
{
    offer(value.text); // it may come from an older list or was typed in full
    SuggestedParameterEditor::setValue(value);
}

void ListParameterEditor::finish(QWidget*)
{
    const QString typed = line()->text();
    if (typed.trimmed().isEmpty())
        return;
    if (const ReferenceItem* item = model()->itemByText(typed)) {
        if (item->text != typed)
            setTyped(item->text, QString());
    } else {
        complain(tr("Такого значения нет в списке"));
    }
}
