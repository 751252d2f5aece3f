#include "FilesPane.h"

#include "CModelTable.h"
#include "LogText.h"
#include "RecordValue.h"

#include <QDir>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QHeaderView>
#include <QStyle>
#include <QTableWidget>
#include <QTemporaryFile>
#include <QTextCodec>

FilesPane::FilesPane(QTableWidget* table, const Source& source, QObject* parent)
    : QObject(parent), m_table(table), m_source(source)
{
}

void FilesPane::reload(const MDRData* record)
{
    m_table->clear();
    m_table->setRowCount(0);
    if (!record)
        return;
    const MDRVar key = recordValue(record, "KeyLink");
    if (!MDRValue::hasText(key)) {
        LogText::warn(QStringLiteral("void %1::reloadFiles(MDRData*)").arg(m_source.owner),
                      QStringLiteral("can not reload files - KeyLink is empty!"));
        return;
    }

    const MDRRange files = MDARecsWith(m_source.files->data.array, "RecordKey", key.value.text.data);
    m_table->setColumnCount(1);
    m_table->setHorizontalHeaderLabels({tr("Наименование")});
    m_table->setRowCount(static_cast<int>(files.count));
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setAlternatingRowColors(true);
    int row = 0;
    for (const MDRData* file : files) {
        const QString name = m_source.codec->toUnicode(MDRValue::bytes(recordValue(file, "fileName")));
        auto* item = new QTableWidgetItem(name);
        item->setData(Qt::UserRole, QString::fromUtf8(MDRValue::copy(recordValue(file, "KeyLink"))));
        item->setData(Qt::DecorationRole, iconOf(name));
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        m_table->setItem(row++, 0, item);
    }
    m_table->selectRow(0);
}

QPixmap FilesPane::iconOf(const QString& fileName)
{
    constexpr int side = 16;
    const int dot = fileName.lastIndexOf(QLatin1Char('.'));
    const QString suffix = dot < 0 ? QString() : fileName.mid(dot);
    const auto known = m_icons.constFind(suffix);
    if (known != m_icons.constEnd())
        return *known;

    // The provider looks at real files only.
    QTemporaryFile sample(QDir::tempPath() + QStringLiteral("/XXXXXX%1").arg(suffix));
    if (sample.open())
        sample.close();
    QPixmap icon = QFileIconProvider().icon(QFileInfo(sample.fileName())).pixmap(side, side);
    if (icon.isNull())
        icon = m_table->style()->standardIcon(QStyle::SP_FileIcon).pixmap(side, side);
    m_icons.insert(suffix, icon);
    return icon;
}
