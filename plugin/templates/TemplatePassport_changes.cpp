#include "Fields.h"
#include "LogText.h"
#include "RecordValue.h"
#include "TemplateEditor.h"
#include "TemplateEdits.h"
#include "TemplatePassport.h"
#include "TemplateTables.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTextCodec>

namespace
{
void warnNoTemplate(const char* signature)
{
    LogText::warn(QLatin1String(signature), QStringLiteral("not found record edited template!"));
}

/// An empty value removes the property.
void setOrRemove(HtmlParser* parser, const char* property, const QByteArray& value)
{
    if (value.isEmpty())
        parser->removeTemplateProperty(property);
    else
        parser->setTemplateProperty(property, value.toStdString());
}
} // namespace

void TemplatePassport::nameChanged(CModelTable* edits, MDRData* record, const QString& name)
{
    const QByteArray bytes = m_source.codec->fromUnicode(name);
    TemplateTables::storeField(edits, record, Field::nameLoc, MDRValue::text(bytes));
    m_source.edits.changed();
    emit renamed(record);
}

void TemplatePassport::categoryNameChanged()
{
    MDRData* record = m_source.edits.editedCategory();
    if (!TemplateTables::isContains(&m_source.tables.categoriesEdit, record)) {
        LogText::warn(QStringLiteral("void TemplateTab::categoryNameChanged()"),
                      QStringLiteral("not found record edited category!"));
        return;
    }
    nameChanged(&m_source.tables.categoriesEdit, record, categoryNameEditor()->text());
}

void TemplatePassport::templateNameChanged()
{
    if (MDRData* record = m_source.edits.editedTemplate())
        nameChanged(&m_source.tables.templatesEdit, record, templateNameEditor()->text());
    else
        warnNoTemplate("void TemplateTab::templateNameChanged()");
}

void TemplatePassport::templateHtmlChanged()
{
    MDRData* record = m_source.edits.editedTemplate();
    if (!record) {
        warnNoTemplate("void TemplateTab::templateHtmlChanged()");
        return;
    }
    const QByteArray html = m_source.codec->fromUnicode(templateHtmlEditor()->templateText());
    TemplateTables::storeField(&m_source.tables.templatesEdit, record, Field::html,
                               MDRValue::text(html, mdr_TMemo));
    m_source.edits.changed();
}

template <typename Change>
void TemplatePassport::propertyChanged(const char* signature, bool emptyIsNull, Change change)
{
    MDRData* record = m_source.edits.editedTemplate();
    if (!record) {
        warnNoTemplate(signature);
        return;
    }
    HtmlParser parser = templateOf(Row(record).value(Field::html));
    change(&parser);
    const std::string html = parser.readyHtml(true);
    const MDRVar value = html.empty() && emptyIsNull
                             ? MDRValue::null()
                             : MDRValue::text(html.data(), static_cast<int>(html.size()), mdr_TMemo);
    TemplateTables::storeField(&m_source.tables.templatesEdit, record, Field::html, value);
    m_source.edits.changed();
}

void TemplatePassport::flagChanged(const QCheckBox* box, const char* property, const char* signature)
{
    propertyChanged(signature, true, [&](HtmlParser* parser) {
        if (box->isChecked())
            parser->setTemplateProperty(property, true);
        else
            parser->removeTemplateProperty(property);
    });
    updateTemplateHtml();
}

void TemplatePassport::templateOpenChanged()
{
    flagChanged(templateOpenEditor(), "open_wshift", "void TemplateTab::templateOpenChanged()");
}

void TemplatePassport::templateCloseChanged()
{
    flagChanged(templateCloseEditor(), "close_wshift", "void TemplateTab::templateCloseChanged()");
}

void TemplatePassport::templateTimeChanged()
{
    flagChanged(templateTimeEditor(), "time_exec", "void TemplateTab::templateTimeChanged()");
}

void TemplatePassport::templateFirstMarkChanged()
{
    const QByteArray marker = templateFirstMarkEditor()->currentData().toString().toUtf8();
    propertyChanged("void TemplateTab::templateFirstMarkChanged()", true,
                    [&](HtmlParser* parser) { setOrRemove(parser, "first_mark", marker); });
    updateTemplateHtml();
}

void TemplatePassport::templateSecondMarkChanged()
{
    const QByteArray marker = templateSecondMarkEditor()->currentData().toString().toUtf8();
    propertyChanged("void TemplateTab::templateSecondMarkChanged()", true, [&](HtmlParser* parser) {
        setOrRemove(parser, "second_mark", marker);
        if (marker.isEmpty()) // a command needs a marker
            parser->removeTemplateProperty("command");
    });
    updateTemplateCommand();
    updateTemplateHtml();
}

void TemplatePassport::templateCommandChanged()
{
    const QByteArray command = m_source.codec->fromUnicode(templateCommandEditor()->text());
    propertyChanged("void TemplateTab::templateCommandChanged()", false,
                    [&](HtmlParser* parser) { setOrRemove(parser, "command", command); });
    updateTemplateHtml();
}
