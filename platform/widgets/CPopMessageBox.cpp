#include "CPopMessageBox.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace
{
QString iconName(TMessageBoxIcon icon)
{
    switch (icon) {
    case MessageIconError:
        return QStringLiteral("error");
    case MessageIconQuestion:
        return QStringLiteral("question");
    case MessageIconWarning:
        return QStringLiteral("warning");
    case MessageIconInformation:
        break;
    }
    return QStringLiteral("information");
}

// The larger rendering, at the size of message icons.
QPixmap iconPixmap(TMessageBoxIcon icon, int side)
{
    QPixmap pixmap(QStringLiteral(":/vrk/%1@2x.png").arg(iconName(icon)));
    if (!pixmap.isNull())
        pixmap.setDevicePixelRatio(static_cast<qreal>(pixmap.width()) / side);
    return pixmap;
}
} // namespace

CPopMessageBox::CPopMessageBox(QWidget* parent)
    : CPopTemplate(parent, -1),
      m_iconLabel(new QLabel(this)),
      m_textLabel(new QLabel(this)),
      m_buttons(new QDialogButtonBox(this))
{
    setObjectName(QStringLiteral("messageBox"));
    m_iconLabel->setObjectName(QStringLiteral("iconLabel"));
    m_textLabel->setObjectName(QStringLiteral("textLabel"));
    m_buttons->setObjectName(QStringLiteral("buttonBox"));
    m_textLabel->setWordWrap(true);
    m_textLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_buttons->setCenterButtons(true);

    auto* message = new QHBoxLayout;
    message->addWidget(m_iconLabel, 0, Qt::AlignTop);
    message->addWidget(m_textLabel, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(message, 1);
    layout->addWidget(m_buttons);
}

CPopMessageBox::~CPopMessageBox() = default;

void CPopMessageBox::setMessage(const QString& title, const QString& text, TMessageBoxIcon icon,
                                TMessageBoxType type, const char* slot)
{
    disconnect(m_buttons, &QDialogButtonBox::clicked, nullptr, nullptr);
    m_icon = icon;
    m_type = type;
    m_answered = false;
    setWindowTitle(title);
    m_textLabel->setTextFormat(text.startsWith(QLatin1String("<center>")) ? Qt::RichText : Qt::PlainText);
    m_textLabel->setText(text);
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    m_iconLabel->setPixmap(iconPixmap(icon, side));

    m_buttons->clear();
    if (type == MessageTypeYesNo) {
        addButton(tr("&Да"), QDialogButtonBox::YesRole, "yesButton");
        addButton(tr("&Нет"), QDialogButtonBox::NoRole, "noButton")->setFocus();
    } else {
        addButton(tr("&ОК"), QDialogButtonBox::AcceptRole, "okButton")->setFocus();
    }
    setGuarding(type == MessageTypeYesNo);
    fitHeight();
    if (slot && parentWidget())
        connect(m_buttons, SIGNAL(clicked(QAbstractButton*)), parentWidget(), slot);
}

QPushButton* CPopMessageBox::addButton(const QString& text, QDialogButtonBox::ButtonRole role,
                                       const char* name)
{
    QPushButton* button = m_buttons->addButton(text, role);
    button->setObjectName(QLatin1String(name));
    // Set before clicked(): the slot that gets the answer closes the box.
    connect(button, &QAbstractButton::released, this, [this] { m_answered = true; });
    return button;
}

int CPopMessageBox::ButtonRole(QAbstractButton* button) const
{
    return button ? m_buttons->buttonRole(button) : QDialogButtonBox::InvalidRole;
}

QString CPopMessageBox::text() const
{
    return m_textLabel->text();
}

void CPopMessageBox::fitHeight()
{
    // Forces a new layout: otherwise the row with the text keeps the height of the previous message.
    layout()->invalidate();
    layout()->activate();
    const int wanted = layout()->totalHeightForWidth(qMax(width(), layout()->minimumSize().width()));
    setMinimumHeight(qMax(wanted, 0));
}

bool CPopMessageBox::event(QEvent* event)
{
    // The button box makes its first accepting button the default one whenever it is shown, also when the
    // window system restores it; here Return must do nothing.
    if (event->type() == QEvent::Show) {
        for (QAbstractButton* button : m_buttons->buttons()) {
            if (auto* push = qobject_cast<QPushButton*>(button)) {
                push->setDefault(false);
                push->setAutoDefault(false);
            }
        }
    }
    return CPopTemplate::event(event);
}

void CPopMessageBox::showEvent(QShowEvent* event)
{
    moveToCenter();
    CPopTemplate::showEvent(event);
}

void CPopMessageBox::resizeEvent(QResizeEvent* event)
{
    CPopTemplate::resizeEvent(event);
    fitHeight();
}

void CPopMessageBox::closeEvent(QCloseEvent* event)
{
    CPopTemplate::closeEvent(event);
    if (m_answered || !isVisible())
        return;
    m_answered = true;
    emit m_buttons->clicked(nullptr);
}
