#include "CVrkConverter.h"

#include "LoaderIndicator.h"
#include "LogText.h"
#include "ParamRules.h"
#include "TemplateRules.h"
#include "ui_CVrkConverter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QSaveFile>
#include <QScrollBar>
#include <QTextBlock>

void CVrkConverter::convert()
{
    m_running = true;
    m_loader->show(QString());
    const auto stepped = connect(&m_report, &ConversionReport::stepped, this, [this](const QString& text) {
        if (!text.isEmpty())
            m_loader->setText(text);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
    const auto begin = [this](const QString& title) {
        m_loader->setText(title);
        m_report.add(ConversionReport::Plain, title);
    };
    m_report.add(ConversionReport::Plain, QString());
    ParamRules params(&m_tables, &m_report);
    if (m_form->convertParamsCheck->isChecked()) {
        begin(tr("Конвертация параметров"));
        params.processParameters();
    }
    int count = 0;
    if (m_form->convertTemplatesCheck->isChecked()) {
        begin(tr("Конвертация шаблонов"));
        TemplateRules templates(&m_tables, &params, &m_report);
        templates.processPublicTempaltes();
        templates.processOrgTypesTempaltes();
        templates.processDepartmentsTempaltes();
        templates.noteLeftOut();
        count = templates.count();
    }
    disconnect(stepped);
    conclude(count);
    m_loader->close();
    setRunEnabled(false);
    m_form->reportButton->setEnabled(true);
    // The button that had the focus is now disabled.
    (m_form->saveButton->isEnabled() ? m_form->saveButton : m_form->reportButton)->setFocus();
    m_running = false;
}

void CVrkConverter::conclude(int count)
{
    QStringList& missing = m_report.missing;
    QStringList& failed = m_report.failed;
    missing.removeDuplicates();
    failed.removeDuplicates();
    const auto list = [this](ConversionReport::Tone tone, const QString& title, const QStringList& names) {
        if (names.isEmpty())
            return;
        m_report.add(tone, QString());
        m_report.add(tone, LogText::fill(title, {QString::number(names.size())}));
        m_report.add(tone, names.join(QLatin1Char('\n')));
    };
    m_report.add(ConversionReport::Plain, QString());
    list(ConversionReport::Error, tr("Не удалось преобразовать параметры (%1шт.):"), failed);
    list(ConversionReport::Warning, tr("Обнаружены несуществующие параметры (%1шт.):"), missing);
    addGoodMessage(
        LogText::fill(tr("Обработано %1 из %2 шаблонов"),
                      {QString::number(count), QString::number(m_tables.oldTemplates.data.RecCount())}));
    m_report.add(missing.isEmpty() ? ConversionReport::Good : ConversionReport::Warning,
                 LogText::fill(tr("Предупреждений: %1"), {QString::number(missing.size())}));
    m_report.add(failed.isEmpty() ? ConversionReport::Good : ConversionReport::Error,
                 LogText::fill(tr("Ошибок: %1"), {QString::number(failed.size())}));
    m_report.add(ConversionReport::Plain, QString());
    const QString closing = tr("Конвертация закончена");
    if (failed.isEmpty())
        m_report.add(missing.isEmpty() ? ConversionReport::Good : ConversionReport::Warning, closing);
    else if (missing.isEmpty()) // Deliberate: there is no closing line if there are warnings or errors.
        m_report.add(ConversionReport::Error, closing);
    m_form->saveButton->setEnabled(failed.isEmpty());
}

/// Plain text: names of parameters look like tags.
void CVrkConverter::showLine(ConversionReport::Tone tone, const QString& text)
{
    QTextCharFormat format;
    switch (tone) {
    case ConversionReport::Good:
        format.setForeground(QColor(Qt::darkGreen));
        break;
    case ConversionReport::Warning:
        format.setForeground(QColor(Qt::darkMagenta));
        break;
    case ConversionReport::Error:
        format.setForeground(QColor(Qt::darkRed));
        break;
    case ConversionReport::Plain:
        break;
    }
    QScrollBar* bar = m_form->infoEdit->verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    QTextCursor cursor(m_form->infoEdit->document());
    cursor.movePosition(QTextCursor::End);
    if (!m_form->infoEdit->document()->isEmpty())
        cursor.insertBlock(QTextBlockFormat(), format);
    cursor.insertText(text, format);
    if (atEnd) // a user who has scrolled up stays there
        bar->setValue(bar->maximum());
}

void CVrkConverter::askReportPath()
{
    auto* dialog = new QFileDialog(this, tr("Сохранение отчёта"), QString(), tr("Текстовые файлы (*.txt)"));
    dialog->setObjectName(QStringLiteral("reportFileDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("txt"));
    dialog->selectFile(tr("Отчёт о конвертации.txt"));
    connect(dialog, &QFileDialog::fileSelected, this, &CVrkConverter::saveReport);
    dialog->open();
}

void CVrkConverter::saveReport(const QString& path)
{
    QSaveFile file(path);
    const QByteArray text = m_report.asText().toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        addErrorInfo(LogText::fill(tr("Не удалось сохранить отчёт: %1"), {file.errorString()}));
    else
        addGoodMessage(LogText::fill(tr("Отчёт сохранён: %1"), {QDir::toNativeSeparators(path)}));
}
