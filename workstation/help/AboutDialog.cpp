#include "AboutDialog.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSysInfo>
#include <QVBoxLayout>

AboutDialog::AboutDialog(const QString& store, const QString& engine, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("aboutDialog"));
    setWindowTitle(tr("О программе"));
    const QString facts = tr("Оперативный журнал, версия %1\n\n"
                             "Хранилище: %2\n"
                             "База данных: %3\n"
                             "Система: %4\n\n"
                             "Программа использует библиотеки:\n"
                             "Qt %5: лицензия LGPL, версия 3\n"
                             "SQLite: общественное достояние\n"
                             "libpq (PostgreSQL): лицензия PostgreSQL\n"
                             "OpenSSL: лицензия Apache 2.0")
                              .arg(QCoreApplication::applicationVersion(), store, engine,
                                   QSysInfo::prettyProductName(), QLatin1String(qVersion()));
    auto* text = new QPlainTextEdit(facts);
    text->setObjectName(QStringLiteral("factsEdit"));
    text->setAccessibleName(windowTitle());
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* buttons = new QDialogButtonBox;
    auto* copy = buttons->addButton(tr("Копировать"), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("copyButton"));
    auto* leave = buttons->addButton(tr("Закрыть"), QDialogButtonBox::RejectRole);
    leave->setDefault(true);
    connect(copy, &QPushButton::clicked, this, [facts] { QApplication::clipboard()->setText(facts); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(text, 1);
    column->addWidget(buttons);
    const int em = fontMetrics().height();
    resize(34 * em, 18 * em);
}
