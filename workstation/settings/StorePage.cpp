#include "StorePage.h"

#include <QLineEdit>
#include <QPushButton>

StorePage::StorePage(UserSettings* settings, const QString& address, QWidget* parent)
    : SettingsPage(settings, tr("Хранилище"), parent)
{
    auto* shown = new QLineEdit(address);
    shown->setObjectName(QStringLiteral("storeAddressEdit"));
    shown->setReadOnly(true);
    shown->setCursorPosition(0);
    addRow(tr("Открытый журнал"), shown,
           tr("Файл на этом компьютере или база на сервере. Пароль здесь не показывается и не хранится."),
           tr("сервер база данных адрес подключение файл"));
    auto* other = new QPushButton(tr("Открыть другой журнал…"));
    other->setObjectName(QStringLiteral("otherStoreButton"));
    other->setAutoDefault(false);
    other->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    addRow(QString(), other, tr("Окна этого журнала закроются; о несохранённом программа сначала спросит."),
           tr("сервер база данных адрес сменить выбрать"));
    connect(other, &QPushButton::clicked, this, &StorePage::otherStoreRequested);
}
