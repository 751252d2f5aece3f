#pragma once

#include <QLabel>

class CModelTable;
class CVrkCliSes;
struct MDRData;

/// The lines in a small dialog that show its record: when and by whom it was written, and how its text
/// begins. As wide as the dialog; the full text is in the tool tip.
class RecordTitle : public QLabel
{
    Q_OBJECT

public:
    explicit RecordTitle(QWidget* parent);

    /// Null hides the lines.
    void showRecord(const MDRData* record, CVrkCliSes* session, CModelTable* workers);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void elide();

    QStringList m_lines;
};
