#include "WorkerEdit.h"

#include "HfnWrapper.h"
#include "MDRValues.h"
#include "TextMatch.h"

#include <QCompleter>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTextCodec>
#include <QToolButton>

namespace
{
enum Role { KeyRole = Qt::UserRole, FoldedRole, DeletedRole };

MDRVar value(const CMDArray& rows, const MDRData* record, const char* field)
{
    MDRVar result;
    rows.GetVal(record, field, result);
    return result;
}
} // namespace

/// The names that hold all words typed.
class WorkerFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setQuery(const QString& query)
    {
        m_parts = TextMatch::parts(query);
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override
    {
        const QModelIndex index = sourceModel()->index(row, 0, parent);
        return !index.data(DeletedRole).toBool() &&
               TextMatch::matches(index.data(FoldedRole).toString(), m_parts);
    }

private:
    QStringList m_parts;
};

WorkerEdit::WorkerEdit(QWidget* parent)
    : QWidget(parent),
      m_line(new QLineEdit(this)),
      m_treeButton(new QToolButton(this)),
      m_names(new QStandardItemModel(this)),
      m_filter(new WorkerFilter(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_line, 1);
    layout->addWidget(m_treeButton);
    m_line->setObjectName(QStringLiteral("workerLine"));
    m_line->setPlaceholderText(tr("Фамилия, имя или подразделение"));
    m_line->setClearButtonEnabled(true);
    m_treeButton->setObjectName(QStringLiteral("workerTreeButton"));
    m_treeButton->setText(QStringLiteral("…"));
    m_treeButton->setToolTip(tr("Выбрать в структуре организации"));
    setFocusProxy(m_line);

    m_filter->setSourceModel(m_names);
    auto* completer = new QCompleter(m_filter, this);
    completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    m_line->setCompleter(completer);
    m_line->installEventFilter(this);

    connect(m_line, &QLineEdit::textEdited, this, &WorkerEdit::offer);
    connect(m_line, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (text.isEmpty())
            setKey(QByteArray());
    });
    connect(completer, QOverload<const QModelIndex&>::of(&QCompleter::activated), this,
            [this](const QModelIndex& index) { setKey(index.data(KeyRole).toByteArray()); });
    connect(m_treeButton, &QToolButton::clicked, this, &WorkerEdit::treeRequested);
}

void WorkerEdit::setWorkers(const QTextCodec* codec, CModelTable* workers, CModelTable* departments)
{
    m_names->clear();
    if (!workers)
        return;
    const CMDArray& rows = workers->data;
    for (int position = 0; position < rows.RecCount(); ++position) {
        const MDRData* record = MDARec(rows.array, 0, position);
        const QByteArray key = MDRValue::copy(value(rows, record, "KeyLink"));
        QString name = HfnWrapper::workerFullName(codec, workers, QString::fromUtf8(key));
        const QByteArray department = MDRValue::copy(value(rows, record, "DepartmentKey"));
        if (departments && !department.isEmpty()) {
            const MDRVar wanted = MDRValue::text(department);
            const MDRData* found = MDARecSeekV(departments->data.array, 0, &wanted, 0);
            const QByteArray departmentName =
                found ? MDRValue::copy(value(departments->data, found, "name_")) : QByteArray();
            if (!departmentName.isEmpty())
                name += QStringLiteral(", ") + codec->toUnicode(departmentName);
        }
        const MDRVar deleted = value(rows, record, "deleted_");
        auto* item = new QStandardItem(name);
        item->setData(key, KeyRole);
        item->setData(TextMatch::folded(name), FoldedRole);
        item->setData(deleted.type != mdr_TNone && !deleted.isNull && deleted.value.number != 0, DeletedRole);
        m_names->appendRow(item);
    }
    m_names->sort(0);
}

QString WorkerEdit::shownName(const QByteArray& key) const
{
    const QModelIndexList found = m_names->match(m_names->index(0, 0), KeyRole, key, 1, Qt::MatchExactly);
    return key.isEmpty() || found.isEmpty() ? QString() : found.first().data().toString();
}

void WorkerEdit::setWorkerKey(const QByteArray& key)
{
    m_key = key;
    m_line->setText(shownName(key));
    m_line->setCursorPosition(0);
    emit changed();
}

bool WorkerEdit::isResolved() const
{
    return m_line->text().trimmed().isEmpty() || !m_key.isEmpty();
}

void WorkerEdit::setReadOnly(bool readOnly)
{
    m_line->setReadOnly(readOnly);
    m_treeButton->setEnabled(!readOnly);
}

void WorkerEdit::offer(const QString& text)
{
    m_filter->setQuery(text);
    m_key.clear();
    emit changed();
}

void WorkerEdit::resolve(bool onlyOne)
{
    const int count = m_filter->rowCount();
    if (isResolved() || count == 0 || (onlyOne && count > 1))
        return;
    setWorkerKey(m_filter->index(0, 0).data(KeyRole).toByteArray());
}

void WorkerEdit::setKey(const QByteArray& key)
{
    if (m_key == key)
        return;
    m_key = key;
    emit changed();
}

bool WorkerEdit::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut) {
        // The list of names is a pop-up: the line gives the keyboard away to it without being left.
        if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
            resolve(true);
    } else if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !isResolved())
            resolve(false);
    }
    return QWidget::eventFilter(watched, event);
}

#include "WorkerEdit.moc"
