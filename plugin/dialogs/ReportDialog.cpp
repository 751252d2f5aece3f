#include "ReportDialog.h"

#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "DesignedFont.h"
#include "ui_ReportDialog.h"
#include "UserSettings.h"
#include "VrkPreview.h"

#include <QKeyEvent>
#include <QToolBar>
#include <QToolButton>

ReportDialog::ReportDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag), m_form(new Ui::ReportDialog), m_preview(new VrkPreview(this))
{
    m_form->setupUi(this);
    setWindowIcon(QIcon(QStringLiteral(":/icons/report.png")));
    new DesignedFont(m_form->titleLabel, module()->app()->settings());
    createToolBar();

    m_table = std::make_unique<ReportTable>(m_form->recordsTable, module()->session(), this);
    m_preview->setWindowIcon(QIcon(QStringLiteral(":/icons/preview.png")));
    m_preview->setWindowTitle(tr("Печать отчета"));
    m_preview->setHeaderBackgroundColor(Qt::gray);
    m_preview->setView(m_form->recordsTable);
}

ReportDialog::~ReportDialog() = default;

void ReportDialog::createToolBar()
{
    auto* bar = new QToolBar(this);
    bar->setObjectName(QStringLiteral("reportBar"));
    const auto append = [bar](const char* name, const char* icon, const QString& tip) {
        auto* button = new QToolButton(bar);
        button->setObjectName(QLatin1String(name));
        button->setIcon(QIcon(QLatin1String(icon)));
        button->setToolTip(tip);
        button->setFocusPolicy(Qt::StrongFocus);
        bar->addWidget(button);
        return button;
    };
    m_approveButton = append("onlyApprovedButton", ":/icons/apply.png", tr("Только утвержденные записи"));
    m_approveButton->setCheckable(true);
    m_approveButton->setChecked(true);
    QToolButton* print = append("printButton", ":/icons/preview.png", tr("Печать"));
    m_form->verticalLayout->insertWidget(0, bar);
    connect(m_approveButton, &QToolButton::clicked, this, &ReportDialog::updateApprove);
    connect(print, &QToolButton::clicked, this, &ReportDialog::showPreview);
}

void ReportDialog::setWorkersTable(CModelTable* table)
{
    m_table->setWorkersTable(table);
    updateApprove();
}

void ReportDialog::setRecordsTable(CModelTable* table)
{
    m_table->setRecordsTable(table);
}

void ReportDialog::setDayLines(VrkTableTool::DayLines lines)
{
    m_table->setDayLines(lines);
}

void ReportDialog::setReportTitle(const QString& title, const QString& period)
{
    m_form->titleLabel->setText(title + QLatin1Char('\n') + period);
}

void ReportDialog::updateApprove()
{
    m_table->setOnlyApproved(m_approveButton->isChecked());
}

void ReportDialog::showPreview()
{
    m_preview->setMaxColummnWidth(100);
    m_preview->setFooter(m_form->titleLabel->text());
    const QString seal = module()->session()->sealOnPaper();
    m_preview->setImprint(seal.isEmpty() ? QString() : tr("Опечатано: %1").arg(seal));
    m_preview->setCode(module()->app()->settings()->value(Setting::reportCode).toBool() ? seal.toLatin1()
                                                                                        : QByteArray());
    m_preview->setFile(module()->app()->settings()->reportFolder(), m_fileName);
    m_preview->showDocument();
}

void ReportDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Print))
        showPreview();
    CPopTemplate::keyPressEvent(event);
}

void ReportDialog::showEvent(QShowEvent* event)
{
    resize(900, 500);
    moveToCenter();
    CPopTemplate::showEvent(event);
}
