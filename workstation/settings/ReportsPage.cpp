#include "ReportsPage.h"

#include "UserSettings.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

ReportsPage::ReportsPage(UserSettings* settings, QWidget* parent)
    : SettingsPage(settings, tr("Отчёты"), parent)
{
    m_choose = [this](const QString& folder) {
        return QFileDialog::getExistingDirectory(this, tr("Папка для отчётов"), folder);
    };
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    auto* edit = new QLineEdit;
    edit->setObjectName(QStringLiteral("reportFolderEdit"));
    edit->setAccessibleName(tr("Папка для отчётов"));
    edit->setPlaceholderText(tr("Документы пользователя"));
    edit->setClearButtonEnabled(true);
    auto* button = new QPushButton(tr("Выбрать…"));
    button->setObjectName(QStringLiteral("reportFolderButton"));
    button->setAutoDefault(false);
    line->addWidget(edit, 1);
    line->addWidget(button);
    row->setFocusProxy(edit);
    addRow(tr("Папка для отчётов"), row,
           tr("Здесь предлагается сохранять отчёты в PDF. Пусто: папка документов этого пользователя."),
           tr("pdf печать сохранение каталог диск"));
    auto* problem = new QLabel;
    problem->setObjectName(QStringLiteral("reportFolderProblem"));
    problem->setWordWrap(true);
    qobject_cast<QVBoxLayout*>(layout())->insertWidget(layout()->count() - 1, problem); // before the stretch
    problem->hide();

    connect(edit, &QLineEdit::editingFinished, this, [this, edit] {
        const QString typed = edit->text().trimmed();
        keep(Setting::reportFolder, typed.isEmpty() ? typed : QDir::cleanPath(typed));
    });
    connect(button, &QPushButton::clicked, this, [this] {
        const QString folder = m_choose(this->settings()->reportFolder());
        if (!folder.isEmpty())
            keep(Setting::reportFolder, folder);
    });
    addSwitch(Setting::reportCode, tr("Печать журнала ещё и QR-кодом"),
              tr("На каждой странице отчёта, если журнал изменений опечатывают: его читает камера телефона, "
                 "и переписывать "
                 "знаки не нужно."),
              tr("отчёт pdf qr код опечатано"));

    follow(Setting::reportFolder, [edit, problem](const QVariant& value) {
        const QString folder = value.toString();
        edit->setText(folder);
        QString text;
        if (!folder.isEmpty() && !QFileInfo(folder).isDir())
            text = tr("Такой папки нет: отчёты предлагается сохранять в документы.");
        else if (!folder.isEmpty() && !QFileInfo(folder).isWritable())
            text = tr("В эту папку нельзя записывать.");
        problem->setText(text);
        problem->setVisible(!text.isEmpty());
    });
}
