#pragma once

#include <memory>
#include <QMainWindow>

class QLabel;
class QPrinter;
class QPrintPreviewWidget;
class QTextDocument;

/// The preview: pages as they will be printed, with printing and saving as PDF.
class VrkPreviewWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit VrkPreviewWindow(QWidget* parent);
    ~VrkPreviewWindow() override;

    /// Filled by the owner before showing; call updatePreview() afterwards.
    QTextDocument* document() const { return m_document; }
    void updatePreview();
    int pageCount() const;
    /// Writes all pages; false when the file cannot be written, or when the user has cancelled: then no file is left.
    bool savePdf(const QString& file);

private:
    /// Many pages show their progress; false when the user has cancelled, with the pages so far painted.
    bool paintPages(QPrinter* printer);
    void print();
    void askPdf();
    void addActions();
    void updatePageLabel();

    QTextDocument* m_document;
    std::unique_ptr<QPrinter> m_printer;
    QPrintPreviewWidget* m_preview;
    QLabel* m_pageLabel;
    bool m_isCancelled = false; ///< the last painting
};
