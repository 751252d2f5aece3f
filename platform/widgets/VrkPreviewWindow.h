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
    /// What the user is asked. Tests put operations of their own in their place.
    struct Asking {
        /// Where to write; empty when the user gave no place.
        std::function<QString(QWidget* parent, const QString& title, const QString& filter)> pdfFile;
        /// On which printer and how; false when the user has called it off.
        std::function<bool(QWidget* parent, QPrinter* printer)> printer;
    };
    /// In use for all windows.
    static Asking& asking();

    explicit VrkPreviewWindow(QWidget* parent);
    ~VrkPreviewWindow() override;

    /// Makes the pages of a table anew. False when the user has cancelled it: then there is nothing to show.
    bool setTable(const VrkPreviewTable& table);
    /// What is shown.
    const VrkPreviewTable& table() const { return m_pages.table(); }
    int pageCount() const;
    /// Writes all pages; false when the file cannot be written, or when the user has cancelled: then what was there
    /// before stays.
    bool savePdf(const QString& file);

private:
    /// Many rows show their progress; false when the user has cancelled, with the pages so far painted.
    bool paintPages(QPrinter* printer);
    void print();
    void askPdf();
    void addActions();
    void updatePageLabel();

    VrkPreviewPages m_pages;
    std::unique_ptr<QPrinter> m_printer;
    QPrintPreviewWidget* m_preview;
    QLabel* m_pageLabel;
    bool m_isCancelled = false; ///< the last painting
};
