#pragma once

#include <functional>
#include <memory>
#include <QHash>
#include <QIcon>
#include <QObject>

class CModelTable;
class CRowBatch;
class CVrkCliMod;
class LocationInfo;
class PageMessages;
class QAbstractButton;
class QTableWidget;
class QTemporaryDir;
class QToolButton;
struct MDRData;

/// The pane with the files of the current record: lists them, attaches, opens, saves and deletes them. An action
/// changes nothing here: it writes to the server, and the page reloads by the change event. Opened files are copies in
/// a private folder that goes with the pane.
class FilesPane : public QObject
{
    Q_OBJECT

public:
    /// A larger file is refused.
    static constexpr qint64 sizeLimit = 5 * 1024 * 1024;

    struct Controls {
        QTableWidget* table;
        QToolButton* create;
        QToolButton* remove;
        QToolButton* save;
    };
    /// What the pane works on; nothing is owned.
    struct Source {
        QString owner; ///< the page's class, for its log lines
        QWidget* page; ///< parent of file dialogs; keeps the path of a saved file in "saved_from_logbook"
        CVrkCliMod* module;
        LocationInfo* location;
        CModelTable* files; ///< LogbookFiles of the page
        PageMessages* messages;
        std::function<MDRData*()> currentRecord;
    };
    FilesPane(const Controls& controls, const Source& source, QObject* parent);
    ~FilesPane() override;

    /// Lists the files of a record in the order of their table; null lists none. The contents are not read.
    void reload(const MDRData* record);
    /// Asks anew what may be done.
    void updateButtons();
    /// What the Delete key does in the table.
    void deleteByKey();

private slots: // by name: the message box takes the slot's name
    void deleteFileAnswer(QAbstractButton* button);
    void openSavedFileAnswer(QAbstractButton* button);

private:
    QPixmap iconOf(const QString& fileName);
    QString signature(const char* function) const;
    QString currentKey() const;
    MDRData* currentFile() const;
    QString nameOf(const MDRData* file) const;
    /// There is a current record that is not deleted.
    bool isChangeable() const;
    bool send(CRowBatch& batch) const;

    void updateFileCreate();
    void updateFileDelete();
    void updateFileSave();
    void createFileRequest();
    void attach(const QByteArray& recordKey, const QString& path, const QByteArray& content);
    void openFileRequest();
    /// A path for a copy to open, in a folder that no other copy is in; empty when there is none.
    QString temporaryPath(const QString& name);
    void saveFileRequest();
    void deleteFileRequest();

    Controls m_controls;
    Source m_source;
    QHash<QString, QPixmap> m_icons; ///< by suffix
    std::unique_ptr<QTemporaryDir> m_opened;
    int m_openedCount = 0;
    QString m_askedKey; ///< the file that the open question is about, empty without one
};
