#include "SignInDialog.h"

#include "ui_SignInDialog.h"

#include <QLayout>
#include <QPushButton>
#include <QSettings>

namespace
{
const char* const lastLogin = "signIn/login";
const char* const formerLogin = "signIn/formerLogin";     ///< the one before the last
const char* const lastDepartments = "signIn/departments"; ///< by login

void select(QComboBox* combo, const QVariant& data)
{
    const int index = combo->findData(data);
    if (index >= 0)
        combo->setCurrentIndex(index);
}
} // namespace

SignInDialog::SignInDialog(SignIn* signIn, const QString& login, const QString& department, QWidget* parent)
    : QDialog(parent), m_signIn(signIn), m_department(department), m_form(new Ui::SignInDialog)
{
    m_form->setupUi(this);
    m_form->buttonBox->button(QDialogButtonBox::Ok)->setText(tr("Войти"));
    m_form->buttonBox->button(QDialogButtonBox::Cancel)->setText(tr("Отмена"));

    for (const SignIn::Login& known : signIn->logins()) {
        if (login.isEmpty() || known.login == login)
            m_form->loginCombo->addItem(QStringLiteral("%1 (%2)").arg(known.name, known.login), known.login);
    }
    if (m_form->loginCombo->count() == 0 && !signIn->userName().isEmpty()) // the server has accepted one
                                                                           // person
        m_form->loginCombo->addItem(signIn->userName(), login);
    select(m_form->loginCombo, QSettings().value(QLatin1String(lastLogin)));
    m_form->loginCombo->setEnabled(m_form->loginCombo->count() > 1);

    connect(m_form->loginCombo, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &SignInDialog::loginChosen);
    connect(m_form->departmentCombo, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &SignInDialog::departmentChosen);
    connect(m_form->buttonBox, &QDialogButtonBox::accepted, this, &SignInDialog::accept);
    connect(m_form->buttonBox, &QDialogButtonBox::rejected, this, &SignInDialog::reject);
    loginChosen();
    m_form->buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
}

SignInDialog::~SignInDialog() = default;

void SignInDialog::offerNextOf(const QString& leaving)
{
    QComboBox* combo = m_form->loginCombo;
    const int present = combo->findData(leaving);
    const int former = combo->findData(QSettings().value(QLatin1String(formerLogin)));
    QVector<int> offers;
    if (former >= 0 && former != present)
        offers << former;
    for (int i = 1; i <= combo->count(); ++i)
        offers << (present + i) % combo->count();
    for (const int offer : qAsConst(offers)) { // some logins are not workers
        combo->setCurrentIndex(offer);
        if (m_form->buttonBox->button(QDialogButtonBox::Ok)->isEnabled())
            return;
    }
}

QString SignInDialog::formerLoginBut(const QString& login)
{
    for (const char* key : {formerLogin, lastLogin}) {
        const QString known = QSettings().value(QLatin1String(key)).toString();
        if (!known.isEmpty() && known != login)
            return known;
    }
    return QString();
}

void SignInDialog::remember(const QString& login)
{
    QSettings settings;
    const QString last = settings.value(QLatin1String(lastLogin)).toString();
    if (last == login)
        return;
    settings.setValue(QLatin1String(formerLogin), last);
    settings.setValue(QLatin1String(lastLogin), login);
}

QString SignInDialog::login() const
{
    return m_form->loginCombo->currentData().toString();
}

QByteArray SignInDialog::departmentKey() const
{
    return m_form->departmentCombo->currentData().toByteArray();
}

QByteArray SignInDialog::departmentOf(const SignIn& signIn, const QString& department)
{
    const QVector<SignIn::Department> known = signIn.departments();
    for (const SignIn::Department& one : known) {
        if (one.name.compare(department, Qt::CaseInsensitive) == 0 ||
            QString::fromUtf8(one.key) == department)
            return one.key;
    }
    return department.isEmpty() && known.size() == 1 ? known.constFirst().key : QByteArray();
}

void SignInDialog::loginChosen()
{
    m_form->departmentCombo->clear();
    const bool known = m_signIn->signIn(m_form->loginCombo->currentData().toString());
    const QVector<SignIn::Department> departments =
        known ? m_signIn->departments() : QVector<SignIn::Department>();
    for (const SignIn::Department& one : departments)
        m_form->departmentCombo->addItem(QStringLiteral("%1, %2").arg(one.name, one.organizationName),
                                         one.key);
    if (departments.size() > 1)
        m_form->departmentCombo->setCurrentIndex(-1); // nobody wants the first one of the alphabet by default
    select(m_form->departmentCombo, QSettings().value(QLatin1String(lastDepartments)).toMap().value(login()));
    const QByteArray wanted = departmentOf(*m_signIn, m_department);
    if (!wanted.isEmpty())
        select(m_form->departmentCombo, wanted);

    m_form->departmentCombo->setEnabled(departments.size() > 1);
    const QString refusal = !known ? m_signIn->errorText()
                            : departments.isEmpty()
                                ? tr("Для этого пользователя не заведён сотрудник ни в одном подразделении.")
                                : QString();
    m_form->noticeLabel->setText(refusal);
    m_isKnown = refusal.isEmpty();
    departmentChosen();
    layout()->activate(); // otherwise the layout knows only the former names
    // So that the longest name is visible; the size of a window that was not shown yet is meaningless.
    resize(isVisible() ? size().expandedTo(sizeHint()) : sizeHint());
}

void SignInDialog::departmentChosen()
{
    const bool isChosen = m_form->departmentCombo->currentIndex() >= 0;
    m_form->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(m_isKnown && isChosen);
    if (m_isKnown)
        m_form->noticeLabel->setText(isChosen ? QString() : tr("Выберите подразделение."));
}

void SignInDialog::accept()
{
    if (!login().isEmpty())
        remember(login());
    QSettings settings;
    QVariantMap departments = settings.value(QLatin1String(lastDepartments)).toMap();
    departments.insert(login(), m_form->departmentCombo->currentData());
    settings.setValue(QLatin1String(lastDepartments), departments);
    QDialog::accept();
}
