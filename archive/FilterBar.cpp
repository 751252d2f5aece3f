#include "FilterBar.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "KeyNames.h"
#include "MarkerIcon.h"
#include "RecordList.h"
#include "RecordThings.h"
#include "Row.h"
#include "TemplateMarkers.h"
#include "VrkTableProxyModel.h"
#include "VrkTableTool.h"

#include <algorithm>
#include <QAbstractItemView>
#include <QByteArrayList>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{
/// Empty for a picture that is no marker of the program.
QString nameOfMarker(const QString& path)
{
    for (const TemplateMarker& marker : templateMarkers)
        if (marker.icon && path == QLatin1String(marker.icon))
            return QCoreApplication::translate("TemplateMarkers", marker.label);
    return QString();
}
} // namespace

FilterBar::FilterBar(QWidget* parent)
    : QWidget(parent),
      m_filter(new FoundFilter(this)),
      m_text(new QLineEdit(this)),
      m_author(addChoice("authorFilter", tr("Автор среди найденного"), 8)),
      m_marker(addChoice("markerFilter", tr("Маркер среди найденного"), 16)),
      m_equipment(addChoice("equipmentFilter", tr("Оборудование среди найденного"), 20)),
      m_hidden(new QLabel(this)),
      m_all(new QPushButton(tr("Пока&зать все"), this))
{
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    m_row = new QHBoxLayout;
    rows->addLayout(m_row);
    auto* caption = new QLabel(tr("С&реди найденного"), this);
    caption->setBuddy(m_text);
    m_text->setObjectName(QStringLiteral("filterEdit"));
    m_text->setClearButtonEnabled(true);
    m_text->setPlaceholderText(tr("Части слов: оборудование, место, фамилия"));
    m_hidden->setObjectName(QStringLiteral("hiddenLabel"));
    m_all->setObjectName(QStringLiteral("showAllButton"));
    m_row->addWidget(caption);
    m_row->addWidget(m_text, 1);
    m_row->addWidget(m_author);
    m_marked = addSwitch("markedFilter", tr("С маркером"), tr("Только записи, у которых есть маркер"));
    m_undone = addSwitch("undoneFilter", tr("Незавершённые"),
                         tr("Только записи без времени выполнения, второго маркера или утверждения"));
    m_files = addSwitch("filesFilter", tr("С файлами"), tr("Только записи с файлами"));
    auto* below = new QHBoxLayout;
    rows->addLayout(below);
    for (QComboBox* choice : {m_marker, m_equipment}) { // long names; they get what is free
        choice->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        below->addWidget(choice, 1);
    }
    below->addWidget(m_hidden);
    below->addWidget(m_all);
    m_hidden->hide();
    m_all->hide();
}

QToolButton* FilterBar::addSwitch(const char* name, const QString& text, const QString& tip)
{
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setToolTip(tip);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::TabFocus);
    m_row->addWidget(button);
    connect(button, &QToolButton::toggled, this, &FilterBar::apply);
    return button;
}

/// \a letters: of its width, which must leave space for large letters in a small window.
QComboBox* FilterBar::addChoice(const char* name, const QString& tip, int letters)
{
    auto* choice = new QComboBox(this);
    choice->setObjectName(QLatin1String(name));
    choice->setAccessibleName(tip);
    choice->setToolTip(tip);
    choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choice->setMinimumContentsLength(letters);
    return choice;
}

void FilterBar::init(CVrkCliMod* module, const KeyNames* names, RecordList* list)
{
    m_module = module;
    m_names = names;
    m_list = list;
    m_filter->setCodec(module->session()->codec());
    fillChoices();
    list->tool()->proxy()->setFilterRows(m_filter);
    connect(m_text, &QLineEdit::textChanged, this, &FilterBar::apply);
    for (QComboBox* choice : {m_author, m_marker, m_equipment})
        connect(choice, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &FilterBar::apply);
    connect(m_all, &QPushButton::clicked, this, &FilterBar::reset);
}

/// What the records in the list contain.
void FilterBar::fillChoices()
{
    QMap<QByteArray, QString> authors;
    QMap<QByteArray, QString> markers;
    QMap<QByteArray, QString> equipment;
    for (int i = 0; i < m_list->count(); ++i) {
        const Row record(MDARec(m_list->records().array, 0, i));
        const QByteArray worker = record.copy(Field::WorkerKey);
        authors.insert(worker, m_names->workerName(worker));
        for (const QString& path : RecordThings::markers(record))
            if (const QString name = nameOfMarker(path); !name.isEmpty())
                markers.insert(path.toUtf8(), name);
        for (const QString& name : RecordThings::equipment(record, m_module->session()->codec()))
            equipment.insert(name.toUtf8(), name);
    }
    fill(m_author, tr("Все авторы"), authors);
    fill(m_marker, tr("Все маркеры"), markers);
    fill(m_equipment, tr("Всё оборудование"), equipment);
}

