#include "LookPage.h"

#include "Letters.h"
#include "UserSettings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>

LookPage::LookPage(UserSettings* settings, QWidget* parent) : SettingsPage(settings, tr("Вид"), parent)
{
    addRow(tr("Размер букв"), makeSize(),
           tr("Сразу меняет все окна, от обычного размера до почти вдвое большего."),
           tr("шрифт крупнее мельче масштаб 125 % 150 % 175 %"));
    addChoice(Setting::theme, tr("Цвета"),
              {{QStringLiteral("system"), tr("Как на рабочем столе")},
               {QStringLiteral("light"), tr("Светлые: для дня")},
               {QStringLiteral("dark"), tr("Тёмные: для ночной смены")},
               {QStringLiteral("contrast"), tr("Высокий контраст: чёрное, белое и жёлтое")}},
              tr("Светлые и тёмные цвета переключает и кнопка «День/ночь» (Ctrl + Shift + D)."),
              tr("тема оформление фон"));
    addRow(tr("Пример"), makeSample(), tr("Так выглядят записи с этими буквами и цветами."),
           tr("образец буквы цвета"));
}

QWidget* LookPage::makeSize()
{
    constexpr int step = 5;
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setObjectName(QStringLiteral("lettersSlider"));
    slider->setAccessibleName(tr("Размер букв"));
    slider->setRange(Letters::least / step, Letters::most / step);
    slider->setPageStep(25 / step);
    slider->setTickInterval(25 / step);
    slider->setTickPosition(QSlider::TicksBelow);
    auto* spin = new QSpinBox;
    spin->setObjectName(QStringLiteral("lettersSpin"));
    spin->setAccessibleName(tr("Размер букв, процентов"));
    spin->setRange(Letters::least, Letters::most);
    spin->setSingleStep(step);
    spin->setSuffix(QStringLiteral(" %"));
    spin->setKeyboardTracking(false);
    line->addWidget(slider, 1);
    line->addWidget(spin);
    row->setFocusProxy(slider);
    connect(slider, &QSlider::valueChanged, this,
            [this](int steps) { keep(Setting::letters, steps * step); });
    connect(spin, QOverload<int>::of(&QSpinBox::valueChanged), this,
            [this](int percent) { keep(Setting::letters, percent); });
    follow(Setting::letters, [slider, spin](const QVariant& value) {
        const QSignalBlocker quietSlider(slider);
        const QSignalBlocker quietSpin(spin);
        slider->setValue(value.toInt() / step);
        spin->setValue(value.toInt());
    });
    return row;
}

QWidget* LookPage::makeSample()
{
    auto* sample = new QLabel(tr("10:42  Отключён выключатель В-110 ВЛ «Северная», персонал выведен.\n"
                                 "10:55  Ключ в положении «Отключено», плакат вывешен."));
    sample->setObjectName(QStringLiteral("sampleLabel"));
    sample->setWordWrap(true);
    sample->setAutoFillBackground(true);
    sample->setBackgroundRole(QPalette::Base);
    sample->setForegroundRole(QPalette::Text);
    sample->setFrameShape(QFrame::StyledPanel);
    sample->setMargin(6);
    return sample;
}
