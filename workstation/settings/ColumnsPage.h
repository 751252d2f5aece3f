#pragma once

#include "SettingsPage.h"

#include <QStringList>
#include <QVariantMap>

class QListWidget;
class QPushButton;
class QSpinBox;
class VrkTableTool;

/// Which columns the journal shows, in which order and width. It changes the tables of the open journal; the
/// memory of its window keeps them.
class ColumnsPage : public SettingsPage
{
    Q_OBJECT

public:
    /// \a tables: those of the open journal; none if it is closed. \a save: keeps the change.
    ColumnsPage(UserSettings* settings, std::function<QVector<VrkTableTool*>()> tables,
                std::function<void()> save, QWidget* parent = nullptr);

    void remember() override;
    void takeBack() override;
    void setDefaults() override;

private:
    struct State {
        QStringList order;
        QStringList hidden;
        QVariantMap widths;
    };

    QWidget* makeColumns();
    void showState();
    void showWidth();
    void apply();
    void applyWidth(int characters);
    void setState(const State& state);
    void move(int rows);

    std::function<QVector<VrkTableTool*>()> m_tables;
    std::function<void()> m_save;
    QListWidget* m_list;
    QSpinBox* m_width;
    QPushButton* m_up;
    QPushButton* m_down;
    State m_before; ///< remembered
};
