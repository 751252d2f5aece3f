#pragma once

#include "ConversionReport.h"
#include "ConverterTables.h"
#include "LogbookModule.h"
#include "RecordDumps.h"

#include <memory>

class LoaderIndicator;
namespace Ui
{
class CVrkConverter;
}

/// The converter of the earlier journal: a tool that an administrator uses once. It converts the templates
/// and parameters of the old tables to those of this journal, in memory and with a report, and writes them
/// on request. One run for each start. The rules are in ParamRules and TemplateRules; the window shows the
/// report and runs them.
class CVrkConverter : public LogbookModule, public RecordDumps<CVrkConverter>
{
    Q_OBJECT

public:
    explicit CVrkConverter(CVrkCliApp* app);
    ~CVrkConverter() override;

    /// Always true: the report shows all obstacles.
    bool ModuleStart() override;
    /// The converter follows no events: every message is accepted unread.
    int MessageData(HFNCliParam* /*block*/) override { return 1; }

    /// Writes the report as a UTF-8 text; the report on the screen shows its path, or why it failed.
    void saveReport(const QString& path);

protected:
    /// Stays open during a run, whose loops use its tables.
    void closeEvent(QCloseEvent* event) override;

private:
    bool hasRights();
    void uploadSqlTables();
    void createBaseParameters();
    void refuse();
    void setRunEnabled(bool enabled);

    // CVrkConverter_run.cpp: the run and its report
    void convert();
    void conclude(int count);
    void showLine(ConversionReport::Tone tone, const QString& text);
    void addGoodMessage(const QString& text) { m_report.add(ConversionReport::Good, text); }
    void addErrorInfo(const QString& text) { m_report.add(ConversionReport::Error, text); }
    void addWarningInfo(const QString& text) { m_report.add(ConversionReport::Warning, text); }
    void askReportPath();

    // CVrkConverter_save.cpp
    void sendToServer();
    void send(const CModelTable& first, const CModelTable& second, const QString& saved,
              const QString& failed);

    std::unique_ptr<Ui::CVrkConverter> m_form;
    ConverterTables m_tables;
    ConversionReport m_report;
    LoaderIndicator* m_loader;
    bool m_running = false;
};
