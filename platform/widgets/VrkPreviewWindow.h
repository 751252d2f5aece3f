#pragma once

#include "VrkPreviewPages.h"

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
    explicit VrkPreviewWindow(QWidget* parent);
    ~VrkPreviewWindow() override;

    /// Makes the pages of a table anew. False when the user has cancelled it: then there is nothing to show.
    bool setTable(const VrkPreviewTable& table);
    /// What is shown.
    const VrkPreviewTable& table() const { return m_pages.table(); }
    int pageCount() const;
    /// Writes all pages; false when the file cannot be written, or when the user has cancelled: then no file is left.
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
