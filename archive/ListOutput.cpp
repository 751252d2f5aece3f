#include "ListOutput.h"

#include "Csv.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "FileSaver.h"
#include "UserSettings.h"
#include "VrkPreview.h"

#include <QAction>
#include <QHeaderView>
#include <QTableView>

namespace
{
QString textOf(const QVariant& shown, const QVariant& meaning)
{
    const QString text = shown.toString().isEmpty() ? meaning.toString() : shown.toString();
    return text.trimmed();
}
} // namespace

ListOutput::ListOutput(CVrkCliMod* module, QTableView* view, std::function<About()> about)
    : QObject(module),
      m_module(module),
      m_view(view),
      m_about(std::move(about)),
      m_saver(new FileSaver({tr("Сохранение таблицы"), tr("Таблицы CSV (*.csv)"), QStringLiteral("csv")},
                            module)),
      m_preview(new VrkPreview(this)),
      m_print(add("printAction", ":/archive/print.png", tr("Печать"), QKeySequence::Print)),
      m_table(add("tableAction", ":/archive/table.png", tr("Таблица CSV"), QKeySequence::Save))
{
    connect(m_print, &QAction::triggered, this, &ListOutput::print);
    connect(m_table, &QAction::triggered, this, &ListOutput::saveTable);
    setEnabled(false);
}

QAction* ListOutput::add(const char* name, const char* icon, const QString& text, const QKeySequence& key)
{
    auto* action = new QAction(CVrkCliMod::icon(QLatin1String(icon)), text, m_module);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(key);
    action->setToolTip(text + QLatin1Char(' ') + action->shortcut().toString(QKeySequence::PortableText));
    m_module->addAction(action);
    return action;
}

void ListOutput::setEnabled(bool enabled)
{
    m_print->setEnabled(enabled);
    m_table->setEnabled(enabled);
}

void ListOutput::print()
{
    const About about = m_about();
    m_preview->setView(m_view);
    m_preview->setWindowTitle(about.title);
    m_preview->setFooter(about.content);
    const QString seal = m_module->session()->sealOnPaper();
    m_preview->setImprint(seal.isEmpty() ? QString() : tr("Опечатано: %1").arg(seal));
    m_preview->setFile(m_module->app()->settings()->reportFolder(), about.name);
    m_preview->showDocument();
}

void ListOutput::saveTable()
{
    const About about = m_about();
    m_saver->setRemark(about.remark);
    // Deliberate: the rows are those of the moment of the request, the list may change during the question.
    const QByteArray table = Csv::write(rowsOf(m_view));
    m_saver->save(m_module->app()->settings()->reportFolder(), about.name, [table](QByteArray* bytes) {
        *bytes = table;
        return true;
    });
}

QVector<QStringList> ListOutput::rowsOf(const QTableView* view)
{
    const QAbstractItemModel* model = view->model();
    const QHeaderView* header = view->horizontalHeader();
    QVector<int> columns;
    QStringList headings;
    for (int visual = 0; visual < header->count(); ++visual) {
        const int column = header->logicalIndex(visual);
        if (header->isSectionHidden(column))
            continue;
        columns.append(column);
        headings.append(
            Csv::harmless(textOf(model->headerData(column, Qt::Horizontal),
                                 model->headerData(column, Qt::Horizontal, Qt::AccessibleTextRole))));
    }
    QVector<QStringList> rows{headings};
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (const int column : qAsConst(columns)) {
            const QModelIndex index = model->index(row, column);
            cells.append(Csv::harmless(textOf(index.data(), index.data(Qt::AccessibleTextRole))));
        }
        rows.append(cells);
    }
    return rows;
}
