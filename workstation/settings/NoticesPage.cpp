#include "NoticesPage.h"

#include "NoticeSound.h"
#include "UserSettings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimeEdit>

namespace
{
const QString format = QStringLiteral("HH:mm");
}

NoticesPage::NoticesPage(UserSettings* settings, QWidget* parent)
    : SettingsPage(settings, tr("Звук и сообщения"), parent)
{
    addSwitch(Setting::noticeShift, tr("Смена длится слишком долго"),
              tr("Если журнал не на виду, мигает его кнопка на панели задач и всплывает сообщение. "
                 "Так же и для следующих случаев."),
              tr("уведомления оповещения предупреждение сдача приём"));
    addSwitch(Setting::noticeComments, tr("Комментарий к моей записи"),
              tr("Когда коллега написал комментарий к вашей записи."), tr("уведомления оповещения"));
    addSwitch(Setting::noticeRecords, tr("Новая запись другого сотрудника"),
              tr("Когда в открытой смене появилась запись, не чаще одного раза в десять секунд."),
              tr("уведомления оповещения журнал"));
    addSwitch(Setting::noticeFailures, tr("Сообщения программы"),
              tr("Когда что-то не записано, пропала связь или изменена история журнала."),
              tr("уведомления оповещения ошибки сбой неудача"));
    addSwitch(Setting::noticeSound, tr("Со звуком"), tr("К каждому такому сообщению короткий звук."),
              tr("громко сигнал звонок"));
    auto* listen = new QPushButton(tr("Послушать звук"));
    listen->setObjectName(QStringLiteral("listenButton"));
    listen->setAutoDefault(false);
    listen->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    auto* sound = new QWidget;
    auto* line = new QHBoxLayout(sound);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(listen);
    auto* answer = new QLabel;
    answer->setObjectName(QStringLiteral("listenLabel"));
    answer->setWordWrap(true);
    line->addWidget(answer, 1);
    sound->setFocusProxy(listen);
    addRow(QString(), sound, tr("Проверьте, слышно ли его на этом рабочем месте."),
           tr("сигнал проверить громкость"));
    connect(listen, &QPushButton::clicked, this, [answer] {
        answer->setText(NoticeSound().play()
                            ? QString()
                            : tr("Нет программы для звука: звонит рабочий стол, если умеет."));
    });
    addSwitch(Setting::quietHours, tr("Тихие часы"),
              tr("В это время нет звука и всплывающих сообщений; кнопка на панели задач мигает."),
              tr("ночь не беспокоить тишина"));
    addRow(tr("Тихо с и до"), makeHours(),
           tr("Через полночь можно: с 22:00 до 07:00. Одинаковое время значит весь день."),
           tr("тихие часы ночь"));
}

QWidget* NoticesPage::makeHours()
{
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    const auto add = [this, line](const char* setting, const QString& name) {
        auto* edit = new QTimeEdit;
        edit->setObjectName(nameOf(setting, "Edit"));
        edit->setAccessibleName(name);
        edit->setDisplayFormat(format);
        edit->setKeyboardTracking(false);
        line->addWidget(edit);
        follow(setting, [edit](const QVariant& value) {
            const QSignalBlocker quiet(edit);
            edit->setTime(QTime::fromString(value.toString(), format));
        });
        connect(edit, &QTimeEdit::timeChanged, this,
                [this, setting](const QTime& time) { keep(setting, time.toString(format)); });
        return edit;
    };
    QWidget* from = add(Setting::quietFrom, tr("Тихо с"));
    QWidget* to = add(Setting::quietTo, tr("Тихо до"));
    line->addStretch();
    row->setFocusProxy(from);
    follow(Setting::quietHours, [from, to](const QVariant& value) {
        from->setEnabled(value.toBool());
        to->setEnabled(value.toBool());
    });
    return row;
}
