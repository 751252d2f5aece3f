#pragma once

#include "RecordPane.h"

#include <memory>
#include <QHash>
#include <QIcon>

class QTableWidget;
class QTemporaryDir;
class QToolButton;

/// The pane with the files of the current record: lists them, attaches, opens, saves and deletes them.
/// Opened files are copies in a private folder that is deleted with the pane.
class FilesPane : public RecordPane
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
    /// \a page is the parent of file dialogs and keeps the path of a saved file in "saved_from_logbook"; not owned.
    FilesPane(const Controls& controls, const Source& source, QWidget* page, QObject* parent);
    ~FilesPane() override;

    /// Lists the files of a record in the order of their table; null lists none. The contents are not read.
    void reload(const MDRData* record);
    /// Updates which actions are enabled.
    void updateButtons();
    /// The action of the Delete key in the table.
    void deleteByKey();

private slots: // connected by name: the message box takes the slot's name
    void deleteFileAnswer(QAbstractButton* button);
    void openSavedFileAnswer(QAbstractButton* button);
    void openRunnableAnswer(QAbstractButton* button);

private:
    QPixmap iconOf(const QString& fileName);
    QString currentKey() const;
    MDRData* currentFile() const { return row(currentKey()); }
    QString nameOf(const MDRData* file) const;

    void updateFileCreate();
    void updateFileDelete();
    void updateFileSave();
    void createFileRequest();
    void attach(const QByteArray& recordKey, const QString& path, const QByteArray& content);
    void openFileRequest();
    /// Opens the file at \a path; asks first if it could run as a program.
    void open(const QString& path);
    /// A path for a copy to be opened, in a folder without other copies; empty on failure.
    QString temporaryPath(const QString& name);
    void saveFileRequest();
    void deleteFileRequest();

    Controls m_controls;
    QWidget* m_page;
    QHash<QString, QPixmap> m_icons; ///< by suffix
    std::unique_ptr<QTemporaryDir> m_opened;
    int m_openedCount = 0;
    QString m_runnable; ///< the path of the open question
};
