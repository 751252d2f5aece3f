#include "CVrkConverter.h"

#include "CVrkCliSes.h"
#include "LoaderIndicator.h"
#include "LogText.h"
#include "ParametersBase.h"
#include "ReportColours.h"
#include "ui_CVrkConverter.h"

#include <QCloseEvent>
#include <QMap>
#include <QTextBlock>

namespace
{
// Deliberate: a category counts if its parent exists; the parent's own parent is not checked.
const char categoriesSelect[] =
    "SELECT *                         FROM OperLogCategories           WHERE ParentKey "
    "IS NULL                OR ParentKey IN                  "
    "(                                    SELECT KeyLink                   FROM "
    "OperLogCategories       )                          ";
const char templatesSelect[] =
    "SELECT * FROM OperLogTemplates WHERE text_ IS NOT NULL           AND "
    "CategoryKey           IN           (                         SELECT "
    "KeyLink                         FROM OperLogCategories                         "
    "WHERE ParentKey IS NULL                                   OR ParentKey "
    "IN                                   (                                           "
    "SELECT KeyLink                                           FROM "
    "OperLogCategories                                   )           ) ";

constexpr qreal refusalPoints = 12.0;
const char refusalGround[] = "#ed5151";
} // namespace

CVrkConverter::CVrkConverter(CVrkCliApp* app) : LogbookModule(app), m_form(new Ui::CVrkConverter)
{
    m_form->setupUi(this);
    setModuleStyle();
    m_loader = new LoaderIndicator(this);
    new ReportColours(m_form->infoEdit);
    m_form->saveButton->setEnabled(false);
    m_form->reportButton->setEnabled(false);
    m_form->splitter->setStretchFactor(0, 1);
    m_form->splitter->setStretchFactor(1, 3);
    connect(&m_report, &ConversionReport::added, this, &CVrkConverter::showLine);
    connect(m_form->saveButton, &QPushButton::clicked, this, &CVrkConverter::sendToServer);
    connect(m_form->convertButton, &QPushButton::clicked, this, &CVrkConverter::convert);
    connect(m_form->reportButton, &QPushButton::clicked, this, &CVrkConverter::askReportPath);
}

CVrkConverter::~CVrkConverter() = default;

bool CVrkConverter::ModuleStart()
{
    setModuleName(tr("Конвертер шаблонов и параметров ОЖ"));
    if (!hasRights()) {
        setRunEnabled(false);
        return true;
    }
    m_tables.codec = session()->codec();
    uploadSqlTables();
    if (hasNothingToConvert(m_tables)) {
        addWarningInfo(tr("Конвертировать нечего: в таблицах прежнего журнала нет разделов или шаблонов."));
        setRunEnabled(false);
    } else if (isAlreadyConverted(m_tables)) {
        refuse();
    } else {
        createBaseParameters();
        for (QCheckBox* box : {m_form->convertParamsCheck, m_form->convertTemplatesCheck})
            connect(box, &QCheckBox::clicked, this, [this] {
                m_form->convertButton->setEnabled(m_form->convertParamsCheck->isChecked() ||
                                                  m_form->convertTemplatesCheck->isChecked());
            });
    }
    return true;
}

void CVrkConverter::closeEvent(QCloseEvent* event)
{
    if (m_running)
        event->ignore();
    else
        CVrkCliMod::closeEvent(event);
}

bool CVrkConverter::hasRights()
{
    QMap<QString, bool> rights;
    for (const char* right : {"ADMINISTRATOR", "SQL_EXEC", "SQL_REQUEST", "TBL_REQUEST", "TBL_UPDATE"})
        rights.insert(QLatin1String(right), session() && session()->OperationRights(right) != 0);
    bool all = true;
    for (auto it = rights.constBegin(); it != rights.constEnd(); ++it) {
        if (!it.value())
            addErrorInfo(LogText::fill(tr("Нет прав: %1"), {it.key()}));
        all = all && it.value();
    }
    return all;
}

void CVrkConverter::uploadSqlTables()
{
    const auto request = [this](CModelTable& table, const QByteArray& sql) {
        table.data = session()->SqlRequest(sql.constData());
    };
    request(m_tables.oldCategories, categoriesSelect);
    request(m_tables.oldTemplates, templatesSelect);
    for (CModelTable* table : {&m_tables.oldParams, &m_tables.paramCategories, &m_tables.params,
                               &m_tables.categories, &m_tables.templates})
        request(*table, "SELECT * FROM " + QByteArray::fromStdString(table->name) + ";");
    m_tables.setKeys();
    for (const CModelTable* table :
         {&m_tables.oldCategories, &m_tables.oldTemplates, &m_tables.oldParams, &m_tables.paramCategories,
          &m_tables.params, &m_tables.categories, &m_tables.templates})
        addGoodMessage(
            LogText::fill(tr("Загружено: %1 - %2 записей"),
                          {QString::fromStdString(table->name), QString::number(table->data.RecCount())}));
}

void CVrkConverter::createBaseParameters()
{
    ParametersBase base(this);
    base.createBaseParameters(&m_tables.paramCategories, &m_tables.params, true);
}

/// The journal already has the templates.
void CVrkConverter::refuse()
{
    setRunEnabled(false);
    QTextCharFormat format;
    format.setFontPointSize(refusalPoints);
    format.setBackground(QColor(QLatin1String(refusalGround)));
    format.setFontUnderline(true);
    QTextCursor cursor(m_form->infoEdit->document());
    cursor.movePosition(QTextCursor::End);
    for (const QString& line : {QString(), tr("Ранее шаблоны уже были сконвертированы."),
                                tr("Повторная конвертация недоступна!")}) {
        cursor.insertBlock(QTextBlockFormat(), format);
        cursor.insertText(line, format);
    }
}

void CVrkConverter::setRunEnabled(bool enabled)
{
    m_form->convertButton->setEnabled(enabled);
    m_form->convertParamsCheck->setEnabled(enabled);
    m_form->convertTemplatesCheck->setEnabled(enabled);
}
