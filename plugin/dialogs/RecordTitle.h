#pragma once

#include <QLabel>

class CModelTable;
class CVrkCliSes;
struct MDRData;

/// The lines in a small dialog that name the record which it acts on: when it was written and by whom, and how its text
/// begins. As wide as the dialog; what has no room stands in the tool tip.
class RecordTitle : public QLabel
{
    Q_OBJECT

public:
    explicit RecordTitle(QWidget* parent);

    /// Null names none and hides the lines.
    void showRecord(const MDRData* record, CVrkCliSes* session, CModelTable* workers);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void elide();

    QStringList m_lines;
};
