#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

/// Editors of the cells of a sheet: lists for references, flags, kinds, groups and rights, lines for other texts.
class SheetDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit SheetDelegate(QObject* parent = nullptr);

    /// Closes the open editor; its text gets into the model.
    void finish();

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

private:
    mutable QPointer<QWidget> m_editor; ///< the open one
};
