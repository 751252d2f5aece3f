#include "TemplateEditorDialog.h"

#include "DateTimeLine.h"
#include "ParameterKind.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace
{
QStringList valuesOf(const TemplateEditorChip& chip)
{
    QStringList values;
    for (const std::string& value : HtmlParser::listValues(chip.property("list").toStdString()))
        values << QString::fromStdString(value);
    return values;
}

void setWords(TemplateEditorChip& chip, const char* name, const QString& words)
{
    if (words == chip.property(name))
        return;
    if (words.isEmpty())
        chip.removeProperty(name);
    else
        chip.setProperty(name, words);
}

bool isStorable(const QString& text)
{
    for (const char invalid : HtmlParser::invalidChars(false)) {
        if (text.contains(QLatin1Char(invalid)))
            return false;
    }
    return true;
}
} // namespace

TemplateEditorDialog::TemplateEditorDialog(const TemplateEditorChip& chip, QWidget* parent)
    : QDialog(parent),
      m_chip(chip),
      m_label(new QLineEdit(this)),
      m_optional(new QCheckBox(this)),
      m_before(new QLineEdit(this)),
      m_after(new QLineEdit(this)),
      m_notice(new QLabel(this))
{
    setObjectName(QStringLiteral("templateParameterDialog"));
    setWindowTitle(tr("Параметр"));
    auto* form = new QFormLayout(this);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);

    m_label->setObjectName(QStringLiteral("parameterLabel"));
    m_label->setText(chip.hasProperty("locname") ? chip.property("locname") : chip.shownText);
    m_label->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
    m_label->selectAll();
    form->addRow(tr("&Название"), m_label);

    const ParameterKind kind = ParameterSpec::kindOf(chip.property("name"));
    if (kind == ParameterKind::DateTime)
        addFormat(form);
    if (kind == ParameterKind::List)
        addValues(form);
    m_optional->setObjectName(QStringLiteral("parameterOptional"));
    m_optional->setText(tr("Можно &оставить пустым"));
    m_optional->setChecked(chip.hasProperty("optional"));
    form->addRow(m_optional);
    m_before->setObjectName(QStringLiteral("parameterBefore"));
    m_before->setText(chip.property("before"));
    form->addRow(tr("Слова п&еред значением"), m_before);
    m_after->setObjectName(QStringLiteral("parameterAfter"));
    m_after->setText(chip.property("after"));
    form->addRow(tr("Слова &после значения"), m_after);
    for (QLineEdit* words : {m_before, m_after})
        words->setToolTip(
            tr("Стоят в записи только вместе со значением: если поле оставлено пустым, нет и их"));

    m_notice->setObjectName(QStringLiteral("parameterNotice"));
    m_notice->setWordWrap(true);
    m_notice->hide();
    form->addRow(m_notice);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* apply = buttons->addButton(tr("Применить"), QDialogButtonBox::AcceptRole);
    apply->setObjectName(QStringLiteral("parameterApply"));
    apply->setDefault(true);
    buttons->addButton(tr("Отмена"), QDialogButtonBox::RejectRole)
        ->setObjectName(QStringLiteral("parameterCancel"));
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &TemplateEditorDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &TemplateEditorDialog::reject);
    m_label->setFocus();
}

void TemplateEditorDialog::addFormat(QFormLayout* form)
{
    m_format = new QComboBox(this);
    m_format->setObjectName(QStringLiteral("parameterFormat"));
    m_format->setEditable(true);
    m_format->addItems({QStringLiteral("dd.MM.yyyy hh:mm"), QStringLiteral("dd.MM.yyyy hh:mm:ss"),
                        QStringLiteral("dd.MM.yyyy"), QStringLiteral("hh:mm"), QStringLiteral("hh:mm:ss"),
                        QStringLiteral("dd.MM hh:mm")});
    m_format->setEditText(m_chip.property("format"));
    m_sample = new QLabel(this);
    m_sample->setObjectName(QStringLiteral("parameterSample"));
    form->addRow(tr("&Формат"), m_format);
    form->addRow(tr("Пример"), m_sample);
    connect(m_format, &QComboBox::editTextChanged, this, &TemplateEditorDialog::showSample);
    showSample();
}

void TemplateEditorDialog::addValues(QFormLayout* form)
{
    m_values = new QPlainTextEdit(this);
    m_values->setObjectName(QStringLiteral("parameterValues"));
    m_values->setTabChangesFocus(true);
    m_values->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_values->setPlainText(valuesOf(m_chip).join(QLatin1Char('\n')));
    m_values->setPlaceholderText(tr("По одному значению в строке"));
    m_values->setMinimumHeight(fontMetrics().lineSpacing() * 6);
    form->addRow(tr("&Значения"), m_values);
}

QStringList TemplateEditorDialog::values() const
{
    QStringList values;
    const QStringList lines = m_values->toPlainText().split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (!line.trimmed().isEmpty())
            values << line.trimmed();
    }
    return values;
}

void TemplateEditorDialog::showSample()
{
    const QString format = m_format->currentText().trimmed();
    m_sample->setText(format.isEmpty() ? DateTimeLine::shownFormat(DateTimeLine(format).format())
                                       : QDateTime::currentDateTime().toString(format));
}

QString TemplateEditorDialog::problem() const
{
    if (m_label->text().trimmed().isEmpty())
        return tr("Название не может быть пустым");
    if (m_values && values().isEmpty())
        return tr("Список не может быть пустым");
    const bool storable = isStorable(m_label->text()) && (!m_format || isStorable(m_format->currentText())) &&
                          (!m_values || isStorable(m_values->toPlainText())) &&
                          isStorable(m_before->text()) && isStorable(m_after->text());
    if (!storable) {
        return tr("Символы %1 в параметре не хранятся")
            .arg(QString::fromStdString(HtmlParser::invalidChars(true)));
    }
    return QString();
}

TemplateEditorChip TemplateEditorDialog::chip() const
{
    TemplateEditorChip chip = m_chip;
    const QString old = chip.property("locname");
    const QString label = m_label->text().trimmed();
    if (label != old) {
        chip.setProperty("locname", label);
        // A different text is a value that the template presets; it is kept.
        if (chip.shownText == old || chip.shownText.trimmed().isEmpty())
            chip.shownText = label;
    }
    if (m_format && m_format->currentText().trimmed() != chip.property("format")) {
        if (m_format->currentText().trimmed().isEmpty())
            chip.removeProperty("format");
        else
            chip.setProperty("format", m_format->currentText().trimmed());
    }
    if (m_values && values() != valuesOf(chip)) {
        std::vector<std::string> list;
        for (const QString& value : values())
            list.push_back(value.toStdString());
        chip.setProperty("list", QString::fromStdString(HtmlParser::createListProperty(list)));
    }
    setWords(chip, "before", m_before->text());
    setWords(chip, "after", m_after->text());
    if (m_optional->isChecked() != chip.hasProperty("optional")) {
        if (m_optional->isChecked())
            chip.setProperty("optional", QStringLiteral("1"));
        else
            chip.removeProperty("optional");
    }
    return chip;
}

void TemplateEditorDialog::accept()
{
    const QString notice = problem();
    m_notice->setText(notice);
    m_notice->setVisible(!notice.isEmpty());
    if (notice.isEmpty())
        QDialog::accept();
}
