#include "StoreDialog.h"

#include "SignIn.h"
#include "ui_StoreDialog.h"

#include <QDir>
#include <QFileDialog>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

namespace
{
const char recentStores[] = "stores/recent";
constexpr int mostRecent = 8;
const QLatin1String ofFiles("sqlite://");

QString urlOfFile(const QString& file)
{
    return ofFiles + QString::fromLatin1(QUrl::toPercentEncoding(QDir(file).absolutePath(), "/"));
}

/// A path for a file, otherwise the address itself.
QString shownAddress(const QString& url)
{
    return url.startsWith(ofFiles) ? QUrl::fromPercentEncoding(url.mid(ofFiles.size()).toUtf8()) : url;
}

QString demoFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/vrk-logbook/demo.sqlite");
}
} // namespace

StoreDialog::StoreDialog(QWidget* parent) : QDialog(parent), m_form(new Ui::StoreDialog)
{
    m_form->setupUi(this);
    m_form->buttonBox->button(QDialogButtonBox::Open)->setText(tr("Открыть"));
    m_form->buttonBox->button(QDialogButtonBox::Cancel)->setText(tr("Отмена"));
    m_form->buttonBox->button(QDialogButtonBox::Open)->setDefault(true);
    for (const QString& url : remembered())
        m_form->recentList->addItem(shownAddress(url));
    const bool isAnyKnown = m_form->recentList->count() > 0;
    m_form->recentLabel->setVisible(isAnyKnown);
    m_form->recentList->setVisible(isAnyKnown);
    m_form->noticeLabel->hide();
    m_chooseFile = [this] {
        return QFileDialog::getOpenFileName(this, tr("Файл журнала"), QDir::homePath(),
                                            tr("Журналы (*.sqlite *.vrk);;Все файлы (*)"));
    };

    connect(m_form->recentList, &QListWidget::currentTextChanged, m_form->addressEdit, &QLineEdit::setText);
    connect(m_form->recentList, &QListWidget::itemActivated, this, &StoreDialog::accept);
    connect(m_form->addressEdit, &QLineEdit::textChanged, this, &StoreDialog::showEnabled);
    connect(m_form->fileButton, &QPushButton::clicked, this, &StoreDialog::chooseFile);
    connect(m_form->demoButton, &QPushButton::clicked, this, &StoreDialog::makeDemo);
    connect(&m_demo, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this, &StoreDialog::demoMade);
    connect(&m_demo, &QProcess::errorOccurred, this, [this] {
        if (m_demo.state() == QProcess::NotRunning)
            demoMade(1);
    });
    connect(m_form->buttonBox, &QDialogButtonBox::accepted, this, &StoreDialog::accept);
    connect(m_form->buttonBox, &QDialogButtonBox::rejected, this, &StoreDialog::reject);
    if (isAnyKnown) {
        m_form->recentList->setCurrentRow(0);
        m_form->recentList->setFocus();
    }
    showEnabled();
}

StoreDialog::~StoreDialog()
{
    m_demo.disconnect(this);
}

QString StoreDialog::url() const
{
    return addressOf(m_form->addressEdit->text());
}

QString StoreDialog::addressOf(const QString& typed)
{
    const QString text = typed.trimmed();
    if (text.isEmpty() || text.contains(QLatin1String("://")))
        return text;
    if (text.startsWith(QLatin1String("~/")))
        return urlOfFile(QDir::homePath() + text.mid(1));
    return text.startsWith(QLatin1Char('/')) ? urlOfFile(text) : QStringLiteral("postgresql://") + text;
}

void StoreDialog::remember(const QString& url)
{
    QStringList all = remembered();
    const QString kept = SignIn::withoutPassword(url);
    all.removeAll(kept);
    all.prepend(kept);
    QSettings().setValue(QLatin1String(recentStores), QStringList(all.mid(0, mostRecent)));
}

QStringList StoreDialog::remembered()
{
    return QSettings().value(QLatin1String(recentStores)).toStringList();
}

void StoreDialog::showNotice(const QString& text)
{
    m_form->noticeLabel->setText(text);
    m_form->noticeLabel->setVisible(!text.isEmpty());
}

void StoreDialog::showEnabled()
{
    const bool isFree = m_demo.state() == QProcess::NotRunning;
    m_form->buttonBox->button(QDialogButtonBox::Open)->setEnabled(isFree && !url().isEmpty());
    m_form->demoButton->setEnabled(isFree);
    m_form->demoButton->setText(isFree ? tr("Открыть &учебный журнал") : tr("Учебный журнал создаётся…"));
}

void StoreDialog::chooseFile()
{
    const QString file = m_chooseFile();
    if (file.isEmpty())
        return;
    m_form->addressEdit->setText(file);
    accept();
}

void StoreDialog::makeDemo()
{
    QDir().mkpath(QFileInfo(demoFile()).absolutePath());
    showNotice(QString());
    m_demo.start(QCoreApplication::applicationDirPath() + QStringLiteral("/vrk-admin"),
                 {QStringLiteral("demo"), urlOfFile(demoFile())});
    showEnabled();
}

void StoreDialog::demoMade(int exitCode)
{
    showEnabled();
    if (exitCode != 0) {
        const QString reason = QString::fromUtf8(m_demo.readAllStandardError()).trimmed();
        showNotice(tr("Учебный журнал создать не удалось. %1")
                       .arg(reason.isEmpty() ? m_demo.errorString() : reason));
        return;
    }
    m_form->addressEdit->setText(demoFile());
    accept();
}

void StoreDialog::accept()
{
    if (m_form->buttonBox->button(QDialogButtonBox::Open)->isEnabled())
        QDialog::accept();
}

void StoreDialog::reject()
{
    m_demo.disconnect(this);
    m_demo.terminate();
    QDialog::reject();
}