/// Sorted by name. What is chosen stays, also if no record in the list has it.
void FilterBar::fill(QComboBox* choice, const QString& any, QMap<QByteArray, QString> names)
{
    const QSignalBlocker blocker(choice);
    const QByteArray chosen = choice->currentData().toByteArray();
    if (!chosen.isEmpty() && !names.contains(chosen))
        names.insert(chosen, choice->currentText());
    QVector<QPair<QString, QByteArray>> sorted;
    for (auto it = names.cbegin(); it != names.cend(); ++it)
        sorted.append({it.value(), it.key()});
    std::sort(sorted.begin(), sorted.end(), [](const auto& one, const auto& other) {
        return one.first.localeAwareCompare(other.first) < 0;
    });
    choice->clear();
    choice->addItem(any, QByteArray());
    for (const auto& entry : qAsConst(sorted))
        choice->addItem(MarkerIcon::at(QString::fromUtf8(entry.second)), entry.first, entry.second);
    choice->setCurrentIndex(qMax(0, choice->findData(chosen)));
    const int frame = 2 * choice->style()->pixelMetric(QStyle::PM_DefaultFrameWidth) +
                      choice->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    choice->view()->setMinimumWidth(choice->view()->sizeHintForColumn(0) + frame); // whole names
}

/// Asks the server which of the records have files.
bool FilterBar::readFiles()
{
    QByteArrayList keys;
    for (int i = 0; i < m_list->count(); ++i)
        keys.append('\'' + Row(MDARec(m_list->records().array, 0, i)).copy(Field::KeyLink) + '\'');
    CMDArray answer;
    answer = m_module->session()->SqlRequest("SELECT RecordKey FROM LogbookFiles WHERE RecordKey IN (" +
                                             (keys.isEmpty() ? QByteArray("''") : keys.join(',')) + ")");
    if (!answer.array)
        return false;
    QSet<QByteArray> with;
    for (int i = 0; i < answer.RecCount(); ++i)
        with.insert(Row(MDARec(answer.array, 0, i)).copy(Field::RecordKey));
    m_filter->setRecordsWithFiles(with);
    return true;
}

void FilterBar::refresh()
{
    fillChoices();
    apply();
}

void FilterBar::reset()
{
    {
        const QSignalBlocker blockers[] = {QSignalBlocker(m_text),   QSignalBlocker(m_author),
                                           QSignalBlocker(m_marker), QSignalBlocker(m_equipment),
                                           QSignalBlocker(m_marked), QSignalBlocker(m_undone),
                                           QSignalBlocker(m_files)};
        m_text->clear();
        for (QComboBox* choice : {m_author, m_marker, m_equipment})
            choice->setCurrentIndex(0);
        for (QToolButton* button : {m_marked, m_undone, m_files})
            button->setChecked(false);
    }
    apply();
}

void FilterBar::apply()
{
    bool isFailed = false;
    if (m_files->isChecked() && !readFiles()) {
        const QSignalBlocker blocker(m_files);
        m_files->setChecked(false);
        isFailed = true;
    }
    FoundFilter::Conditions conditions;
    conditions.text = m_text->text();
    conditions.workerKey = m_author->currentData().toByteArray();
    conditions.marker = QString::fromUtf8(m_marker->currentData().toByteArray());
    conditions.equipment = QString::fromUtf8(m_equipment->currentData().toByteArray());
    conditions.isMarked = m_marked->isChecked();
    conditions.isUndone = m_undone->isChecked();
    conditions.hasFiles = m_files->isChecked();
    m_filter->setConditions(conditions);
    m_hidden->setText(isFailed ? tr("Файлы не прочитаны") : hiddenText());
    m_hidden->setVisible(!m_hidden->text().isEmpty());
    m_all->setVisible(conditions.isAny());
    emit changed();
}

int FilterBar::hidden() const
{
    return m_list ? m_list->count() - m_list->tool()->proxy()->rowCount() : 0;
}

QString FilterBar::hiddenText() const
{
    const int count = hidden();
    if (count == 0)
        return QString();
    const int ten = count % 100 / 10 == 1 ? 0 : count % 10;
    return (ten == 1             ? tr("скрыта %1 запись")
            : ten > 1 && ten < 5 ? tr("скрыто %1 записи")
                                 : tr("скрыто %1 записей"))
        .arg(count);
}
