#pragma once

#include <QObject>

class CModelTable;
class LocationInfo;
class QListWidget;
class QTextCodec;
struct MDRData;

/// The pane with the comments of the current record.
class CommentsPane : public QObject
{
    Q_OBJECT

public:
    /// What the pane works on; nothing is owned.
    struct Source {
        QString owner;         ///< the page's class, for its log lines
        CModelTable* comments; ///< LogbookComments of the page
        LocationInfo* location;
        QTextCodec* codec;
    };
    CommentsPane(QListWidget* list, const Source& source, QObject* parent);

    /// Lists the comments of a record in the order of their table; null lists none.
    void reload(const MDRData* record);

private:
    QListWidget* m_list;
    Source m_source;
};
