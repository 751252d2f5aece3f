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
    /// Writes all pages; false when the file cannot be written.
    bool savePdf(const QString& file);

private:
    void paintPages(QPrinter* printer);
    void print();
    void askPdf();
    void addActions();
    void updatePageLabel();

    QTextDocument* m_document;
    std::unique_ptr<QPrinter> m_printer;
    QPrintPreviewWidget* m_preview;
    QLabel* m_pageLabel;
};
