#include "CVrkBookmarks.h"

#include "Bookmarks.h"
#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "FileSaver.h"
#include "ListOutput.h"
#include "RecordList.h"
#include "TEventNciParse.h"
#include "UserSettings.h"

#include <QAction>
#include <QLabel>
#include <QToolBar>
#include <QVBoxLayout>

CVrkBookmarks::CVrkBookmarks(CVrkCliApp* app)
    : CVrkCliMod(app), m_list(std::make_unique<RecordList>(this)), m_summary(new QLabel(this))
{
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("CVrkBookmarks"));
    resize(1000, 600);
    setContextMenuPolicy(Qt::NoContextMenu);
    setModuleStyle();
    makeOutput();
    makeBar();
}

CVrkBookmarks::~CVrkBookmarks() = default;

void CVrkBookmarks::makeOutput()
{
    m_output = new ListOutput(this, m_list->view(), [this] {
        const QString today = session()->HfnTimeToSesTime().toString(QStringLiteral("yyyy-MM-dd"));
        ListOutput::About about;
        about.title = tr("Печать: %1").arg(m_name);
        about.name = QStringLiteral("%1 %2").arg(m_name, today);
        about.content = QStringLiteral("%1, %2\n%3").arg(m_name, today, m_summary->text());
        return about;
    });
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_output->saver());
    column->addWidget(m_list.get(), 1);
    setCentralWidget(page);
}

void CVrkBookmarks::makeBar()
{
    auto* bar = new QToolBar(this);
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setFloatable(false);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    addToolBar(Qt::TopToolBarArea, bar);
    QAction* again = bar->addAction(tr("Обновить"), this, &CVrkBookmarks::reload);
    again->setShortcut(QKeySequence::Refresh);
    bar->addAction(m_output->printAction());
    bar->addAction(m_output->tableAction());
    for (QAction* action : bar->actions())
        bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    auto* gap = new QWidget(this);
    gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(gap);
    m_summary->setObjectName(QStringLiteral("summaryLabel"));
    m_summary->setMargin(4);
    bar->addWidget(m_summary);
}

bool CVrkBookmarks::ModuleStart()
{
    m_name = tr("Закладки");
    SetModTitle(m_name, QString());
    if (!m_names.load(this)) {
        m_list->setEmptyText(tr("Не удалось загрузить данные!"));
        return false;
    }
    m_list->init(this, &m_names);
    m_list->setColumnVisible(Field::lacks, false);
    connect(m_app->settings(), &UserSettings::changed, this, [this](const QByteArray& name) {
        if (name == Setting::bookmarks)
            reload();
    });
    m_isStarted = true;
    reload();
    m_list->setFocus();
    return true;
}

void CVrkBookmarks::reload()
{
    if (!m_isStarted)
        return;
    QByteArrayList keys;
    for (QByteArray key : Bookmarks(m_app->settings()).keys())
        keys.append('\'' + key.replace('\'', "''") + '\''); // the settings are a file that anybody may edit
    CMDArray answer;
    answer = session()->SqlRequest(
        "SELECT R.*, W.DepartmentKey, W.startTime, W.endTime FROM LogbookRecords AS R "
        "INNER JOIN LogbookWorkshifts AS W ON W.KeyLink = R.ShiftKey WHERE R.KeyLink IN (" +
        (keys.isEmpty() ? QByteArray("''") : keys.join(',')) + ") ORDER BY R.recordTime");
    if (!answer.array) { // the shown records stay
        m_summary->setText(tr("Список не прочитан: %1").arg(session()->lastErrorText()));
        m_list->setEmptyText(m_summary->text());
        return;
    }
    m_list->replace(answer.array);
    const int count = answer.RecCount();
    m_output->setEnabled(count > 0);
    m_summary->setText(tr("Закладок: %1").arg(count));
    m_list->setEmptyText(
        tr("Закладок нет. Ctrl+B на записи журнала или поиска ставит закладку, ещё раз — убирает.\n"
           "Видите её только вы."));
}

int CVrkBookmarks::MessageData(HFNCliParam* block)
{
    TEventNciParse event(block);
    if (!event.isChange() || !m_isStarted)
        return 0;
    const bool isOfRecord =
        event.tableName.compare(QLatin1String("LogbookRecords"), Qt::CaseInsensitive) == 0;
    if (isOfRecord && Bookmarks(m_app->settings()).contains(event.recordKey))
        reload();
    MDRTypFree(&event.recordType);
    return 1;
}
