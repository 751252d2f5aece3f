#pragma once

#include "VrkExport.h"

#include <memory>
#include <QStringList>
#include <QWidget>

class CModelTable;
class QTextCodec;
struct MDRData;

/// The editor of a template's text: bold and struck-out passages, parameters as solid chips, a tree of the
/// available parameters next to it, and below it a preview as the journal shows the template to be filled.
///
/// A text that was not changed, or was restored by undo, is returned byte for byte. A changed text is
/// generated from the document: parameters keep all their properties in their order, template properties
/// come first and are unchanged. Content that the format does not support is dropped with a visible notice.
class VRK_EXPORT TemplateEditor : public QWidget
{
    Q_OBJECT

public:
    explicit TemplateEditor(QWidget* parent = nullptr);
    ~TemplateEditor() override;

    /// Code page of the texts in the tables; the texts of this class are decoded.
    void setTextCodec(QTextCodec* codec);
    /// TemplateParamCategories and TemplateParams. They belong to the caller and may be refilled at any
    /// time, followed by reloadParameters(); the widget keeps copies of the data it shows, never records.
    void setCatsParametersTable(CModelTable* table);
    void setParametersTable(CModelTable* table);
    /// The base names of the available parameters; an empty list allows all.
    void setParameterFilter(const QStringList& names);

    /// Not higher than the cell of a property table.
    QSize sizeHint() const override;

    /// False makes it read-only: the text can still be read, selected and copied.
    void setEnabled(bool enabled);
    bool isEnabled() const;

    /// Replaces the text. If the new text differs from the current one only in its template properties, the
    /// cursor and the undo history are kept. Does not emit templateChanged().
    void setTemplateText(const QString& html);
    /// Empties the editor; nothing is left to undo.
    void clearTemplateText();
    /// The current text with the template properties.
    QString templateText() const;

    /// Rebuilds the tree of parameters from the tables; keeps expanded branches and the current item.
    void reloadParameters();
    /// One row of either table has changed. Null is ignored.
    void updateParameters(MDRData* record);

signals:
    /// The user has changed the text; \a html equals templateText().
    void templateChanged(const QString& html);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
