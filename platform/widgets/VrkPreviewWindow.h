#pragma once

#include "VrkPreviewPages.h"

#include <functional>
#include <memory>
#include <QMainWindow>

class QLabel;
class QPrinter;
class QPrintPreviewWidget;

/// The preview: pages as they will be printed, with printing and saving as PDF.
class VrkPreviewWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Questions to the user. Tests replace these functions.
    struct Asking {
        /// The file to write; empty if the user cancelled.
        std::function<QString(QWidget* parent, const QString& title, const QString& filter)> pdfFile;
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
    /// Writes all pages; false if the file cannot be written or the user cancelled: then an existing file
    /// is unchanged.
    bool savePdf(const QString& file);

private:
    /// Shows progress for many rows; false if the user cancelled; the pages painted so far remain.
    bool paintPages(QPrinter* printer);
    void print();
    void askPdf();
    QWidget* makeBar();
    void updatePageLabel();

    VrkPreviewPages m_pages;
    std::unique_ptr<QPrinter> m_printer;
    std::unique_ptr<QPrintPreviewWidget> m_preview; ///< destroyed before its printer
    QLabel* m_pageLabel;
    bool m_isCancelled = false; ///< refers to the last painting
};
