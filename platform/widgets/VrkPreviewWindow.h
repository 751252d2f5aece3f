#pragma once

#include "VrkPreviewPages.h"

#include <functional>
#include <memory>
#include <QMainWindow>

class FileSaver;
class QLabel;
class QPagedPaintDevice;
class QPrinter;
class QPrintPreviewWidget;

/// The preview: pages as they will be printed, with printing and saving as PDF, HTML and a table for spreadsheets
/// (FileSaver).
class VrkPreviewWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Questions to the user. Tests replace this function.
    struct Asking {
        /// Chooses the printer and its settings; false if the user cancelled.
        std::function<bool(QWidget* parent, QPrinter* printer)> printer;
    };
    /// Used by all windows.
    static Asking& asking();

    explicit VrkPreviewWindow(QWidget* parent);
    ~VrkPreviewWindow() override;

    /// Rebuilds the pages from a table. False if the user cancelled: then there is nothing to show.
    bool setTable(const VrkPreviewTable& table);
    /// The shown table.
    const VrkPreviewTable& table() const { return m_pages.table(); }
    int pageCount() const;
    /// The place and the name, without suffix, that are proposed for the file.
    void setFile(const QString& folder, const QString& name);
    /// Writes all pages; false if the file cannot be written or the user cancelled: then an existing file
    /// is unchanged.
    bool savePdf(const QString& file);

private:
    /// Shows progress for many rows.
    bool withProgress(const std::function<bool(const VrkPreviewPages::Progress&)>& work);
    /// False if the user cancelled; the pages painted so far remain.
    bool paintPages(QPagedPaintDevice* device);
    bool writePdf(QByteArray* bytes);
    void print();
    FileSaver* addSaver(const char* name, const QString& title, const QString& filter, const char* suffix);
    void save(FileSaver* saver, const std::function<bool(QByteArray* bytes)>& content);
    void addSaving(const std::function<void(const char*, const QString&, const QKeySequence&,
                                            const std::function<void()>&)>& add);
    QWidget* makeBar();
    void updatePageLabel();

    VrkPreviewPages m_pages;
    std::unique_ptr<QPrinter> m_printer;
    std::unique_ptr<QPrintPreviewWidget> m_preview; ///< destroyed before its printer
    QLabel* m_pageLabel;
    FileSaver* m_saver;
    FileSaver* m_htmlSaver;
    FileSaver* m_tableSaver;
    QString m_folder;
    QString m_fileName;
    bool m_isCancelled = false; ///< refers to the last painting
};
