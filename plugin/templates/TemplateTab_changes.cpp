#include "Fields.h"
#include "KeptDraft.h"
#include "LogText.h"
#include "RecordValue.h"
#include "TemplateEditor.h"
#include "TemplatesEditSourceModel.h"
#include "TemplateTab.h"

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

std::string toStd(const QByteArray& bytes)
{
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}
} // namespace

void TemplateTab::nameChanged(CModelTable* edits, MDRData* record, const QString& name)
{
    const QByteArray bytes = codec()->fromUnicode(name);
    TemplateTables::storeField(edits, record, Field::nameLoc, MDRValue::text(bytes));
    m_isSent = false;
    m_unsaved->touch();
    // The row of an existing record keeps its name until the change event arrives.
    if (record->flags & ROW_INSERT)
        m_model->updateRecord(record);
}

void TemplateTab::categoryNameChanged()
{
    MDRData* record = editedCategory();
    if (!TemplateTables::isContains(&m_tables.categoriesEdit, record)) {
        LogText::warn(QStringLiteral("void TemplateTab::categoryNameChanged()"),
                      QStringLiteral("not found record edited category!"));
        return;
    }
    nameChanged(&m_tables.categoriesEdit, record, categoryNameEditor()->text());
}

void TemplateTab::templateNameChanged()
{
    if (MDRData* record = editedTemplate())
        nameChanged(&m_tables.templatesEdit, record, templateNameEditor()->text());
    else
        warnNoTemplate("void TemplateTab::templateNameChanged()");
}

void TemplateTab::templateHtmlChanged()
{
    MDRData* record = editedTemplate();
    if (!record) {
        warnNoTemplate("void TemplateTab::templateHtmlChanged()");
        return;
    }
    const QByteArray html = codec()->fromUnicode(templateHtmlEditor()->templateText());
    TemplateTables::storeField(&m_tables.templatesEdit, record, Field::html, MDRValue::text(html, mdr_TMemo));
    m_isSent = false;
    m_unsaved->touch();
}

template <typename Change>
void TemplateTab::propertyChanged(const char* signature, bool emptyIsNull, Change change)
{
    MDRData* record = editedTemplate();
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
    TemplateTables::storeField(&m_tables.templatesEdit, record, Field::html, value);
    m_isSent = false;
    m_unsaved->touch();
}

void TemplateTab::flagChanged(const QCheckBox* box, const char* property, const char* signature)
{
    propertyChanged(signature, true, [&](HtmlParser* parser) {
        if (box->isChecked())
            parser->setTemplateProperty(property, true);
        else
            parser->removeTemplateProperty(property);
    });
    updateTemplateHtml();
}

void TemplateTab::templateOpenChanged()
{
    flagChanged(templateOpenEditor(), "open_wshift", "void TemplateTab::templateOpenChanged()");
}

void TemplateTab::templateCloseChanged()
{
    flagChanged(templateCloseEditor(), "close_wshift", "void TemplateTab::templateCloseChanged()");
}

void TemplateTab::templateTimeChanged()
{
    flagChanged(templateTimeEditor(), "time_exec", "void TemplateTab::templateTimeChanged()");
}

void TemplateTab::templateFirstMarkChanged()
{
    const QByteArray marker = templateFirstMarkEditor()->currentData().toString().toUtf8();
    propertyChanged("void TemplateTab::templateFirstMarkChanged()", true, [&](HtmlParser* parser) {
        if (marker.isEmpty())
            parser->removeTemplateProperty("first_mark");
        else
            parser->setTemplateProperty("first_mark", toStd(marker));
    });
    updateTemplateHtml();
}

void TemplateTab::templateSecondMarkChanged()
{
    const QByteArray marker = templateSecondMarkEditor()->currentData().toString().toUtf8();
    propertyChanged("void TemplateTab::templateSecondMarkChanged()", true, [&](HtmlParser* parser) {
        if (marker.isEmpty()) { // a command needs a marker
            parser->removeTemplateProperty("second_mark");
            parser->removeTemplateProperty("command");
        } else {
            parser->setTemplateProperty("second_mark", toStd(marker));
        }
    });
    updateTemplateCommand();
    updateTemplateHtml();
}

void TemplateTab::templateCommandChanged()
{
    const QByteArray command = codec()->fromUnicode(templateCommandEditor()->text());
    propertyChanged("void TemplateTab::templateCommandChanged()", false, [&](HtmlParser* parser) {
        if (command.isEmpty())
            parser->removeTemplateProperty("command");
        else
            parser->setTemplateProperty("command", toStd(command));
    });
    updateTemplateHtml();
}
