#pragma once

#include "FoundFilter.h"

#include <QMap>
#include <QWidget>

class CVrkCliMod;
class KeyNames;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;
class RecordList;

/// The rows "Среди найденного" over a list of records: they hide what does not fit, and say how many records that is.
/// Nothing is searched again; the conditions stay for the next search.
class FilterBar : public QWidget
{
    Q_OBJECT

public:
    explicit FilterBar(QWidget* parent = nullptr);

    /// Call it once, after the list's own init(). Nothing is owned.
    void init(CVrkCliMod* module, const KeyNames* names, RecordList* list);
    /// The list was filled again.
    void refresh();
    /// Shows everything.
    void reset();
    int hidden() const;
    /// "скрыто 12 записей"; empty if nothing is hidden.
    QString hiddenText() const;

signals:
    /// Other records are hidden now.
    void changed();

private:
    QToolButton* addSwitch(const char* name, const QString& text, const QString& tip);
    QComboBox* addChoice(const char* name, const QString& tip, int letters);
    void fillChoices();
    static void fill(QComboBox* choice, const QString& any, QMap<QByteArray, QString> names);
    bool readFiles();
    void apply();

    CVrkCliMod* m_module = nullptr;
    const KeyNames* m_names = nullptr;
    RecordList* m_list = nullptr;
    QHBoxLayout* m_row;
    FoundFilter* m_filter;
    QLineEdit* m_text;
    QComboBox* m_author;
    QComboBox* m_marker;
    QComboBox* m_equipment;
    QToolButton* m_marked;
    QToolButton* m_undone;
    QToolButton* m_files;
    QLabel* m_hidden;
    QPushButton* m_all;
};
