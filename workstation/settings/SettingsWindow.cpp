#include "SettingsWindow.h"

#include "SettingsPage.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

SettingsWindow::SettingsWindow(QWidget* parent)
    : QDialog(parent),
      m_search(new QLineEdit),
      m_list(new QListWidget),
      m_stack(new QStackedWidget),
      m_nothing(new QLabel),
      m_failure(new QLabel)
{
    setObjectName(QStringLiteral("settingsWindow"));
    setWindowTitle(tr("Настройки"));
    m_search->setObjectName(QStringLiteral("searchEdit"));
    m_search->setAccessibleName(tr("Поиск настройки"));
    m_search->setPlaceholderText(tr("Найти настройку: буквы, звук, столбцы…"));
    m_search->setClearButtonEnabled(true);
    m_list->setObjectName(QStringLiteral("pageList"));
    m_list->setAccessibleName(tr("Разделы настроек"));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_nothing->setObjectName(QStringLiteral("nothingLabel"));
    m_nothing->setAlignment(Qt::AlignCenter);
    m_nothing->setWordWrap(true);
    m_nothing->setText(tr("Такой настройки нет. Попробуйте другое слово."));
    m_failure->setObjectName(QStringLiteral("failureLabel"));
    m_failure->setWordWrap(true);
    m_failure->setTextFormat(Qt::PlainText);
    m_failure->hide();

    auto* back = new QPushButton(tr("Вернуть как было"));
    back->setObjectName(QStringLiteral("backButton"));
    back->setToolTip(tr("Отменить все изменения с открытия этого окна"));
    auto* usual = new QPushButton(tr("По умолчанию"));
    usual->setObjectName(QStringLiteral("defaultsButton"));
    usual->setToolTip(tr("Поставить все настройки этого раздела такими, какими они были в начале"));
    auto* leave = new QPushButton(tr("Закрыть"));
    leave->setObjectName(QStringLiteral("closeButton"));
    for (QPushButton* button : {back, usual, leave})
        button->setAutoDefault(false);
    connect(back, &QPushButton::clicked, this, [this] {
        for (SettingsPage* page : qAsConst(m_pages))
            page->takeBack();
    });
    connect(usual, &QPushButton::clicked, this, [this] {
        if (m_stack->currentIndex() < m_pages.size())
            m_pages[m_stack->currentIndex()]->setDefaults();
    });
    connect(leave, &QPushButton::clicked, this, &QDialog::close);

    auto* middle = new QHBoxLayout;
    middle->addWidget(m_list);
    middle->addWidget(m_stack, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(back);
    buttons->addWidget(usual);
    buttons->addStretch();
    buttons->addWidget(leave);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_search);
    column->addLayout(middle, 1);
    column->addWidget(m_failure);
    column->addLayout(buttons);

    m_stack->addWidget(m_nothing);
    connect(m_search, &QLineEdit::textChanged, this, &SettingsWindow::search);
    connect(m_list, &QListWidget::currentRowChanged, m_stack, [this](int row) {
        if (row >= 0)
            m_stack->setCurrentIndex(row);
    });
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, m_search, [this] { m_search->setFocus(Qt::ShortcutFocusReason); });
    const int em = fontMetrics().height();
    const QSize room = screen() ? screen()->availableSize() * 9 / 10 : QSize();
    resize(QSize(46 * em, 34 * em).boundedTo(room));
}

void SettingsWindow::addPage(SettingsPage* page)
{
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // the controls in it take the focus
    area->setWidget(page);
    m_stack->insertWidget(m_pages.size(), area);
    m_pages.append(page);
    m_list->addItem(page->title());
    connect(page, &SettingsPage::keepingFailed, this, &SettingsWindow::showFailure);
    page->remember();
    fitList();
    if (m_pages.size() == 1)
        m_list->setCurrentRow(0);
}

void SettingsWindow::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitList();
}

void SettingsWindow::fitList()
{
    constexpr int margin = 8;
    m_list->setFixedWidth(m_list->sizeHintForColumn(0) + 2 * m_list->frameWidth() + margin);
}

void SettingsWindow::showPage(SettingsPage* page)
{
    m_list->setCurrentRow(m_pages.indexOf(page));
}

void SettingsWindow::search(const QString& query)
{
    int first = -1;
    for (int i = 0; i < m_pages.size(); ++i) {
        const bool isFound = m_pages[i]->showMatching(query) > 0;
        m_list->item(i)->setHidden(!isFound);
        if (isFound && first < 0)
            first = i;
    }
    if (first < 0) {
        m_list->setCurrentRow(-1);
        m_stack->setCurrentWidget(m_nothing);
        return;
    }
    const int current = m_list->currentRow();
    m_list->setCurrentRow(current >= 0 && !m_list->item(current)->isHidden() ? current : first);
    m_stack->setCurrentIndex(m_list->currentRow());
}

void SettingsWindow::showFailure(const QString& text)
{
    m_failure->setText(text.isEmpty()
                           ? text
                           : text + QLatin1Char(' ') + tr("Изменения действуют до конца работы программы."));
    m_failure->setVisible(!text.isEmpty());
}
