#pragma once

#include <QHash>
#include <QIcon>
#include <QObject>

class CModelTable;
class QTableWidget;
class QTextCodec;
struct MDRData;

/// The pane with the files of the current record.
class FilesPane : public QObject
{
    Q_OBJECT

public:
    /// What the pane works on; nothing is owned.
    struct Source {
        QString owner;      ///< the page's class, for its log lines
        CModelTable* files; ///< LogbookFiles of the page
        QTextCodec* codec;
    };
    FilesPane(QTableWidget* table, const Source& source, QObject* parent);

    /// Lists the files of a record in the order of their table; null lists none. The contents are not read.
    void reload(const MDRData* record);

private:
    QPixmap iconOf(const QString& fileName);

    QTableWidget* m_table;
    Source m_source;
    QHash<QString, QPixmap> m_icons; ///< by suffix
};
