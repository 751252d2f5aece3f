#include "FilterBar.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "KeyNames.h"
#include "RecordList.h"
#include "Row.h"
#include "VrkTableProxyModel.h"
#include "VrkTableTool.h"

#include <algorithm>
#include <QByteArrayList>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

FilterBar::FilterBar(QWidget* parent)
    : QWidget(parent),
      m_filter(new FoundFilter(this)),
      m_text(new QLineEdit(this)),
      m_author(new QComboBox(this)),
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
    m_author->setObjectName(QStringLiteral("authorFilter"));
    m_author->setAccessibleName(tr("Автор среди найденного"));
    m_author->setToolTip(tr("Автор среди найденного"));
    m_author->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_author->setMinimumContentsLength(8); // large letters in a small window
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
    below->addStretch();
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

void FilterBar::init(CVrkCliMod* module, const KeyNames* names, RecordList* list)
{
    m_module = module;
    m_names = names;
    m_list = list;
    m_filter->setCodec(module->session()->codec());
    fillAuthors();
    list->tool()->proxy()->setFilterRows(m_filter);
    connect(m_text, &QLineEdit::textChanged, this, &FilterBar::apply);
    connect(m_author, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &FilterBar::apply);
    connect(m_all, &QPushButton::clicked, this, &FilterBar::reset);
}

/// Those of the records in the list. A chosen one stays, also if he has none there.
void FilterBar::fillAuthors()
{
    const QSignalBlocker blocker(m_author);
    const QByteArray chosen = m_author->currentData().toByteArray();
    QSet<QByteArray> keys;
    for (int i = 0; i < m_list->count(); ++i)
        keys.insert(Row(MDARec(m_list->records().array, 0, i)).copy(Field::WorkerKey));
    if (!chosen.isEmpty())
        keys.insert(chosen);
    QVector<QPair<QString, QByteArray>> authors;
    for (const QByteArray& key : qAsConst(keys))
        authors.append({m_names->workerName(key), key});
    std::sort(authors.begin(), authors.end(), [](const auto& one, const auto& other) {
        return one.first.localeAwareCompare(other.first) < 0;
    });
    m_author->clear();
    m_author->addItem(tr("Все авторы"), QByteArray());
    for (const auto& author : qAsConst(authors))
        m_author->addItem(author.first, author.second);
    m_author->setCurrentIndex(qMax(0, m_author->findData(chosen)));
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
    fillAuthors();
    apply();
}

void FilterBar::reset()
{
    {
        const QSignalBlocker blockers[] = {QSignalBlocker(m_text), QSignalBlocker(m_author),
                                           QSignalBlocker(m_marked), QSignalBlocker(m_undone),
                                           QSignalBlocker(m_files)};
        m_text->clear();
        m_author->setCurrentIndex(0);
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
