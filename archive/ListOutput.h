#pragma once

#include <functional>
#include <QObject>
#include <QStringList>
#include <QVector>

class CVrkCliMod;
class FileSaver;
class QAction;
class QTableView;
class VrkPreview;

/// Takes a list out of the program as it is shown: on paper or as PDF through the preview, or as a table for
/// spreadsheets. It adds its two actions, with their keys, to the module; the window gives them buttons, and
/// saver() a place.
class ListOutput : public QObject
{
    Q_OBJECT

public:
    /// What is written about the list.
    struct About {
        QString title;   ///< of the preview's window
        QString name;    ///< of a file, without suffix
        QString content; ///< which records these are; at the end of the document
        QString remark;  ///< shown when a table was saved, if it is not complete
    };

    /// \a about is called each time the list is put out.
    ListOutput(CVrkCliMod* module, QTableView* view, std::function<About()> about);

    FileSaver* saver() const { return m_saver; }
    QAction* printAction() const { return m_print; }
    QAction* tableAction() const { return m_table; }
    /// There is something to put out.
    void setEnabled(bool enabled);

    /// The headings and the rows of the visible columns in their order, as texts; icons as what they mean.
    static QVector<QStringList> rowsOf(const QTableView* view);

private:
    QAction* add(const char* name, const char* icon, const QString& text, const QKeySequence& key);
    void print();
    void saveTable();

    CVrkCliMod* m_module;
    QTableView* m_view;
    std::function<About()> m_about;
    FileSaver* m_saver;
    VrkPreview* m_preview;
    QAction* m_print;
    QAction* m_table;
};
