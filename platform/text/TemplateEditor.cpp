#include "TemplateEditor.h"

#include <QTextEdit>
#include <QVBoxLayout>

struct TemplateEditor::Private {
    QTextEdit* text = nullptr;
    QString html;
    bool enabled = true;
};

TemplateEditor::TemplateEditor(QWidget* parent) : QWidget(parent), d(new Private)
{
    d->text = new QTextEdit(this);
    d->text->setObjectName(QStringLiteral("templateEdit"));
    d->text->setReadOnly(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(d->text);
}

TemplateEditor::~TemplateEditor() = default;

void TemplateEditor::setTextCodec(QTextCodec*) {}

void TemplateEditor::setCatsParametersTable(CModelTable*) {}

void TemplateEditor::setParametersTable(CModelTable*) {}

void TemplateEditor::setParameterFilter(const QStringList&) {}

void TemplateEditor::setEnabled(bool enabled)
{
    d->enabled = enabled;
}

bool TemplateEditor::isEnabled() const
{
    return QWidget::isEnabled() && d->enabled;
}

void TemplateEditor::setTemplateText(const QString& html)
{
    d->html = html;
    d->text->setHtml(html);
}

void TemplateEditor::clearTemplateText()
{
    setTemplateText(QString());
}

QString TemplateEditor::templateText() const
{
    return d->html;
}

void TemplateEditor::reloadParameters() {}

void TemplateEditor::updateParameters(MDRData*) {}
