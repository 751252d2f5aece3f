#include "FilesPane.h"

#include "CModelTable.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "LocationInfo.h"
#include "LogbookFields.h"
#include "LogText.h"
#include "PageMessages.h"
#include "RecordValue.h"

#include <QDir>
#include <QFileIconProvider>
#include <QHeaderView>
#include <QStyle>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTextCodec>
#include <QToolButton>

FilesPane::FilesPane(const Controls& controls, const Source& source, QObject* parent)
    : QObject(parent), m_controls(controls), m_source(source)
{
    connect(m_controls.table, &QTableWidget::itemSelectionChanged, this, &FilesPane::updateFileDelete);
    connect(m_controls.table, &QTableWidget::itemSelectionChanged, this, &FilesPane::updateFileSave);
    connect(m_controls.table, &QTableWidget::cellDoubleClicked, this, &FilesPane::openFileRequest);
    connect(m_controls.create, &QToolButton::clicked, this, &FilesPane::createFileRequest);
    connect(m_controls.remove, &QToolButton::clicked, this, &FilesPane::deleteFileRequest);
    connect(m_controls.save, &QToolButton::clicked, this, &FilesPane::saveFileRequest);
}

FilesPane::~FilesPane() = default;

QString FilesPane::signature(const char* function) const
{
    return LogText::fill(QLatin1String(function), {m_source.owner});
}

void FilesPane::reload(const MDRData* record)
{
    QTableWidget* table = m_controls.table;
    table->clear();
    table->setRowCount(0);
    for (QToolButton* button : {m_controls.create, m_controls.remove, m_controls.save})
        button->setEnabled(false);
    if (!record)
        return;
    const MDRVar key = recordValue(record, "KeyLink");
    if (!MDRValue::hasText(key)) {
        LogText::warn(signature("void %1::reloadFiles(MDRData*)"),
                      QStringLiteral("can not reload files - KeyLink is empty!"));
        return;
    }

    const MDRRange files = MDARecsWith(m_source.files->data.array, "RecordKey", key.value.text.data);
    table->setColumnCount(1);
    table->setHorizontalHeaderLabels({tr("Наименование")});
    table->setRowCount(static_cast<int>(files.count));
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setAlternatingRowColors(true);
    if (!m_source.messages->isOpen()) // another message took the place of the question
        m_askedKey.clear();
    int row = 0;
    int asked = -1;
    for (const MDRData* file : files) {
        const QString name = nameOf(file);
        const QString fileKey = QString::fromUtf8(MDRValue::copy(recordValue(file, "KeyLink")));
        auto* item = new QTableWidgetItem(name);
        item->setData(Qt::UserRole, fileKey);
        item->setData(Qt::DecorationRole, iconOf(name));
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        if (fileKey == m_askedKey)
            asked = row;
        table->setItem(row++, 0, item);
    }
    // The answer meets the file that was asked about, or none.
    table->selectRow(m_askedKey.isEmpty() ? 0 : asked);
    updateButtons();
}

QPixmap FilesPane::iconOf(const QString& fileName)
{
    constexpr int side = 16;
    const int dot = fileName.lastIndexOf(QLatin1Char('.'));
    const QString suffix = dot < 0 ? QString() : fileName.mid(dot);
    const auto known = m_icons.constFind(suffix);
    if (known != m_icons.constEnd())
        return *known;

    // The provider looks at real files only. A suffix with a slash names no file of this folder.
    QTemporaryFile sample(QDir::tempPath() + QStringLiteral("/XXXXXX") +
                          (suffix.contains(QLatin1Char('/')) ? QString() : suffix));
    if (sample.open())
        sample.close();
    QPixmap icon = QFileIconProvider().icon(QFileInfo(sample.fileName())).pixmap(side, side);
    if (icon.isNull())
        icon = m_controls.table->style()->standardIcon(QStyle::SP_FileIcon).pixmap(side, side);
    m_icons.insert(suffix, icon);
    return icon;
}

QString FilesPane::currentKey() const
{
    const QTableWidgetItem* item = m_controls.table->currentItem();
    return item ? item->data(Qt::UserRole).toString() : QString();
}

MDRData* FilesPane::currentFile() const
{
    const QByteArray key = currentKey().toUtf8();
    if (key.isEmpty())
        return nullptr;
    const MDRRange found = MDARecsWith(m_source.files->data.array, "KeyLink", key.constData());
    return found.count > 0 ? found.data[0] : nullptr;
}

QString FilesPane::nameOf(const MDRData* file) const
{
    return m_source.module->session()->codec()->toUnicode(MDRValue::bytes(recordValue(file, "fileName")));
}

bool FilesPane::isChangeable() const
{
    const MDRData* record = m_source.currentRecord();
    return record && !hasStatus(record, StatusDeleted);
}

void FilesPane::updateButtons()
{
    updateFileCreate();
    updateFileDelete();
    updateFileSave();
}

void FilesPane::updateFileCreate()
{
    m_controls.create->setEnabled(isChangeable());
}

void FilesPane::updateFileDelete()
{
    const MDRVar worker = recordValue(currentFile(), "WorkerKey");
    m_controls.remove->setEnabled(isChangeable() && MDRValue::hasText(worker) &&
                                  MDRValue::bytes(worker) == m_source.location->workerKey().toUtf8());
}

void FilesPane::updateFileSave()
{
    m_controls.save->setEnabled(m_controls.table->currentRow() >= 0);
}
