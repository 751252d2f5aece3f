#include "FilesPane.h"

#include "CModelTable.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "LogText.h"
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

FilesPane::FilesPane(const Controls& controls, const Source& source, QWidget* page, QObject* parent)
    : RecordPane(source, parent), m_controls(controls), m_page(page)
{
    connect(m_controls.table, &QTableWidget::itemSelectionChanged, this, &FilesPane::updateFileDelete);
    connect(m_controls.table, &QTableWidget::itemSelectionChanged, this, &FilesPane::updateFileSave);
    connect(m_controls.table, &QTableWidget::cellDoubleClicked, this, &FilesPane::openFileRequest);
    connect(m_controls.create, &QToolButton::clicked, this, &FilesPane::createFileRequest);
    connect(m_controls.remove, &QToolButton::clicked, this, &FilesPane::deleteFileRequest);
    connect(m_controls.save, &QToolButton::clicked, this, &FilesPane::saveFileRequest);
}

FilesPane::~FilesPane() = default;

void FilesPane::reload(const MDRData* record)
{
    QTableWidget* table = m_controls.table;
    table->clear();
    table->setRowCount(0);
    for (QToolButton* button : {m_controls.create, m_controls.remove, m_controls.save})
        button->setEnabled(false);
    if (!record)
        return;
    const MDRVar key = Row(record).value(Field::KeyLink);
    if (!MDRValue::hasText(key)) {
        LogText::warn(signature("void %1::reloadFiles(MDRData*)"),
                      QStringLiteral("can not reload files - KeyLink is empty!"));
        return;
    }

    const MDRRange files = MDARecsWith(source().table->data.array, Field::RecordKey, key.value.text.data);
    table->setColumnCount(1);
    table->setHorizontalHeaderLabels({tr("Наименование")});
    table->setRowCount(static_cast<int>(files.count));
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setAlternatingRowColors(true);
    const QString askedFile = askedKey();
    int position = 0;
    int asked = -1;
    for (const MDRData* file : files) {
        const QString name = nameOf(file);
        const QString fileKey = QString::fromUtf8(Row(file).key());
        auto* item = new QTableWidgetItem(name);
        item->setData(Qt::UserRole, fileKey);
        item->setData(Qt::DecorationRole, iconOf(name));
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        if (fileKey == askedFile)
            asked = position;
        table->setItem(position++, 0, item);
    }
    // The answer applies to the file of the question, or to none.
    table->selectRow(askedFile.isEmpty() ? 0 : asked);
    updateButtons();
}

QPixmap FilesPane::iconOf(const QString& fileName)
{
    constexpr int side = 16;
    const QString suffix = QFileInfo(fileName).suffix();
    const auto known = m_icons.constFind(suffix);
    if (known != m_icons.constEnd())
        return *known;

    // The icon provider reads only real files. A suffix has no slash, so the file is in this folder.
    QTemporaryFile sample(QDir::tempPath() + QStringLiteral("/XXXXXX.") + suffix);
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

QString FilesPane::nameOf(const MDRData* file) const
{
    return Row(file).text(Field::fileName, source().module->session()->codec());
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
    m_controls.remove->setEnabled(isChangeable() && isMine(currentFile()));
}

void FilesPane::updateFileSave()
{
    m_controls.save->setEnabled(m_controls.table->currentRow() >= 0);
}
